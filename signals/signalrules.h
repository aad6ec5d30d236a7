#pragma once

#include <QList>

#include "model/jex/signalitem.h"

namespace QUARRY {
class Hierachy;
class RtlNet;
class RtlNetBus;
class RtlNetlist;
} // namespace QUARRY

namespace RTLJEX {

// The rules that every list of signals shares, on plain records. A record without members is a single,
// one with members a bus or a group.

// Whether the single is one of the bus's members.
bool isBussignalInBus(JEX::SignalItem bus, JEX::SignalItem single);

// Appends the nets and buses of everything below the node; the node's own are left to the caller.
void getAllnlsNet(QUARRY::Hierachy *node, QList<QUARRY::RtlNet *> &nets, QList<QUARRY::RtlNetBus *> &buses);

// Copies capEnable to every member.
void setBusCapEnable(JEX::SignalItem &item);

// Sets the type of a stored record and its members by what the lists hold of that name; `valid` stays.
// Walks the lists: for many records take classifySignals().
void CheckBusOrSignal(QList<QUARRY::RtlNet *> nets, QList<QUARRY::RtlNetBus *> buses, JEX::SignalItem &item);

// The same for all records against all nets and buses of the netlist (may be null), its top node's own
// included. Looks each name up in the netlist, so it costs nothing per net of the design.
void classifySignals(const QUARRY::RtlNetlist *netlist, QList<JEX::SignalItem> &items);

// Removes the first entry of that name from the list; the record is enabled for capture when there was one.
void CheckRepeatSignal(JEX::SignalItem &item, QList<JEX::SignalItem> &list);

// Adds a bus or a bit of one to a list in which no bit stands beside its bus.
void CheckBus(QList<JEX::SignalItem> &list, JEX::SignalItem item);

// Sorts new records, without their invalid members, into buses and bits of buses on the one side and
// single nets and groups on the other. Both lists are added to.
void Grouped(QList<JEX::SignalItem> newItems, QList<JEX::SignalItem> &busList,
             QList<JEX::SignalItem> &otherList);

// Whether the chosen rows may become one group; `hasMembers`: a member of a bus or group is among them.
bool canGroup(const QList<JEX::SignalItem> &chosen, bool hasMembers);

// Bits that the record contributes to a capture: none while it is disabled.
int captureBits(const JEX::SignalItem &item);

} // namespace RTLJEX
