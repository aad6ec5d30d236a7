#include "options/currentdevice.h"

#include <QCoreApplication>

#include "host/designmanager.h"
#include "model/jex/devicetable.h"

namespace RTLJEX {

namespace {

const char deviceChange[] = "TE.Device.Change";

} // namespace

const JEX_TOOL::Device *currentDevice()
{
    const DEV::DeviceArg arg = TE::TaskEngine::instance()->designManager()->currentDevice();
    return JEX_TOOL::findDevice(arg.series, arg.device);
}

QString usageNote()
{
    return currentDevice()
               ? QString()
               : QCoreApplication::translate("RTLJEX::CurrentDevice",
                                             "The project has no device that is known, so there is "
                                             "nothing to measure the usage against.");
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
