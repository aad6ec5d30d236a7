#pragma once

#include <QCoreApplication>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

#include <memory>

#include "elaboration/reading/vhdlplaces.h"

namespace QUARRY {

class RtlNetlist;

// A tool that makes Verilog of sources in another language, and what of its Verilog none of them declares.
struct VerilogMaker
{
    const char *name;                       // as messages have it
    const char *language;                   // likewise
    bool (*isOwnName)(const QString &name); // a net that the tool made up; null: there are none
    bool addsOutputWires;                   // "u0_ready" for the output "ready" of u0
    bool addsArrays;                        // they are all its own
};

// What the driver knows and the elaborator's output does not.
struct ReadOptions
{
    QString top;              // the top module, and the name of its node; empty: Verilator's choice
    QSet<QString> blackBoxes; // modules that stand for missing definitions: instances of them are nodes
                              // without children, their made-up ports are not nets of the design
    QMap<QString, const VerilogMaker *> generated; // files that tools wrote: their line numbers mean nothing
                                                   // to the user
    QString workingDir;                            // relative file names in the XML are taken from here
    QMap<QString, QString> fileNames;              // a file as a tool saw it -> the user's own, absolute
    QMap<QString, QString> moduleNames; // a module that a tool named -> the name that the user gave it
    QSet<QString> choices; // modules that only instantiate the one that was made for the values of their
                           // parameters: it is shown in their place
    QMap<QString, QString> vhdlScopes; // a module that a tool named, or a VHDL entity in small letters ->
                                       // GHDL's waveform file of it (see readVhdlScopes); without one it is
                                       // shown as GHDL made it
    QList<VhdlSourceFile> vhdlSources; // all, in the order in which GHDL read them
    // A module that a tool made of VHDL -> the library of its entity, where the name does not tell it.
    QMap<QString, QString> vhdlLibraries;
};

// Reads one XML file that Verilator wrote (--xml-only) and builds the netlist of the design in it, in slices
// of some milliseconds, between which its owner may do something else or give up. Only taking in the file is
// one piece: a tenth of a second for 100 MB.
class NetlistReader
{
    Q_DECLARE_TR_FUNCTIONS(QUARRY::NetlistReader)

public:
    NetlistReader(const QString &xmlFile, const ReadOptions &options);
    ~NetlistReader();

    bool readSlice(); // false when it is done, or when it failed

    RtlNetlist *takeNetlist();                       // for the caller, once it is done; null when it failed
    const QString &error() const { return m_error; } // begins with "ERROR"; empty: none

private:
    struct Work;
    bool readPiece();
    bool load();

    const QString m_xmlFile;
    const ReadOptions m_options;
    std::unique_ptr<Work> m_work;
    QString m_error;
};

} // namespace QUARRY
