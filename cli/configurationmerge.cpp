#include "cli/configurationmerge.h"

#include <QHash>
#include <QSet>
#include <algorithm>

#include "cli/configurationdiff.h"
#include "cli/corerows.h"
#include "cli/fieldtext.h"

namespace Cli {
namespace {

// A row of a list that both sides changed, by what it is known by; its position in each list, or -1.
struct Row
{
    int base = -1;
    int ours = -1;
    int theirs = -1;
};

QHash<QString, int> positions(const QStringList &names)
{
    QHash<QString, int> places;
    for (int i = names.size() - 1; i >= 0; --i)
        places.insert(names.at(i), i);
    return places;
}

// Of the names that all three have, in the order of the list.
QStringList common(const QStringList &list, const QHash<QString, int> &a, const QHash<QString, int> &b)
{
    QStringList names;
    std::copy_if(list.begin(), list.end(), std::back_inserter(names),
                 [&](const QString &name) { return a.contains(name) && b.contains(name); });
    return names;
}

class Merge
{
public:
    QStringList conflicts;

    void mergeCores(const RTLJEX::AnyCore &base, const RTLJEX::AnyCore &theirs, const RTLJEX::AnyCore &ours)
    {
        m_place = QString("Core %1").arg(ours.number);
        ours.visit([&](auto &record) {
            typedef std::decay_t<decltype(record)> Core;
            mergeFields(m_place, base.as<Core>(), theirs.as<Core>(), record);
        });
        if (ours.standard)
            mergeTriggers(*base.standard, *theirs.standard, *ours.standard);
        const QList<JEX::SignalItem> rows =
            mergedRows(m_place + ": capture", *base.signalRows, *theirs.signalRows, *ours.signalRows);
        // Adding nothing puts the disabled rows last.
        setCaptureRows(ours, RTLJEX::withCaptureSignals(rows, {}));
    }

private:
    static QString shownValue(const Json &value)
    {
        return value.is_null() ? "none" : '"' + valueText(value) + '"';
    }

    void clash(const QString &place, const QString &ours, const QString &theirs)
    {
        conflicts << place + ": " + ours + " here, " + theirs + " there";
    }

    template <class Record>
    void mergeFields(const QString &place, const Record &base, const Record &theirs, Record &ours)
    {
        for (const JEX::Field<Record> &field : JEX::fieldsOf<Record>()) {
            if (field.isSame(base, theirs) || field.isSame(ours, theirs))
                continue;
            if (field.isSame(base, ours))
                copy(field, theirs, ours);
            else
                clash(place + ": " + field.title, shownValue(valueOf(field, ours)),
                      shownValue(valueOf(field, theirs)));
        }
    }

    // A port is a pointer into its own core.
    template <class Record>
    void copy(const JEX::Field<Record> &field, const Record &from, Record &to)
    {
        if (field.kind == JEX::NumberField)
            to.*field.number = from.*field.number;
        else if (field.kind == JEX::FlagField)
            to.*field.flag = from.*field.flag;
        else if (field.kind == JEX::TextField)
            to.*field.text = from.*field.text;
        else
            to.*field.port = m_core->getTrigger(field.numberOf(from));
    }

    void mergeTriggers(const JEX::AoCore &base, const JEX::AoCore &theirs, JEX::AoCore &ours)
    {
        m_core = &ours;
        for (int i = 0; i < ours.triggerPorts.size(); ++i) {
            QList<JEX::SignalItem> &rows = ours.triggerPorts[i]->signalItems;
            rows = mergedRows(m_place + QString(": trigger port %1").arg(i),
                              base.triggerPorts.at(i)->signalItems, theirs.triggerPorts.at(i)->signalItems,
                              rows);
        }
        for (int i = 0; i < ours.matchUnits.size(); ++i)
            mergeFields(m_place + QString(": match unit M%1").arg(i), *base.matchUnits.at(i),
                        *theirs.matchUnits.at(i), *ours.matchUnits.at(i));
        // They are levels that follow each other, so two changed lists have no order that both mean.
        if (base.expressions == ours.expressions)
            ours.expressions = theirs.expressions;
        else if (theirs.expressions != base.expressions && theirs.expressions != ours.expressions)
            clash(m_place + ": expressions", ours.expressions.join("; "), theirs.expressions.join("; "));
    }

    static QStringList namesOf(const QList<JEX::SignalItem> &rows)
    {
        QStringList names;
        for (const JEX::SignalItem &row : rows)
            names << row.name;
        return names;
    }

    // The order of ours, or that of theirs where only they moved rows; what the other side added stands
    // behind the row that it follows there.
    QStringList mergedOrder(const QString &place, const QStringList &base, const QStringList &theirs,
                            const QStringList &ours)
    {
        const QHash<QString, int> inBase = positions(base), inOurs = positions(ours),
                                  inTheirs = positions(theirs);
        const QStringList before = common(base, inOurs, inTheirs);
        const QStringList here = common(ours, inBase, inTheirs);
        const QStringList there = common(theirs, inBase, inOurs);
        const bool takesTheirs = before == here && before != there;
        if (before != here && before != there && here != there)
            clash(place, "another order", "a third one");
        QStringList order = takesTheirs ? theirs : ours;
        const QStringList &other = takesTheirs ? ours : theirs;
        QHash<QString, QStringList> behind; // a row of the order, or nothing for the first place
        QString last;
        const QHash<QString, int> known = takesTheirs ? inTheirs : inOurs;
        for (const QString &name : other) {
            if (known.contains(name))
                last = name;
            else
                behind[last] << name;
        }
        QStringList merged = behind.value(QString());
        for (const QString &name : qAsConst(order))
            merged << name << (name.isEmpty() ? QStringList() : behind.value(name));
        return merged;
    }

    QList<JEX::SignalItem> mergedRows(const QString &place, const QList<JEX::SignalItem> &base,
                                      const QList<JEX::SignalItem> &theirs,
                                      const QList<JEX::SignalItem> &ours)
    {
        if (theirs == base || theirs == ours)
            return ours;
        if (ours == base)
            return theirs;
        const QStringList baseNames = namesOf(base), theirNames = namesOf(theirs), ourNames = namesOf(ours);
        const QHash<QString, int> inBase = positions(baseNames), inTheirs = positions(theirNames),
                                  inOurs = positions(ourNames);
        if (inBase.size() != base.size() || inTheirs.size() != theirs.size() ||
            inOurs.size() != ours.size()) {
            clash(place, "changed rows", "other ones, and names that stand twice");
            return ours;
        }
        QList<JEX::SignalItem> rows;
        for (const QString &name : mergedOrder(place, baseNames, theirNames, ourNames)) {
            const Row row = {inBase.value(name, -1), inOurs.value(name, -1), inTheirs.value(name, -1)};
            if (row.ours >= 0 && row.theirs >= 0)
                rows << mergedRow(place + ' ' + name, base.value(row.base), theirs.at(row.theirs),
                                  ours.at(row.ours));
            else if (keepsLoneRow(place + ' ' + name, row, base,
                                  row.ours >= 0 ? ours.at(row.ours) : theirs.at(row.theirs)))
                rows << (row.ours >= 0 ? ours.at(row.ours) : theirs.at(row.theirs));
        }
        return rows;
    }

    // A row that one side does not have was added by the other one, or removed here, or removed there.
    bool keepsLoneRow(const QString &place, const Row &row, const QList<JEX::SignalItem> &base,
                      const JEX::SignalItem &item)
    {
        if (row.base < 0)
            return true;
        if (base.at(row.base) == item)
            return false;
        clash(place, row.ours >= 0 ? "changed" : "removed", row.ours >= 0 ? "removed" : "changed");
        return row.ours >= 0;
    }

    JEX::SignalItem mergedRow(const QString &place, const JEX::SignalItem &base,
                              const JEX::SignalItem &theirs, JEX::SignalItem ours)
    {
        mergeFields(place, base, theirs, ours);
        ours.members = mergedRows(place, base.members, theirs.members, ours.members);
        return ours;
    }

    QString m_place;
    JEX::AoCore *m_core = nullptr;
};

// The numbers of the cores that both have and that are not the same.
QSet<int> changedCores(const RTLJEX::Configuration &older, const RTLJEX::Configuration &newer)
{
    QSet<int> numbers;
    for (const Difference &difference : differences(older, newer)) {
        if (difference.name != "core" || !difference.place.isEmpty())
            numbers.insert(difference.core);
    }
    return numbers;
}

template <class Core>
int placeOf(const QList<Core *> &cores, int number)
{
    const auto place = std::find_if(cores.begin(), cores.end(),
                                    [number](const Core *core) { return core->coreNumber == number; });
    return place == cores.end() ? -1 : int(place - cores.begin());
}

// Cores that only one side has; those of theirs move over.
template <class Core>
void mergeLists(RTLJEX::Configuration &base, RTLJEX::Configuration &theirs, RTLJEX::Configuration &ours,
                QList<Core *> &here, QStringList &conflicts)
{
    QList<Core *> &there = theirs.coresOf<Core>();
    const QList<Core *> &before = base.coresOf<Core>();
    const QSet<int> changedHere = changedCores(base, ours), changedThere = changedCores(base, theirs);
    for (int i = here.size() - 1; i >= 0; --i) {
        const int number = here.at(i)->coreNumber;
        if (placeOf(there, number) >= 0 || placeOf(before, number) < 0)
            continue;
        if (changedHere.contains(number))
            conflicts << QString("Core %1: changed here, removed there").arg(number);
        else
            delete here.takeAt(i);
    }
    for (int i = 0; i < there.size(); ++i) {
        const int number = there.at(i)->coreNumber;
        const bool wasThere = placeOf(before, number) >= 0;
        if (placeOf(here, number) >= 0 || (wasThere && !changedThere.contains(number)))
            continue;
        if (wasThere)
            conflicts << QString("Core %1: removed here, changed there").arg(number);
        else if (here.size() >= JEX::CoreLimit)
            conflicts << QString("Core %1: no room here, added there").arg(number);
        else
            here.append(there.takeAt(i--));
    }
}

} // namespace

QStringList mergeConfigurations(RTLJEX::Configuration &base, RTLJEX::Configuration &theirs,
                                RTLJEX::Configuration &ours)
{
    Merge merge;
    const QSet<int> differing = changedCores(ours, theirs);
    for (const RTLJEX::AnyCore &core : ours.cores()) {
        const RTLJEX::AnyCore before = coreNumbered(base, core.number);
        const RTLJEX::AnyCore there = coreNumbered(theirs, core.number);
        if (before.signalRows && there.signalRows)
            merge.mergeCores(before, there, core);
        else if (there.signalRows && differing.contains(core.number))
            merge.conflicts << QString("Core %1: added here, another one added there").arg(core.number);
    }
    std::visit([&](auto &cores) { mergeLists(base, theirs, ours, cores, merge.conflicts); }, ours.coreList());
    return merge.conflicts;
}

} // namespace Cli
