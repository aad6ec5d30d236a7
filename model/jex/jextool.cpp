#include "model/jex/jextool.h"

#include <climits>

#include "host/designmanager.h"
#include "model/jex/devicetable.h"

namespace JEX_TOOL {

namespace {

const DeviceFamily *currentFamily()
{
    const DEV::DeviceArg arg = TE::TaskEngine::instance()->designManager()->currentDevice();
    const Device *device = findDevice(arg.series, arg.device);
    return device ? device->family : usualFamily();
}

// 0 signals stay 0: nothing is stored, and no mark either.
int adjusted(int signalCount, bool adjust)
{
    return adjust && signalCount > 0 && signalCount < INT_MAX ? signalCount + 1 : signalCount;
}

} // namespace

int currentDeviceBsramAmount(const QString &series, const QString &device)
{
    const Device *row = findDevice(series, device);
    return row ? row->blocks : 0;
}

int currentDeviceSsramAmount(const QString &series, const QString &device)
{
    const Device *row = findDevice(series, device);
    return row ? row->shadows : 0;
}

int currentDeviceRegAmount(const QString &series, const QString &device)
{
    const Device *row = findDevice(series, device);
    return row ? row->registers : 0;
}

int bsramNumberRequired(int signalCount, int depth)
{
    return memoriesRequired(currentFamily()->blockShapes, signalCount, depth);
}

int bsramNumberRequiredWithAdjust(int signalCount, int depth)
{
    return bsramNumberRequired(adjusted(signalCount, true), depth);
}

int ssramNumberRequiredWithAdjust(int signalCount, int depth, bool adjust)
{
    const MemoryShape *shapes = currentFamily()->shadowShapes;
    return memoriesRequired(shapes ? shapes : usualFamily()->shadowShapes, adjusted(signalCount, adjust),
                            depth);
}

int regNumberRequiredWidthAdjust(int signalCount, int depth, bool adjust)
{
    if (signalCount <= 0 || depth <= 0) {
        return 0;
    }
    return int(qMin<qint64>(qint64(adjusted(signalCount, adjust)) * depth, INT_MAX));
}

} // namespace JEX_TOOL
