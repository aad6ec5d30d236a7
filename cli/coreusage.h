#pragma once

#include "check/configuration.h"
#include "host/devicearg.h"
#include "model/jex/devicetable.h"

namespace Cli {

// What a core would take of the device with one implementation.
struct UsageRow
{
    QString implementation;
    bool isChosen = false;
    bool isOffered = true; // by the editor, for this device
    qint64 required = 0;
    int available = 0;
    QString formula;
    JEX_TOOL::MemoryShape shape = {0, 0}; // of one memory; {0, 0} for registers, and when nothing is stored

    bool fits() const { return required <= available; }
};

// The capture side of a core, for a device that is known: what the formulas are given, and what they give.
struct CaptureUsage
{
    CaptureUsage(const RTLJEX::AnyCore &core, const DEV::DeviceArg &device);

    int signalCount = 0;
    int depth = 0;
    bool adjusted = false; // stores the trigger mark along
    int width = 0;         // bits of a sample
    QList<UsageRow> rows;
};

// The trigger side of a Standard core. Only Static mode takes something that is counted.
struct TriggerUsage
{
    TriggerUsage(const JEX::AoCore &core, const DEV::DeviceArg &device);

    bool isStatic = false;
    int expressions = 0; // those that Static mode can have
    int units = 0;       // enabled ones that Static mode has
    QList<UsageRow> rows;
};

} // namespace Cli
