// What stays when Yosys refuses the sources: "probe.v" and "bind.sv" let the cores look into the design as it
// is, and what they then hold in their memories is what the nets were. Verilator compiles long, so it has its
// turn in ./dev wave alone.

#include "gateware/windowtext.h"
#include "insertion/analyzer.h"
#include "insertion/attaching.h"
#include "insertion/insertionjob.h"
#include "tests/insertion/captures.h"
#include "tests/support/tablerow.h"
#include "tests/support/tools.h"

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

// Rows stand with the highest bit of the sample last.
QList<JEX::SignalItem> rows()
{
    QList<JEX::SignalItem> rows{signalNamed("top/lane[1]/u/total[7:0]"), signalNamed("top/q[7:0]")};
    for (JEX::SignalItem &row : rows)
        std::reverse(row.members.begin(), row.members.end());
    return rows;
}

struct Capture : RTLJEX::Configuration
{
    explicit Capture(bool isLite) : Configuration(isLite ? JEX::LiteMode : JEX::StandardMode)
    {
        if (isLite)
            addLite(*this, "top/clk", rows(), 64);
        else
            addStandard(*this, "top/clk", rows(), 64, 1, signalNamed("top/lane[0]/u/total[7:0]"), "01XXXXXX")
                .triggerPosition = 20;
    }
};

} // namespace

class AttachingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_folder.write("design.sv", design);
        m_input = m_folder.input({"design.sv"});
        m_input.top = "top";
        m_netlist = netlistOf(m_input);
        QVERIFY(m_netlist);
    }

    void windows_data()
    {
        columns<bool, bool>("isLite", "byBind");
        row("Lite, probe", true, false);
        row("Standard, probe", false, false);
        if (qEnvironmentVariable("JEX_WAVE") != "full")
            return;
        row("Lite, bind", true, true);
        row("Standard, bind", false, true);
    }
    void windows()
    {
        auto [isLite, byBind] = cells<bool, bool>("isLite", "byBind");
        const Capture configuration(isLite);
        Insertion::InsertionOptions options;
        options.instance = "tb.b.chip";
        Insertion::InsertionJob job(m_input, configuration, *m_netlist, options);
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
        const Capture configuration(false);
        for (const char *instance : {"", "tb.b.chip"}) {
            Insertion::SimulationOptions options;
            options.bench << m_folder.path("tb.sv");
            options.instance = instance;
            Insertion::SimulationJob job(m_input, configuration, *m_netlist, options);
            finish(job);
            QVERIFY2(job.outcome() == Insertion::SimulationJob::Done, qPrintable(job.messages().join('\n')));
            QCOMPARE(job.captured().first().windows.first().samples.size(), 64);
        }
    }

    // What VHDL declares has no name in Verilog.
    void netsOfVhdl()
    {
        m_folder.write("counter.vhd",
                       "library ieee; use ieee.std_logic_1164.all; use ieee.numeric_std.all;\n"
                       "entity counter is port (clk : in std_logic; q : out unsigned(7 downto 0)); end;\n"
                       "architecture a of counter is signal count : unsigned(7 downto 0) := x\"00\";\n"
                       "begin count <= count + 1 when rising_edge(clk); q <= count; end;\n");
        m_folder.write("mixed.v", "module mixed(input clk, output [7:0] q, r); wire [7:0] w;\n"
                                  "counter u(.clk(clk), .q(w)); assign {q, r} = {w, ~w}; endmodule\n");
        const std::unique_ptr<RtlNetlist> netlist = netlistOf(m_folder.input({"counter.vhd", "mixed.v"}));
        QVERIFY(netlist);
        const LiteConfiguration configuration(
            "mixed/clk", {signalNamed("mixed/u/count[7:0]"), signalNamed("mixed/w[7:0]")}, 64);
        const Insertion::Analyzer analyzer(configuration, RTLJEX::CoreOptions(), *netlist);
        const QByteArray text = probeText(analyzer, "tb.chip");
        QVERIFY2(text.contains("({8{1'bx}} /* in VHDL */)"), text);
        QVERIFY2(text.contains("(tb.chip.w)"), text);
        QVERIFY2(!text.contains("count"), text);
    }

private:
    QByteArray run(const QString &program, const QStringList &arguments)
    {
        return runTool(m_folder.path(), program, arguments);
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

    Sources m_folder;
    DesignInput m_input;
    std::unique_ptr<RtlNetlist> m_netlist;
};

QTEST_GUILESS_MAIN(AttachingTest)
#include "tst_attaching.moc"
