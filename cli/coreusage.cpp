#include "cli/coreusage.h"

#include <algorithm>

#include "model/jex/resourcetable.h"
#include "options/triggermath.h"
#include "signals/signalrules.h"

namespace Cli {
CaptureNeeds::CaptureNeeds(const RTLJEX::AnyCore &core, const JEX_TOOL::Device &device)
{
    for (const JEX::SignalItem &item : *core.signalRows)
        signalCount += RTLJEX::captureBits(item);
    adjusted = core.standard;
    depth = core.depth;
    for (const JEX_TOOL::Resource &resource : JEX_TOOL::resources) {
        const JEX_TOOL::StorageNeed need =
            JEX_TOOL::storageNeed(*device.family, resource.code, signalCount, depth, adjusted);
        width = need.width;
        UsageRow row;
        row.implementation = resource.code;
        row.isChosen = core.implementation == resource.code;
        row.required = need.required;
        row.available = JEX_TOOL::amountOf(&device, resource.code);
        row.shape = need.shape;
        row.formula = JEX_TOOL::storageFormula(need, depth);
        rows << row;
    }
}

TriggerNeeds::TriggerNeeds(const JEX::AoCore &core, const JEX_TOOL::Device &device)
    : isStatic(core.isStatic())
{
    if (!isStatic)
        return;
    const QList<JEX::MatchUnit *> have = core.matchUnits.mid(0, RTLJEX::StaticUnitCount);
    units = int(
        std::count_if(have.begin(), have.end(), [](const JEX::MatchUnit *unit) { return unit->enabled; }));
    expressions =
        int(std::count_if(core.expressions.begin(), core.expressions.end(), RTLJEX::isStaticExpression));
    const QList<JEX::Implementation> offered = RTLJEX::triggerImplementations(&device);
    const JEX::Implementation chosen = JEX::implementationOf(core.triggerImplementation);
    for (const JEX_TOOL::Resource &resource : JEX_TOOL::resources) {
        UsageRow row;
        row.implementation = resource.code;
        row.isChosen = chosen == resource.code;
        row.isOffered = offered.contains(resource.code);
        row.required = RTLJEX::triggerRequired(resource.code, expressions, units);
        row.available = JEX_TOOL::amountOf(&device, resource.code);
        row.formula = RTLJEX::triggerFormula(resource.code, expressions, units);
        if (row.isOffered || row.isChosen)
            rows << row;
    }
}

} // namespace Cli
