#include "model/jex/jextool.h"

#include "host/designmanager.h"
#include "model/jex/storageneed.h"

namespace JEX_TOOL {

namespace {

int required(JEX::Implementation implementation, int signalCount, int depth, bool adjust)
{
    const DEV::DeviceArg arg = TE::TaskEngine::instance()->designManager()->currentDevice();
    const DeviceFamily &family = familyOf(findDevice(arg.series, arg.device));
    return storageNeed(family, implementation, signalCount, depth, adjust).required;
}

} // namespace

int currentDeviceBsramAmount(const QString &series, const QString &device)
{
    return amountOf(findDevice(series, device), JEX::BsramImplementation);
}

int currentDeviceSsramAmount(const QString &series, const QString &device)
{
    return amountOf(findDevice(series, device), JEX::SsramImplementation);
}

int currentDeviceRegAmount(const QString &series, const QString &device)
{
    return amountOf(findDevice(series, device), JEX::RegImplementation);
}

int bsramNumberRequired(int signalCount, int depth)
{
    return required(JEX::BsramImplementation, signalCount, depth, false);
}

int bsramNumberRequiredWithAdjust(int signalCount, int depth)
{
    return required(JEX::BsramImplementation, signalCount, depth, true);
}

int ssramNumberRequiredWithAdjust(int signalCount, int depth, bool adjust)
{
    return required(JEX::SsramImplementation, signalCount, depth, adjust);
}

int regNumberRequiredWidthAdjust(int signalCount, int depth, bool adjust)
{
    return required(JEX::RegImplementation, signalCount, depth, adjust);
}

} // namespace JEX_TOOL
