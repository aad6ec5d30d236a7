// Members of records and elements of arrays in VHDL: each is captured beside an output that is assigned from
// it, and both have to be the same at all times.

#include "tests/insertion/captures.h"

using namespace QUARRY;

namespace {

const char design[] = R"(
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

const char bench[] = R"(
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

} // namespace

class VhdlElementsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void elements()
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
        Sources folder;
        folder.write("design.vhd", design);
        const DesignInput input = folder.input({"design.vhd"});
        const std::unique_ptr<RtlNetlist> netlist = netlistOf(input);
        QVERIFY(netlist);
        QList<JEX::SignalItem> rows;
        for (const auto &pair : pairs)
            rows << signalNamed("top/" + pair.first) << signalNamed("top/" + pair.second);
        const LiteConfiguration configuration("top/clk", rows, 256);
        Insertion::SimulationOptions options;
        options.bench << folder.write("tb.v", bench);
        Insertion::SimulationJob job(input, configuration, *netlist, options);
        finish(job);
        QVERIFY2(job.outcome() == Insertion::SimulationJob::Done, qPrintable(job.messages().join('\n')));
        const QList<QByteArray> samples = job.captured().first().windows.first().samples;
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
            QVERIFY2(element == output && element.contains('1'), qPrintable(pair.first));
            histories.insert(element);
        }
        // Two are ports that another one is connected to, two have waited as long as others; the rest
        // differs.
        QCOMPARE(histories.size(), pairs.size() - 4);
    }
};

QTEST_GUILESS_MAIN(VhdlElementsTest)
#include "tst_vhdlelements.moc"
