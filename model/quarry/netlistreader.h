#pragma once

#include <QSet>
#include <QString>
#include <QStringList>

namespace QUARRY {

class ElaborationProgress;
class RtlNetlist;

// What the driver knows and the elaborator's output does not.
struct ReadOptions
{
    QString top;              // instance name of the top node
    QSet<QString> blackBoxes; // modules that stand for missing definitions: instances of them are nodes
                              // without children, their made-up ports are not nets of the design
    QSet<QString> generated;  // files that a tool wrote (VHDL turned into Verilog): their line numbers
                              // mean nothing to the user
};

// Reads one XML file that Verilator wrote (--xml-only) and builds the netlist of the design in it.
// Null, with a message that begins with "ERROR", when the file cannot be read or is no such file; null
// without a message when the progress was cancelled.
RtlNetlist *netlistFromVerilatorXml(const QString &xmlFile, const ReadOptions &options, QStringList &messages,
                                    ElaborationProgress *progress);

} // namespace QUARRY
