#include <QFileInfo>

#include "cli/judgedinput.h"
#include "cli/waiting.h"
#include "elaboration/elaboration.h"
#include "insertion/benchreading.h"
#include "insertion/insertionjob.h"
#include "insertion/outputfolder.h"
#include "insertion/yosyscalls.h"
#include "model/jex/devicetable.h"
#include "model/netlist/rtlnetlist.h"

namespace Cli {
namespace {

bool readOptions(const Arguments &arguments, Insertion::InsertionOptions &options)
{
    options.prove = arguments.parser.isSet("prove");
    options.family = arguments.parser.value("synth");
    options.instance = arguments.parser.value("instance");
    if (options.family.isEmpty() || Insertion::YosysCalls::families().contains(options.family))
        return readTrigger(arguments, &options.cores.triggerByAny);
    arguments.refuse("Resources are counted for one of " + Insertion::YosysCalls::families().join(", ") +
                     ", not for \"" + options.family + "\".");
    return false;
}

QStringList sourcesOf(const Design &design, const QString &configuration)
{
    QStringList sources{configuration};
    if (!design.project().filePath().isEmpty())
        sources << design.project().filePath();
    for (const QUARRY::DesignSource &source : QUARRY::projectInput().files)
        sources << source.path;
    return sources;
}

// The place of the design in the test bench; false when there is none.
bool findInstance(const QStringList &bench, const QString &top, QString *instance)
{
    QStringList files;
    for (const QString &file : bench)
        files << QFileInfo(file).absoluteFilePath();
    Insertion::BenchReading reading(QUARRY::projectInput(), files, top, *instance);
    runUntilInterrupted(reading);
    for (const QString &error : reading.errors())
        say("jex insert: " + error);
    if (reading.isCancelled())
        say("jex: Interrupted.");
    *instance = reading.instance().path;
    return reading.errors().isEmpty() && !reading.isCancelled();
}

ExitCode judged(const Insertion::InsertionJob &job)
{
    for (const QString &message : job.messages())
        say("jex insert: " + message);
    switch (job.outcome()) {
    case Insertion::InsertionJob::Cancelled:
        say("jex: Interrupted.");
        return CouldNotRun;
    case Insertion::InsertionJob::Failed:
        return CouldNotRun;
    case Insertion::InsertionJob::Done:
        return Fine;
    default:
        return Findings;
    }
}

} // namespace

ExitCode insert(const QStringList &words, Output &out)
{
    Arguments arguments(
        "insert", "FILE DESIGN --output DIR",
        "Makes the analyzer of a configuration (.zub) as Verilog, puts it into the design and proves that\n"
        "nothing else of the design changed. DIR then holds cores.v, design.v (the whole design with the\n"
        "cores, for any synthesis), bind.sv and probe.v (which attach the cores to the sources as they are, "
        "in\n"
        "simulations), map.json, proof.json and report.txt; or, when something is wrong, what it held "
        "before.\n"
        "1 for findings of the check, signals that cannot be tapped, and sources that Yosys cannot read: "
        "then\n"
        "design.v and proof.json are missing.");
    arguments.parser.addPositionalArgument("FILE", "The configuration; " + hdlFiles());
    arguments.parser.addOptions({
        {{"o", "output"}, "The folder for what is made.", "DIR"},
        {"prove", "Ask Yosys for a proof of formal equivalence, too; it may take two minutes."},
        {"synth",
         "Count resources, without and with the cores: " + oneOf(Insertion::YosysCalls::families()) + '.',
         "FAMILY"},
        {"instance", "Where the test bench has the design, for probe.v: \"tb.dut\".", "PATH"},
        {"bench", "A file of the test bench, in which that place is found; may be given several times.",
         "BENCH"},
    });
    addTrigger(arguments);
    arguments.addDesign();
    CommandLine::DesignOptions options;
    Insertion::InsertionOptions how;
    if (!arguments.read(words, out) || !arguments.readDesign(arguments.files(), options))
        return arguments.result();
    if (!readOptions(arguments, how))
        return WrongUse;
    const QString folder = arguments.parser.value("output");
    if (folder.isEmpty())
        return arguments.refuse("Name the folder for what is made, with --output.");
    JudgedInput input;
    ExitCode result = Fine;
    if (!input.open(arguments, options, &result))
        return result;
    const Insertion::OutputFolder output(folder, sourcesOf(input.design, input.file));
    QString error = output.fault();
    if (!error.isEmpty())
        return arguments.fail(error);
    if (!input.judge(out, &result))
        return result;
    const QStringList bench = arguments.parser.values("bench");
    if (!bench.isEmpty() &&
        !findInstance(bench, input.design.netlist()->topHierarchy->moduleName, &how.instance))
        return CouldNotRun;
    const int cores = input.configuration.cores().size();
    const DEV::DeviceArg &device = input.design.project().data().device;
    how.device = JEX_TOOL::findDevice(device.series, device.device);
    Insertion::InsertionJob job(QUARRY::projectInput(), input.configuration, *input.design.netlist(), how);
    runUntilInterrupted(job);
    result = judged(job);
    if (job.files().isEmpty())
        return result;
    if (!output.write(job.files(), &error))
        return arguments.fail(error);
    out.line(input.file + ": " + QString::number(cores) + (cores == 1 ? " core in " : " cores in ") + folder);
    return result;
}

} // namespace Cli
