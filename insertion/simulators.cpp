#include "insertion/simulators.h"

#include <QCoreApplication>
#include <QFileInfo>

#include "elaboration/tools/verilatorrun.h"

using namespace QUARRY;

namespace Insertion {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Insertion::Simulators)
};

// The prefix of all that Verilator makes, and so the name of the program.
const char *const program = "Vjex";

QString compiler()
{
    return findTool("JEX_CXX", {"g++"});
}

class Steps
{
public:
    explicit Steps(const SimulatedSources &sources) : m_sources(sources) {}

    QList<SimulationStep> icarus()
    {
        const QString compiled = m_sources.folder + "/simulation.vvp";
        QStringList arguments{"-g2012", "-o", compiled, "-s", m_sources.benchTop, "-s", "jex_harness"};
        for (const QString &folder : m_sources.includeFolders)
            arguments << "-I" << folder;
        for (const QString &suffix : m_sources.librarySuffixes)
            arguments << "-Y" + suffix;
        add("Icarus Verilog", "JEX_IVERILOG", findTool("JEX_IVERILOG", {"iverilog"}), arguments + shared());
        last().stage = Texts::tr("Compiling the test bench");
        last().refusal = Texts::tr("Icarus Verilog does not take the test bench.");
        add("Icarus Verilog", "JEX_VVP", findTool("JEX_VVP", {"vvp"}), {"-n", compiled});
        last().stage = Texts::tr("Simulating");
        last().call.deed = QT_TRANSLATE_NOOP("QUARRY::ToolRun", "ran");
        return m_steps;
    }

    // The loops of a bench are kept as loops: in each round that stands on its own the compiler would get
    // all places at which the round waits, and take minutes for a small bench.
    QList<SimulationStep> verilator()
    {
        const QString made = m_sources.folder + "/verilated";
        QStringList arguments{"--cc",         "--exe",       "--main",         "--timing",
                              "-Wno-fatal",   "-Wno-lint",   "-Wno-style",     "-Wno-TIMESCALEMOD",
                              "--timescale",  "1ns/1ps",     "--x-initial",    "0",
                              "--x-assign",   "0",           "--unroll-count", "1",
                              "--top-module", "jex_harness", "--prefix",       program,
                              "--Mdir",       made};
        for (const QString &folder : m_sources.includeFolders)
            arguments << "-I" + folder;
        for (const QString &suffix : m_sources.librarySuffixes)
            arguments << "+libext+" + suffix;
        add("Verilator", "JEX_VERILATOR", VerilatorRun::program(), arguments + shared());
        last().stage = Texts::tr("Compiling the test bench");
        last().refusal = Texts::tr("Verilator does not take the test bench.");
        add("make", "JEX_MAKE", findTool("JEX_MAKE", {"make"}),
            {"-s", "-j2", "-C", made, "-f", QString(program) + ".mk", "VM_PARALLEL_BUILDS=1",
             "OBJCACHE=", "OPT_FAST=-O1", "OPT_GLOBAL=-O1", "CXX=" + compiler(), "LINK=" + compiler()});
        last().stage = Texts::tr("Compiling what Verilator made of the test bench");
        last().refusal = Texts::tr("What Verilator made of the test bench cannot be compiled.");
        add("The simulation", "JEX_VERILATOR", made + '/' + program, {});
        last().stage = Texts::tr("Simulating");
        last().call.deed = QT_TRANSLATE_NOOP("QUARRY::ToolRun", "ran");
        return m_steps;
    }

private:
    QStringList shared() const
    {
        QStringList arguments;
        for (const QString &define : m_sources.defines)
            arguments << "-D" + define;
        for (const QString &folder : m_sources.libraryFolders)
            arguments << "-y" << folder;
        return arguments + m_sources.files;
    }

    void add(const QString &name, const char *variable, const QString &tool, const QStringList &arguments)
    {
        SimulationStep step;
        step.call.name = name;
        step.call.variable = variable;
        step.call.program = tool;
        step.call.workingDir = m_sources.workingDir;
        step.call.writableFolder = m_sources.folder;
        step.call.subject = Texts::tr("the test bench");
        step.call.arguments = arguments;
        step.call.runsSources = true;
        m_steps << step;
    }

    SimulationStep &last() { return m_steps.last(); }

    const SimulatedSources &m_sources;
    QList<SimulationStep> m_steps;
};

} // namespace

QList<SimulationStep> simulationSteps(Simulator simulator, const SimulatedSources &sources)
{
    return simulator == Simulator::Icarus ? Steps(sources).icarus() : Steps(sources).verilator();
}

// Icarus Verilog says it itself, when it is started.
QString missingFor(Simulator simulator)
{
    if (simulator == Simulator::Icarus)
        return QString();
    const struct
    {
        QString need;
        QString program;
        QString remedy;
    } needs[] = {
        {Texts::tr("its program"), VerilatorRun::program(),
         Texts::tr("Install verilator, or let the variable JEX_VERILATOR name the program.")},
        {Texts::tr("a C++ compiler"), compiler(),
         Texts::tr("Install g++ and make, or let the variable JEX_CXX name a compiler.")},
        {"make", findTool("JEX_MAKE", {"make"}),
         Texts::tr("Install make, or let the variable JEX_MAKE name the program.")},
    };
    for (const auto &each : needs) {
        const QString path = each.program.contains('/') ? each.program : findProgram(each.program);
        if (!QFileInfo(path).isExecutable())
            return Texts::tr("A simulation by Verilator needs %1, and %2 is not there. %3")
                .arg(each.need, each.program, each.remedy);
    }
    return QString();
}

} // namespace Insertion
