#include "gateware/triggertext.h"

#include "gateware/coretaps.h"
#include "gateware/expressiontext.h"
#include "gateware/unitsettings.h"
#include "gateware/verilogtext.h"

namespace RTLJEX {

namespace {

enum { UnitBits = 16 }; // wires for the units, and for the expressions

} // namespace

QByteArray triggerName(const JEX::TriggerPort &port)
{
    return "trig_" + decimal(port.portNumber);
}

TriggerText::TriggerText(const JEX::AoCore &core)
    : m_core(core), m_units(coreUnits(core)), m_ports(corePorts(core))
{
    for (const JEX::MatchUnit *unit : m_units)
        m_numbers.append(unit->unitNumber);
}

QByteArray TriggerText::ports() const
{
    QByteArray names;
    for (const JEX::TriggerPort *port : m_ports)
        names = triggerName(*port) + (names.isEmpty() ? "" : ", ") + names;
    return names;
}

QByteArray TriggerText::body() const
{
    QByteArray lines = "    wire " + range(width()) + " now;\n    wire " + range(width()) +
                       " changed;\n    wire [15:0] match;\n    wire [15:0] holds;\n    wire load;\n" +
                       "    wire [" + decimal(m_units.size()) + ":0] chain; // of the settings\n" +
                       "    assign chain[" + decimal(m_units.size()) + "] = ctl_tdi;\n" +
                       "    wire unused = &{1'b0, load, chain[0]};\n\n";
    for (int i = 0; i < m_units.size(); ++i)
        lines += unit(i);
    lines += unitsWithout() + "\n";
    return lines + (m_core.isStatic() ? tables() : logic());
}

int TriggerText::lowestBitOf(const JEX::TriggerPort *wanted) const
{
    int bit = 0;
    for (const JEX::TriggerPort *port : m_ports) {
        if (port == wanted)
            break;
        bit += port->width();
    }
    return bit;
}

QByteArray TriggerText::unit(int position) const
{
    const JEX::MatchUnit &unit = *m_units.at(position);
    const QByteArray number = decimal(unit.unitNumber);
    const int low = lowestBitOf(unit.triggerPort);
    const QByteArray bits = "[" + decimal(low + unit.triggerPort->width() - 1) + ":" + decimal(low) + "]";
    Connections parameters;
    add(&parameters, "WIDTH", unit.triggerPort->width());
    add(&parameters, "LOADABLE", m_core.isStatic() ? 0 : 1);
    for (const UnitSetting &setting : unitSettings(unit))
        add(&parameters, setting.parameter, binary(setting.digits));
    Connections ports;
    add(&ports, "clk", "clk");
    add(&ports, "now", "now" + bits);
    add(&ports, "changed", "changed" + bits);
    add(&ports, "match", "match[" + number + "]");
    add(&ports, "load_clock", "ctl_clock");
    add(&ports, "load", "load");
    add(&ports, "load_in", "chain[" + decimal(m_units.size() - position) + "]");
    add(&ports, "load_out", "chain[" + decimal(m_units.size() - position - 1) + "]");
    return instance("jex_unit", "unit_" + number, parameters, ports);
}

QByteArray TriggerText::unitsWithout() const
{
    QByteArray lines;
    for (int i = 0; i < UnitBits; ++i) {
        if (!m_numbers.contains(i))
            lines += "    assign match[" + decimal(i) + "] = 1'b0;\n";
    }
    return lines;
}

QByteArray TriggerText::noExpressions() const
{
    const int rest = UnitBits - m_core.expressions.size();
    return rest ? decimal(rest) + "'d0" : QByteArray();
}

// Registered, as tables are.
QByteArray TriggerText::logic() const
{
    QByteArray lines;
    QByteArray all = noExpressions();
    for (int i = m_core.expressions.size() - 1; i >= 0; --i)
        all += (all.isEmpty() ? "expression_" : ", expression_") + decimal(i);
    for (int i = 0; i < m_core.expressions.size(); ++i)
        lines += "    wire expression_" + decimal(i) + " = " + Expression(m_core.expressions.at(i)).logic() +
                 ";\n";
    Connections parameters;
    add(&parameters, "WIDTH", int(UnitBits));
    Connections ports;
    add(&ports, "clk", "clk");
    add(&ports, "in", "{" + all + "}");
    add(&ports, "out", "holds");
    return lines + instance("jex_delay", "expressions", parameters, ports);
}

QByteArray TriggerText::tables() const
{
    QByteArray units;
    for (int number : m_numbers)
        units = "match[" + decimal(number) + "]" + (units.isEmpty() ? "" : ", ") + units;
    QByteArray lines;
    for (int i = 0; i < m_core.expressions.size(); ++i) {
        Connections parameters;
        add(&parameters, "UNITS", m_numbers.size());
        add(&parameters, "STYLE", style(m_core.triggerImplementation));
        add(&parameters, "TABLE", binary(Expression(m_core.expressions.at(i)).table(m_numbers)));
        Connections ports;
        add(&ports, "clk", "clk");
        add(&ports, "match", "{" + units + "}");
        add(&ports, "holds", "holds[" + decimal(i) + "]");
        lines += instance("jex_table", "expression_" + decimal(i), parameters, ports);
    }
    const int count = m_core.expressions.size();
    if (count < UnitBits)
        lines += "    assign holds[15:" + decimal(count) + "] = " + noExpressions() + ";\n";
    return lines;
}

} // namespace RTLJEX
