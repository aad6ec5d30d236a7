#include "options/currentdevice.h"

#include "host/designmanager.h"
#include "model/jex/jextool.h"

namespace RTLJEX {

namespace {

const char deviceChange[] = "TE.Device.Change";

} // namespace

DEV::DeviceArg currentDevice()
{
    return TE::TaskEngine::instance()->designManager()->currentDevice();
}

bool currentDeviceHasSsram()
{
    const DEV::DeviceArg device = currentDevice();
    return JEX_TOOL::currentDeviceSsramAmount(device.series, device.device) != 0;
}

DeviceWatch::DeviceWatch(QUtil::IEventHandler *page) : m_page(page)
{
    QUtil::EventManager::instance()->subscribe(m_page, QLatin1String(deviceChange));
}

DeviceWatch::~DeviceWatch()
{
    QUtil::EventManager::instance()->unsubscribe(m_page, QLatin1String(deviceChange));
}

bool DeviceWatch::concerns(const QUtil::IEvent *event)
{
    return event->topic() == QLatin1String(deviceChange);
}

} // namespace RTLJEX
