#pragma once

#include <QString>

#include "host/eventmanager.h"

namespace JEX_TOOL {
struct Device;
}

namespace RTLJEX {

// The device of the current project; null when there is none that is known.
const JEX_TOOL::Device *currentDevice();
QString usageNote(); // for the user, why usages have nothing to be measured against; empty when they have

// Lets a page hear, as long as this lives, that the project has another device.
class DeviceWatch
{
public:
    explicit DeviceWatch(QUtil::IEventHandler *page); // not owned
    ~DeviceWatch();

    static bool concerns(const QUtil::IEvent *event);

private:
    DeviceWatch(const DeviceWatch &);
    DeviceWatch &operator=(const DeviceWatch &);

    QUtil::IEventHandler *m_page;
};

} // namespace RTLJEX
