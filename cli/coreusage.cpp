#include "cli/coreusage.h"

#include <algorithm>

#include "model/jex/jextool.h"
#include "options/capturemath.h"
#include "options/triggermath.h"
#include "signals/signalrules.h"

namespace Cli {
namespace {

using JEX_TOOL::MemoryShape;

const char *const implementations[] = {"BSRAM", "SSRAM", "REG"};

// The shape of a memory that needs the least of them; {0, 0} for registers, and when nothing is stored.
MemoryShape bestShape(const QString &implementation, const CaptureUsage &capture,
                      const DEV::DeviceArg &device)
{
    using namespace JEX_TOOL;
    const DeviceFamily *family = findDevice(device.series, device.device)->family;
    const MemoryShape *shapes = implementation == "BSRAM"   ? family->blockShapes
                                : implementation == "SSRAM" ? family->shadowShapes
                                                            : nullptr;
    if (implementation == "SSRAM" && !shapes)
        shapes = usualFamily()->shadowShapes;
    const int least = shapes ? memoriesRequired(shapes, capture.width, capture.depth) : 0;
    for (; least > 0 && shapes->depth; ++shapes) {
        const MemoryShape alone[] = {*shapes, {0, 0}};
        if (memoriesRequired(alone, capture.width, capture.depth) == least)
            return *shapes;
    }
    return {0, 0};
}

QString formulaText(const MemoryShape &shape, const CaptureUsage &capture)
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

CaptureUsage::CaptureUsage(const RTLJEX::AnyCore &core, const DEV::DeviceArg &device)
{
    for (const JEX::SignalItem &item : *core.signalRows)
        signalCount += RTLJEX::captureBits(item);
    adjusted = core.standard;
    depth = core.standard ? core.standard->storageSize : core.lite->captureAmount;
    width = signalCount + (adjusted && signalCount > 0 ? 1 : 0);
    const QString chosen = RTLJEX::implementationText(core.standard ? core.standard->captureImplementation
                                                                    : core.lite->implementation);
    for (const char *implementation : implementations) {
        const RTLJEX::CaptureUsage usage =
            RTLJEX::captureUsage(implementation, device, signalCount, depth, adjusted);
        UsageRow row;
        row.implementation = implementation;
        row.isChosen = chosen == implementation;
        row.required = usage.required;
        row.available = usage.available;
        row.shape = bestShape(implementation, *this, device);
        row.formula = formulaText(row.shape, *this);
        rows << row;
    }
}

TriggerUsage::TriggerUsage(const JEX::AoCore &core, const DEV::DeviceArg &device)
    : isStatic(core.triggerMode == 1)
{
    if (!isStatic)
        return;
    const QList<JEX::MatchUnit *> have = core.matchUnits.mid(0, RTLJEX::StaticUnitCount);
    units = int(
        std::count_if(have.begin(), have.end(), [](const JEX::MatchUnit *unit) { return unit->enabled; }));
    expressions =
        int(std::count_if(core.expressions.begin(), core.expressions.end(), RTLJEX::isStaticExpression));
    const QStringList offered = RTLJEX::triggerImplementations(RTLJEX::deviceAmount("SSRAM", device) != 0);
    const QString chosen = RTLJEX::implementationText(core.triggerImplementation);
    for (const QString implementation : implementations) {
        UsageRow row;
        row.implementation = implementation;
        row.isChosen = chosen == implementation;
        row.isOffered = offered.contains(implementation);
        row.required = RTLJEX::triggerRequired(implementation, expressions, units);
        row.available = RTLJEX::deviceAmount(implementation, device);
        row.formula = RTLJEX::triggerFormula(implementation, expressions, units);
        if (row.isOffered || row.isChosen)
            rows << row;
    }
}

} // namespace Cli
