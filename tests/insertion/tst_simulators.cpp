// What a simulation captures. Both simulators capture the same, where a core does not fill all of its
// windows, too; what is unknown may be anything for Verilator. It compiles long, so the example has its turn
// in ./dev wave alone.

#include "tests/insertion/captures.h"
#include "tests/support/tablerow.h"

using namespace QUARRY;
using Insertion::Simulator;

const char design[] = R"(
module top #(parameter STEP = 3) (input clk, input clk2, input rst, output reg [7:0] count, output reg [2:0] slow,
           output reg late);
  always @(posedge clk) if (count == 8'h18) late <= 1'b1;
  always @(posedge clk) if (rst) count <= 8'h00; else count <= count + STEP;
  always @(negedge clk2) if (rst) slow <= 3'd0; else slow <= slow + {2'b00, count[1]};
endmodule
)";

// The count comes round three times.
const char bench[] = R"(
`timescale 1ns / 1ps
module tb;
  reg clk = 0, clk2 = 0, rst = 1;
  always #5 clk = ~clk;
  always #8 clk2 = ~clk2;
  top #(.STEP(1)) dut(.clk(clk), .clk2(clk2), .rst(rst), .count(), .slow(), .late());
  initial begin #33 rst = 0; #8000 $finish; end
endmodule
)";

const char vhdl[] = R"(
library ieee; use ieee.std_logic_1164.all;
package types is
  type pair_t is record
    first : std_logic_vector(3 downto 0);
    valid : std_logic;
  end record;
  type line_t is record
    tag  : std_logic_vector(1 to 2);
    pair : pair_t;
  end record;
  type pairs_t is array (5 downto 4) of pair_t;
  type words_t is array (0 to 2) of std_logic_vector(3 downto 0);
end package;
library ieee; use ieee.std_logic_1164.all; use work.types.all;
entity turn is port (clk : in std_logic; i : in pair_t; o : out pair_t; seen : out std_logic_vector(4 downto 0)); end;
architecture rtl of turn is
begin
  process (clk) begin if rising_edge(clk) then o.first <= not i.first; o.valid <= i.valid; end if; end process;
  seen <= i.valid & i.first;
end;
library ieee; use ieee.std_logic_1164.all; use work.types.all;
entity top is
  port (clk : in std_logic; a : in std_logic_vector(4 downto 0); q : out std_logic;
        o_first, o_pairs_4, o_pairs_5, o_words_0, o_words_2 : out std_logic_vector(3 downto 0);
        o_valid, o_pairs_valid, o_turned_valid : out std_logic; o_tag : out std_logic_vector(1 to 2);
        o_seen : out std_logic_vector(4 downto 0); o_line_first, o_turned : out std_logic_vector(3 downto 0));
end;
architecture rtl of top is
  signal p, turned : pair_t;
  signal l : line_t;
  signal pairs : pairs_t;
  signal words : words_t;
begin
  u_turn : entity work.turn port map (clk => clk, i => p, o => turned, seen => o_seen);
  process (clk) begin
    if rising_edge(clk) then
      p.first <= a(3 downto 0);
      p.valid <= a(4);
      pairs <= p & pairs(5);
      words <= p.first & words(0 to 1);
      l.tag <= words(1)(1 downto 0);
      l.pair <= pairs(4);
      q <= l.pair.valid xor l.tag(1);
    end if;
  end process;
  o_first <= p.first; o_valid <= p.valid; o_tag <= l.tag; o_line_first <= l.pair.first;
  o_pairs_4 <= pairs(4).first; o_pairs_5 <= pairs(5).first; o_pairs_valid <= pairs(4).valid;
  o_words_0 <= words(0); o_words_2 <= words(2);
  o_turned <= turned.first; o_turned_valid <= turned.valid;
end;
)";

const char vhdlBench[] = R"(
`timescale 1ns / 1ps
module tb;
  reg clk = 0;
  reg [4:0] a = 0;
  integer seed = 5;
  top dut(.clk(clk), .a(a), .q());
  always #5 clk = ~clk;
  always @(negedge clk) a = $random(seed);
  initial #3000 $finish;
endmodule
)";

class SimulatorsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        // Compiled without optimisation: that takes longer than what is compiled then runs.
        m_compiler = m_folder.script("compiler", "exec g++ \"$@\" -O0");
    }

    void init()
    {
        qputenv("JEX_CXX", QFile::encodeName(m_compiler));
        m_netlist.reset();
        m_folder.write("design.v", design);
        m_input = m_folder.input({"design.v"});
        m_bench = m_folder.write("tb.v", bench);
    }

    // By Icarus with the analyzer attached to the sources, by Verilator so and in the netlist.
    void capture()
    {
        RTLJEX::Configuration configuration(JEX::StandardMode);
        for (int number : {0, 1}) {
            JEX::AoCore &core =
                addStandard(configuration, number ? "top/clk2" : "top/clk",
                            {signalNamed("top/slow[2:0]"), signalNamed("top/rst"), signalNamed("top/late")},
                            32, 4, signalNamed("top/count[7:0]"), number ? "XXXX01XX" : "00010110");
            core.sampleEdge = number;
            core.triggerPosition = 7;
            core.captureImplementation = number ? JEX::RegImplementation : JEX::BsramImplementation;
        }
        const auto icarus = simulate(configuration, Simulator::Icarus, Insertion::SimulationJob::Done);
        for (bool byNetlist : {false, true}) {
            const auto verilator =
                simulate(configuration, Simulator::Verilator, Insertion::SimulationJob::Done, byNetlist);
            for (const auto *job : {icarus.get(), verilator.get()})
                QVERIFY(job->messages().contains("WARNING: Core 0 filled 3 of its 4 windows."));
            QCOMPARE(verilator->captured().first().windows.size(), 3);
            compare(*icarus, *verilator);
            const int end = verilator->record().indexOf("$enddefinitions");
            QVERIFY(end > 0);
            QVERIFY(verilator->record().mid(end).count("tap_") > 1000);
        }
        QVERIFY2(m_known > m_bits * 9 / 10 && m_known < m_bits, QByteArray::number(m_known));
    }

    void example()
    {
        if (qEnvironmentVariable("JEX_WAVE") != "full")
            QSKIP("./dev wave does it.");
        RTLJEX::Configuration configuration;
        QString error;
        QVERIFY2(configuration.read(EXAMPLES "/soc/trigger.zub", &error), qPrintable(error));
        m_input = projectInput(EXAMPLES "/soc/soc.jexprj");
        m_bench = EXAMPLES "/soc/tb/soc_tb.v";
        const auto icarus = simulate(configuration, Simulator::Icarus, Insertion::SimulationJob::Done);
        const auto verilator = simulate(configuration, Simulator::Verilator, Insertion::SimulationJob::Done);
        QVERIFY(verilator->benchWords().startsWith("PASS\n"));
        compare(*icarus, *verilator);
        QVERIFY2(m_known > m_bits * 9 / 10, QByteArray::number(m_known));
    }

    // Members of records and elements of arrays in VHDL: each is captured beside an output that is assigned
    // from it, and both have to be the same at all times.
    void vhdlElements()
    {
        const QList<QPair<QString, QString>> pairs{{"p.first[3:0]", "o_first[3:0]"},
                                                   {"p.valid", "o_valid"},
                                                   {"l.tag[1:2]", "o_tag[1:2]"},
                                                   {"l.pair.first[3:0]", "o_line_first[3:0]"},
                                                   {"pairs[4].first[3:0]", "o_pairs_4[3:0]"},
                                                   {"pairs[5].first[3:0]", "o_pairs_5[3:0]"},
                                                   {"pairs[4].valid", "o_pairs_valid"},
                                                   {"words[0][3:0]", "o_words_0[3:0]"},
                                                   {"words[2][3:0]", "o_words_2[3:0]"},
                                                   {"u_turn/o.first[3:0]", "o_turned[3:0]"},
                                                   {"u_turn/o.valid", "o_turned_valid"},
                                                   {"u_turn/i.valid", "u_turn/seen[4:4]"},
                                                   {"u_turn/i.first[3:0]", "u_turn/seen[3:0]"}};
        m_input = m_folder.input({m_folder.write("design.vhd", vhdl).section('/', -1)});
        m_bench = m_folder.write("tb.v", vhdlBench);
        QList<JEX::SignalItem> rows;
        for (const auto &pair : pairs)
            rows << signalNamed("top/" + pair.first) << signalNamed("top/" + pair.second);
        const LiteConfiguration configuration("top/clk", rows, 256);
        const auto job = simulate(configuration, Simulator::Icarus, Insertion::SimulationJob::Done);
        const QList<QByteArray> samples = job->captured().value(0).windows.value(0).samples;
        QVERIFY(!samples.isEmpty());
        QSet<QByteArray> histories;
        int high = 0;
        for (const auto &pair : pairs) {
            const int width = signalNamed(pair.first).width();
            QByteArray element, output;
            for (const QByteArray &sample : samples) {
                element += sample.mid(sample.size() - high - width, width);
                output += sample.mid(sample.size() - high - 2 * width, width);
            }
            high += 2 * width;
            QVERIFY2(element == output, qPrintable(pair.first));
            QVERIFY2(element.contains('1'), qPrintable(pair.first));
            histories.insert(element);
        }
        // Two are ports that another one is connected to, two have waited as long as others; the rest
        // differs.
        QCOMPARE(histories.size(), pairs.size() - 4);
    }

    void refusals_data()
    {
        textColumns("compiler", "text", "message");
        row("no compiler", "/no/g++", bench,
            "ERROR: A simulation by Verilator needs a C++ compiler, and /no/g++ is not there. Install g++ "
            "and make, "
            "or let the variable JEX_CXX name a compiler.");
        row("what it does not know", "", QByteArray(bench).replace("#33", "#33 $nobody_knows;"),
            "ERROR: Verilator does not take the test bench.");
    }
    void refusals()
    {
        auto [compiler, text, message] = textCells("compiler", "text", "message");
        m_bench = m_folder.write("tb.v", text.toUtf8());
        const LiteConfiguration configuration("top/clk", {signalNamed("top/rst")});
        qputenv("JEX_CXX", compiler.toUtf8());
        const auto job = simulate(configuration, Simulator::Verilator, Insertion::SimulationJob::Failed);
        QCOMPARE(job->messages().value(0), message);
    }

private:
    void compare(const Insertion::SimulationJob &icarus, const Insertion::SimulationJob &verilator)
    {
        m_known = m_bits = 0;
        QCOMPARE(icarus.captured().size(), 2);
        for (int core = 0; core < icarus.captured().size(); ++core) {
            const QList<RTLJEX::CapturedWindow> ours = icarus.captured().at(core).windows,
                                                theirs = verilator.captured().at(core).windows;
            QCOMPARE(ours.size(), theirs.size());
            for (int window = 0; window < ours.size(); ++window) {
                QCOMPARE(ours.at(window).trigger, theirs.at(window).trigger);
                const QByteArray left = ours.at(window).samples.join(),
                                 right = theirs.at(window).samples.join();
                QCOMPARE(left.size(), right.size());
                for (int bit = 0; bit < left.size(); ++bit) {
                    const bool isKnown = left.at(bit) == '0' || left.at(bit) == '1';
                    QVERIFY(right.at(bit) == left.at(bit) || !isKnown);
                    m_known += isKnown;
                    ++m_bits;
                }
            }
        }
    }

    std::unique_ptr<Insertion::SimulationJob> simulate(const RTLJEX::Configuration &configuration,
                                                       Simulator simulator,
                                                       Insertion::SimulationJob::Outcome outcome,
                                                       bool byNetlist = false)
    {
        if (!m_netlist)
            m_netlist = netlistOf(m_input);
        Insertion::SimulationOptions options;
        options.bench << m_bench;
        options.simulator = simulator;
        options.byNetlist = byNetlist;
        options.records = true;
        auto job = std::make_unique<Insertion::SimulationJob>(m_input, configuration, *m_netlist, options);
        finish(*job);
        if (job->outcome() != outcome)
            qWarning("%s", qPrintable(job->messages().join('\n')));
        return job;
    }

    Sources m_folder;
    DesignInput m_input;
    QString m_bench, m_compiler;
    int m_known = 0, m_bits = 0; // that were compared last
    std::unique_ptr<RtlNetlist> m_netlist;
};

QTEST_GUILESS_MAIN(SimulatorsTest)
#include "tst_simulators.moc"
