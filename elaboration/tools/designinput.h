#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace QUARRY {

// The sources of one design and how to read them. Plain values; paths absolute.
struct DesignSource
{
    QString path;
    int type = 0; // TE::FileType: 2 Verilog, 3 SystemVerilog, 4 VHDL
};

struct DesignInput
{
    QList<DesignSource> files;
    QString top; // empty: the one module that no other instantiates
    QStringList includePaths;
    QStringList libraryPaths;
    QStringList defines; // NAME or NAME=VALUE
    QString verilogStandard;
    QString workingDir;
};

// What a run found. Messages in the order of the tools, each with file and line where it has them; those
// that begin with "ERROR" mean that the design cannot be used.
struct ModuleList
{
    QStringList topModules; // the modules that no other instantiates, or the one that `top` names
    QStringList modules;
    QStringList messages;
    bool cancelled = false;
};

} // namespace QUARRY
