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

// The ports that the core has under the same name.
void addOwnPorts(Connections *list)
{
    add(list, "clk", "clk");
    add(list, "data", "data");
    for (const char *port : controlPort)
        add(list, port, port);
    for (const char *port : resultPorts)
        add(list, port, port);
}

// The head of the module and all its ports.
QByteArray head(const AnyCore &core, const CoreModule &module)
{
    QByteArray lines = "module " + module.name + " (\n    input wire clk,\n    input wire " +
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

QByteArray standardBody(const JEX::AoCore &core, const CoreOptions &options, const CoreLayout &layout)
{
    const TriggerText trigger(core);
    Connections parameters;
    add(&parameters, "NUMBER", core.coreNumber);
    add(&parameters, "DATA_WIDTH", layout.dataWidth);
    add(&parameters, "TRIGGER_WIDTH", trigger.width());
    add(&parameters, "FALLING", core.sampleEdge == JEX::FallingEdge);
    add(&parameters, "LEVELS", core.expressions.size());
    add(&parameters, "ANY", options.triggerByAny);
    add(&parameters, "FORCE_FALLING", core.forceTriggerByFallingEdge);
    add(&parameters, "INITIAL_DATA", core.captureInitialData);
    add(&parameters, "STYLE", style(core.captureImplementation));
    add(&parameters, "ADDRESS_BITS", bitsBelow(core.storageSize));
    add(&parameters, "DEPTH", layout.windowDepth);
    add(&parameters, "AMOUNT", layout.amount);
    add(&parameters, "POSITION", layout.position);
    add(&parameters, "WINDOWS", layout.windows);
    add(&parameters, "COUNT_BITS", bitsBelow(layout.windows + 1));
    Connections ports;
    addOwnPorts(&ports);
    add(&ports, "trig", "{" + trigger.ports() + "}");
    const char *const inner[] = {"now", "changed", "match", "holds", "load"};
    for (const char *name : inner)
        add(&ports, name, name);
    return trigger.body() + "\n" + instance("jex_standard", "core", parameters, ports);
}

QByteArray liteBody(const JEX::AOCore_Lite &core, const CoreOptions &options, const CoreLayout &layout)
{
    Connections parameters;
    add(&parameters, "NUMBER", core.coreNumber);
    add(&parameters, "DATA_WIDTH", layout.dataWidth);
    add(&parameters, "FALLING", core.sampleEdge == JEX::FallingEdge);
    add(&parameters, "INPUT_REGISTER", core.enableCaptureDataInputRegister);
    add(&parameters, "STYLE", style(core.implementation));
    add(&parameters, "ADDRESS_BITS", bitsBelow(layout.amount));
    add(&parameters, "AMOUNT", layout.amount);
    add(&parameters, "START", core.captureInitialData || options.startsArmed);
    Connections ports;
    addOwnPorts(&ports);
    return instance("jex_lite", "core", parameters, ports);
}

CoreLayout layoutOf(const AnyCore &core)
{
    CoreLayout layout;
    layout.dataWidth = capturedBits(core).size();
    layout.hasMark = core.standard;
    if (core.standard) {
        layout.windows = core.standard->windowNumber;
        layout.windowDepth = core.standard->storageSize / fixedWindowNum(core.standard->windowNumber);
        layout.amount = core.standard->captureAmount;
        layout.position = core.standard->triggerPosition;
        layout.unmarkedFirst = core.standard->captureInitialData;
    } else {
        layout.amount = layout.windowDepth = core.lite->captureAmount;
        layout.unmarkedFirst = 1;
    }
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
    module.name = "jex_core_" + text(core.number);
    module.clock = *core.clock;
    module.layout = layoutOf(core);
    module.taps = tapsOf(core);
    if (core.standard) {
        for (const JEX::TriggerPort *port : corePorts(*core.standard))
            module.portNumbers.append(port->portNumber);
    }
    module.text = head(core, module) +
                  (core.standard ? standardBody(*core.standard, options, module.layout)
                                 : liteBody(*core.lite, options, module.layout)) +
                  "\nendmodule\n";
    return module;
}

QByteArray coresText(const Configuration &configuration, const CoreOptions &options, QString *fault)
{
    // The one remark that a linter has about a file of several modules.
    QByteArray all = "// Embedded logic analyzers, made from a configuration file.\n\n"
                     "/* verilator lint_off DECLFILENAME */\n\n" +
                     gatewareSources();
    for (const AnyCore &core : configuration.cores()) {
        const CoreModule module = coreModule(core, options);
        if (!module.fault.isEmpty()) {
            *fault = module.fault;
            return QByteArray();
        }
        all += module.text + '\n';
    }
    return all + "/* verilator lint_on DECLFILENAME */\n";
}

} // namespace RTLJEX
