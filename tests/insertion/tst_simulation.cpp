// A captured window is what the nets were: the recorded waveform of all tapped nets is sampled here at the
// edges of the clock, as a register does, and each window has to be the right part of that.

#include "insertion/analyzer.h"
#include "tests/insertion/captures.h"
#include "tests/support/tablerow.h"

using namespace QUARRY;

namespace {

const char design[] = R"(
module unit #(parameter STEP = 1) (input clk, input rst, input [3:0] in, output reg [0:3] out);
  reg never_set;
  reg [11:4] count;
  always @(posedge clk)
    if (rst) begin out <= 4'h0; count <= 8'h00; end
    else begin count <= count + STEP; out <= out ^ in; end
endmodule
module top #(parameter STEP = 3) (input clk, input clk2, input rst, input [3:0] in, output [0:3] out, output [3:0] all);
  wire [0:3] part [0:2];
  genvar i;
  generate for (i = 0; i < 3; i = i + 1) begin : lane
    unit #(.STEP(STEP + i)) u(.clk(i == 2 ? clk2 : clk), .rst(rst), .in(in), .out(part[i]));
  end endgenerate
  follower f(.in(part[0]), .out(out));
  assign all = part[0] ^ part[1] ^ part[2];
endmodule
)";

// Files of a library: what the design has not, and another module of a name that it has.
const char follower[] = "module follower(input [0:3] in, output [0:3] out); assign out = in; endmodule";
const char otherUnit[] = R"(
module unit #(parameter STEP = 1) (input clk, input rst, input [3:0] in, output reg [0:3] out);
endmodule
)";

// Its parameter is not the design's own, and some of its inputs are unknown.
const char bench[] = R"(
`timescale 1ns / 1ps
module tb;
  reg clk = 0, clk2 = 1, rst = 1;
  reg [3:0] in = 0;
  integer seed = 3;
  always #5 clk = ~clk;
  always #8 clk2 = ~clk2;
  always @(negedge clk) begin in = $random(seed); if ($random(seed) % 8 == 0) in[2] = 1'bx; end
  always @(negedge clk2) if ($random(seed) % 32 == 0) in[1] = 1'bz;
  top #(.STEP(1)) dut(.clk(clk), .clk2(clk2), .rst(rst), .in(in), .out(), .all());
  initial begin #33 rst = 0; #8000 $finish; end
endmodule
)";

// Values of the taps over time, by the number of the tap.
class Record
{
public:
    explicit Record(const QByteArray &vcd)
    {
        QHash<QByteArray, int> taps;
        qint64 time = 0;
        for (const QByteArray &line : vcd.split('\n')) {
            const QList<QByteArray> words = line.split(' ');
            if (words.first() == "$var" && words.value(4).startsWith("tap_")) {
                taps.insert(words.value(3), words.value(4).mid(4).toInt());
                m_widths.insert(words.value(4).mid(4).toInt(), words.value(2).toInt());
            } else if (line.startsWith('#')) {
                time = line.mid(1).toLongLong();
            } else if (line.startsWith('b')) {
                note(taps.value(words.value(1), -1), time, words.first().mid(1));
            } else if (!line.isEmpty() && strchr("01xz", line.at(0))) {
                note(taps.value(line.mid(1), -1), time, line.left(1));
            }
        }
    }

    // At the moments when that bit goes to `level`, what all bits were just before. A falling edge before the
    // first rising one is the clock that gets its first value.
    QList<QByteArray> samples(const Insertion::TapBit &clock, char level,
                              const QList<Insertion::TapBit> &bits) const
    {
        QList<QByteArray> all;
        QByteArray before;
        bool hasRisen = false;
        const auto changes = m_values.value(clock.tap);
        for (auto it = changes.begin(); it != changes.end(); ++it) {
            hasRisen = hasRisen || (before == "0" && it.value() == "1");
            if (hasRisen && it.value().at(0) == level && before.at(0) != level) {
                QByteArray sample;
                for (const Insertion::TapBit &bit : bits)
                    sample.prepend(valueBefore(it.key(), bit));
                all << sample;
            }
            before = it.value();
        }
        return all;
    }

private:
    void note(int tap, qint64 time, QByteArray value)
    {
        if (tap < 0)
            return;
        const char fill = value.at(0) == '1' ? '0' : value.at(0);
        m_values[tap].insert(time, value.rightJustified(m_widths.value(tap), fill));
    }

    char valueBefore(qint64 time, const Insertion::TapBit &bit) const
    {
        const QMap<qint64, QByteArray> changes = m_values.value(bit.tap);
        auto it = changes.lowerBound(time);
        if (it == changes.begin())
            return 'x';
        const QByteArray value = (--it).value();
        return value.at(value.size() - 1 - bit.place);
    }

    QHash<int, QMap<qint64, QByteArray>> m_values;
    QHash<int, int> m_widths;
};

} // namespace

class SimulationTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_folder.write("follower.v", follower);
        m_folder.write("unit.v", otherUnit);
        m_folder.write("design.v", design);
        m_input = m_folder.input({"follower.v", "unit.v", "design.v"});
        m_input.files[0].onlyWhenUsed = m_input.files[1].onlyWhenUsed = true;
        m_folder.write("tb.v", bench);
        m_netlist = netlistOf(m_input);
        QVERIFY(m_netlist);
    }

    void windows_data()
    {
        // "position": -1: a Lite core; "value": of the count that triggers
        columns<QString, int, int, int, int, QString, bool>("clock", "edge", "amount", "position", "segments",
                                                            "value", "byNetlist");
        for (bool byNetlist : {false, true}) {
            using namespace JEX;
            const auto both = [byNetlist](const char *clock, int edge, int amount, int position, int segments,
                                          const char *value) {
                const QString name = QString("%1 %2 %3 %4 %5").arg(clock).arg(edge).arg(amount).arg(position);
                row(name.arg(byNetlist).toUtf8(), clock, edge, amount, position, segments, value, byNetlist);
            };
            both("top/clk", RisingEdge, 64, -1, 1, "");
            both("top/clk", FallingEdge, 64, 10, 4, "00010110");
            both("top/clk2", RisingEdge, 32, 0, 2, "XXXX01XX");
            both("top/clk", RisingEdge, 16, 12, 8, "XXX00000");
            both("top/clk2", FallingEdge, 128, -1, 1, "");
            both("top/clk", RisingEdge, 256, 252, 1, "1XXXXXXX");
            both("top/clk2", RisingEdge, 16, -1, 1, "");
            both("top/clk", FallingEdge, 512, -1, 1, "");
            both("top/clk", RisingEdge, 32, 28, 4, "XXXXXX11");
            both("top/clk2", FallingEdge, 64, 31, 4, "XXXXX00X");
            both("top/clk", FallingEdge, 4, 0, 16, "XXXX1111");
            both("top/clk2", FallingEdge, 256, 1, 1, "0XXXXXX1");
        }
    }
    void windows()
    {
        auto [clock, edge, amount, position, segments, value, byNetlist] =
            cells<QString, int, int, int, int, QString, bool>("clock", "edge", "amount", "position",
                                                              "segments", "value", "byNetlist");
        RTLJEX::Configuration configuration(position < 0 ? JEX::LiteMode : JEX::StandardMode);
        QList<JEX::SignalItem> rows;
        for (const char *name : {"top/lane[1]/u/count[4:11]", "top/lane[2]/u/never_set", "top/out[3:0]",
                                 "top/rst", "top/in[2:1]", "top/lane[2]/u/out[0:3]", "top/all[0:3]"})
            rows << signalNamed(name);
        rows[3].alias = "$end"; // would end its declaration in the waveform
        if (position < 0) {
            addLite(configuration, clock, rows, amount).sampleEdge = edge;
        } else {
            JEX::AoCore &core = addStandard(configuration, clock, rows, amount, segments,
                                            signalNamed("top/lane[0]/u/count[11:4]"), value);
            core.sampleEdge = edge;
            core.triggerPosition = position;
        }
        const std::unique_ptr<Insertion::SimulationJob> job = run(configuration, byNetlist);
        QVERIFY2(job->outcome() == Insertion::SimulationJob::Done, qPrintable(job->messages().join('\n')));

        QVERIFY(job->waveform().contains(" _end $end\n"));
        QVERIFY(!job->waveform().contains("$end $end"));
        QString error;
        QVERIFY(!job->write(m_folder.path("part.vcd"), m_folder.path("none/raw.vcd"), &error));
        QVERIFY2(QDir(m_folder.path()).entryList({"part*"}).isEmpty(), qPrintable(error));

        const RTLJEX::AnyCore core = configuration.cores().first();
        Insertion::Analyzer analyzer(configuration, RTLJEX::CoreOptions(), *m_netlist);
        const Insertion::Analyzer::Core &made = analyzer.cores().first();
        const Record record(job->record());
        const char level = edge == JEX::RisingEdge ? '1' : '0';
        const QList<QByteArray> all = record.samples(made.clock, level, made.ports.first().bits);
        QVERIFY(all.size() > 300);
        const QList<RTLJEX::CapturedWindow> captured = job->captured().first().windows;
        int from = 0;
        QList<int> starts{0};
        if (core.standard) {
            const QList<QByteArray> counts = record.samples(made.clock, level, made.ports.last().bits);
            starts.clear();
            for (int i = 0; starts.size() < segments && i < counts.size(); ++i) {
                // The clock goes on for some cycles more until a window is finished.
                if (i - from >= position && i - position + amount + 4 < counts.size() &&
                    matches(counts.at(i), value)) {
                    starts << i - position;
                    from = starts.last() + amount;
                    i = from - 1;
                }
            }
        }
        // The count comes round three times; the last windows of the core that waits for one value stay
        // empty.
        QCOMPARE(starts.size(), value == "00010110" ? 3 : segments);
        QCOMPARE(captured.size(), starts.size());
        QCOMPARE(job->messages().filter("WARNING: Core 0 filled 3 of its 4 windows.").size(),
                 int(starts.size() < segments));
        for (int window = 0; window < starts.size(); ++window) {
            QCOMPARE(captured.at(window).samples, all.mid(starts.at(window), amount));
            QCOMPARE(captured.at(window).trigger, position);
        }
        // Nothing else is as good: the samples beside the window, and the bits the other way round.
        QVERIFY(captured.first().samples != all.mid(starts.first() + 1, amount));
        QByteArray reversed = captured.first().samples.last();
        std::reverse(reversed.begin(), reversed.end());
        QVERIFY(reversed != all.at(starts.first() + amount - 1));
    }

    void silence()
    {
        RTLJEX::Configuration configuration(JEX::StandardMode);
        JEX::AoCore *core = new JEX::AoCore(2);
        core->sampleClock = "top/clk";
        core->captureSignals = core->enabledCaptureSignals = {signalNamed("top/rst")};
        core->triggerPorts[1]->signalItems = {signalNamed("top/rst")};
        for (int unit : {0, 5}) {
            core->matchUnits[unit]->enabled = true;
            core->matchUnits[unit]->triggerPort = core->triggerPorts[1];
            core->matchUnits[unit]->value = unit ? "R" : "F";
        }
        core->expressions = QStringList{"M0", "M5"};
        configuration.coresOf<JEX::AoCore>() << core;
        const std::unique_ptr<Insertion::SimulationJob> job = run(configuration, false);
        QCOMPARE(int(job->outcome()), int(Insertion::SimulationJob::Silent));
        QCOMPARE(job->messages(),
                 QStringList({"Core 2 did not trigger, or not with enough samples behind its trigger.",
                              "Core 2: M0 matched.", "Core 2: M5 never matched.",
                              "Core 2: expression 1, M0, held.", "Core 2: expression 2, M5, never held."}));
        QVERIFY(job->waveform().isEmpty());
    }

    // A bench that records on its own takes nothing from what is recorded of the taps.
    void recordsBesideOthers()
    {
        m_folder.write(
            "tb.v", "module tb; reg clk = 0; always #5 clk = ~clk; top a(.clk(clk));\n"
                    "initial begin $dumpfile(\"own.vcd\"); $dumpvars(0, tb); #20000 $finish; end endmodule");
        const LiteConfiguration configuration("top/clk", {signalNamed("top/clk")});
        const std::unique_ptr<Insertion::SimulationJob> job = run(configuration, false);
        m_folder.write("tb.v", bench);
        QVERIFY2(job->outcome() == Insertion::SimulationJob::Done, qPrintable(job->messages().join('\n')));
        QCOMPARE(job->record().count("\nb1 tap_0\n"), 2000);
    }

    // What a bench says and does reaches nobody but its reader.
    void benches_data()
    {
        // "expected": the beginning of the last message
        textColumns("text", "expected");
        const QString none = "ERROR: The test bench has no instance of top.";
        row("no instance", "module tb; endmodule", none);
        row("comments", "// module tb\n/* module top */ module tb; endmodule", none);
        row("two instances", "module tb; top a(); top b(); endmodule",
            "ERROR: The test bench has several instances of top: tb.a, tb.b. Name one of them with "
            "--instance.");
        row("does not compile", "module tb; top a(; endmodule", "ERROR: ");
        row("fails", "module tb; top a(); initial $fatal(1, \"no\"); endmodule",
            "ERROR: The test bench failed with code 1.");
        row("writes outside",
            "module tb; top a(); integer f; initial begin f = $fopen(\"" + m_folder.path() +
                "/escaped\", \"w\"); $display(\"%0d\", f); $finish; end endmodule",
            "Core 0 did not fill its window: its sample clock top/clk had too few edges.");
    }
    void benches()
    {
        auto [text, expected] = textCells("text", "expected");
        m_folder.write("tb.v", text.toUtf8());
        const LiteConfiguration configuration("top/clk", {signalNamed("top/rst")});
        const std::unique_ptr<Insertion::SimulationJob> job = run(configuration, false);
        m_folder.write("tb.v", bench);
        QVERIFY2(job->messages().join('\n').startsWith(expected), qPrintable(job->messages().join('\n')));
        QVERIFY(!QFileInfo::exists(m_folder.path("escaped")));
    }

    // A bench without an end is cut off, by who waits for it or by the limit, and nothing of it is left.
    void endless_data()
    {
        columns<QString, bool>("process", "isCancelled");
        for (bool isCancelled : {true, false}) {
            const QByteArray end = isCancelled ? "cancelled" : "limit";
            row("clock, " + end, "always #1 clk = ~clk;", isCancelled);
            row("no time, " + end, "initial while (1) clk = 0;", isCancelled);
            row("talks, " + end, "always #1 $display(\"tick\");", isCancelled);
        }
    }
    void endless()
    {
        auto [process, isCancelled] = cells<QString, bool>("process", "isCancelled");
        m_folder.write("tb.v",
                       "module tb; reg clk = 0; top dut(.clk(clk)); " + process.toUtf8() + " endmodule");
        QVERIFY(QDir(m_folder.path()).mkpath("tmp"));
        qputenv("TMPDIR", m_folder.path("tmp").toUtf8());
        const LiteConfiguration configuration("top/clk", {signalNamed("top/rst")});
        Insertion::SimulationOptions options;
        options.bench << m_folder.path("tb.v");
        auto job = std::make_unique<Insertion::SimulationJob>(m_input, configuration, *m_netlist, options);
        QSignalSpy end(job.get(), SIGNAL(finished()));
        connect(job.get(), &Insertion::SimulationJob::stageChanged, [&](const QString &stage) {
            if (stage == "Simulating" && isCancelled)
                QTimer::singleShot(300, job.get(), SLOT(cancel()));
            else if (stage == "Simulating")
                qputenv("JEX_TOOL_TIMEOUT", "1");
        });
        job->start();
        QVERIFY(end.wait(60000));
        qunsetenv("JEX_TOOL_TIMEOUT");
        m_folder.write("tb.v", bench);
        using Insertion::SimulationJob;
        QCOMPARE(int(job->outcome()), int(isCancelled ? SimulationJob::Cancelled : SimulationJob::Failed));
        const QString limit =
            "ERROR: Icarus Verilog did not end within 1 seconds and was stopped while it ran the "
            "test bench. If the design needs longer, let the variable JEX_TOOL_TIMEOUT give a "
            "larger number of seconds.";
        QCOMPARE(job->messages().join('\n'), isCancelled ? QString() : limit);
        job.reset();
        qunsetenv("TMPDIR");
        QCOMPARE(entriesOf(m_folder.path("tmp")), QStringList());
    }

private:
    static bool matches(const QByteArray &sample, const QString &value)
    {
        for (int i = 0; i < value.size(); ++i) {
            if (value.at(i) != 'X' && value.at(i).toLatin1() != sample.at(i))
                return false;
        }
        return true;
    }

    std::unique_ptr<Insertion::SimulationJob> run(const RTLJEX::Configuration &configuration, bool byNetlist)
    {
        Insertion::SimulationOptions options;
        options.bench << m_folder.path("tb.v");
        options.byNetlist = byNetlist;
        options.records = true;
        auto job = std::make_unique<Insertion::SimulationJob>(m_input, configuration, *m_netlist, options);
        finish(*job);
        return job;
    }

    Sources m_folder;
    DesignInput m_input;
    std::unique_ptr<RtlNetlist> m_netlist;
};

QTEST_GUILESS_MAIN(SimulationTest)
#include "tst_simulation.moc"
