#pragma once

#include <QStringList>

#include "model/jex/signalitem.h"

// Signal records written as text, one word each:
//
//   s:clk              a single net                 b:a[3]         a bit of a bus
//   b:a[1:0]{a[1],a[0]}  a bus                      g:group_0[1:0]{s:x,b:y}   a group
//   s:clk=CLOCK        with an alias
//   !s:x  disabled     ~s:x  not valid     ^s:x  without the library's flag
//
// Members of a bus are bits unless they say otherwise, other words are of the default type.
inline JEX::SignalItem signalFromText(QString word, int defaultType = -1)
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
            item.members.append(signalFromText(member, 1));
        word.truncate(brace);
    }
    item.name = word.section('=', 0, 0);
    item.alias = word.section('=', 1);
    return item;
}

// "top/clk" is a net, "top/a[3:0]" a bus with all its bits, in either direction.
inline JEX::SignalItem signalNamed(const QString &name)
{
    JEX::SignalItem item;
    item.name = name;
    item.type = JEX::NetKind;
    const int open = name.lastIndexOf('['), colon = name.indexOf(':', open);
    if (open < 0 || colon < 0)
        return item;
    item.type = JEX::BusKind;
    const int left = name.mid(open + 1, colon - open - 1).toInt(),
              right = name.mid(colon + 1).chopped(1).toInt(), step = left < right ? 1 : -1;
    for (int bit = left; bit != right + step; bit += step) {
        item.members << signalNamed(QString("%1[%2]").arg(name.left(open)).arg(bit));
        item.members.last().type = JEX::BusKind;
    }
    return item;
}

inline QList<JEX::SignalItem> signalsFromText(const QString &text)
{
    QList<JEX::SignalItem> items;
    for (const QString &word : text.split(' ', Qt::SkipEmptyParts))
        items.append(signalFromText(word));
    return items;
}

inline QString toText(const JEX::SignalItem &item)
{
    const bool isKnown = qAbs(item.type) <= 1;
    QString text = QString(item.capEnable ? "" : "!") + (item.valid ? "" : "~") + (item.auxFlag ? "" : "^") +
                   (isKnown ? QString("gsb").mid(item.type + 1, 1) : QString::number(item.type)) + ":" +
                   item.name;
    if (!item.alias.isEmpty())
        text += "=" + item.alias;
    QStringList members;
    for (const JEX::SignalItem &member : item.members)
        members.append(toText(member).replace("b:", ""));
    return members.isEmpty() ? text : text + "{" + members.join(",") + "}";
}

inline QString toText(const QList<JEX::SignalItem> &items)
{
    QStringList words;
    for (const JEX::SignalItem &item : items)
        words.append(toText(item));
    return words.join(' ');
}
