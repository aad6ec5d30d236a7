// What stays when Yosys refuses the sources: "probe.v" and "bind.sv" let the cores look into the design as it
// is, and what they then hold in their memories is what the nets were. Verilator compiles long, so it has its
// turn in ./dev wave alone.

#include "elaboration/elaboration.h"
#include "gateware/windowtext.h"
#include "insertion/analyzer.h"
#include "insertion/insertionjob.h"
#include "insertion/simulationjob.h"
#include "model/netlist/rtlnetlist.h"
#include "tests/support/files.h"

#include <QProcess>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

using namespace QUARRY;

namespace {

// Yosys knows no "return".
const char design[] = R"(
module unit(input logic clk, input logic [3:0] a, output logic [7:0] sum);
  function automatic logic [7:0] more(input logic [7:0] x, input logic [3:0] y); return x + {4'd0, y}; endfunction
  logic [7:0] total = 0;
  always @(posedge clk) total <= more(total, a);
  assign sum = total;
endmodule
module top(input logic clk, input logic [3:0] a, output logic [7:0] q);
  genvar i;
  logic [7:0] s [0:1];
  generate for (i = 0; i < 2; i = i + 1) begin : lane
    unit u(.clk(clk), .a(a + i[3:0]), .sum(s[i]));
  end endgenerate
  assign q = s[0] ^ s[1];
endmodule
)";

// Writes what the nets are at each edge, and at the end what the core at PLACE holds.
const char bench[] = R"(
`timescale 1ns / 1ps
module board(output logic clk, output logic [3:0] a, output logic [7:0] q);
  initial begin clk = 0; a = 0; end
  always #5 clk = ~clk;
  always @(negedge clk) a <= a * 5 + 3;
  top chip(.clk(clk), .a(a), .q(q));
endmodule
module tb;
  wire clk; wire [3:0] a; wire [7:0] q;
  integer log, file, at;
  board b(.clk(clk), .a(a), .q(q));
  initial begin log = $fopen("nets.txt", "w"); #3000 $fclose(log); $finish; end
  always @(posedge clk) $fwrite(log, "%b%b\n", q, b.chip.lane[1].u.total);
  final begin
    file = $fopen("core.txt", "w");
    $fwrite(file, "status %b%b %b %b\n", PLACE.windows, {14'd0, PLACE.done, 1'b0}, PLACE.seen, 32'dBITS);
    for (at = 0; at < 64; at = at + 1) $fwrite(file, "%b\n", PLACE.core.memory.block.words[at]);
    $fclose(file);
  end
endmodule
)";

JEX::SignalItem bus(const QString &name)
{
    JEX::SignalItem item;
    item.name = name + "[7:0]";
    item.type = JEX::BusKind;
    for (int bit = 7; bit >= 0; --bit) {
        item.members << JEX::SignalItem();
        item.members.last().name = QString("%1[%2]").arg(name).arg(bit);
        item.members.last().type = JEX::BusKind;
    }
    return item;
}

// Rows stand with the highest bit of the sample last.
QList<JEX::SignalItem> rows()
{
    QList<JEX::SignalItem> rows{bus("top/lane[1]/u/total"), bus("top/q")};
    for (JEX::SignalItem &row : rows)
        std::reverse(row.members.begin(), row.members.end());
    return rows;
}

std::unique_ptr<RTLJEX::Configuration> configurationOf(bool isLite)
{
    std::unique_ptr<RTLJEX::Configuration> made(
        new RTLJEX::Configuration(isLite ? JEX::LiteMode : JEX::StandardMode));
    if (isLite) {
        JEX::AOCore_Lite *core = new JEX::AOCore_Lite;
        core->sampleClock = "top/clk";
        core->captureAmount = 64;
        core->captureSignals = core->enabledCaptureSignals = rows();
        made->coresOf<JEX::AOCore_Lite>() << core;
        return made;
    }
    JEX::AoCore *core = new JEX::AoCore(0);
    core->sampleClock = "top/clk";
    core->storageSize = core->captureAmount = 64;
    core->windowNumber = 1;
    core->triggerPosition = 20;
    core->captureSignals = core->enabledCaptureSignals = rows();
    core->triggerPorts[0]->signalItems = {bus("top/lane[0]/u/total")};
    core->matchUnits[0]->enabled = true;
    core->matchUnits[0]->triggerPort = core->triggerPorts[0];
    core->matchUnits[0]->value = "01XXXXXX";
    core->expressions << "M0";
    made->coresOf<JEX::AoCore>() << core;
    return made;
}

} // namespace

class AttachingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_input.workingDir = m_folder.path();
        DesignSource source;
        source.path = m_folder.write("design.sv", design);
        source.type = 3;
        m_input.files << source;
        m_input.top = "top";
        QStringList messages;
        m_netlist.reset(buildNetlist(m_input, messages));
        QVERIFY2(m_netlist, qPrintable(messages.join('\n')));
    }

    void windows_data()
    {
        QTest::addColumn<bool>("isLite");
        QTest::addColumn<bool>("byBind");
        QTest::newRow("Lite, probe") << true << false;
        QTest::newRow("Standard, probe") << false << false;
        if (qEnvironmentVariable("JEX_WAVE") != "full")
            return;
        QTest::newRow("Lite, bind") << true << true;
        QTest::newRow("Standard, bind") << false << true;
    }
    void windows()
    {
        QFETCH(bool, isLite);
        QFETCH(bool, byBind);
        const std::unique_ptr<RTLJEX::Configuration> configuration = configurationOf(isLite);
        Insertion::InsertionOptions options;
        options.instance = "tb.b.chip";
        Insertion::InsertionJob job(m_input, *configuration, *m_netlist, options);
        finish(job);
        QCOMPARE(int(job.outcome()), int(Insertion::InsertionJob::CoresOnly));
        QVERIFY(job.messages().join(' ').contains("bind.sv and probe.v attach the analyzer"));
        for (const QString &name : job.files().keys())
            m_folder.write(name, job.files().value(name));

        QCOMPARE(run("verilator_bin", {"--lint-only", "-Wall", "--top-module", "jex_cores", "cores.v"}),
                 QByteArray());
        QCOMPARE(run("iverilog", {"-Wall", "-g2001", "-o", "/dev/null", "cores.v"}), QByteArray());

        const RTLJEX::CoreLayout layout = job.analyzer().cores().first().module.layout;
        const QByteArray place = byBind ? "b.chip.jex_cores.core_0" : "jex_probe.cores.core_0";
        m_folder.write("tb.sv", QByteArray(bench)
                                    .replace("PLACE", place)
                                    .replace("BITS", QByteArray::number(layout.sampleWidth())));
        if (byBind) {
            run("verilator",
                {"--binary", "-Wno-fatal", "-Wno-WIDTH", "--top-module", "tb", "--Mdir", "made", "-CFLAGS",
                 "-O0", "-o", "simulation", "design.sv", "cores.v", "bind.sv", "tb.sv"});
            run(m_folder.path("made/simulation"), {});
        } else {
            run("iverilog", {"-g2012", "-o", "simulation", "-s", "tb", "-s", "jex_probe", "design.sv",
                             "cores.v", "probe.v", "tb.sv"});
            run("vvp", {"-n", "simulation"});
        }

        RTLJEX::CapturedCore captured;
        QString error;
        QVERIFY2(RTLJEX::readCapture(m_folder.read("core.txt"), layout, &captured, &error),
                 qPrintable(error));
        QCOMPARE(captured.windows.size(), 1);
        const QList<QByteArray> nets = m_folder.read("nets.txt").split('\n');
        // A sum of lane 0 that reaches 64 for the first time.
        const int start = isLite ? 0 : triggered(nets) - 20;
        QVERIFY(start >= 0);
        QCOMPARE(captured.windows.first().samples, nets.mid(start, 64));
        QVERIFY(captured.windows.first().samples != nets.mid(start + 1, 64));
    }

    // The same by the command for it.
    void simulated()
    {
        m_folder.write("tb.sv", QByteArray(bench).left(QByteArray(bench).indexOf("  final")) + "endmodule\n");
        const std::unique_ptr<RTLJEX::Configuration> configuration = configurationOf(false);
        for (const char *instance : {"", "tb.b.chip"}) {
            Insertion::SimulationOptions options;
            options.bench << m_folder.path("tb.sv");
            options.instance = instance;
            Insertion::SimulationJob job(m_input, *configuration, *m_netlist, options);
            finish(job);
            QVERIFY2(job.outcome() == Insertion::SimulationJob::Done, qPrintable(job.messages().join('\n')));
            QCOMPARE(job.captured().first().windows.first().samples.size(), 64);
        }
    }

private:
    template <class Job>
    static void finish(Job &job)
    {
        QSignalSpy end(&job, SIGNAL(finished()));
        job.start();
        QVERIFY(end.wait(120000));
    }

    // What it said; a failure ends the test.
    QByteArray run(const QString &program, const QStringList &arguments)
    {
        QProcess process;
        process.setWorkingDirectory(m_folder.path());
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(program, arguments);
        if (!process.waitForFinished(300000) || process.exitCode() != 0)
            qFatal("%s failed: %s", qPrintable(program), process.readAll().constData());
        return process.readAll();
    }

    // The sums of both lanes are in each line: that of lane 1, and that exclusive-or the one of lane 0.
    static int triggered(const QList<QByteArray> &nets)
    {
        for (int i = 20; i < nets.size(); ++i) {
            const int both = nets.at(i).left(8).toInt(nullptr, 2), one = nets.at(i).mid(8).toInt(nullptr, 2);
            if (((both ^ one) & 0xc0) == 0x40)
                return i;
        }
        return -1;
    }

    Folder m_folder;
    DesignInput m_input;
    std::unique_ptr<RtlNetlist> m_netlist;
};

QTEST_GUILESS_MAIN(AttachingTest)
#include "tst_attaching.moc"
