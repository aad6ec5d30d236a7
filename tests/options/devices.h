#pragma once

#include <QtTest>

#include "host/project.h"
#include "model/jex/jextool.h"

// A project that is open as long as this lives, for devices with and without shadow memory.
class Devices
{
public:
    Devices() { Core::ProjectManager::setCurrentProject(&m_project); }
    ~Devices() { Core::ProjectManager::setCurrentProject(nullptr); }

    void none() { m_project.setDevice(DEV::DeviceArg()); }
    void use(bool withSsram)
    {
        DEV::DeviceArg device;
        device.series = withSsram ? "ECP5" : "iCE40";
        device.device = withSsram ? "LFE5U-25F" : "iCE40HX8K";
        QVERIFY(JEX_TOOL::currentDeviceBsramAmount(device.series, device.device) > 0);
        QCOMPARE(JEX_TOOL::currentDeviceSsramAmount(device.series, device.device) > 0, withSsram);
        m_project.setDevice(device);
    }

private:
    Core::Project m_project;
};
