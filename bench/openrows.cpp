#include "bench/bench.h"
#include "bench/context.h"
#include "bench/widedesign.h"
#include "elaboration/elaboration.h"
#include "elaboration/tools/verilatorflags.h"

#include "host/designmanager.h"
#include "host/project.h"
#include "model/netlist/rtlnetlist.h"

#include <QDir>
#include <QProcess>

using namespace QUARRY;

namespace {

void runVerilator(const Context &context, const QStringList &sources)
{
    QProcess process;
    const QStringList output{QStringLiteral("--Mdir"), context.dir.filePath(QStringLiteral("verilated")),
                             QStringLiteral("--xml-output"), context.dir.filePath(QStringLiteral("all.xml"))};
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(QStringLiteral("verilator_bin"), verilatorReadFlags() + output + sources);
    if (!process.waitForFinished(-1) || process.exitCode() != 0)
        qFatal("verilator_bin does not read the generated design: %s", qPrintable(process.errorString()));
}

int countBits(const Hierachy *node)
{
    int bits = node->nets.size();
    for (const RtlNetBus *bus : node->buses)
        bits += bus->members.size();
    for (const Hierachy *child : node->children)
        bits += countBits(child);
    return bits;
}

void open(const DesignInput &input, int bits)
{
    const ModuleList modules = listModules(input);
    if (modules.topModules != QStringList(LargeDesign::topName()))
        qFatal("The generated design is not read: %s", qPrintable(modules.messages.join('\n')));
    QStringList messages;
    const std::unique_ptr<RtlNetlist> netlist(buildNetlist(input, messages));
    if (!netlist || countBits(netlist->topHierarchy) != bits)
        qFatal("The generated design is not complete: %s", qPrintable(messages.join('\n')));
}

// A new time stamp and a new byte: nothing that is known of the sources from before can be used.
void change(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::Append) || file.write("\n") != 1)
        qFatal("Cannot change %s", qPrintable(path));
}

// Opens the example with what stands for bubblewrap in that folder; empty: with bubblewrap itself.
double exampleTime(const QByteArray &folder)
{
    Core::Project project;
    QString error;
    if (!project.load(QStringLiteral(EXAMPLE), &error))
        qFatal("%s", qPrintable(error));
    Core::ProjectManager::setCurrentProject(&project);
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", folder.isEmpty() ? path : folder + ':' + path);
    const DesignInput input =
        designInputFromInfo(TE::TaskEngine::instance()->designManager()->getSourceFileInfo());
    const double time = fastest(3, [&input] {
        const QStringList found = listModules(input).topModules;
        QStringList messages;
        const std::unique_ptr<RtlNetlist> netlist(buildNetlist(input, messages));
        if (!netlist)
            qFatal("The example is not read: %s", qPrintable(messages.join('\n')));
    });
    qputenv("PATH", path);
    Core::ProjectManager::setCurrentProject(nullptr);
    return time;
}

void measureOpening(const Context &context, const QString &row, const QStringList &sources, int bits)
{
    DesignInput input;
    for (const QString &path : sources) {
        DesignSource source;
        source.path = path;
        source.type = 2;
        input.files += source;
    }
    input.workingDir = context.dir.path();
    const auto openChanged = [&] {
        change(sources.first());
        open(input, bits);
    };
    const Times times = inTurn(3, openChanged, [&] { runVerilator(context, sources); });
    print({row + ": modules listed, netlist built | verilator_bin --xml-only", times.figure, times.limit,
           1.15, "ms"});
}

} // namespace

// Against a script in its place that only starts the tool, which costs a millisecond itself.
void measureConfinement(Context &context)
{
    const double allowedMs = 30;
    const QString folder = context.dir.filePath(QStringLiteral("unconfined"));
    QDir().mkpath(folder);
    QFile script(folder + QStringLiteral("/bwrap"));
    if (!script.open(QIODevice::WriteOnly) ||
        script.write("#!/bin/sh\nwhile [ \"$1\" != -- ]; do shift; done\nshift\nexec \"$@\"\n") < 0)
        qFatal("Cannot write %s", qPrintable(script.fileName()));
    script.close();
    script.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    Times best;
    for (int i = 0; i < 5; ++i) {
        const double confined = exampleTime(QByteArray());
        const double plain = exampleTime(QFile::encodeName(folder));
        best.figure = i == 0 ? confined : qMin(best.figure, confined);
        best.limit = i == 0 ? plain : qMin(best.limit, plain);
    }
    print({"Opening the example with the tools confined | without, and 30 ms", best.figure,
           best.limit + allowedMs, 1, "ms"});
}

void measureOpening(Context &context)
{
    const QString dir = context.dir.path();
    measureOpening(context, QStringLiteral("Opening"), context.design.writeVerilog(dir), 1000000);
    measureOpening(context, QStringLiteral("Opening the wide design"),
                   QStringList(WideDesign().writeVerilog(dir)), WideDesign::bits());
}
