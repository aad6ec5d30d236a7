#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <algorithm>

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

// A message that means that the design cannot be used.
inline bool isError(const QString &message)
{
    return message.startsWith(QLatin1String("ERROR"));
}

// What a run found. Messages in the order of the tools, each with file and line where it has them.
struct ModuleList
{
    QStringList topModules; // the modules that no other instantiates, or the one that `top` names
    QStringList modules;
    QStringList messages;
    bool cancelled = false;

    bool anyError() const { return std::any_of(messages.begin(), messages.end(), isError); }
};

} // namespace QUARRY
