#pragma once

#include "check/configuration.h"
#include "model/jex/storageneed.h"

namespace Cli {

// What a core would take of the device with one implementation.
struct UsageRow
{
    JEX::Implementation implementation = JEX::NoImplementation;
    bool isChosen = false;
    bool isOffered = true; // by the editor, for this device
    qint64 required = 0;
    int available = 0;
    QString formula;
    JEX_TOOL::MemoryShape shape = {0, 0}; // of one memory; {0, 0} for registers, and when nothing is stored

    bool fits() const { return required <= available; }
};

// The capture side of a core: what the formulas are given, and what they give.
struct CaptureNeeds
{
    CaptureNeeds(const RTLJEX::AnyCore &core, const JEX_TOOL::Device &device);

    int signalCount = 0;
    int depth = 0;
    bool adjusted = false; // stores the trigger mark along
    int width = 0;         // bits of a sample
    QList<UsageRow> rows;
};

// The trigger side of a Standard core. Only Static mode takes something that is counted.
struct TriggerNeeds
{
    TriggerNeeds(const JEX::AoCore &core, const JEX_TOOL::Device &device);

    bool isStatic = false;
    int expressions = 0; // those that Static mode can have
    int units = 0;       // enabled ones that Static mode has
    QList<UsageRow> rows;
};

} // namespace Cli
