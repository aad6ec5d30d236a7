#include "bench/bench.h"
#include "bench/context.h"
#include "bench/widedesign.h"
#include "elaboration/elaboration.h"
#include "elaboration/tools/verilatorflags.h"
#include "host/filetypes.h"

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
    const DesignInput input = projectInput();
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
        source.type = TE::VerilogFile;
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

// The script costs a millisecond itself.
QString unconfiningFolder(const Context &context)
{
    const QString folder = context.dir.filePath(QStringLiteral("unconfined"));
    QDir().mkpath(folder);
    QFile script(folder + QStringLiteral("/bwrap"));
    if (!script.open(QIODevice::WriteOnly) ||
        script.write("#!/bin/sh\nwhile [ \"$1\" != -- ]; do shift; done\nshift\nexec \"$@\"\n") < 0)
        qFatal("Cannot write %s", qPrintable(script.fileName()));
    script.close();
    script.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    return folder;
}

void measureConfinement(Context &context)
{
    const double allowedMs = 30;
    const QString folder = unconfiningFolder(context);
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

namespace {

const int vhdlInstances = 2000;

// An architecture with that many instances of one entity, each fed by the one before it.
QByteArray vhdlDesign()
{
    QByteArray text =
        "library ieee; use ieee.std_logic_1164.all;\n"
        "entity Leaf is generic (W : positive := 8);\n"
        "  port (Clk, A : in std_logic; D : in std_logic_vector(W - 1 downto 0);\n"
        "        Q : out std_logic_vector(W - 1 downto 0); V : out std_logic); end;\n"
        "architecture rtl of Leaf is signal R : std_logic_vector(W - 1 downto 0); begin\n"
        "  process (Clk) begin if rising_edge(Clk) then if A = '1' then R <= D; end if; end if; end "
        "process;\n"
        "  Q <= R; V <= R(0) xor A;\nend;\n"
        "library ieee; use ieee.std_logic_1164.all;\n"
        "entity Wide is port (Clk, A : in std_logic; Q : out std_logic_vector(7 downto 0)); end;\n"
        "architecture rtl of Wide is\n";
    QByteArray instances = "  S0 <= (others => A); V0 <= A;\n";
    for (int i = 0; i <= vhdlInstances; ++i)
        text += "  signal S" + QByteArray::number(i) + " : std_logic_vector(7 downto 0); signal V" +
                QByteArray::number(i) + " : std_logic;\n";
    for (int i = 1; i <= vhdlInstances; ++i) {
        const QByteArray to = QByteArray::number(i), from = QByteArray::number(i - 1);
        instances += "  U" + to + " : entity work.Leaf port map (Clk, V" + from + ", S" + from + ", S" + to +
                     ", V" + to + ");\n";
    }
    return text + "begin\n" + instances + "  Q <= S" + QByteArray::number(vhdlInstances) + ";\nend;\n";
}

void runTool(const QString &dir, const QString &program, const QStringList &arguments, const QString &output)
{
    QProcess process;
    process.setWorkingDirectory(dir);
    process.setStandardOutputFile(output.isEmpty() ? QProcess::nullDevice() : output);
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments);
    if (!process.waitForFinished(-1) || process.exitCode() != 0)
        qFatal("%s does not read the generated VHDL: %s", qPrintable(program),
               qPrintable(process.errorString()));
}

} // namespace

// Against GHDL's own translation and Verilator's reading of it, with nothing done in between.
void measureVhdl(Context &context)
{
    const QString dir = context.dir.filePath(QStringLiteral("vhdl"));
    QDir().mkpath(dir);
    const QString path = dir + QStringLiteral("/wide.vhd");
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(vhdlDesign()) < 0)
        qFatal("Cannot write %s", qPrintable(path));
    file.close();
    DesignInput input;
    DesignSource source;
    source.path = path;
    source.type = TE::VhdlFile;
    input.files += source;
    input.workingDir = dir;
    const auto openChanged = [&] {
        change(path);
        listModules(input);
        QStringList messages;
        const std::unique_ptr<RtlNetlist> netlist(buildNetlist(input, messages));
        const QString last = QStringLiteral("Wide/U%1/R[7]").arg(vhdlInstances);
        if (!netlist || !netlist->findNet(last) || !messages.isEmpty())
            qFatal("The generated VHDL is not complete: %s", qPrintable(messages.join('\n')));
    };
    const auto runTools = [&] {
        const QStringList options{QStringLiteral("--std=08")};
        runTool(dir, QStringLiteral("ghdl"), QStringList(QStringLiteral("-a")) + options << path, QString());
        runTool(dir, QStringLiteral("ghdl"),
                QStringList(QStringLiteral("--synth")) + options << QStringLiteral("--out=verilog")
                                                                 << QStringLiteral("wide"),
                dir + QStringLiteral("/wide.v"));
        runTool(dir, QStringLiteral("verilator_bin"),
                verilatorReadFlags() << QStringLiteral("--top-module") << QStringLiteral("Wide")
                                     << QStringLiteral("wide.v"),
                QString());
    };
    const Times times = inTurn(3, openChanged, runTools);
    print({"Opening VHDL, 2,000 instances in one architecture | GHDL and Verilator", times.figure,
           times.limit, 1.5, "ms"});
}

void measureOpening(Context &context)
{
    const QString dir = context.dir.path();
    measureOpening(context, QStringLiteral("Opening"), context.design.writeVerilog(dir), 1000000);
    measureOpening(context, QStringLiteral("Opening the wide design"),
                   QStringList(WideDesign().writeVerilog(dir)), WideDesign::bits());
}
