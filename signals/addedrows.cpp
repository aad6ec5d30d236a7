#include "signals/addedrows.h"

#include "model/netlist/rtlnetlist.h"
#include "signals/repeatrules.h"
#include "signals/signallistindex.h"
#include "signals/signalrules.h"

namespace RTLJEX {

namespace {

// Takes the rows that the new signals replace out of the list, and what it has already out of the new ones.
QList<JEX::SignalItem> newOnes(QList<JEX::SignalItem> &rows, const QList<JEX::SignalItem> &chosen)
{
    QList<JEX::SignalItem> buses;
    QList<JEX::SignalItem> others;
    Grouped(chosen, buses, others);
    SignalListIndex busIndex(buses);
    SignalListIndex otherIndex(others);
    QList<JEX::SignalItem> kept;
    for (JEX::SignalItem row : rows) {
        if (judgeRow(row, otherIndex, busIndex) != RowGone)
            kept.append(row);
    }
    rows = kept;
    return busIndex.records() + otherIndex.records();
}

QList<JEX::SignalItem> rowsThatAre(bool enabled, const QList<JEX::SignalItem> &rows)
{
    QList<JEX::SignalItem> found;
    for (const JEX::SignalItem &row : rows) {
        if (row.capEnable == enabled)
            found.append(row);
    }
    return found;
}

JEX::SignalItem signalNamed(const QString &name, bool excluded, JEX::SignalKind kind)
{
    JEX::SignalItem item;
    item.name = name;
    item.valid = !excluded;
    item.type = kind;
    return item;
}

} // namespace

JEX::SignalItem signalOfNet(const QUARRY::RtlNet *net)
{
    return signalNamed(net->fullPathName(), net->excluded, JEX::NetKind);
}

JEX::SignalItem signalOfBus(const QUARRY::RtlNetBus *bus)
{
    JEX::SignalItem item = signalNamed(bus->fullBusName(), bus->excluded, JEX::BusKind);
    item.members.reserve(bus->members.size());
    for (const QUARRY::RtlNet *net : bus->members)
        item.members.append(signalNamed(net->fullPathName(), net->excluded, JEX::BusKind));
    return item;
}

QList<JEX::SignalItem> withPortSignals(const QList<JEX::SignalItem> &rows,
                                       const QList<JEX::SignalItem> &chosen)
{
    QList<JEX::SignalItem> list = rows;
    const QList<JEX::SignalItem> added = newOnes(list, chosen);
    return list + added;
}

QList<JEX::SignalItem> withCaptureSignals(const QList<JEX::SignalItem> &rows,
                                          const QList<JEX::SignalItem> &chosen)
{
    QList<JEX::SignalItem> list = rows;
    const QList<JEX::SignalItem> added = newOnes(list, chosen);
    int place = 0;
    while (place < list.size() && list.at(place).capEnable)
        ++place;
    list = list.mid(0, place) + added + list.mid(place);
    return rowsThatAre(true, list) + rowsThatAre(false, list);
}

QList<JEX::SignalItem> withEnabled(QList<JEX::SignalItem> rows, int row, bool isEnabled)
{
    JEX::SignalItem item = rows.at(row);
    if (item.capEnable == isEnabled)
        return rows;
    item.capEnable = isEnabled;
    setBusCapEnable(item);
    rows.removeAt(row);
    if (!isEnabled)
        return rows << item;
    int place = 0;
    while (place < rows.size() && rows.at(place).capEnable)
        ++place;
    rows.insert(place, item);
    return rows;
}

QList<JEX::SignalItem> enabledRows(const QList<JEX::SignalItem> &rows)
{
    return rowsThatAre(true, rows);
}

} // namespace RTLJEX
