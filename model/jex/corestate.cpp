#include "model/jex/corestate.h"

#include "model/jex/zubfields.h"

namespace JEX {

AoCore *copyOf(const AoCore &from)
{
    AoCore *to = new AoCore(from.coreNumber);
    for (const Field<AoCore> &field : fieldsOf<AoCore>()) {
        if (field.number)
            to->*field.number = from.*field.number;
        else if (field.flag)
            to->*field.flag = from.*field.flag;
        else if (field.text)
            to->*field.text = from.*field.text;
    }
    to->expressions = from.expressions;
    to->enabledCaptureSignals = from.enabledCaptureSignals;
    to->captureSignals = from.captureSignals;
    copyTrigger(from, to);
    return to;
}

void copyTrigger(const AoCore &from, AoCore *to)
{
    for (int i = 0; i < to->triggerPorts.size(); ++i)
        *to->triggerPorts.at(i) = *from.triggerPorts.at(i);
    for (int i = 0; i < to->matchUnits.size(); ++i) {
        MatchUnit *unit = to->matchUnits.at(i);
        *unit = *from.matchUnits.at(i);
        unit->core = to;
        unit->triggerPort = to->getTrigger(from.triggerPorts.indexOf(unit->triggerPort));
    }
}

} // namespace JEX
