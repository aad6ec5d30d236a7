#include "elaboration/elaboration.h"

#include <QDateTime>
#include <QDir>

#include "elaboration/tools/elaborator.h"
#include "elaboration/tools/filestate.h"
#include "host/designmanager.h"

namespace QUARRY {
namespace {

// The design that was elaborated last, until the netlist is built from it. At most one; it holds a
// temporary folder and next to no memory.
struct LastDesign
{
    std::unique_ptr<Elaboration> design;
    QStringList key;
    QByteArray state;

    void clear() { *this = LastDesign(); }
};

LastDesign &lastDesign()
{
    static LastDesign last;
    return last;
}

// Everything but the sources' content that decides what the tools see.
QStringList keyOf(const DesignInput &input)
{
    const QString gap = QString(QChar(0));
    QStringList key;
    for (const DesignSource &file : input.files)
        key << file.path << QString::number(file.type);
    key << gap << input.includePaths << gap << input.libraryPaths << gap << input.defines << gap;
    key << input.top << input.verilogStandard << input.workingDir;
    return key;
}

QByteArray stateOf(const Elaboration &design)
{
    return fileState(design.filesRead, design.foldersLookedIn);
}

std::unique_ptr<Elaboration> elaborate(const DesignInput &input, ElaborationProgress *progress)
{
    return Elaborator(input, progress).run();
}

void remember(const DesignInput &input, std::unique_ptr<Elaboration> design, const QDateTime &start)
{
    // A file that was written while the tools ran may have been read in either state.
    if (!design->usable || anyWrittenSince(design->filesRead, start))
        return;
    LastDesign &last = lastDesign();
    last.key = keyOf(input);
    last.state = stateOf(*design);
    last.design = std::move(design);
}

std::unique_ptr<Elaboration> takeRemembered(const DesignInput &input)
{
    LastDesign last = std::move(lastDesign());
    lastDesign().clear();
    if (!last.design || last.key != keyOf(input) || last.state != stateOf(*last.design))
        return nullptr;
    return std::move(last.design);
}

// What the lists leave to their reader must be said when there is no netlist.
void explain(const ModuleList &lists, const DesignInput &input, QStringList &messages)
{
    for (const QString &message : lists.messages) {
        if (message.startsWith(QLatin1String("ERROR")))
            return;
    }
    if (lists.cancelled)
        return;
    if (lists.modules.isEmpty() && !input.top.isEmpty())
        messages.append(QLatin1String("ERROR: No module named \"") + input.top +
                        QLatin1String("\" was found. Set another top module."));
    else if (lists.modules.isEmpty())
        messages.append(QLatin1String("ERROR: The sources contain no module."));
    else
        messages.append(QLatin1String("ERROR: The design has several top modules (") +
                        lists.topModules.join(QLatin1String(", ")) + QLatin1String("). Set one of them."));
}

} // namespace

DesignInput designInputFromInfo(const QMap<QString, QVariant> &info)
{
    DesignInput input;
    for (const QVariant &entry : info.value(QLatin1String("Files")).toList()) {
        const QMap<QString, QVariant> file = entry.toMap();
        DesignSource source;
        source.path = file.value(QLatin1String("Path")).toString();
        source.type = file.value(QLatin1String("Type")).toInt();
        if (source.type < TE::VerilogFile || source.type > TE::VhdlFile)
            source.type = TE::fileTypeFromName(source.path);
        input.files.append(source);
    }
    input.top = info.value(QLatin1String("Top")).toString();
    input.includePaths = info.value(QLatin1String("IncludePath")).toStringList();
    input.libraryPaths = info.value(QLatin1String("LibraryPath")).toStringList();
    input.defines = info.value(QLatin1String("Defines")).toStringList();
    input.verilogStandard = info.value(QLatin1String("Verilog_Standard")).toString();
    input.workingDir = info.value(QLatin1String("WorkingDir")).toString();
    return input;
}

ModuleList listModules(const DesignInput &input, ElaborationProgress *progress)
{
    lastDesign().clear();
    const QDateTime start = QDateTime::currentDateTime();
    std::unique_ptr<Elaboration> design = elaborate(input, progress);
    const ModuleList lists = design->lists;
    remember(input, std::move(design), start);
    return lists;
}

RtlNetlist *buildNetlist(const DesignInput &input, QStringList &messages, ElaborationProgress *progress)
{
    std::unique_ptr<Elaboration> design = takeRemembered(input);
    if (!design)
        design = elaborate(input, progress);
    messages += design->lists.messages;
    if (!design->usable) {
        explain(design->lists, input, messages);
        return nullptr;
    }
    return netlistFromVerilatorXml(design->xmlFile, design->readOptions, messages, progress);
}

} // namespace QUARRY
