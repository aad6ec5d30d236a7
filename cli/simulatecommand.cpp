#include <QFileInfo>

#include "cli/judgedinput.h"
#include "cli/waiting.h"
#include "elaboration/elaboration.h"
#include "host/regularfile.h"
#include "insertion/simulationjob.h"

namespace Cli {
namespace {

typedef Insertion::SimulationJob Job;

ExitCode judged(const Job &job)
{
    for (const QString &line : QString::fromUtf8(job.benchWords()).split('\n', Qt::SkipEmptyParts))
        say(line);
    for (const QString &message : job.messages())
        say("jex simulate: " + message);
    if (job.outcome() == Job::Cancelled)
        say("jex: Interrupted.");
    if (job.outcome() == Job::Done)
        return Fine;
    return job.outcome() == Job::Silent || job.outcome() == Job::Refused ? Findings : CouldNotRun;
}

int windowCount(const Job &job)
{
    int count = 0;
    for (const RTLJEX::CapturedCore &core : job.captured())
        count += core.windows.size();
    return count;
}

} // namespace

ExitCode simulate(const QStringList &words, Output &out)
{
    Arguments arguments(
        "simulate", "FILE DESIGN --bench BENCH --output VCD",
        "Runs a test bench of the design by Icarus Verilog or Verilator, with the analyzer of a "
        "configuration (.zub) looking\n"
        "on, and writes the captured windows as a waveform: the rows of the capture list, "
        "with the names that\n"
        "they are shown by. The analyzer is attached to the sources as they are; with "
        "--netlist, and always when\n"
        "there is VHDL in the design, it is inserted as jex insert does. What the bench "
        "writes is dropped: it can\n"
        "reach nothing but a temporary folder. 1 when a core did not trigger: then it is "
        "said what each match\n"
        "unit and each expression saw.");
    arguments.parser.addPositionalArgument("FILE", "The configuration; " + hdlFiles());
    arguments.parser.addOptions({
        {"bench", "A file of the test bench; may be given several times.", "BENCH"},
        {{"o", "output"}, "The file for the captured windows.", "VCD"},
        {"netlist", "Simulate the netlist with the analyzer inserted in place of the sources."},
        {"instance", "Where the test bench has the design, when it has several: \"tb.dut\".", "PATH"},
        {"tool",
         "The simulator: icarus or verilator. Icarus unless given; verilator knows no unknown values.",
         "TOOL"},
        {"raw", "The file for all values of the tapped nets, at all times.", "VCD"},
    });
    addTrigger(arguments);
    arguments.addDesign();
    CommandLine::DesignOptions options;
    Insertion::SimulationOptions how;
    if (!arguments.read(words, out) || !arguments.readDesign(arguments.files(), options))
        return arguments.result();
    const QString output = arguments.parser.value("output"), raw = arguments.parser.value("raw");
    const QString tool = arguments.parser.value("tool");
    if (!readTrigger(arguments, &how.triggerByAny))
        return WrongUse;
    if (!tool.isEmpty() && tool != "icarus" && tool != "verilator")
        return arguments.refuse("Simulations are done by \"icarus\" or by \"verilator\", not by \"" + tool +
                                "\".");
    if (output.isEmpty() || !arguments.parser.isSet("bench"))
        return arguments.refuse(
            "Name the test bench with --bench, and the file for the waveform with --output.");
    if (QFileInfo(output).absoluteFilePath() == QFileInfo(raw).absoluteFilePath() ||
        QUtil::isSameFile(output, raw))
        return arguments.refuse("Name two files, one for --output and another one for --raw.");
    for (const QString &file : arguments.parser.values("bench"))
        how.bench << QFileInfo(file).absoluteFilePath();
    how.instance = arguments.parser.value("instance");
    if (tool == "verilator")
        how.simulator = Insertion::Simulator::Verilator;
    how.byNetlist = arguments.parser.isSet("netlist");
    how.records = !raw.isEmpty();
    JudgedInput input;
    ExitCode result = Fine;
    if (!input.open(arguments, options, &result) || !input.judge(out, &result))
        return result;
    Job job(QUARRY::projectInput(), input.configuration, *input.design.netlist(), how);
    runUntilInterrupted(job);
    result = judged(job);
    QString error;
    if (!job.write(output, raw, &error))
        return arguments.fail(error);
    if (!job.waveform().isEmpty())
        out.line(input.file + ": " + QString::number(windowCount(job)) +
                 (windowCount(job) == 1 ? " window in " : " windows in ") + output);
    return result;
}

} // namespace Cli
