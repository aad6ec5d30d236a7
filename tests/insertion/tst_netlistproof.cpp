#include "insertion/netlistproof.h"
#include "tests/support/files.h"
#include "tests/support/tablerow.h"
#include "tests/support/tools.h"

namespace {

// A netlist as it is written, with registers, a memory, gates without names and an initial value.
const char original[] = R"(
module part(clk, a, b, q, w);
  input clk, w;
  input [3:0] a, b;
  output [3:0] q;
  reg [3:0] q = 4'h5;
  reg [3:0] words [0:7];
  wire [3:0] sum;
  assign sum = (a + b) ^ words[a[2:0]];
  always @(posedge clk) q <= w ? sum & ~b : sum | a;
  always @(posedge clk) if (w) words[b[2:0]] <= a;
  /*ports*/
endmodule
module top(clk, a, b, q, r, w);
  input clk, w;
  input [3:0] a, b;
  output [3:0] q, r;
  wire [3:0] inner;
  wire unused;
  part u0(.clk(clk), .a(a), .b(b), .q(inner), .w(w)/*u0*/);
  part u1(.clk(clk), .a(inner), .b(b), .q(q), .w(w));
  assign r = inner;
  VENDOR prim(.x(inner[0]), .y(w));
  /*cell*/
endmodule
module jex_cores(input wire [3:0] tap_0, input wire [3:0] tap_1, input wire ctl_clock, output wire ctl_tdo);
endmodule
)";

} // namespace

// Faults planted into a design with taps, each of which has to be seen. The changes are of the text above.
class NetlistProofTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_original = flat(original, "original"); }

    void faults_data()
    {
        // "expected": the beginning of the first sentence
        textColumns("from", "to", "expected");
        row("none", "", "", "");
        row("constant driver", "/*more*/", "assign sum[2] = 1'b0;", "Net * is tied to other constants*");
        row("constant for a net", "assign r = inner", "assign r = {1'b0, inner[2:0]}",
            "What is connected at r*");
        row("gate", "sum & ~b", "sum ^ ~b", "Cell *");
        row("connection", ".a(inner)", ".a(b)", "What is connected*");
        row("order of bits", ".a(inner)", ".a({inner[0], inner[1], inner[2], inner[3]})",
            "What is connected*");
        row("inputs of a gate", "w ? sum & ~b : sum | a", "w ? sum | a : sum & ~b", "Cell *");
        row("extra driver", "/*cell*/", "assign inner = a & b;", "Cell * is not in the original.");
        row("extra driver by the analyzer", ".ctl_tdo()", ".ctl_tdo(unused)", "The analyzer drives*");
        row("joined nets", "/*cell*/", "assign unused = w;", "What is connected*");
        row("initial value", "4'h5", "4'h4", "*initial value*");
        row("clock edge", "posedge clk) q", "negedge clk) q", "Cell *");
        row("size of a memory", "[0:7]", "[0:15]", "The memories *");
        row("black box", ".y(w)", ".y(inner[1])", "Cell *");
        row("missing register", "if (w) words[b[2:0]] <= a;", ";", "Cell *");
        row("no analyzer", "jex_cores jex_cores", "VENDOR2 jex_cores", "*");
        row("tap in the way", ".jex_tap_1(jex_tap_1)", ".jex_tap_1(r)", "What is connected*");
    }
    void faults()
    {
        auto [from, to, expected] = textCells("from", "to", "expected");
        QString text = tapped();
        QVERIFY(text.contains(from));
        if (!from.isEmpty())
            text.replace(from, to);
        Insertion::FlatNetlist first, second;
        QString error;
        QVERIFY(first.read(m_original, &error));
        QVERIFY(second.read(flat(text.toUtf8(), "tapped"), &error));
        Insertion::Added added;
        added.prefix = "jex";
        added.coresType = "\\jex_cores";
        added.coresInputs = {"\\tap_0", "\\tap_1", "\\ctl_clock"};
        const QStringList found = Insertion::NetlistProof(first, second, added).run();
        const QRegExp pattern(expected, Qt::CaseSensitive, QRegExp::Wildcard);
        QVERIFY2(pattern.exactMatch(found.value(0)), qPrintable(found.join('\n')));
    }

    // What is not flattened would not be compared.
    void keptHierarchy()
    {
        Insertion::FlatNetlist netlist;
        QString error;
        const QByteArray text =
            QByteArray(original).replace("module part", "(* keep_hierarchy *) module part");
        QVERIFY(!netlist.read(flat(text, "kept"), &error));
        QVERIFY(!error.isEmpty());
    }

private:
    static QString tapped()
    {
        QString text = original;
        text.replace(
            "q, w);\n  input clk, w;\n  input [3:0] a, b;\n  output [3:0] q;\n",
            "q, w, jex_tap_1);\n  input clk, w;\n  input [3:0] a, b;\n  output [3:0] q;\n  output [3:0] "
            "jex_tap_1;\n");
        text.replace("/*ports*/", "assign jex_tap_1 = sum; /*more*/");
        text.replace("/*u0*/", ", .jex_tap_1(jex_tap_1)");
        text.replace("r, w);\n", "r, w, jex_ctl_clock);\n  input jex_ctl_clock;\n  wire [3:0] jex_tap_1;\n");
        text.replace(
            "/*cell*/",
            "jex_cores jex_cores(.tap_0(inner), .tap_1(jex_tap_1), .ctl_clock(jex_ctl_clock), .ctl_tdo());\n"
            "  /*cell*/");
        return text;
    }

    QString flat(const QByteArray &verilog, const QString &name)
    {
        m_folder.write(name + ".v", verilog);
        const QString file = m_folder.path(name + ".flat");
        runTool(m_folder.path(), "yosys",
                {"-q", "-p",
                 "read_verilog " + name +
                     ".v; blackbox jex_cores; hierarchy -top top; proc; flatten; write_rtlil " + file});
        return file;
    }

    Folder m_folder;
    QString m_original;
};

QTEST_GUILESS_MAIN(NetlistProofTest)
#include "tst_netlistproof.moc"
