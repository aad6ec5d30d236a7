#include "bench/bench.h"
#include "bench/context.h"
#include "elaboration/elaboration.h"
#include "elaboration/tools/verilatorflags.h"

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

void open(const DesignInput &input)
{
    const ModuleList modules = listModules(input);
    if (modules.topModules != QStringList(LargeDesign::topName()))
        qFatal("The generated design is not read: %s", qPrintable(modules.messages.join('\n')));
    QStringList messages;
    const std::unique_ptr<RtlNetlist> netlist(buildNetlist(input, messages));
    if (!netlist || countBits(netlist->topHierarchy) != 1000000)
        qFatal("The generated design is not complete: %s", qPrintable(messages.join('\n')));
}

// A new time stamp and a new byte: nothing that is known of the sources from before can be used.
void change(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::Append) || file.write("\n") != 1)
        qFatal("Cannot change %s", qPrintable(path));
}

} // namespace

void measureOpening(Context &context)
{
    DesignInput input;
    const QStringList sources = context.design.writeVerilog(context.dir.path());
    for (const QString &path : sources) {
        DesignSource source;
        source.path = path;
        source.type = 2;
        input.files += source;
    }
    input.workingDir = context.dir.path();
    const auto openChanged = [&] {
        change(sources.first());
        open(input);
    };
    const Times times = inTurn(3, openChanged, [&] { runVerilator(context, sources); });
    print({"Opening: modules listed, netlist built | verilator_bin --xml-only", times.figure, times.limit,
           1.15, "ms"});
}
