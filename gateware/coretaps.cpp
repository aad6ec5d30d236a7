#include "gateware/coretaps.h"

#include "options/triggermath.h"

namespace RTLJEX {

QStringList capturedBits(const AnyCore &core)
{
    QStringList names;
    for (const JEX::SignalItem &item : *core.enabledRows) {
        if (!item.capEnable)
            continue;
        if (item.isSingle())
            names.append(item.name);
        for (const JEX::SignalItem &member : item.members)
            names.append(member.name);
    }
    return names;
}

QList<const JEX::MatchUnit *> coreUnits(const JEX::AoCore &core)
{
    QList<const JEX::MatchUnit *> units;
    for (const JEX::MatchUnit *unit : core.matchUnits) {
        if (unit->enabled && !(core.isStatic() && unit->unitNumber >= StaticUnitCount))
            units.append(unit);
    }
    return units;
}

QList<const JEX::TriggerPort *> corePorts(const JEX::AoCore &core)
{
    const QList<const JEX::MatchUnit *> units = coreUnits(core);
    QList<const JEX::TriggerPort *> ports;
    for (const JEX::TriggerPort *port : core.triggerPorts) {
        bool isUsed = false;
        for (const JEX::MatchUnit *unit : units)
            isUsed = isUsed || unit->triggerPort == port;
        if (isUsed)
            ports.append(port);
    }
    return ports;
}

} // namespace RTLJEX
