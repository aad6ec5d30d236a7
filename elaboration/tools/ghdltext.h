#pragma once

#include <QString>
#include <QStringList>

namespace QUARRY {

// Reading and mending the lines of one module of the Verilog that GHDL writes: one port, wire or pin a
// line, escaped names closed by a blank.

// Matches "\escaped " with its closing blank, or a plain name; one capture.
QString ghdlNameExpression();

// Replaces the word where it is no pin (".word(") and does not stand first in the line.
void replaceGhdlWord(QString &line, const QString &word, const QString &by);

// The extended identifier u2_\o[1]\ becomes the escaped name \u2_o[1] with its closing blank.
void escapeExtendedNames(QString &line);

// Names of VHDL that Verilog reserves, which GHDL writes as they are, become escaped names.
void escapeKeywords(QStringList &lines);

// The wires "u0_q" that GHDL makes for the outputs of instances get the form of its other wires, by which
// these are known and not shown. Where the user has a signal of the same name, GHDL declares it twice;
// then it stays.
void markOutputWires(QStringList &lines);

QString ghdlDeclaredName(const QString &line);       // of a port, wire or register; empty for other lines
QString ghdlInstantiatedModule(const QString &line); // "PRIM" of "  PRIM l1 (" or "  PRIM #("
int ghdlHeaderEnd(const QStringList &lines);         // the line that ends the port list
bool hasNoGhdlBody(const QStringList &lines);

} // namespace QUARRY
