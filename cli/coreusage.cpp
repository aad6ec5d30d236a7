#include "cli/coreusage.h"

#include <algorithm>

#include "options/triggermath.h"
#include "signals/signalrules.h"

namespace Cli {
namespace {

// In the order in which they are listed.
const JEX::Implementation implementations[] = {JEX::BsramImplementation, JEX::SsramImplementation,
                                               JEX::RegImplementation};

QString formulaText(const JEX_TOOL::MemoryShape &shape, const CaptureNeeds &capture)
{
    if (shape.depth == 0)
        return QString("%1 x %2").arg(capture.depth).arg(capture.width);
    return QString("ceil(%1 / %2) x ceil(%3 / %4)")
        .arg(capture.depth)
        .arg(shape.depth)
        .arg(capture.width)
        .arg(shape.width);
}

} // namespace

CaptureNeeds::CaptureNeeds(const RTLJEX::AnyCore &core, const JEX_TOOL::Device &device)
{
    for (const JEX::SignalItem &item : *core.signalRows)
        signalCount += RTLJEX::captureBits(item);
    adjusted = core.standard;
    depth = core.standard ? core.standard->storageSize : core.lite->captureAmount;
    const JEX::Implementation chosen = JEX::implementationOf(
        core.standard ? core.standard->captureImplementation : core.lite->implementation);
    for (JEX::Implementation implementation : implementations) {
        const JEX_TOOL::StorageNeed need =
            JEX_TOOL::storageNeed(*device.family, implementation, signalCount, depth, adjusted);
        width = need.width;
        UsageRow row;
        row.implementation = implementation;
        row.isChosen = chosen == implementation;
        row.required = need.required;
        row.available = JEX_TOOL::amountOf(&device, implementation);
        row.shape = need.shape;
        row.formula = formulaText(row.shape, *this);
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
    const QList<JEX::Implementation> offered = RTLJEX::triggerImplementations(device.shadows != 0);
    const JEX::Implementation chosen = JEX::implementationOf(core.triggerImplementation);
    for (JEX::Implementation implementation : implementations) {
        UsageRow row;
        row.implementation = implementation;
        row.isChosen = chosen == implementation;
        row.isOffered = offered.contains(implementation);
        row.required = RTLJEX::triggerRequired(implementation, expressions, units);
        row.available = JEX_TOOL::amountOf(&device, implementation);
        row.formula = RTLJEX::triggerFormula(implementation, expressions, units);
        if (row.isOffered || row.isChosen)
            rows << row;
    }
}

} // namespace Cli
