#include "insertion/analyzer.h"

#include <QCoreApplication>

#include "gateware/verilogtext.h"

namespace Insertion {
namespace {

using RTLJEX::decimal;

} // namespace

QString bitName(const Tap &tap, const TapBit &bit)
{
    if (!tap.isBus)
        return tap.net;
    const int index = tap.left < tap.right ? tap.right - bit.place : tap.right + bit.place;
    return tap.net + '[' + QString::number(index) + ']';
}

Analyzer::Analyzer(const RTLJEX::Configuration &configuration, const RTLJEX::CoreOptions &options,
                   const QUARRY::RtlNetlist &netlist)
    : m_taps(netlist), m_startsArmed(options.startsArmed)
{
    m_modules = RTLJEX::gatewareSources();
    for (const RTLJEX::AnyCore &any : configuration.cores()) {
        Core core;
        core.core = any;
        core.module = RTLJEX::coreModule(any, options);
        if (!core.module.fault.isEmpty()) {
            m_faults << core.module.fault;
            continue;
        }
        const auto find = [this](const QString &net) {
            const TapBit bit = m_taps.add(net);
            if (bit.tap < 0)
                m_faults << QCoreApplication::translate("Insertion::Analyzer", "The design has no net %1.")
                                .arg(net);
            return bit;
        };
        core.clock = find(core.module.clock);
        for (const RTLJEX::CoreTap &tap : core.module.taps) {
            if (core.ports.isEmpty() || core.ports.last().name != tap.port)
                core.ports << Port{tap.port, {}};
            QList<TapBit> &bits = core.ports.last().bits;
            while (bits.size() <= tap.bit)
                bits << TapBit();
            bits[tap.bit] = find(tap.net);
        }
        m_modules += core.module.text;
        m_cores << core;
    }
}

QList<QByteArray> Analyzer::controlInputs() const
{
    QList<QByteArray> names{"ctl_clock", "ctl_capture", "ctl_shift", "ctl_update", "ctl_tdi"};
    for (const Core &core : m_cores)
        names << "ctl_select_" + decimal(core.core.number);
    return names;
}

QList<QByteArray> Analyzer::controlOutputs() const
{
    QList<QByteArray> names;
    for (const Core &core : m_cores)
        names << "ctl_tdo_" + decimal(core.core.number);
    return names;
}

QByteArray Analyzer::parametersUnarmed() const
{
    return canStartArmed() ? "#(.STARTS_ARMED(1)) " : "";
}

QByteArray Analyzer::bitText(const TapBit &bit, int width) const
{
    const QByteArray name = "tap_" + decimal(bit.tap);
    if (m_taps.taps().at(bit.tap).width() == 1)
        return name;
    const QByteArray low = decimal(bit.place);
    return name + '[' + (width > 1 ? decimal(bit.place + width - 1) + ':' + low : low) + ']';
}

// The highest bit first; bits that stand in one row in their net are one part.
QByteArray Analyzer::portText(const Port &port) const
{
    QList<QByteArray> parts;
    for (int i = 0; i < port.bits.size();) {
        const TapBit first = port.bits.at(i);
        int width = 1;
        while (i + width < port.bits.size() && port.bits.at(i + width).tap == first.tap &&
               port.bits.at(i + width).place == first.place + width)
            ++width;
        parts.prepend(bitText(first, width));
        i += width;
    }
    QByteArray text;
    for (const QByteArray &part : parts)
        text += (text.isEmpty() ? "" : ",\n            ") + part;
    return '{' + text + '}';
}

QByteArray Analyzer::coresText() const
{
    QByteArray ports, body;
    for (int i = 0; i < m_taps.taps().size(); ++i) {
        const int width = m_taps.taps().at(i).width();
        const QByteArray range = width > 1 ? '[' + decimal(width - 1) + ":0] " : QByteArray();
        ports += "    input wire " + range + "tap_" + decimal(i) + ", // " +
                 m_taps.taps().at(i).net.toUtf8() + '\n';
    }
    for (const QByteArray &name : controlInputs())
        ports += "    input wire " + name + ",\n";
    for (const QByteArray &name : controlOutputs())
        ports += "    output wire " + name + ",\n";
    ports.chop(2);
    for (const Core &core : m_cores) {
        const QByteArray own = decimal(core.core.number);
        body += "    " + core.module.name + (canStartArmed() ? " #(.STARTS_ARMED(STARTS_ARMED))" : "") +
                " core_" + own + " (\n        .clk(" + bitText(core.clock, 1) + "),\n";
        for (const Port &port : core.ports)
            body += "        ." + port.name + '(' + portText(port) + "),\n";
        for (const char *name : {"clock", "capture", "shift", "update", "tdi"})
            body += QByteArray("        .ctl_") + name + "(ctl_" + name + "),\n";
        body += "        .ctl_select(ctl_select_" + own + "),\n        .ctl_tdo(ctl_tdo_" + own +
                "),\n        .windows(),\n        .done(),\n        .seen());\n";
    }
    const QByteArray parameters =
        canStartArmed() ? "#(parameter STARTS_ARMED = " + decimal(m_startsArmed) + ") " : QByteArray();
    // The remarks that a linter has about a file of several modules, and about pins that are open on purpose.
    return "// Embedded logic analyzers, made from a configuration file.\n\n"
           "/* verilator lint_off DECLFILENAME */\n/* verilator lint_off PINCONNECTEMPTY */\n" +
           m_modules + "\nmodule jex_cores " + parameters + "(\n" + ports + "\n);\n" + body +
           "endmodule\n/* verilator lint_on PINCONNECTEMPTY */\n/* verilator lint_on DECLFILENAME */\n";
}

} // namespace Insertion
