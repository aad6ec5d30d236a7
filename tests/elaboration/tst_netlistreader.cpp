#include "elaboration/reading/netlistreader.h"
#include "tests/elaboration/sources.h"
#include "tests/support/tablerow.h"

using namespace QUARRY;

const char verilogTypes[] = R"(package p1; typedef enum {X, Y=-5} e_t; endpackage
package p2; typedef enum {Z} e_t; endpackage
module top(input wire signed [7:0] a);
  typedef enum logic [2:0] {IDLE, RUN=5} state_t;
  state_t state;
  enum logic {OFF, ON} flag;
  logic [1:0][3:0] packs;
  p1::e_t unclear; p2::e_t other;
  struct packed { logic x; } rec;
  struct packed { struct packed { logic [0:2] len; logic ok; } [2:1] h; union packed { byte b; logic [7:0] n; } u; } deep;
  byte octet;
endmodule)";

// No raw text: its "#" at the beginning of a line is a directive to moc.
const char copiedVerilog[] = "// pragma translate_off\n"
                             "  junk\n"
                             "// pragma translate_on\n"
                             "`pragma protect begin_protected\n"
                             "#\"\n"
                             "`pragma protect end_protected\n"
                             "module top(input a);\n"
                             "  assert property (@(posedge a) a ##1 a)\n"
                             "    else begin\n"
                             "    end wire b;\n"
                             "endmodule";

const char vhdlTypes[] = R"(package pk is
  type mode_t is (OFF, 'x', \On\); subtype some_t is mode_t range OFF to 'x';
  type rec_t is record v : bit; end record; end;
use work.pk.all;
entity sub is generic (W : integer := 2); port (a : in bit; r : in rec_t;
  m : out mode_t); end;
architecture old of sub is
  signal s : bit_vector(0 to 1); begin s <= (others => a); m <= OFF; end;
architecture late of sub is
  signal s, t :
    bit_vector(W - 1 downto 0); signal x : some_t; signal n : integer range 0 to 3; signal \N n\ : bit; begin
  s <= (others => a); t <= s; x <= OFF when a = '1' else 'x'; n <= 1 when a = '1' else 2; \N n\ <= a;
  m <= x when n = 1 else OFF;
  g : if W = 2 generate signal b, c : bit; begin b <= a; c <= b;
  else generate signal b : bit; begin b <= not a; end generate;
end;
use work.pk.all;
entity top is port (a : in bit; r : in rec_t); end;
architecture rtl of top is
  procedure nothing(signal a : in bit) is begin end;
  component sub is port (a : in bit; r : in rec_t; m : out mode_t); end component;
  for named : sub use entity work.sub(old);
begin named : sub port map (a, r, open);
  first : entity work.sub(old) port map (a, r, open);
  loops : for i in 0 to 0 generate signal x : bit; begin x <= a;
    inner : block
      signal y : bit; begin y <= x; second : sub port map (y, r, open); end block;
  end generate;
end;)";

class NetlistReaderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Each design ends in the netlist that it must give, in comments that begin with "//= " or "--= "; there
    // a[0..2] stands for a[0] a[1] a[2], and so does what follows.
    void tree_data()
    {
        QTest::addColumn<QString>("file");
        for (const QString &file : QDir(TEST_DESIGNS).entryList(QDir::Files))
            row(qPrintable(file), TEST_DESIGNS "/" + file);
    }
    void tree()
    {
        QFETCH(QString, file);
        QStringList expected;
        for (const QString &line : QString(contents(file)).split('\n')) {
            if (line.startsWith("//= ") || line.startsWith("--= "))
                expected += line.mid(4).simplified().split(' ');
        }
        const QRegularExpression several("\\[(\\d+)\\.\\.(\\d+)\\]");
        for (int i = 0; i < expected.size(); ++i) {
            const QString pattern = expected.at(i);
            const QRegularExpressionMatch range = several.match(pattern);
            for (int k = range.captured(2).toInt(); range.hasMatch() && k >= range.captured(1).toInt(); --k)
                expected.insert(i + 1, QString(pattern).replace(several, QString("[%1]").arg(k)));
            if (range.hasMatch())
                expected.removeAt(i);
        }
        QVERIFY(!expected.isEmpty());
        QCOMPARE(drawn(read(file).get()).join(' ').split(' '), expected);
    }

    void declarations_data()
    {
        textColumns("source", "expected");
        row("top.sv", verilogTypes,
            "a[7:0] 3: logic signed [7:0]\n"
            "state[2:0] 5: state_t = IDLE=0 RUN=5\n"
            "packs[7:0] 7: logic [1:0][3:0]\n"
            "unclear[31:0] 8: e_t\n"
            "other[31:0] 8: e_t\n"
            "rec[0:0] 9: struct packed { x[0] }\n"
            "deep[15:0] 10: struct packed { h[2].len[15:13] h[2].ok[12] h[1].len[11:9] "
            "h[1].ok[8] u.b[7:0] u.n[7:0] }\n"
            "octet[7:0] 11: byte\n"
            "flag 6: enum logic = OFF=0 ON=1");
        row("copied.sv", copiedVerilog, "a 7: logic\nb 10: logic");
        row("copied.vhd",
            "entity top is\n-- pragma translate_off\njunk\n"
            "-- pragma translate_on\nport (a : in bit); end;\n"
            "architecture r of top is begin end;",
            "a 5: bit");
        // Which alternative of a generate statement counts is not known, so names that both have get no
        // place.
        row("top.vhd", vhdlTypes,
            "named/m[1:0] 6: mode_t = off=0 'x'=1 On=2\n"
            "named/s[0:1] 8: bit_vector(0 to 1)\n"
            "first/m[1:0] 6: mode_t = off=0 'x'=1 On=2\n"
            "first/s[0:1] 8: bit_vector(0 to 1)\n"
            "loops[0]/inner/second/m[1:0] 6: mode_t = off=0 'x'=1 On=2\n"
            "loops[0]/inner/second/s[1:0] 10: bit_vector(1 downto 0)\n"
            "loops[0]/inner/second/t[1:0] 10: bit_vector(1 downto 0)\n"
            "loops[0]/inner/second/n[1:0] 11: integer range 0 to 3\n"
            "a 18: bit\n"
            "r.v 18: bit\n"
            "named/a 5: bit\n"
            "named/r.v 5: bit\n"
            "first/a 5: bit\n"
            "first/r.v 5: bit\n"
            "loops[0]/x 25: bit\n"
            "loops[0]/inner/y 27: bit\n"
            "loops[0]/inner/second/a 5: bit\n"
            "loops[0]/inner/second/r.v 5: bit\n"
            "loops[0]/inner/second/x 11: some_t = off=0 'x'=1 On=2\n"
            "loops[0]/inner/second/N n 11: bit\n"
            "loops[0]/inner/second/g/b -\n"
            "loops[0]/inner/second/g/c 14: bit");
    }
    void declarations()
    {
        auto [source, expected] = textCells("source", "expected");
        const QString file = m_sources.write(QTest::currentDataTag(), source.toUtf8());
        const std::unique_ptr<RtlNetlist> netlist = read(file);
        QVERIFY(netlist);
        QStringList lines;
        const auto note = [&](const QString &name, const Declaration &info) {
            QCOMPARE(info.file, info.line ? file : QString());
            lines += name.section('/', 1) + (info.line ? QString(" %1: ").arg(info.line) : " -") + info.type +
                     (info.enumLabels.isEmpty() ? QString() : " = " + info.enumLabels.join(' ')) +
                     (info.members.isEmpty() ? QString() : " { " + info.members.join(' ') + " }");
        };
        for (const RtlNetBus *bus : netlist->topHierarchy->netbusesIncludeSub())
            note(bus->fullBusName(), bus->declaration());
        for (const RtlNet *net : netlist->topHierarchy->singleNetsIncludeSub())
            note(net->fullPathName(), net->declaration());
        QCOMPARE(lines.join('\n'), expected);
    }

    void unusableFiles_data()
    {
        textColumns("content", "message");
        row("missing", "", "ERROR: The elaborated design %1 cannot be read: ");
        const QString damaged =
            "ERROR: %1 is not a complete design that Verilator wrote. Read the design again.";
        row("empty", "", damaged);
        row("other", "<project/>", damaged);
        row("cut off", "<verilator_xml><netlist><module name=\"top\"", damaged);
        row("no top", "<verilator_xml><netlist/></verilator_xml>",
            "ERROR: The design has no top module. Add the file that holds it to the project.");
        row("endless",
            "<verilator_xml><netlist><module name=\"a\" origName=\"a\" topModule=\"1\">"
            "<instance name=\"u\" defName=\"a\"/></module></netlist></verilator_xml>",
            "ERROR: The module a contains itself.");
    }
    void unusableFiles()
    {
        auto [content, message] = textCells("content", "message");
        const QString file = m_sources.path(QString(QTest::currentDataTag()) + ".xml");
        if (!message.contains("cannot be read"))
            m_sources.write(QFileInfo(file).fileName(), content.toUtf8());
        NetlistReader reader(file, ReadOptions());
        while (reader.readSlice())
            ;
        const std::unique_ptr<RtlNetlist> netlist(reader.takeNetlist());
        QVERIFY(!netlist);
        message.replace("%1", file);
        QCOMPARE(reader.error().left(message.size()), message);
    }

private:
    static std::unique_ptr<RtlNetlist> read(const QString &file)
    {
        DesignInput input = Sources().input({file});
        input.top = "top";
        return netlistOf(input);
    }

    Sources m_sources;
};

QTEST_GUILESS_MAIN(NetlistReaderTest)
#include "tst_netlistreader.moc"
