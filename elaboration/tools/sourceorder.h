#pragma once

#include <QSet>
#include <QString>
#include <QStringList>

namespace QUARRY {

enum SourceLanguage { VerilogSource, VhdlSource };

// The files in an order in which every package and entity stands before the files that use it; files
// that do not depend on each other stay as they were. Reads the words of the files, not their grammar:
// good enough for an order, which the tool then judges.
QStringList orderedByUse(const QStringList &files, SourceLanguage language);

// The last parts of the names that Verilog files include: "part.vh" of `include "sub/part.vh".
QSet<QString> includedNames(const QStringList &files);

// Sentences about what Verilog files include, directly or through others, that is no file: a tool would wait
// at a pipe or read a device without end. `folders` are those in which includes are looked for.
QStringList specialIncludes(const QStringList &files, const QStringList &folders);

// The entities that a VHDL file declares, and the names of those that it instantiates in lower case.
struct VhdlNames
{
    QStringList entities;
    QSet<QString> instantiated;
    bool mentionsForeign = false; // anywhere, in any spelling
};
VhdlNames vhdlNames(const QString &file);

} // namespace QUARRY
