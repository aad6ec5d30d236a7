#pragma once

#include <QByteArray>
#include <QSet>
#include <QStringList>

namespace QUARRY {

// The name of the Verilog module that a line, from 1 on, belongs to; empty when it stands in none.
QByteArray moduleAt(const QByteArray &verilog, int line);

// Whether the text has an instance of the module.
bool hasInstanceOf(const QByteArray &verilog, const QByteArray &module);

// "3: Only the first dimension ...", a sentence with its line for each array of instances of which Verilator
// drops all dimensions but the first, and says nothing.
QStringList droppedDimensions(const QByteArray &verilog);

// Blanks the modules of these names as a whole. False when the text has none of them.
bool blankModules(QByteArray &verilog, const QSet<QByteArray> &names);

} // namespace QUARRY
