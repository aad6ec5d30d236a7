#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include "check/configuration.h"

namespace RTLJEX {

// The analyzer's cores as Verilog text, on plain values: a core of a configuration in, a module out. What the
// ports and parameters mean is told by docs/gateware.md. The same input gives the same bytes.

// What a file does not say about its cores.
struct CoreOptions
{
    bool triggerByAny = false; // the first expression that holds triggers, instead of one after the other
    bool startsArmed = false;  // a Lite core captures at once, as in a simulation that nobody arms
};

// One bit of an input port of a core, and the net that it sees.
struct CoreTap
{
    QString net;     // full name of a bit in the design
    QByteArray port; // "data", "trig_3"
    int bit = 0;     // of that port
};

// How a core stores its windows.
struct CoreLayout
{
    int dataWidth = 0;     // captured bits; bit i of a sample is data[i]
    bool hasMark = false;  // one bit more, above the data: set at the sample that triggered
    int windows = 1;       // that are filled one after the other
    int windowDepth = 0;   // samples from the start of one window to that of the next one
    int amount = 0;        // samples of a window
    int position = 0;      // number of the trigger sample in its window
    int unmarkedFirst = 0; // windows at the beginning that no trigger starts: "Capture Initial Data", Lite

    int sampleWidth() const { return dataWidth + (hasMark ? 1 : 0); }
    int storedSamples() const { return windows * windowDepth; }
};

struct CoreModule
{
    QByteArray name; // "jex_core_0", by the number of the core
    QByteArray text; // the module, which needs gatewareSources()
    QString clock;   // full name of the net for the port "clk"
    CoreLayout layout;
    QList<CoreTap> taps;        // data[0] upwards, then each trigger port from its most significant bit down
    QList<int> portNumbers;     // of the trigger ports that it has, in order
    bool canStartArmed = false; // it has the parameter STARTS_ARMED
    QString fault;              // a finished sentence why there can be no such core; then all else is empty
};

CoreModule coreModule(const AnyCore &core, const CoreOptions &options = CoreOptions());

// The modules that all cores are made of; they go into a file once.
QByteArray gatewareSources();

// For simulations only: the module "jex_reader", which reads a core through its control port into a file.
QByteArray readerSource();

} // namespace RTLJEX
