#include "model/quarry/netlistreader.h"
#include "tests/quarry/sources.h"

#include <QtTest>

#include <memory>

using namespace QUARRY;

class TestNetlistReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tree_data();
    void tree();
    void declarations();
    void unusableFiles_data();
    void unusableFiles();

private:
    std::unique_ptr<RtlNetlist> read(const QByteArray &source, bool isVhdl = false) const
    {
        const QString name = isVhdl ? "top.vhd" : "top.sv";
        m_sources.write(name, source);
        DesignInput input = m_sources.input({name});
        input.top = "top";
        QStringList messages;
        std::unique_ptr<RtlNetlist> netlist(buildNetlist(input, messages, nullptr));
        if (!netlist)
            qWarning("%s", qPrintable(messages.join('\n')));
        return netlist;
    }

    Sources m_sources;
};

void TestNetlistReader::tree_data()
{
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<QString>("expected"); // as drawn, in lines of any length
    QTest::newRow("ranges and types") << QByteArray(R"(
        module top(input clk, input [31:8] off, output reg [0:7] up = 0, input [0:0] one, input [5:5] five);
          typedef enum logic [1:0] {IDLE, RUN} state_t;
          typedef struct packed { logic [7:0] a; state_t s; } rec_t;
          typedef union packed { logic [7:0] x; logic [0:7] y; } uni_t;
          typedef logic [15:8] high_t;
          typedef logic bit_t;
          state_t st; rec_t rec; uni_t uni; high_t high; rec_t [1:0] recs; logic [0:3][7:0] packs;
          bit_t [7:4] bits; enum {A} word; enum logic {B} flag; integer count; time stamp; byte octet;
          wire signed [-1:-4] below;
        endmodule)") << R"(
        top:top clk flag off[31:8] up[0:7] one[0:0] five[5:5] st[1:0] rec[9:0] uni[7:0] high[15:8] recs[19:0]
          packs[31:0] bits[7:4] word[31:0] count[31:0] stamp[63:0] octet[7:0] below[-1:-4])";
    QTest::newRow("not shown") << QByteArray(R"(
        package p; logic shared; endpackage
        module top #(parameter W = 4)(input clk, output reg [3:0] q);
          localparam L = 2; real r; string s; event e; reg [7:0] memory [0:3]; reg flags [0:3]; genvar g;
          function [3:0] f(input [3:0] a); reg [3:0] inner; integer i; begin inner = a; f = inner; end endfunction
          task t(input a); reg held; held = a; endtask
          always @(posedge clk) begin : named
            integer i; reg step;
            for (i = 0; i < W; i = i + 1) q[i] <= f(q) > 3;
            for (int k = 0; k < 2; k++) memory[k] <= q;
            begin reg deeper; deeper = step; t(deeper); end
          end
          for (g = 0; g < 0; g = g + 1) begin : none wire never; end
          for (genvar h = 0; h < 1; h = h + 1) begin : some wire shown; end
          if (1) begin : only localparam X = 1; end
        endmodule)") << "top:top clk q[3:0] top/some[0]:some shown";
    const QByteArray longName(200, 'n');
    QTest::newRow("written names") << QByteArray(R"(
        module \mod/1 #(parameter P = 1) (input a); wire [P-1:0] w; endmodule
        module my__mod(input a); wire x__y; wire __Vx; wire a__DOT__b; wire x__05Fy; endmodule
        module top(input a);
          wire \a/b ; wire \a[3] ; wire [3:0] \x.y ; wire \3$#! ; wire c___d;
          \mod/1 #(3) \u/1 (a);
          my__mod my__inst(unmentioned);
          if (1) begin : \esc.l wire q; end
          leaf \uLONG ();
        endmodule
        module leaf; wire LONG; endmodule)")
                                          .replace("LONG", longName)
                                   << QString(R"(
        top:top a a/b a[3] 3$#! c___d unmentioned x.y[3:0]
        top/u/1:mod/1 a w[2:0]
        top/my__inst:my__mod a x__y __Vx a__DOT__b x__05Fy
        top/esc.l:esc.l q
        top/uLONG:leaf LONG)")
                                          .replace("LONG", longName);
    QTest::newRow("instances") << QByteArray(R"(
        module leaf #(parameter W = 1)(input [W-1:0] d); endmodule
        module deep #(parameter N = 1)(input d); if (N > 0) begin : r deep #(N-1) u(d); end endmodule
        module top(input d);
          for (genvar i = 0; i < 2; i = i + 1) begin : g
            for (genvar j = 1; j < 2; j = j + 1) begin : h wire hw; leaf #(i + 1) u({d, d}); end
            if (i == 1) begin : yes leaf u(d); end else begin : no wire nw; end
          end
          if (1) begin wire unnamed; end
          case (1) 0: wire c0; 1: begin : one wire c1; end endcase
          if (0) begin : a wire aw; end else if (1) begin : b wire bw; end
          generate begin wire alone; end begin wire second; end endgenerate
          leaf arr[1:0](d);
          leaf up[3:4](d);
          deep rec(d);
          TS_JTAG jtag(d);
        endmodule)") << R"(
        top:top d
        top/g[0]:g
        top/g[0]/h[1]:h hw
        top/g[0]/h[1]/u:leaf d[0:0]
        top/g[0]/no:no nw
        top/g[1]:g
        top/g[1]/h[1]:h hw
        top/g[1]/h[1]/u:leaf d[1:0]
        top/g[1]/yes:yes
        top/g[1]/yes/u:leaf d[0:0]
        top/genblk2:genblk2 unnamed
        top/one:one c1
        top/b:b bw
        top/genblk1:genblk1 alone
        top/genblk3:genblk3 second
        top/arr[1]:leaf d[0:0]
        top/arr[0]:leaf d[0:0]
        top/up[3]:leaf d[0:0]
        top/up[4]:leaf d[0:0]
        top/rec:deep d
        top/rec/r:r
        top/rec/r/u:deep d
        top/jtag:TS_JTAG
        TS_JTAG!)";
    QTest::newRow("interfaces") << QByteArray(R"(
        interface bus #(parameter W = 8)(input clk);
          logic [W-1:0] data; modport m(output data); modport s(input data);
        endinterface
        module from(bus.m port); assign port.data = 3; endmodule
        module to(bus.s ports[1:0]); wire w; assign w = ports[0].data[0]; endmodule
        module top(input clk);
          bus b(clk); bus #(4) bs[1:0](clk); from f(b); to t(bs);
        endmodule)") << R"(
        top:top clk
        top/b:bus clk data[7:0]
        top/bs[1]:bus clk data[3:0]
        top/bs[0]:bus clk data[3:0]
        top/f:from
        top/t:to w)";
    QTest::newRow("excluded") << QByteArray(R"(
        module leaf(input [1:0] d, input e, inout io, output o); wire via = e; assign o = d[0]; endmodule
        module top(input clk, inout pad, inout [1:0] pads, output reg q = 1);
          localparam P = 1;
          supply0 gnd; wire declared = 1; wire assigned; assign assigned = P; wire through; assign through = gnd;
          wire floating; assign floating = 1'bz; wire contested = 0; assign contested = clk;
          wire [3:0] whole = 5; wire [7:4] part; assign part = {clk, 2'b01, clk}; wire [0:3] up; assign up[0:1] = 1;
          leaf u(.d({1'b0, clk}), .e(1'b1), .io(pad), .o());
          leaf v[1:0](.d(4'b1100), .e({clk, 1'b0}), .io(pad), .o(contested));
          always @(posedge clk) q <= 0;
          wire gw; if (1) begin : g wire gw; assign gw = 0; end
        endmodule)") << R"(
        top:top clk pad! q gnd! declared! assigned! through! floating contested gw
          pads[1:0]! whole[3:0]! part[7:4]!6!5 up[0:3]!0!1
        top/u:leaf e! io o via! d[1:0]!1
        top/v[1]:leaf e io o! via d[1:0]!
        top/v[0]:leaf e! io o! via! d[1:0]!
        top/g:g gw!)";
    QTest::newRow("VHDL") << QByteArray(R"(
        library ieee; use ieee.std_logic_1164.all;
        entity leaf is
          generic (W : positive);
          port (a : in std_logic; y : out std_logic_vector(0 to W - 1));
        end entity;
        architecture rtl of leaf is signal s, never : std_logic_vector(7 downto 4); begin
          s <= (others => a); y <= (others => s(4));
        end architecture;
        library ieee; use ieee.std_logic_1164.all;
        entity top is port (clk, a : in std_logic; pad : inout std_logic; q : out std_logic_vector(15 downto 8)); end;
        architecture rtl of top is
          type state_t is (IDLE, RUN, STOP); signal state : state_t;
          type rec_t is record x : std_logic; y : std_logic_vector(1 downto 0); end record; signal rec : rec_t;
          type mem_t is array (0 to 3) of std_logic_vector(7 downto 0); signal mem : mem_t;
          signal n1_o, tied : std_logic; signal one : std_logic_vector(0 downto 0);
          component ts_jtag is port (a, b : in std_logic; z : out std_logic); end component;
        begin
          pad <= a when n1_o = '1' else 'Z'; tied <= '1'; one(0) <= tied;
          gen : for i in 6 downto 5 generate signal inner : std_logic; begin
            inner <= a xor n1_o;
            u : entity work.leaf generic map (W => i) port map (a => inner, y => open);
            extra : if i = 5 generate signal only : std_logic; begin only <= inner; q(8) <= only; end generate;
          end generate;
          blk : block begin b : ts_jtag port map (a => a, b => one(0), z => n1_o); end block;
          process (clk) variable v : std_logic; begin
            if rising_edge(clk) then
              v := a; rec.x <= v; rec.y <= rec.x & v;
              case state is when IDLE => state <= RUN; when RUN => state <= STOP; when STOP => state <= IDLE; end case;
            end if;
          end process;
          q(15) <= '1' when state = IDLE else '0'; q(14 downto 13) <= rec.y; q(12 downto 9) <= (others => '0');
        end architecture;)")
                          << R"(
        top:top clk a pad! n1_o tied! q[15:8]!12!11!10!9 state[1:0] rec[2:0] one[0:0]!
        top/gen[5]:gen inner
        top/gen[5]/u:leaf a y[0:4] s[7:4] never[7:4]
        top/gen[5]/extra:extra only
        top/gen[6]:gen inner
        top/gen[6]/u:leaf a y[0:5] s[7:4] never[7:4]
        top/blk:blk
        top/blk/b:ts_jtag
        TS_JTAG!)";
}

void TestNetlistReader::tree()
{
    QFETCH(QByteArray, source);
    QFETCH(QString, expected);
    const std::unique_ptr<RtlNetlist> netlist = read(source, source.contains("entity"));
    QCOMPARE(drawn(netlist.get()).join(' ').split(' '), expected.simplified().split(' '));
}

void TestNetlistReader::declarations()
{
    const std::unique_ptr<RtlNetlist> netlist = read(R"(package p1; typedef enum {X, Y=-5} e_t; endpackage
package p2; typedef enum {Z} e_t; endpackage
module top(input wire signed [7:0] a);
  typedef enum logic [2:0] {IDLE, RUN=5} state_t;
  state_t state;
  enum logic {OFF, ON} flag;
  logic [1:0][3:0] packs;
  p1::e_t unclear; p2::e_t other;
  struct packed { logic x; } rec;
  byte octet;
endmodule)");
    QVERIFY(netlist);
    QStringList lines;
    const auto note = [&](const QString &name, const Declaration &info) {
        QCOMPARE(info.file, m_sources.path("top.sv"));
        lines += QString("%1 %2: %3").arg(name).arg(info.line).arg(info.type) +
                 (info.enumLabels.isEmpty() ? QString() : " = " + info.enumLabels.join(' '));
    };
    for (const RtlNetBus *bus : netlist->topHierarchy->buses)
        note(bus->BusName(), bus->declaration());
    note("flag", netlist->findNet("top/flag")->declaration());
    QCOMPARE(lines.join('\n'), QString("a[7:0] 3: logic signed [7:0]\n"
                                       "state[2:0] 5: state_t = IDLE=0 RUN=5\n"
                                       "packs[7:0] 7: logic [1:0][3:0]\n"
                                       "unclear[31:0] 8: e_t\n"
                                       "other[31:0] 8: e_t\n"
                                       "rec[0:0] 9: struct packed\n"
                                       "octet[7:0] 10: byte\n"
                                       "flag 6: enum logic = OFF=0 ON=1"));
}

void TestNetlistReader::unusableFiles_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("message"); // empty: what a cancelled reading says
    QTest::newRow("missing") << QByteArray() << "ERROR: The elaborated design %1 cannot be read: ";
    const QString damaged = "ERROR: %1 is not a complete design that Verilator wrote. Read the design again.";
    QTest::newRow("empty") << QByteArray("") << damaged;
    QTest::newRow("other") << QByteArray("<project/>") << damaged;
    QTest::newRow("cut off") << QByteArray("<verilator_xml><netlist><module name=\"top\"") << damaged;
    QTest::newRow("no top")
        << QByteArray("<verilator_xml><netlist/></verilator_xml>")
        << "ERROR: The design has no top module. Add the file that holds it to the project.";
    const QByteArray endless = "<verilator_xml><netlist><module name=\"a\" origName=\"a\" topModule=\"1\">"
                               "<instance name=\"u\" defName=\"a\"/></module></netlist></verilator_xml>";
    QTest::newRow("endless") << endless << "ERROR: The module a contains itself.";
    QTest::newRow("cancelled") << endless << "";
}

void TestNetlistReader::unusableFiles()
{
    class Cancelling : public ElaborationProgress
    {
        void stage(const QString &) override {}
        bool cancelled() override { return true; }
    } cancelling;
    QFETCH(QByteArray, content);
    QFETCH(QString, message);
    const QString file = m_sources.path(QString(QTest::currentDataTag()) + ".xml");
    if (!content.isNull())
        m_sources.write(QFileInfo(file).fileName(), content);
    QStringList messages;
    const std::unique_ptr<RtlNetlist> netlist(
        netlistFromVerilatorXml(file, ReadOptions(), messages, message.isEmpty() ? &cancelling : nullptr));
    QVERIFY(!netlist);
    QCOMPARE(messages.size(), message.isEmpty() ? 0 : 1);
    message.replace("%1", file);
    QCOMPARE(messages.value(0).left(message.size()), message);
}

QTEST_GUILESS_MAIN(TestNetlistReader)
#include "tst_netlistreader.moc"
