#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

namespace QUARRY {

// A connection as the source writes it: .name(expression), or by position when the name is empty.
struct DumpPin
{
    QString name;
    int position = 0; // from 1; 0 for a named one
    int line = 0;
    int column = 0;
    bool isType = false; // a parameter that is given a type
    QString reference;   // the name that the expression consists of or selects from
    QString member;      // "m" in reference.m
};

struct DumpCell
{
    QString target; // name of the module that is instantiated
    QString file;   // Verilator's letters for the file
    int line = 0;
    bool resolved = false;
    QList<DumpPin> ports;
    QList<DumpPin> parameters;
    int owner = -1; // index into DesignDump::modules
};

struct DumpModule
{
    QString name;
    QStringList ports; // of an interface: its modports
    QStringList parameters;
    QHash<QString, QString> interfaces; // names of interface instances and ports to "ifc" or "ifc.modport"
};

// What Verilator read from the sources before it linked anything: taken from its tree dump, which it
// writes for unfinished designs too. This is how the connections of missing modules become known.
struct DesignDump
{
    QList<DumpModule> modules;
    QList<DumpCell> cells;
};

bool readDesignDump(const QString &treeFile, DesignDump &dump);

} // namespace QUARRY
