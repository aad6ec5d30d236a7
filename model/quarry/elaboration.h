#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace QUARRY {

class RtlNetlist;

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

// From the information map of TE::DesignManager::getSourceFileInfo(); missing keys are empty.
DesignInput designInputFromInfo(const QMap<QString, QVariant> &info);

// Follows an elaboration. Called often, from the thread that elaborates.
class ElaborationProgress
{
public:
    virtual ~ElaborationProgress();
    virtual void stage(const QString &text) = 0; // "Reading 12 Verilog files", shown to the user
    virtual bool cancelled() = 0;                // keeps the user interface alive; true ends the run
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

// Both need no widget. `progress` may be null. The second uses what the first already elaborated while
// the sources are unchanged, and gives null, with messages, when the design cannot be elaborated.
ModuleList listModules(const DesignInput &input, ElaborationProgress *progress);
RtlNetlist *buildNetlist(const DesignInput &input, QStringList &messages, ElaborationProgress *progress);

} // namespace QUARRY
