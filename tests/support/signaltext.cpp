#include "signaltext.h"

#include <QStringList>

namespace {

QString kindLetter(int type)
{
    return type == 0 ? "s" : type == 1 ? "b" : type == -1 ? "g" : QString::number(type);
}

JEX::SignalItem fromWord(QString word, int defaultType)
{
    JEX::SignalItem item;
    item.type = defaultType;
    for (; QString("!~^").contains(word.at(0)); word.remove(0, 1)) {
        item.capEnable = item.capEnable && word.at(0) != '!';
        item.valid = item.valid && word.at(0) != '~';
        item.auxFlag = item.auxFlag && word.at(0) != '^';
    }
    if (word.mid(1, 1) == ":") {
        item.type = word.at(0) == 's' ? 0 : word.at(0) == 'b' ? 1 : -1;
        word.remove(0, 2);
    }
    const int brace = word.indexOf('{');
    if (brace >= 0) {
        for (const QString &member : word.mid(brace + 1, word.size() - brace - 2).split(','))
            item.members.append(fromWord(member, 1));
        word.truncate(brace);
    }
    item.name = word.section('=', 0, 0);
    item.alias = word.section('=', 1);
    return item;
}

} // namespace

JEX::SignalItem signalFromText(const QString &word)
{
    return fromWord(word, -1);
}

QList<JEX::SignalItem> signalsFromText(const QString &text)
{
    QList<JEX::SignalItem> items;
    for (const QString &word : text.split(' ', Qt::SkipEmptyParts))
        items.append(signalFromText(word));
    return items;
}

QString toText(const JEX::SignalItem &item)
{
    QString text = QString(item.capEnable ? "" : "!") + (item.valid ? "" : "~") + (item.auxFlag ? "" : "^") +
                   kindLetter(item.type) + ":" + item.name;
    if (!item.alias.isEmpty())
        text += "=" + item.alias;
    QStringList members;
    for (const JEX::SignalItem &member : item.members)
        members.append(toText(member).replace("b:", ""));
    return members.isEmpty() ? text : text + "{" + members.join(",") + "}";
}

QString toText(const QList<JEX::SignalItem> &items)
{
    QStringList words;
    for (const JEX::SignalItem &item : items)
        words.append(toText(item));
    return words.join(' ');
}
