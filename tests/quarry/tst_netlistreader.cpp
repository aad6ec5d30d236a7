#include "model/quarry/elaboration.h"
#include "tests/quarry/elaborated.h"
#include "tests/support/netlisttext.h"

#include <QtTest>

using namespace QUARRY;

namespace {

QString drawn(const Hierachy *node, int level = 0)
{
    const QString indent(2 * level, ' ');
    QString text = indent + node->instanceName + ':' + node->moduleName + '\n';
    for (const RtlNet *net : node->nets)
        text += indent + "  " + net->name() + (net->excluded ? " x\n" : "\n");
    for (const RtlNetBus *bus : node->buses) {
        text += indent + "  " + bus->BusName() + (bus->excluded ? " x" : "");
        for (const RtlNet *bit : bus->members)
            text += bit->excluded && !bus->excluded ? ' ' + bit->name() : QString();
        text += '\n';
    }
    for (const Hierachy *child : node->children)
        text += drawn(child, level + 1);
    return text;
}

// A list, so that a failure shows the first line that differs.
QStringList lines(const RtlNetlist &netlist)
{
    return drawn(netlist.topHierarchy).split('\n');
}

} // namespace

class TestNetlistReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tree_data();
    void tree();
    void declarations();
    void longNames();
    void toolNames();
    void vhdl();
    void blackBoxes();
    void unusableFiles_data();
    void unusableFiles();
    void cancelled();

private:
    Elaborated m_elaborated;
};

void TestNetlistReader::tree_data()
{
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<QString>("expected");
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
        top
          clk
          off[31:8]
          up[0:7]
          one[0:0]
          five[5:5]
          st[1:0]
          rec[9:0]
          uni[7:0]
          high[15:8]
          recs[19:0]
          packs[31:0]
          bits[7:4]
          word[31:0]
          flag
          count[31:0]
          stamp[63:0]
          octet[7:0]
          below[-1:-4])";
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
        endmodule)") << R"(
        top
          clk
          q[3:0]
          some[0]:some
            shown)";
    QTest::newRow("written names") << QByteArray(R"(
        module \mod/1 #(parameter P = 1) (input a); wire [P-1:0] w; endmodule
        module my__mod(input a); wire x__y; wire __Vx; wire a__DOT__b; wire x__05Fy; endmodule
        module top(input a);
          wire \a/b ; wire \a[3] ; wire [3:0] \x.y ; wire \3$#! ; wire c___d;
          \mod/1 #(3) \u/1 (a);
          my__mod my__inst(unmentioned);
          if (1) begin : \esc.l wire q; end
        endmodule)") << R"(
        top
          a
          a/b
          a[3]
          x.y[3:0]
          3$#!
          c___d
          unmentioned
          u/1:mod/1
            a
            w[2:0]
          my__inst:my__mod
            a
            x__y
            __Vx
            a__DOT__b
            x__05Fy
          esc.l:esc.l
            q)";
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
        endmodule)") << R"(
        top
          d
          g[0]:g
            h[1]:h
              hw
              u:leaf
                d[0:0]
            no:no
              nw
          g[1]:g
            h[1]:h
              hw
              u:leaf
                d[1:0]
            yes:yes
              u:leaf
                d[0:0]
          genblk2:genblk2
            unnamed
          one:one
            c1
          b:b
            bw
          genblk1:genblk1
            alone
          genblk3:genblk3
            second
          arr[1]:leaf
            d[0:0]
          arr[0]:leaf
            d[0:0]
          up[3]:leaf
            d[0:0]
          up[4]:leaf
            d[0:0]
          rec:deep
            d
            r:r
              u:deep
                d)";
    QTest::newRow("interfaces") << QByteArray(R"(
        interface bus #(parameter W = 8)(input clk);
          logic [W-1:0] data; modport m(output data); modport s(input data);
        endinterface
        module from(bus.m port); assign port.data = 3; endmodule
        module to(bus.s ports[1:0]); wire w; assign w = ports[0].data[0]; endmodule
        module top(input clk);
          bus b(clk); bus #(4) bs[1:0](clk); from f(b); to t(bs);
        endmodule)") << R"(
        top
          clk
          b:bus
            clk
            data[7:0]
          bs[1]:bus
            clk
            data[3:0]
          bs[0]:bus
            clk
            data[3:0]
          f:from
          t:to
            w)";
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
        top
          clk
          pad x
          q
          gnd x
          declared x
          assigned x
          through x
          floating
          contested
          gw
          pads[1:0] x
          whole[3:0] x
          part[7:4] x6 x5
          up[0:3] x0 x1
          u:leaf
            e x
            io
            o
            via x
            d[1:0] x1
          v[1]:leaf
            e
            io
            o x
            via
            d[1:0] x
          v[0]:leaf
            e x
            io
            o x
            via x
            d[1:0] x
          g:g
            gw x)";
}

void TestNetlistReader::tree()
{
    QFETCH(QByteArray, source);
    QFETCH(QString, expected);
    ReadOptions options;
    options.top = "top";
    const std::unique_ptr<RtlNetlist> read = m_elaborated.netlist(source, options);
    const std::unique_ptr<RtlNetlist> wanted(netlistFromText(expected));
    QCOMPARE(lines(*read), lines(*wanted));
}

void TestNetlistReader::declarations()
{
    ReadOptions options;
    options.top = "top";
    const std::unique_ptr<RtlNetlist> read =
        m_elaborated.netlist(R"(package p1; typedef enum {X, Y=-5} e_t; endpackage
package p2; typedef enum {Z} e_t; endpackage
module top(input wire signed [7:0] a);
  typedef enum logic [2:0] {IDLE, RUN=5} state_t;
  state_t state;
  enum logic {OFF, ON} flag;
  logic [1:0][3:0] packs;
  p1::e_t unclear; p2::e_t other;
  struct packed { logic x; } rec;
  byte octet;
endmodule)",
                             options);
    QStringList lines;
    for (const RtlNetBus *bus : read->topHierarchy->buses) {
        const Declaration &info = bus->declaration();
        QCOMPARE(info.file, m_elaborated.path("design.sv"));
        lines += QString("%1 %2: %3").arg(bus->BusName()).arg(info.line).arg(info.type) +
                 (info.enumLabels.isEmpty() ? QString() : " = " + info.enumLabels.join(' '));
    }
    QCOMPARE(lines.join('\n'), QString("a[7:0] 3: logic signed [7:0]\n"
                                       "state[2:0] 5: state_t = IDLE=0 RUN=5\n"
                                       "packs[7:0] 7: logic [1:0][3:0]\n"
                                       "unclear[31:0] 8: e_t\n"
                                       "other[31:0] 8: e_t\n"
                                       "rec[0:0] 9: struct packed\n"
                                       "octet[7:0] 10: byte"));
    const Declaration &flag = read->findNet("top/flag")->declaration();
    QCOMPARE(flag.type, QString("enum logic"));
    QCOMPARE(flag.enumLabels, QStringList({"OFF=0", "ON=1"}));
}

void TestNetlistReader::longNames()
{
    const QByteArray name(200, 'n');
    ReadOptions options;
    options.top = "top";
    const std::unique_ptr<RtlNetlist> read = m_elaborated.netlist(
        "module leaf; wire " + name + "; endmodule\nmodule top; leaf \\u" + name + " (); endmodule", options);
    QVERIFY(read->findNet("top/u" + name + '/' + name));
}

void TestNetlistReader::toolNames()
{
    ReadOptions options;
    options.top = "top";
    options.generated << m_elaborated.path("design.sv");
    options.moduleNames["sub_4_54799363e901ffe3"] = "Sub";
    const std::unique_ptr<RtlNetlist> read = m_elaborated.netlist(R"(
        module sub_4_54799363e901ffe3(input d); wire n12_o; reg n7_q; wire n5; wire net_o; endmodule
        module top(input d); sub_4_54799363e901ffe3 u(d); endmodule)",
                                                                  options);
    const std::unique_ptr<RtlNetlist> wanted(netlistFromText(R"(
        top
          d
          u:Sub
            d
            net_o)"));
    QCOMPARE(lines(*read), lines(*wanted));
    QCOMPARE(read->findNet("top/d")->declaration().line, 0);
    QCOMPARE(read->findNet("top/d")->declaration().file, QString());
}

void TestNetlistReader::vhdl()
{
    const QString source = m_elaborated.write("design.vhd", R"(
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
          signal n1_o, tied : std_logic; signal one : std_logic_vector(0 downto 0);
          component box is port (a, b : in std_logic; z : out std_logic); end component;
        begin
          pad <= a when n1_o = '1' else 'Z'; tied <= '1'; one(0) <= tied;
          gen : for i in 6 downto 5 generate signal inner : std_logic; begin
            inner <= a xor n1_o;
            u : entity work.leaf generic map (W => i) port map (a => inner, y => open);
            extra : if i = 5 generate signal only : std_logic; begin only <= inner; q(8) <= only; end generate;
          end generate;
          blk : block begin b : box port map (a => a, b => one(0), z => n1_o); end block;
          process (clk) variable v : std_logic; begin
            if rising_edge(clk) then
              v := a; rec.x <= v; rec.y <= rec.x & v;
              case state is when IDLE => state <= RUN; when RUN => state <= STOP; when STOP => state <= IDLE; end case;
            end if;
          end process;
          q(15) <= '1' when state = IDLE else '0'; q(14 downto 13) <= rec.y; q(12 downto 9) <= (others => '0');
        end architecture;)");
    QString error;
    m_elaborated.run("ghdl", {"-a", "--std=08", source}, error);
    QVERIFY2(error.isEmpty(), qPrintable(error));
    QByteArray verilog = m_elaborated.run("ghdl", {"--synth", "--std=08", "--out=verilog", "top"}, error);
    QVERIFY2(error.isEmpty(), qPrintable(error));
    m_elaborated.run("ghdl",
                     {"--elab-run", "--std=08", "top", "--stop-time=0ns", "--stop-delta=0", "--vcd=top.vcd"},
                     error);
    QVERIFY2(error.isEmpty(), qPrintable(error));
    verilog.insert(verilog.indexOf("endmodule", verilog.indexOf("module box")), "wire buried;\n");

    ReadOptions options;
    options.top = "top";
    options.generated << m_elaborated.path("design.sv");
    options.vhdlScopes["top"] = m_elaborated.path("top.vcd");
    for (int width : {5, 6})
        options.moduleNames[QString("leaf_%1").arg(width)] = "leaf";
    const std::unique_ptr<RtlNetlist> read = m_elaborated.netlist(verilog, options);
    const std::unique_ptr<RtlNetlist> wanted(netlistFromText(R"(
        top
          clk
          a
          pad x
          q[15:8] x12 x11 x10 x9
          state[1:0]
          rec[2:0]
          n1_o
          tied x
          one[0:0] x
          gen[5]:gen
            inner
            u:leaf
              a
              y[0:4]
              s[7:4]
              never[7:4]
            extra:extra
              only
          gen[6]:gen
            inner
            u:leaf
              a
              y[0:5]
              s[7:4]
              never[7:4]
          blk:blk
            b:box
              a
              b x
              z
              buried)"));
    QCOMPARE(lines(*read), lines(*wanted));
}

void TestNetlistReader::blackBoxes()
{
    const QByteArray source = R"(
        module missing(p1); input p1; wire made_up; endmodule
        module TS_JTAG(input a); endmodule
        module wrapper(input a); missing m(a); endmodule
        module top(input a); wrapper w(a); TOOL j(a); endmodule)";
    ReadOptions options;
    options.top = "top";
    options.blackBoxes << "missing";
    for (bool used : {false, true}) {
        QByteArray text = source;
        text.replace("TOOL", used ? "TS_JTAG" : "wrapper");
        const std::unique_ptr<RtlNetlist> read = m_elaborated.netlist(text, options);
        QCOMPARE(read->usesTsJtag, used);
        const Hierachy *box = read->topHierarchy->children.first()->children.first();
        QCOMPARE(drawn(box), QString("m:missing\n"));
    }
}

void TestNetlistReader::unusableFiles_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("message");
    QTest::newRow("missing") << QByteArray() << "ERROR: The elaborated design %1 cannot be read: ";
    const QString damaged = "ERROR: %1 is not a complete design that Verilator wrote. Read the design again.";
    QTest::newRow("empty") << QByteArray("") << damaged;
    QTest::newRow("other") << QByteArray("<project/>") << damaged;
    QTest::newRow("cut off") << QByteArray("<verilator_xml><netlist><module name=\"top\"") << damaged;
    QTest::newRow("no top")
        << QByteArray("<verilator_xml><netlist/></verilator_xml>")
        << "ERROR: The design has no top module. Add the file that holds it to the project.";
    QTest::newRow("endless") << QByteArray("<verilator_xml><netlist><module name=\"a\" origName=\"a\" "
                                           "topModule=\"1\"><instance name=\"u\" defName=\"a\"/></module>"
                                           "</netlist></verilator_xml>")
                             << "ERROR: The module a contains itself.";
}

void TestNetlistReader::unusableFiles()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, message);
    const QString file = m_elaborated.path(content.isNull() ? "missing.xml" : "unusable.xml");
    if (!content.isNull())
        m_elaborated.write("unusable.xml", content);
    QStringList messages;
    const std::unique_ptr<RtlNetlist> read(netlistFromVerilatorXml(file, ReadOptions(), messages, nullptr));
    QVERIFY(!read);
    QCOMPARE(messages.size(), 1);
    if (message.contains("%1"))
        message = message.arg(file);
    QVERIFY2(messages.first().startsWith(message), qPrintable(messages.first()));
}

void TestNetlistReader::cancelled()
{
    class Cancelling : public ElaborationProgress
    {
        void stage(const QString &) override {}
        bool cancelled() override { return true; }
    } progress;
    QStringList messages;
    const QString file = m_elaborated.xml("top", {m_elaborated.write("top.v", "module top; endmodule")});
    const std::unique_ptr<RtlNetlist> read(netlistFromVerilatorXml(file, ReadOptions(), messages, &progress));
    QVERIFY(!read);
    QCOMPARE(messages, QStringList());
}

QTEST_GUILESS_MAIN(TestNetlistReader)
#include "tst_netlistreader.moc"
