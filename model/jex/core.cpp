#include "model/jex/core.h"

#include <QtAlgorithms>

namespace JEX {

QList<SignalItem> TriggerPort::singleSignals() const
{
    QList<SignalItem> bits;
    for (const SignalItem &item : signalItems) {
        if (item.isSingle())
            bits.append(item);
        else
            bits += item.members;
    }
    return bits;
}

AoCore::AoCore(int number) : coreNumber(number)
{
    for (int i = 0; i < PortCount; ++i) {
        triggerPorts.append(new TriggerPort);
        triggerPorts.last()->portNumber = i;
    }
    for (int i = 0; i < UnitCount; ++i) {
        matchUnits.append(new MatchUnit);
        matchUnits.last()->unitNumber = i;
        matchUnits.last()->core = this;
    }
}

AoCore::~AoCore()
{
    qDeleteAll(matchUnits);
    qDeleteAll(triggerPorts);
}

QList<TriggerPort *> AoCore::availableTriggers() const
{
    QList<TriggerPort *> ports;
    for (TriggerPort *port : triggerPorts) {
        if (!port->signalItems.isEmpty())
            ports.append(port);
    }
    return ports;
}

QList<MatchUnit *> AoCore::enabledMatchUnits() const
{
    QList<MatchUnit *> units;
    for (MatchUnit *unit : matchUnits) {
        if (unit->enabled)
            units.append(unit);
    }
    return units;
}

TriggerPort *AoCore::getTrigger(int index) const
{
    return triggerPorts.value(index, nullptr);
}

MatchUnit *AoCore::matchUnit(int number) const
{
    return matchUnits.value(number, nullptr);
}

} // namespace JEX
