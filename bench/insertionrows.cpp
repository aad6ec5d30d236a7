#include "bench/bench.h"
#include "bench/context.h"
#include "elaboration/elaboration.h"
#include "elaboration/tools/elaborator.h"
#include "host/filetypes.h"
#include "insertion/insertionjob.h"
#include "model/netlist/rtlnetlist.h"

#include <QEventLoop>
#include <QFile>

#include <sys/resource.h>

using namespace QUARRY;

namespace {

const int blocks = 196;
const int words = 32; // registers in each block, of eight bits, and as many wires
const int cores = 16;
const int rowsOfCore = 8;

QByteArray number(int value)
{
    return QByteArray::number(value);
}

// 100,000 bits in blocks that pass a word on.
QByteArray verilog()
{
    QByteArray text = "module block(input clk, input [7:0] in, output [7:0] out);\n";
    for (int i = 0; i < words; ++i) {
        const QByteArray before = i ? "held_" + number(i - 1) : QByteArray("in");
        text += "  reg [7:0] held_" + number(i) + ";\n  wire [7:0] next_" + number(i) + " = " + before +
                " + (held_" + number(i) + " ^ " + number(i) + ");\n  always @(posedge clk) held_" +
                number(i) + " <= next_" + number(i) + ";\n";
    }
    text += "  assign out = held_" + number(words - 1) + ";\nendmodule\n" +
            "module top(input clk, input [7:0] in, output [7:0] out);\n  wire [7:0] link_0 = in;\n";
    for (int i = 0; i < blocks; ++i)
        text += "  wire [7:0] link_" + number(i + 1) + ";\n  block block_" + number(i) + "(clk, link_" +
                number(i) + ", link_" + number(i + 1) + ");\n";
    return text + "  assign out = link_" + number(blocks) + ";\nendmodule\n";
}

// Sixty-four bits each, spread over the blocks.
void addCores(RTLJEX::Configuration &configuration)
{
    for (int i = 0; i < cores; ++i) {
        JEX::AoCore *core = new JEX::AoCore(i);
        core->sampleClock = "top/clk";
        for (int row = 0; row < rowsOfCore; ++row) {
            const int place = i * rowsOfCore + row;
            const QString name = QString("top/block_%1/held_%2").arg(place % blocks).arg(place % words);
            JEX::SignalItem item;
            item.name = name + "[7:0]";
            item.type = JEX::BusKind;
            for (int bit = 7; bit >= 0; --bit) {
                item.members += JEX::SignalItem();
                item.members.last().name = name + '[' + QString::number(bit) + ']';
                item.members.last().type = JEX::BusKind;
            }
            core->captureSignals << item;
        }
        core->enabledCaptureSignals = core->captureSignals;
        core->triggerPorts[0]->signalItems = {core->captureSignals.first()};
        core->matchUnits[0]->enabled = true;
        core->matchUnits[0]->triggerPort = core->triggerPorts[0];
        core->matchUnits[0]->value = "00010110";
        core->expressions << "M0";
        configuration.coresOf<JEX::AoCore>() << core;
    }
}

double processorTime(int whose)
{
    rusage usage;
    getrusage(whose, &usage);
    return double(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1e3 +
           double(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e3;
}

// In MB, "VmRSS:" or "VmHWM:".
double memory(const QByteArray &word)
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith(word))
            return line.mid(word.size()).simplified().split(' ').first().toDouble() / 1024;
    }
    return 0;
}

template <class Job>
void wait(Job &job)
{
    QEventLoop loop;
    QObject::connect(&job, SIGNAL(finished()), &loop, SLOT(quit()));
    job.start();
    loop.exec();
}

} // namespace

// The tools compute in processes of their own, so what they take is told apart from the rest of the work; a
// reading of the design before it, by Verilator, belongs to the rest. They are not confined here, since
// bubblewrap does not hand on what its children have taken.
void measureInsertion(Context &context)
{
    QFile file(context.dir.filePath(QStringLiteral("insertion.v")));
    if (!file.open(QIODevice::WriteOnly) || file.write(verilog()) < 0)
        qFatal("Cannot write %s", qPrintable(file.fileName()));
    file.close();
    DesignInput input;
    DesignSource source;
    source.path = file.fileName();
    source.type = TE::VerilogFile;
    input.files << source;
    input.workingDir = context.dir.path();
    QStringList messages;
    const std::unique_ptr<RtlNetlist> netlist(buildNetlist(input, messages));
    if (!netlist)
        qFatal("The generated design is not read: %s", qPrintable(messages.join('\n')));
    RTLJEX::Configuration configuration(JEX::StandardMode);
    addCores(configuration);

    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(unconfiningFolder(context)) + ':' + path);
    double before = processorTime(RUSAGE_CHILDREN);
    Elaborator elaborator(input);
    wait(elaborator);
    const double reading = processorTime(RUSAGE_CHILDREN) - before;
    before = processorTime(RUSAGE_CHILDREN);
    const double ownBefore = processorTime(RUSAGE_SELF);
    QFile peak(QStringLiteral("/proc/self/clear_refs"));
    if (peak.open(QIODevice::WriteOnly))
        peak.write("5"); // forgets the peak
    peak.close();
    const double taken = memory("VmRSS:");
    Insertion::InsertionJob job(input, configuration, *netlist, Insertion::InsertionOptions());
    wait(job);
    if (job.outcome() != Insertion::InsertionJob::Done)
        qFatal("The analyzer is not inserted: %s", qPrintable(job.messages().join('\n')));
    const double tools = processorTime(RUSAGE_CHILDREN) - before;
    const double own = processorTime(RUSAGE_SELF) - ownBefore;
    qputenv("PATH", path);
    print({QStringLiteral("Insertion of 16 cores of 64 bits into 100,000 nets | both runs of Yosys alone"),
           own + tools, tools - reading, 1.3, QStringLiteral("ms")});
    rusage children;
    getrusage(RUSAGE_CHILDREN, &children);
    print({QStringLiteral("Memory for that | of the largest tool until now"), memory("VmHWM:") - taken,
           double(children.ru_maxrss) / 1024, 1, QStringLiteral("MB")});
}
