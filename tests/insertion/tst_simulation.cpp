// A captured window is what the nets were: the recorded waveform of all tapped nets is sampled here at the
// edges of the clock, as a register does, and each window has to be the right part of that.

#include "elaboration/elaboration.h"
#include "insertion/analyzer.h"
#include "insertion/simulationjob.h"
#include "model/netlist/rtlnetlist.h"
#include "tests/support/files.h"

#include <QSignalSpy>
#include <QtTest>

#include <memory>

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
        m_input.workingDir = m_folder.path();
        DesignSource source;
        source.path = m_folder.write("design.v", design);
        source.type = 2;
        m_input.files << source;
        source.onlyWhenUsed = true;
        for (const auto &library :
             {std::make_pair("unit.v", otherUnit), std::make_pair("follower.v", follower)}) {
            source.path = m_folder.write(library.first, library.second);
            m_input.files.prepend(source);
        }
        m_folder.write("tb.v", bench);
        QStringList messages;
        m_netlist.reset(buildNetlist(m_input, messages));
        QVERIFY2(m_netlist, qPrintable(messages.join('\n')));
    }

    void windows_data()
    {
        QTest::addColumn<bool>("byNetlist");
        QTest::addColumn<QString>("clock");
        QTest::addColumn<int>("edge");
        QTest::addColumn<int>("amount");
        QTest::addColumn<int>("position"); // -1: a Lite core
        QTest::addColumn<int>("segments");
        QTest::addColumn<QString>("value"); // of the count that triggers
        struct Row
        {
            const char *clock;
            int edge, amount, position, segments;
            const char *value;
        } rows[] = {{"top/clk", 0, 64, -1, 1, ""},         {"top/clk", 1, 64, 10, 4, "00010110"},
                    {"top/clk2", 0, 32, 0, 2, "XXXX01XX"}, {"top/clk", 0, 16, 12, 8, "XXX00000"},
                    {"top/clk2", 1, 128, -1, 1, ""},       {"top/clk", 0, 256, 252, 1, "1XXXXXXX"},
                    {"top/clk2", 0, 16, -1, 1, ""},        {"top/clk", 1, 512, -1, 1, ""},
                    {"top/clk", 0, 32, 28, 4, "XXXXXX11"}, {"top/clk2", 1, 64, 31, 4, "XXXXX00X"},
                    {"top/clk", 1, 4, 0, 16, "XXXX1111"},  {"top/clk2", 1, 256, 1, 1, "0XXXXXX1"}};
        for (int i = 0; i < int(std::size(rows)); ++i) {
            for (bool byNetlist : {false, true}) {
                const Row &row = rows[i];
                QTest::addRow("%d %s", i, byNetlist ? "netlist" : "sources")
                    << byNetlist << row.clock << row.edge << row.amount << row.position << row.segments
                    << row.value;
            }
        }
    }
    void windows()
    {
        QFETCH(bool, byNetlist);
        QFETCH(QString, clock);
        QFETCH(int, edge);
        QFETCH(int, amount);
        QFETCH(int, position);
        QFETCH(int, segments);
        QFETCH(QString, value);
        RTLJEX::Configuration configuration(position < 0 ? JEX::LiteMode : JEX::StandardMode);
        QList<JEX::SignalItem> rows = {bus("top/lane[1]/u/count", 4, 11),
                                       net("top/lane[2]/u/never_set"),
                                       bus("top/out", 3, 0),
                                       net("top/rst"),
                                       bus("top/in", 2, 1),
                                       bus("top/lane[2]/u/out", 0, 3),
                                       bus("top/all", 0, 3)};
        rows[3].alias = "$end"; // would end its declaration in the waveform
        if (position < 0) {
            JEX::AOCore_Lite *core = new JEX::AOCore_Lite;
            core->sampleClock = clock;
            core->sampleEdge = edge;
            core->captureAmount = amount;
            core->captureSignals = core->enabledCaptureSignals = rows;
            configuration.coresOf<JEX::AOCore_Lite>() << core;
        } else {
            JEX::AoCore *core = new JEX::AoCore(0);
            core->sampleClock = clock;
            core->sampleEdge = edge;
            core->storageSize = amount * segments;
            core->captureAmount = amount;
            core->windowNumber = segments;
            core->triggerPosition = position;
            core->captureSignals = core->enabledCaptureSignals = rows;
            core->triggerPorts[0]->signalItems = {bus("top/lane[0]/u/count", 11, 4)};
            core->matchUnits[0]->enabled = true;
            core->matchUnits[0]->triggerPort = core->triggerPorts[0];
            core->matchUnits[0]->value = value;
            core->expressions << "M0";
            configuration.coresOf<JEX::AoCore>() << core;
        }
        const std::unique_ptr<Insertion::SimulationJob> job = run(configuration, byNetlist);
        QVERIFY2(job->outcome() == Insertion::SimulationJob::Done, qPrintable(job->messages().join('\n')));

        QVERIFY(job->waveform().contains(" _end $end\n") && !job->waveform().contains("$end $end"));
        QString error;
        QVERIFY(!job->write(m_folder.path("part.vcd"), m_folder.path("none/raw.vcd"), &error));
        QVERIFY2(QDir(m_folder.path()).entryList({"part*"}).isEmpty(), qPrintable(error));

        const RTLJEX::AnyCore core = configuration.cores().first();
        Insertion::Analyzer analyzer(configuration, RTLJEX::CoreOptions(), *m_netlist);
        const Insertion::Analyzer::Core &made = analyzer.cores().first();
        const Record record(job->record());
        const char level = edge == 0 ? '1' : '0';
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
        core->captureSignals = core->enabledCaptureSignals = {net("top/rst")};
        core->triggerPorts[1]->signalItems = {net("top/rst")};
        for (int unit : {0, 5}) {
            core->matchUnits[unit]->enabled = true;
            core->matchUnits[unit]->triggerPort = core->triggerPorts[1];
            core->matchUnits[unit]->value = unit ? "R" : "F";
        }
        core->expressions << "M0"
                          << "M5";
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
        RTLJEX::Configuration configuration(JEX::LiteMode);
        captureOne(configuration, "top/clk");
        const std::unique_ptr<Insertion::SimulationJob> job = run(configuration, false);
        m_folder.write("tb.v", bench);
        QVERIFY2(job->outcome() == Insertion::SimulationJob::Done, qPrintable(job->messages().join('\n')));
        QCOMPARE(job->record().count("\nb1 tap_0\n"), 2000);
    }

    // What a bench says and does reaches nobody but its reader.
    void benches_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QString>("expected"); // the beginning of the last message
        QTest::newRow("no instance") << QByteArray("module tb; endmodule")
                                     << "ERROR: The test bench has no instance of top.";
        QTest::newRow("comments") << QByteArray("// module tb\n/* module top */ module tb; endmodule")
                                  << "ERROR: The test bench has no instance of top.";
        QTest::newRow("two instances") << QByteArray("module tb; top a(); top b(); endmodule")
                                       << "ERROR: The test bench has several instances of top: tb.a, tb.b. "
                                          "Name one of them with --instance.";
        QTest::newRow("does not compile") << QByteArray("module tb; top a(; endmodule") << "ERROR: ";
        QTest::newRow("fails") << QByteArray("module tb; top a(); initial $fatal(1, \"no\"); endmodule")
                               << "ERROR: The test bench failed with code 1.";
        QTest::newRow("writes outside")
            << QByteArray("module tb; top a(); integer f; initial begin f = $fopen(\"" +
                          m_folder.path().toUtf8() +
                          "/escaped\", \"w\"); $display(\"%0d\", f); $finish; end endmodule")
            << "Core 0 did not fill its window: its sample clock top/clk had too few edges.";
    }
    void benches()
    {
        QFETCH(QByteArray, text);
        QFETCH(QString, expected);
        m_folder.write("tb.v", text);
        RTLJEX::Configuration configuration(JEX::LiteMode);
        captureOne(configuration, "top/rst");
        const std::unique_ptr<Insertion::SimulationJob> job = run(configuration, false);
        m_folder.write("tb.v", bench);
        QVERIFY2(job->messages().join('\n').startsWith(expected), qPrintable(job->messages().join('\n')));
        QVERIFY(!QFileInfo::exists(m_folder.path("escaped")));
    }

    // A bench without an end is cut off, by who waits for it or by the limit, and nothing of it is left.
    void endless_data()
    {
        QTest::addColumn<QByteArray>("process");
        QTest::addColumn<bool>("isCancelled");
        for (bool isCancelled : {true, false}) {
            const char *end = isCancelled ? "cancelled" : "limit";
            QTest::addRow("clock, %s", end) << QByteArray("always #1 clk = ~clk;") << isCancelled;
            QTest::addRow("no time, %s", end) << QByteArray("initial while (1) clk = 0;") << isCancelled;
            QTest::addRow("talks, %s", end) << QByteArray("always #1 $display(\"tick\");") << isCancelled;
        }
    }
    void endless()
    {
        QFETCH(QByteArray, process);
        QFETCH(bool, isCancelled);
        m_folder.write("tb.v", "module tb; reg clk = 0; top dut(.clk(clk)); " + process + " endmodule");
        QVERIFY(QDir(m_folder.path()).mkpath("tmp"));
        qputenv("TMPDIR", m_folder.path("tmp").toUtf8());
        RTLJEX::Configuration configuration(JEX::LiteMode);
        captureOne(configuration, "top/rst");
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
        QCOMPARE(QDir(m_folder.path("tmp")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 QStringList());
    }

private:
    static JEX::SignalItem net(const QString &name)
    {
        JEX::SignalItem item;
        item.name = name;
        item.type = JEX::NetKind;
        return item;
    }

    static void captureOne(RTLJEX::Configuration &configuration, const QString &name)
    {
        JEX::AOCore_Lite *core = new JEX::AOCore_Lite;
        core->sampleClock = "top/clk";
        core->captureSignals = core->enabledCaptureSignals = {net(name)};
        configuration.coresOf<JEX::AOCore_Lite>() << core;
    }

    // Bits from the first to the last, in either direction.
    static JEX::SignalItem bus(const QString &name, int first, int last)
    {
        JEX::SignalItem item = net(QString("%1[%2:%3]").arg(name).arg(first).arg(last));
        item.type = JEX::BusKind;
        for (int bit = first; bit != last + (first < last ? 1 : -1); bit += first < last ? 1 : -1)
            item.members << net(QString("%1[%2]").arg(name).arg(bit));
        return item;
    }

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
        QSignalSpy end(job.get(), SIGNAL(finished()));
        job->start();
        if (!end.wait(120000))
            qFatal("the simulation does not end");
        return job;
    }

    Folder m_folder;
    DesignInput m_input;
    std::unique_ptr<RtlNetlist> m_netlist;
};

QTEST_GUILESS_MAIN(SimulationTest)
#include "tst_simulation.moc"
