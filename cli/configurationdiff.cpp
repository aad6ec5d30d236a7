#include "cli/configurationdiff.h"

#include <QCoreApplication>
#include <QHash>

#include <algorithm>
#include <iterator>
#include <type_traits>

#include "cli/fieldtext.h"
#include "cli/rowpairs.h"

namespace Cli {
namespace {

// jex shows them as they are; a window in its language.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Cli::Difference)
};

// The name of a field, or a word that it holds.
QString wordOf(const char *word)
{
    return QCoreApplication::translate("JEX", word);
}

Json shown(const QString &text)
{
    return QUtil::toUtf8(text);
}

// Of the same record kind it is the field itself; a core of the other mode may not have it (null).
template <class Other, class Record>
const JEX::Field<Other> *counterpart(const JEX::Field<Record> &field)
{
    if constexpr (std::is_same_v<Other, Record>)
        return &field;
    for (const JEX::Field<Other> &other : JEX::fieldsOf<Other>()) {
        if (qstrcmp(other.name, field.name) == 0)
            return &other;
    }
    return nullptr;
}

template <class Record>
bool differ(const JEX::Field<Record> &field, const Record &a, const JEX::Field<Record> &, const Record &b)
{
    return !field.isSame(a, b);
}

template <class Older, class Newer>
bool differ(const JEX::Field<Older> &before, const Older &a, const JEX::Field<Newer> &now, const Newer &b)
{
    return valueOf(before, a) != valueOf(now, b);
}

template <class Record>
Json shownValue(const JEX::Field<Record> &field, const Record &record)
{
    const Json value = valueOf(field, record);
    if (value.is_null())
        return shown(Texts::tr("none"));
    return field.rule.kind == JEX::Rule::Words ? shown(wordOf(value.get<std::string>().c_str())) : value;
}

bool areCapturedRows(const RTLJEX::AnyCore &core)
{
    QList<JEX::SignalItem> captured;
    std::copy_if(core.signalRows->begin(), core.signalRows->end(), std::back_inserter(captured),
                 [](const JEX::SignalItem &item) { return item.capEnable; });
    return captured == *core.enabledRows;
}

class Comparison
{
public:
    QList<Difference> found;

    void compareFiles(const RTLJEX::Configuration &older, const RTLJEX::Configuration &newer)
    {
        if (older.mode() != newer.mode())
            add({}, "changed", Texts::tr("mode"), shown(older.modeName()), shown(newer.modeName()));
        QHash<int, RTLJEX::AnyCore> before;
        QStringList numbers, oldNumbers;
        for (const RTLJEX::AnyCore &core : newer.cores())
            numbers << QString::number(core.number);
        for (const RTLJEX::AnyCore &core : older.cores()) {
            before.insert(core.number, core);
            oldNumbers << QString::number(core.number);
        }
        for (const RowPair &pair : pairRows(oldNumbers, numbers)) {
            if (pair.isMoved)
                addCore(numbers.at(pair.to).toInt(), "moved", pair.from + 1, pair.to + 1);
        }
        for (const RTLJEX::AnyCore &core : newer.cores()) {
            m_core = core.number;
            if (before.contains(core.number))
                compareCores(before.take(core.number), core);
            else
                addCore(core.number, "added", nullptr, core.signalRows->size());
        }
        for (const RTLJEX::AnyCore &core : older.cores()) {
            if (before.contains(core.number))
                addCore(core.number, "removed", core.signalRows->size(), nullptr);
        }
    }

private:
    void add(const QString &place, const QString &what, const QString &name, const Json &from, const Json &to)
    {
        found.append({m_core, place, what, name, from, to});
    }

    void addCore(int number, const QString &what, const Json &from, const Json &to)
    {
        m_core = number;
        add({}, what, "core", from, to);
    }

    void compareCores(const RTLJEX::AnyCore &a, const RTLJEX::AnyCore &b)
    {
        a.visit([&](const auto &older) {
            b.visit([&](const auto &newer) { compareFields(QString(), older, newer); });
        });
        if (a.standard && b.standard)
            compareTriggers(*a.standard, *b.standard);
        compareRows(Texts::tr("capture"), *a.signalRows, *b.signalRows);
        // What is captured follows from the rows, in every file that an editor wrote.
        if (!areCapturedRows(a) || !areCapturedRows(b))
            compareRows(Texts::tr("captured"), *a.enabledRows, *b.enabledRows);
    }

    // What a user set comes first. What only one of two modes has is not worth a line beside the mode.
    template <class Older, class Newer>
    void compareFields(const QString &place, const Older &a, const Newer &b)
    {
        for (JEX::FieldPart part : {JEX::SettingPart, JEX::NaturePart}) {
            for (const JEX::Field<Newer> &now : JEX::fieldsOf<Newer>()) {
                const JEX::Field<Older> *before = now.part == part ? counterpart<Older>(now) : nullptr;
                if (before && differ(*before, a, now, b))
                    add(place, "changed", wordOf(now.title), shownValue(*before, a), shownValue(now, b));
            }
        }
    }

    void compareTriggers(const JEX::AoCore &a, const JEX::AoCore &b)
    {
        for (int i = 0; i < b.triggerPorts.size(); ++i)
            compareRows(Texts::tr("trigger port %1").arg(i), a.triggerPorts.at(i)->signalItems,
                        b.triggerPorts.at(i)->signalItems);
        for (int i = 0; i < b.matchUnits.size(); ++i)
            compareFields(Texts::tr("match unit M%1").arg(i), *a.matchUnits.at(i), *b.matchUnits.at(i));
        for (const RowPair &pair : pairRows(a.expressions, b.expressions))
            addExpression(pair, a.expressions.value(pair.from), b.expressions.value(pair.to));
    }

    void addExpression(const RowPair &pair, const QString &before, const QString &now)
    {
        if (pair.from >= 0 && pair.to >= 0 && before != now)
            add({}, "changed", Texts::tr("expression %1").arg(pair.to + 1), shown(before), shown(now));
        else
            addPair(Texts::tr("expression"), pair, before, now);
    }

    void compareRows(const QString &place, const QList<JEX::SignalItem> &a, const QList<JEX::SignalItem> &b)
    {
        QStringList before, now;
        for (const JEX::SignalItem &item : a)
            before << item.name;
        for (const JEX::SignalItem &item : b)
            now << item.name;
        for (const RowPair &pair : pairRows(before, now)) {
            addPair(place, pair, before.value(pair.from), now.value(pair.to));
            if (pair.from >= 0 && pair.to >= 0)
                compareItems(place, a.at(pair.from), b.at(pair.to));
        }
    }

    void addPair(const QString &place, const RowPair &pair, const QString &before, const QString &now)
    {
        if (pair.from < 0)
            add(place, "added", now, nullptr, pair.to + 1);
        else if (pair.to < 0)
            add(place, "removed", before, pair.from + 1, nullptr);
        else if (before != now)
            add(place, "renamed", before, shown(before), shown(now));
        else if (pair.isMoved)
            add(place, "moved", now, pair.from + 1, pair.to + 1);
    }

    void compareItems(const QString &place, const JEX::SignalItem &a, const JEX::SignalItem &b)
    {
        const QString row = place + ' ' + b.name;
        compareFields(row, a, b);
        // The bits of a bus with another name have other names as well.
        if (a.name == b.name)
            compareRows(row, a.members, b.members);
    }

    int m_core = -1;
};

// "1024", "rising"; quotes around what may be empty or hold blanks.
QString quotedText(const Json &value)
{
    if (value.is_boolean())
        return value.get<bool>() ? Texts::tr("true") : Texts::tr("false");
    const QString text = valueText(value);
    return text.isEmpty() || text.contains(' ') ? '"' + text + '"' : text;
}

} // namespace

QList<Difference> differences(const RTLJEX::Configuration &older, const RTLJEX::Configuration &newer)
{
    Comparison comparison;
    comparison.compareFiles(older, newer);
    return comparison.found;
}

QString differenceSentence(const Difference &difference)
{
    const QString from = quotedText(difference.from);
    const QString to = quotedText(difference.to);
    const bool isCore = difference.name == "core" && difference.place.isEmpty();
    if (isCore && difference.what != "moved")
        return (difference.what == "added" ? Texts::tr("Core %1 was added")
                                           : Texts::tr("Core %1 was removed"))
            .arg(difference.core);
    if (isCore)
        return Texts::tr("Core %1 moved from place %2 to place %3").arg(difference.core).arg(from, to);
    QString text = difference.core < 0 ? Texts::tr("File: ") : Texts::tr("Core %1: ").arg(difference.core);
    if (!difference.place.isEmpty())
        text += difference.place + ": ";
    text += difference.name;
    if (difference.what == "added")
        return Texts::tr("%1 was added at row %2").arg(text, to);
    if (difference.what == "removed")
        return Texts::tr("%1 was removed from row %2").arg(text, from);
    if (difference.what == "moved")
        return Texts::tr("%1 moved from row %2 to row %3").arg(text, from, to);
    if (difference.what == "renamed")
        return Texts::tr("%1 was renamed to %2").arg(text, to);
    return Texts::tr("%1 changed from %2 to %3").arg(text, from, to);
}

} // namespace Cli
