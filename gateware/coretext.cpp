#include "gateware/coretext.h"

#include <QPair>

#include "gateware/corefault.h"
#include "gateware/coretaps.h"
#include "gateware/expressiontext.h"
#include "gateware/unitsettings.h"
#include "options/capturemath.h"

namespace RTLJEX {

namespace {

enum { UnitBits = 16 }; // wires for the units, and for the expressions

typedef QPair<QByteArray, QByteArray> Connection; // a port or parameter, and what it gets
typedef QList<Connection> Connections;

const char *const controlPort[] = {"ctl_clock",  "ctl_select", "ctl_capture", "ctl_shift",
                                   "ctl_update", "ctl_tdi",    "ctl_tdo"};
const char *const resultPorts[] = {"windows", "done", "seen"};

QByteArray text(int number)
{
    return QByteArray::number(number);
}

// How many bits an address below `count` takes.
int bitsBelow(int count)
{
    int bits = 0;
    while (bits < 31 && 1 << bits < count)
        ++bits;
    return bits;
}

QByteArray range(int width)
{
    return "[" + text(width - 1) + ":0]";
}

QByteArray binary(const QByteArray &digits)
{
    return text(digits.size()) + "'b" + digits;
}

QByteArray style(qint32 implementation)
{
    switch (JEX::implementationOf(implementation)) {
    case JEX::SsramImplementation:
        return "\"distributed\"";
    case JEX::RegImplementation:
        return "\"registers\"";
    default:
        return "\"block\"";
    }
}

void add(Connections *list, const QByteArray &name, const QByteArray &value)
{
    list->append(Connection(name, value));
}

void add(Connections *list, const QByteArray &name, int value)
{
    add(list, name, text(value));
}

QByteArray connected(const Connections &list)
{
    QByteArray lines;
    for (const Connection &connection : list)
        lines += (lines.isEmpty() ? "\n" : ",\n") + QByteArray("        .") + connection.first + "(" +
                 connection.second + ")";
    return lines + "\n    )";
}

QByteArray instance(const QByteArray &module, const QByteArray &name, const Connections &parameters,
                    const Connections &ports)
{
    return "    " + module + " #(" + connected(parameters) + " " + name + " (" + connected(ports) + ";\n";
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

QByteArray triggerName(const JEX::TriggerPort &port)
{
    return "trig_" + text(port.portNumber);
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

// The bits of all its trigger ports side by side, and its units and expressions over them.
class TriggerText
{
public:
    TriggerText(const JEX::AoCore &core, const CoreOptions &options)
        : m_core(core), m_options(options), m_units(coreUnits(core)), m_ports(corePorts(core))
    {
    }

    int width() const { return lowestBitOf(nullptr); }

    // "trig_5, trig_0"
    QByteArray ports() const
    {
        QByteArray names;
        for (const JEX::TriggerPort *port : m_ports)
            names = triggerName(*port) + (names.isEmpty() ? "" : ", ") + names;
        return names;
    }

    QByteArray body() const
    {
        QByteArray lines = "    wire " + range(width()) + " now;\n    wire " + range(width()) +
                           " changed;\n    wire [15:0] match;\n    wire [15:0] holds;\n    wire load;\n" +
                           "    wire [" + text(m_units.size()) + ":0] chain; // of the settings\n" +
                           "    assign chain[" + text(m_units.size()) + "] = ctl_tdi;\n" +
                           "    wire unused = &{1'b0, load, chain[0]};\n\n";
        for (int i = 0; i < m_units.size(); ++i)
            lines += unit(i);
        lines += unitsWithout() + "\n";
        return lines + (m_core.isStatic() ? tables() : logic());
    }

private:
    // In all trigger bits; of null the number of all.
    int lowestBitOf(const JEX::TriggerPort *wanted) const
    {
        int bit = 0;
        for (const JEX::TriggerPort *port : m_ports) {
            if (port == wanted)
                break;
            bit += port->width();
        }
        return bit;
    }

    QByteArray unit(int position) const
    {
        const JEX::MatchUnit &unit = *m_units.at(position);
        const UnitSettings settings(unit);
        const QByteArray number = text(unit.unitNumber);
        const int low = lowestBitOf(unit.triggerPort);
        const QByteArray bits = "[" + text(low + unit.triggerPort->width() - 1) + ":" + text(low) + "]";
        Connections parameters;
        add(&parameters, "WIDTH", unit.triggerPort->width());
        add(&parameters, "LOADABLE", m_core.isStatic() ? 0 : 1);
        add(&parameters, "KIND", binary(settings.kind));
        add(&parameters, "EDGES", binary(settings.edges));
        add(&parameters, "CARE", binary(settings.care));
        add(&parameters, "LEVEL", binary(settings.level));
        add(&parameters, "UPPER", binary(settings.upper));
        Connections ports;
        add(&ports, "clk", "clk");
        add(&ports, "now", "now" + bits);
        add(&ports, "changed", "changed" + bits);
        add(&ports, "match", "match[" + number + "]");
        add(&ports, "load_clock", "ctl_clock");
        add(&ports, "load", "load");
        add(&ports, "load_in", "chain[" + text(m_units.size() - position) + "]");
        add(&ports, "load_out", "chain[" + text(m_units.size() - position - 1) + "]");
        return instance("jex_unit", "unit_" + number, parameters, ports);
    }

    QByteArray unitsWithout() const
    {
        QByteArray lines;
        const QList<int> numbers = unitNumbers();
        for (int i = 0; i < UnitBits; ++i) {
            if (!numbers.contains(i))
                lines += "    assign match[" + text(i) + "] = 1'b0;\n";
        }
        return lines;
    }

    QList<int> unitNumbers() const
    {
        QList<int> numbers;
        for (const JEX::MatchUnit *unit : m_units)
            numbers.append(unit->unitNumber);
        return numbers;
    }

    QByteArray noExpressions() const
    {
        const int rest = UnitBits - m_core.expressions.size();
        return rest ? text(rest) + "'d0" : QByteArray();
    }

    // Registered, as tables are.
    QByteArray logic() const
    {
        QByteArray lines;
        QByteArray all = noExpressions();
        for (int i = m_core.expressions.size() - 1; i >= 0; --i)
            all += (all.isEmpty() ? "expression_" : ", expression_") + text(i);
        for (int i = 0; i < m_core.expressions.size(); ++i)
            lines += "    wire expression_" + text(i) + " = " + Expression(m_core.expressions.at(i)).logic() +
                     ";\n";
        Connections parameters;
        add(&parameters, "WIDTH", int(UnitBits));
        Connections ports;
        add(&ports, "clk", "clk");
        add(&ports, "in", "{" + all + "}");
        add(&ports, "out", "holds");
        return lines + instance("jex_delay", "expressions", parameters, ports);
    }

    QByteArray tables() const
    {
        const QList<int> numbers = unitNumbers();
        QByteArray units;
        for (int number : numbers)
            units = "match[" + text(number) + "]" + (units.isEmpty() ? "" : ", ") + units;
        QByteArray lines;
        for (int i = 0; i < m_core.expressions.size(); ++i) {
            Connections parameters;
            add(&parameters, "UNITS", numbers.size());
            add(&parameters, "STYLE", style(m_core.triggerImplementation));
            add(&parameters, "TABLE", binary(Expression(m_core.expressions.at(i)).table(numbers)));
            Connections ports;
            add(&ports, "clk", "clk");
            add(&ports, "match", "{" + units + "}");
            add(&ports, "holds", "holds[" + text(i) + "]");
            lines += instance("jex_table", "expression_" + text(i), parameters, ports);
        }
        const int count = m_core.expressions.size();
        if (count < UnitBits)
            lines += "    assign holds[15:" + text(count) + "] = " + noExpressions() + ";\n";
        return lines;
    }

    const JEX::AoCore &m_core;
    CoreOptions m_options;
    QList<const JEX::MatchUnit *> m_units;
    QList<const JEX::TriggerPort *> m_ports;
};

QByteArray standardBody(const JEX::AoCore &core, const CoreOptions &options, const CoreLayout &layout)
{
    const TriggerText trigger(core, options);
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
