#pragma once

#include <QByteArray>
#include <QString>

namespace Insertion {

class Analyzer;
struct Tap;

// Two ways to let the cores look into the sources as they are, in a simulation.

// For simulators that know "bind".
QByteArray bindText(const Analyzer &analyzer, const QString &topModule);
// A second top module with hierarchical names below the place of the design in the test bench, "tb.dut".
// Empty: the macro JEX_INSTANCE names it.
QByteArray probeText(const Analyzer &analyzer, const QString &instance);

// The net as Verilog sees it from the top module, "u_gpio.channel[0].changed"; empty for what no Verilog
// declares.
QByteArray verilogPath(const Tap &tap);

} // namespace Insertion
