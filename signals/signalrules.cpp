#include "signals/signalrules.h"

#include "model/netlist/rtlmodule.h"
#include "model/netlist/rtlnetlist.h"
#include "signals/busmerge.h"
#include "signals/repeatrules.h"
#include "signals/signallistindex.h"

namespace RTLJEX {

namespace {

void setBusKind(JEX::SignalItem &bus)
{
    bus.type = JEX::BusKind;
    for (JEX::SignalItem &member : bus.members)
        member.type = JEX::BusKind;
}

// A name that is no scalar net is taken for a bit of a bus.
template <typename IsNet, typename IsBus>
void classify(JEX::SignalItem &item, IsNet isNet, IsBus isBus)
{
    if (item.isSingle()) {
        item.type = isNet(item.name) ? JEX::NetKind : JEX::BusKind;
    } else if (isBus(item.name)) {
        setBusKind(item);
    } else {
        item.type = JEX::GroupKind;
        for (JEX::SignalItem &member : item.members)
            member.type = isNet(member.name) ? JEX::NetKind : JEX::BusKind;
    }
}

bool hasNets(const QUARRY::Hierachy *node)
{
    if (!node->nets.isEmpty() || !node->buses.isEmpty())
        return true;
    for (const QUARRY::Hierachy *child : node->children) {
        if (hasNets(child))
            return true;
    }
    return false;
}

// The netlist finds bits of buses by name too; those are no scalar nets.
bool isScalarNet(const QUARRY::RtlNet *net)
{
    const QUARRY::RtlModule &declarations = net->module()->declarations();
    const qint64 slot = declarations.findSlot(net->name(), 0);
    return slot >= 0 && !declarations.entryOfSlot(quint32(slot)).isBus;
}

} // namespace

bool isBussignalInBus(JEX::SignalItem bus, JEX::SignalItem single)
{
    if (!single.isSingle())
        return false;
    for (const JEX::SignalItem &member : bus.members) {
        if (member.name == single.name)
            return true;
    }
    return false;
}

void getAllnlsNet(QUARRY::Hierachy *node, QList<QUARRY::RtlNet *> &nets, QList<QUARRY::RtlNetBus *> &buses)
{
    if (!node)
        return;
    for (QUARRY::Hierachy *child : node->children) {
        nets += child->nets;
        buses += child->buses;
        getAllnlsNet(child, nets, buses);
    }
}

void setBusCapEnable(JEX::SignalItem &item)
{
    for (JEX::SignalItem &member : item.members)
        member.capEnable = item.capEnable;
}

void CheckBusOrSignal(QList<QUARRY::RtlNet *> nets, QList<QUARRY::RtlNetBus *> buses, JEX::SignalItem &item)
{
    if (nets.isEmpty() && buses.isEmpty())
        return;
    const auto isNet = [&nets](const QString &name) {
        for (const QUARRY::RtlNet *net : nets) {
            if (net->fullPathName() == name)
                return true;
        }
        return false;
    };
    const auto isBus = [&buses](const QString &name) {
        for (const QUARRY::RtlNetBus *bus : buses) {
            if (bus->fullBusName() == name)
                return true;
        }
        return false;
    };
    classify(item, isNet, isBus);
}

void classifySignals(const QUARRY::RtlNetlist *netlist, QList<JEX::SignalItem> &items)
{
    if (!netlist || !netlist->topHierarchy || !hasNets(netlist->topHierarchy))
        return;
    const auto isNet = [netlist](const QString &name) {
        const QUARRY::RtlNet *net = netlist->findNet(name);
        return net && isScalarNet(net);
    };
    const auto isBus = [netlist](const QString &name) { return netlist->findBus(name) != nullptr; };
    for (JEX::SignalItem &item : items)
        classify(item, isNet, isBus);
}

void CheckRepeatSignal(JEX::SignalItem &item, QList<JEX::SignalItem> &list)
{
    SignalListIndex index(list);
    judgeSingleRow(item, index);
    list = index.records();
}

void CheckBus(QList<JEX::SignalItem> &list, JEX::SignalItem item)
{
    BusMerge merge(list);
    merge.add(item);
    list = merge.records();
}

void Grouped(QList<JEX::SignalItem> newItems, QList<JEX::SignalItem> &busList,
             QList<JEX::SignalItem> &otherList)
{
    BusMerge merge(busList);
    for (JEX::SignalItem &item : newItems) {
        QList<JEX::SignalItem> usable;
        for (const JEX::SignalItem &member : item.members) {
            if (member.valid)
                usable.append(member);
        }
        item.members = usable;
        if (item.isOfBus())
            merge.add(item);
        else
            otherList.append(item);
    }
    busList = merge.records();
}

// Two at least, all of them enabled for capture or none.
bool canGroup(const QList<JEX::SignalItem> &chosen, bool hasMembers)
{
    for (const JEX::SignalItem &item : chosen) {
        if (item.capEnable != chosen.first().capEnable)
            return false;
    }
    return !hasMembers && chosen.size() >= 2;
}

int captureBits(const JEX::SignalItem &item)
{
    return item.capEnable ? item.width() : 0;
}

} // namespace RTLJEX
