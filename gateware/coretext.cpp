#include "gateware/coretext.h"

#include "gateware/corefault.h"
#include "gateware/coretaps.h"
#include "gateware/triggertext.h"
#include "gateware/verilogtext.h"
#include "options/capturemath.h"

namespace RTLJEX {

namespace {

const char *const controlPort[] = {"ctl_clock",  "ctl_select", "ctl_capture", "ctl_shift",
                                   "ctl_update", "ctl_tdi",    "ctl_tdo"};
const char *const resultPorts[] = {"windows", "done", "seen"};

// How many bits an address below `count` takes.
int bitsBelow(int count)
{
    int bits = 0;
    while (bits < 31 && 1 << bits < count)
        ++bits;
    return bits;
}

QByteArray ownParameters(const JEX::AoCore &, const CoreOptions &)
{
    return QByteArray();
}

QByteArray ownParameters(const JEX::AOCore_Lite &, const CoreOptions &options)
{
    return " #(\n    parameter STARTS_ARMED = " + decimal(options.startsArmed) + "\n)";
}

// The head of the module and all its ports.
QByteArray head(const AnyCore &core, const CoreModule &module, const QByteArray &parameters)
{
    QByteArray lines = "module " + module.name + parameters + " (\n    input wire clk,\n    input wire " +
                       range(module.layout.dataWidth) + " data,\n";
    if (core.standard) {
        for (const JEX::TriggerPort *port : corePorts(*core.standard))
            lines += "    input wire " + range(port->width()) + " " + triggerName(*port) + ",\n";
    }
    for (const char *port : controlPort)
        lines += QByteArray(qstrcmp(port, "ctl_tdo") ? "    input" : "    output") + " wire " + port + ",\n";
    return lines +
           "    output wire [15:0] windows,\n    output wire done,\n    output wire [31:0] seen\n);\n\n";
}

// What the modes have in common of it, behind the parameters of their own.
QByteArray capture(const AnyCore &core, const CoreLayout &layout, int addresses, Connections parameters,
                   Connections ports)
{
    add(&parameters, "NUMBER", core.number);
    add(&parameters, "DATA_WIDTH", layout.dataWidth);
    add(&parameters, "FALLING", core.edge == JEX::FallingEdge);
    add(&parameters, "STYLE", style(core.implementation));
    add(&parameters, "ADDRESS_BITS", bitsBelow(addresses));
    add(&parameters, "DEPTH", layout.windowDepth);
    add(&parameters, "AMOUNT", layout.amount);
    // These have the name that they have in the module of the core.
    for (const char *name : {"clk", "data", "now", "changed", "load"})
        add(&ports, name, name);
    for (const char *port : controlPort)
        add(&ports, port, port);
    for (const char *port : resultPorts)
        add(&ports, port, port);
    return instance("jex_capture", "core", parameters, ports);
}

QByteArray body(const JEX::AoCore &core, const AnyCore &any, const CoreOptions &options,
                const CoreLayout &layout)
{
    const TriggerText trigger(core);
    Connections parameters, ports;
    add(&parameters, "TRIGGER_WIDTH", trigger.width());
    add(&parameters, "LEVELS", core.expressions.size());
    add(&parameters, "ANY", options.triggerByAny);
    add(&parameters, "FORCE_FALLING", core.forceTriggerByFallingEdge);
    add(&parameters, "FREE_START", core.captureInitialData);
    add(&parameters, "POSITION", layout.position);
    add(&parameters, "WINDOWS", layout.windows);
    add(&parameters, "COUNT_BITS", bitsBelow(layout.windows + 1));
    add(&ports, "trig", "{" + trigger.ports() + "}");
    add(&ports, "match", "match");
    add(&ports, "holds", "holds");
    return trigger.body() + "\n" + capture(any, layout, core.storageSize, parameters, ports);
}

// Nothing of it stands outside of the module that captures.
QByteArray body(const JEX::AOCore_Lite &core, const AnyCore &any, const CoreOptions &,
                const CoreLayout &layout)
{
    const int stages = core.enableCaptureDataInputRegister;
    Connections parameters, ports;
    add(&parameters, "FREE", 1);
    add(&parameters, "FREE_START", 1);
    add(&parameters, "START", core.captureInitialData ? "1 | STARTS_ARMED" : "STARTS_ARMED");
    add(&parameters, "DATA_STAGES", stages);
    add(&parameters, "ARM_STAGES", stages + 1);
    add(&ports, "trig", "1'b0");
    add(&ports, "match", "16'd0");
    add(&ports, "holds", "16'd0");
    return "    wire now;\n    wire changed;\n    wire load;\n"
           "    wire unused = &{1'b0, now, changed, load};\n\n" +
           capture(any, layout, layout.amount, parameters, ports);
}

void addWindows(const JEX::AoCore &core, CoreLayout *layout)
{
    layout->windows = core.windowNumber;
    layout->windowDepth = core.storageSize / fixedWindowNum(core.windowNumber);
    layout->amount = core.captureAmount;
    layout->position = core.triggerPosition;
    layout->unmarkedFirst = core.captureInitialData;
}

void addWindows(const JEX::AOCore_Lite &core, CoreLayout *layout)
{
    layout->amount = layout->windowDepth = core.captureAmount;
    layout->unmarkedFirst = 1;
}

CoreLayout layoutOf(const AnyCore &core)
{
    CoreLayout layout;
    layout.dataWidth = capturedBits(core).size();
    layout.hasMark = core.standard;
    core.visit([&layout](const auto &record) { addWindows(record, &layout); });
    return layout;
}

void addTap(QList<CoreTap> *taps, const QString &net, const QByteArray &port, int bit)
{
    CoreTap tap;
    tap.net = net;
    tap.port = port;
    tap.bit = bit;
    taps->append(tap);
}

QList<CoreTap> tapsOf(const AnyCore &core)
{
    QList<CoreTap> taps;
    for (const QString &net : capturedBits(core))
        addTap(&taps, net, "data", taps.size());
    const QList<const JEX::TriggerPort *> ports =
        core.standard ? corePorts(*core.standard) : QList<const JEX::TriggerPort *>();
    for (const JEX::TriggerPort *port : ports) {
        int bit = port->width();
        for (const JEX::SignalItem &item : port->singleSignals())
            addTap(&taps, item.name, triggerName(*port), --bit);
    }
    return taps;
}

} // namespace

CoreModule coreModule(const AnyCore &core, const CoreOptions &options)
{
    CoreModule module;
    module.fault = coreFault(core);
    if (!module.fault.isEmpty())
        return module;
    module.name = "jex_core_" + decimal(core.number);
    module.clock = *core.clock;
    module.layout = layoutOf(core);
    module.taps = tapsOf(core);
    if (core.standard) {
        for (const JEX::TriggerPort *port : corePorts(*core.standard))
            module.portNumbers.append(port->portNumber);
    }
    const QByteArray parameters =
        core.visit([&options](const auto &record) { return ownParameters(record, options); });
    module.canStartArmed = parameters.contains("STARTS_ARMED");
    module.text = head(core, module, parameters) + core.visit([&](const auto &record) {
        return body(record, core, options, module.layout);
    }) + "\nendmodule\n";
    return module;
}

} // namespace RTLJEX
