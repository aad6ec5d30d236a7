#include "tests/elaboration/readingtest.h"

namespace {

void verilogRows()
{
    const QString two = "== a.v\nmodule a(input x); leaf u(x); endmodule\nmodule leaf(input x); endmodule\n"
                        "module b(input y); leaf \\v.w (y); endmodule\n";
    row("several tops", "", two, "top a b\nmodules a b leaf", "");
    row("named top", "Top=b", two, "top b\nmodules b leaf", "b:b y\nb/v.w:leaf x");
    row("unknown top", "Top=c", two,
        "top \nmodules \nWARNING: No module is named \"c\". The top modules of the design are: a, b", "");
    const QString faulty = "== a.v\nmodule a(input x); leaf u(x); endmodule\n== leaf.v\nmodule leaf(input "
                           "x); endmodule\n== bad.v\nmodule bad;\nleaf = 1;\nendmodule\n";
    row("error that no top needs", "", faulty,
        "top \nmodules \nERROR: @/bad.v:2: *\nWARNING: No top module is set. Set it, and what it does not "
        "need may have errors: there is none in what these need: a",
        "");
    row("error that the top does not need", "Top=a", faulty,
        "top a\nmodules a leaf\nWARNING: @/bad.v:2: The file has errors and is left out: the top module does "
        "not need it.",
        "a:a x\na/u:leaf x");
    row("error that the top needs", "Top=a", QString(faulty).replace("leaf u(x)", "leaf u(x); bad v()"),
        "top \nmodules \nERROR: @/bad.v:2: *", "");
    row("missing source", "", "== sub/a.v\n== -a.v\n",
        "top \nmodules \nERROR: @/-a.v cannot be read: No such file or directory. Remove it from the project "
        "or restore it.",
        "");
    row("users before packages", "",
        "== t.sv\nmodule t(input p::w_t x); import q::*; wire [N-1:0] y; e_t e; endmodule\n"
        "== p.sv\npackage p; typedef logic [q::N:0] w_t; endpackage\n"
        "== q.sv\n/* package p; */ package q; localparam N = 2; endpackage\n"
        "== u.sv\ntypedef enum logic {OFF, ON} e_t; // no module\n",
        "top t\nmodules t", "t:t e x[2:0] y[1:0]");
    row("includes, defines and libraries",
        "IncludePath=inc\nLibraryPath=lib\nDefines=WIDTH=1+2\nDefines=SOME=\"a $HOME b\"",
        "== t.v\n`include \"far.vh\"\n`include \"sub/mid.vh\"\nmodule t(input `BITS x); localparam A = "
        "`SOME; cell1 u(x[0]); endmodule\n"
        "== inc/far.vh\n`include \"near.vh\"\n== inc/near.vh\n`define BITS [`WIDTH:0]\n== sub/mid.vh\n\n"
        "== lib/cell1.v\nmodule cell1(input c); endmodule\n",
        "top t\nmodules cell1 t", "t:t x[3:0]\nt/u:cell1 c");
    row("headers among the sources", "",
        "== part.vh\nassign y = x[0];\n== t.v\nmodule t(input `BITS x);\n`include \"part.vh\"\n"
        "`include \"sub/two words.vh\"\nendmodule\n== bits.vh\n`define BITS [3:0]\n"
        "== sub/two words.vh\nwire y;\n",
        "top t\nmodules t", "t:t y x[3:0]");
    row("error in a header", "",
        "== t.v\nmodule t;\n`include \"part.vh\"\nendmodule\n"
        "== part.vh\n\nassign = 1;\n",
        "top \nmodules \nERROR: @/part.vh:2: syntax error*", "");
    row("instances in two dimensions", "",
        "== t.v\nmodule leaf #(parameter P = 1)(input a); endmodule\nmodule t(input [1:0] a, b);\n"
        "leaf \\x[1] [1:0] (a);\nleaf #(.P(3))\nu[1:0] [1:0] /* all */ (a);\nendmodule\n",
        "top t\nmodules leaf t\nWARNING: @/t.v:5: Only the first dimension of this array of instances of "
        "module leaf is read, so that *",
        "t:t a[1:0] b[1:0]\nt/x[1][1]:leaf a\nt/x[1][0]:leaf a\nt/u[1]:leaf a\nt/u[0]:leaf a");
    const QString keyword = "== t.v\nmodule t(input logic); wire bit; endmodule\n";
    row("Verilog names", "", keyword, "top t\nmodules t", "t:t logic bit");
    row("type", "Type=3", keyword, "top \nmodules \nERROR: @/t.v:1: *", "");
    row("standard", "Verilog_Standard=SystemVerilog", keyword, "top \nmodules \nERROR: @/t.v:1: *", "");
    row("black boxes", "",
        "== t.sv\ninterface ifc; logic v; modport m(input v); endinterface\n"
        "package p; typedef logic [2:0] t; endpackage\n"
        "module t(input clk, input [31:0] a, output [1:0] y);\n"
        "ifc i0(), ia[2](); logic [7:0] mem [4];\n"
        "prim #(.W(4), .T(p::t), .S(\"x\")) u0(.clk(clk), .\\d[0] (a), .\\do (y[0]));\n"
        "prim #(1) u1(clk, , a);\n"
        "split us[3:0](.d(a), .c(clk));\n"
        "bus ub(.i(i0), .m(i0.m), .e(ia[1]), .mem(mem), .v(i0.v));\n"
        "none un(); \\odd$ uo(.*);\n"
        "if (0) begin : g dead ud(clk); end\nendmodule\n",
        "top t\nmodules t" + boxed("*"),
        "t:t clk a[31:0] y[1:0] mem[0][7:0] mem[1][7:0] mem[2][7:0] mem[3][7:0]\nt/i0:ifc v\nt/ia[0]:ifc "
        "v\nt/ia[1]:ifc v\nt/u0:prim\nt/u1:prim\n"
        "t/us[3]:split\nt/us[2]:split\nt/us[1]:split\nt/us[0]:split\nt/ub:bus\nt/un:none\nt/uo:odd$");
}

// Files that no tool takes as they are, and files that it must not take.
void repairRows()
{
    row("copies and what they include", "Top=t\nIncludePath=inc\nDefines=FAR=\"far.vh\"",
        "== t.v\n`include \"both.vh\"\n`include \"sub/own.vh\"\nmodule t(input x); own o({4{x}});\n// "
        "synthesis translate_off\n"
        "junk;\n// synthesis translate_on\n`include `FAR\nendmodule\n"
        "== sub/own.vh\n`include \"deep.vh\"\n== sub/deep.vh\nmodule own(input `BOTH y); wire own; "
        "endmodule\n"
        "// synopsys translate_off\nmodule junk\n// synopsys translate_on\n"
        "== u.v\n`include \"sub/own.vh\"\n== sub/both.vh\nbad\n"
        "== inc/both.vh\n`ifndef BOTH\n`define BOTH [3:0]\n`endif\n== inc/far.vh\nwire far;\n",
        "top t\nmodules own t\nWARNING: @/sub/deep.vh:1: Module own is declared a second time. *",
        "t:t x far\nt/o:own own y[3:0]");
    row("error in a copy", "",
        "== t.v\n// pragma translate_off\n\n// pragma translate_on\n`include \"part.vh\"\n"
        "== part.vh\n\nmodule t; assign = 1; endmodule\n",
        "top \nmodules \nERROR: @/part.vh:2: syntax error*", "");
    row("the tool's own macro", "",
        "== t.v\nmodule t(input x);\n`ifndef VERILATOR\n#1step odd;\n`endif\nendmodule\n",
        "top t\nmodules t\nWARNING: The sources can be read only with the macro VERILATOR, which synthesis "
        "does not define. What depends on it may differ in hardware.",
        "t:t x");
    row("the tool's own macro undefined", "Undefines=VERILATOR",
        "== t.v\nmodule t(input x);\n`ifndef VERILATOR\n#1step odd;\n`endif\nendmodule\n",
        "top \nmodules \nERROR: @/t.v:3: *", "");
    row("no macro of synthesis", "Undefines=SYNTHESIS",
        "== t.v\nmodule t(input x);\n`ifndef SYNTHESIS\nwire y;\n`endif\nendmodule\n", "top t\nmodules t",
        "t:t x y");
    row("encrypted", "",
        "== t.v\nmodule t(input x); a u(x); b v(x); endmodule\n"
        "== a.v\nmodule a(input x);\n`pragma protect begin_protected\n#\"\n`pragma protect end_protected\n"
        "== b.vp\n`protected\n#\"\n`endprotected\n"
        "== c.vhd\nXlxV64EB\1\n",
        "top t\nmodules a t\nWARNING: What is encrypted in these files is not shown, as if it were in a "
        "black box: @/a.v, @/b.vp, @/c.vhd" +
            boxed("b"),
        "t:t x\nt/u:a x\nt/v:b");
    row("SystemVerilog in Verilog", "",
        "== a.v\nmodule a(input x);\n\n`include \"sub/a.vh\"\nendmodule\n== sub/a.vh\nlogic y;\n"
        "== b.v\nmodule b(input logic); wire do; a u(.x(do)); endmodule\n",
        "top b\nmodules a b\nWARNING: @/sub/a.vh:1: This is no Verilog, so the file is read as "
        "SystemVerilog.",
        "b:b logic do\nb/u:a x y");
    row("assertions in Verilog", "",
        "== a.v\nmodule a(input x);\nassert property (@(posedge x) x ##1 x); wire y;\nendmodule\n",
        "top a\nmodules a\nWARNING: @/a.v:2: This is no Verilog, so the file is read as SystemVerilog.",
        "a:a x y");
    row("checkers and lets of other files", "",
        "== a.sv\nmodule t import p::both; (input [1:0] x, output y);\nfar f(x[0]); assign y = both(x); sub "
        "u(x);\n"
        "endmodule\n== sub.sv\nmodule sub(input [1:0] x);\nimport p::both; wire z = both(x + 1);\nendmodule\n"
        "== p.sv\npackage p; let both(v) = v[0] & v[1]; endpackage\nchecker far(logic c); endchecker\n",
        "top t\nmodules t\nWARNING: @/sub.sv:2: syntax error* The tool cannot take this, so module sub is "
        "left out." +
            boxed("sub"),
        "t:t y x[1:0]\nt/u:sub");
    row("lets of an included file", "",
        "== t.sv\nmodule t(input x);\n`include \"sub/lets.svh\"\nassign y = no(x); sub u(x);\nendmodule\n"
        "== sub/lets.svh\nlet no(v) = !v; wire y;\n"
        "== sub.sv\nmodule sub import p::*; (input x); wire z = no(x); endmodule\n"
        "== p.sv\npackage p;\nlet other = 1;\n`include \"only.svh\"\nendpackage\n== only.svh\nlet no(v) = "
        "~v;\n",
        "top t\nmodules sub t", "t:t x y\nt/u:sub x z");
    row("what is bound to instances", "Top=t",
        "== t.sv\nmodule leaf(input a); endmodule\nmodule probe(input p); wire w = p; endmodule\n"
        "module t(input x); leaf u(x); leaf v[1:0](x); endmodule\nbind t.u probe p(.p(a));\n"
        "bind v[1] probe q(.p(a)); bind leaf probe r[1:0](.p(a));\nbind leaf : u, t.u probe s(.p(a));\n",
        "top t\nmodules leaf probe t\nWARNING: @/t.sv:4: What is bound to a single instance is not shown. "
        "Bind it to the module. (3 times)",
        "t:t x\nt/u:leaf a\nt/u/r[1]:probe p w\nt/u/r[0]:probe p w\nt/v[1]:leaf a\nt/v[1]/r[1]:probe p w\n"
        "t/v[1]/r[0]:probe p w\nt/v[0]:leaf a\nt/v[0]/r[1]:probe p w\nt/v[0]/r[0]:probe p w");
    row("a top that uses what is left out", "",
        "== t.sv\nmodule t(input x);\nlet a(v) = v[0][0]; wire y = a(x + 1);\nendmodule\n",
        "top \nmodules \nERROR: @/t.sv:2: *", "");
    row("no module", "", "== a.v\n// nothing\n== b.v\n\n", "top \nmodules", "");
    row("neither language", "",
        "== a.v\nmodule a(input x); wire do;\nwire = 1;\nendmodule\n== b.v\nmodule b; logic y; endmodule\n",
        "top \nmodules \nERROR: @/a.v:2: *", "");
    row("missing packages", "Disabled=off.sv",
        "== t.sv\nmodule t\n  import p::*;\n(input q::w_t x, r::w_t y); w_t z;\nendmodule\n"
        "== r.sv\npackage r; typedef logic w_t; endpackage\n== u.sv\nmodule u; wire = 1; endmodule\n"
        "== off.sv\npackage p; typedef logic w_t; endpackage\n",
        "top \nmodules \nERROR: @/t.sv:2: package p is in no file of the project that is enabled. It is in "
        "@/off.sv\n"
        "ERROR: @/t.sv:3: package q is in no file of the project\nERROR: @/u.sv:1: *",
        "");
    row("packages in libraries", "LibraryPath=lib",
        "== t.sv\nmodule t(input p::w_t x); endmodule\n"
        "== lib/all.svh\npackage p; typedef q::w_t w_t; endpackage\n"
        "== lib/q.sv\npackage q; typedef logic [3:0] w_t; endpackage\n",
        "top t\nmodules t", "t:t x[3:0]");
    row("modules by chance", "IncludePath=inc\nLibraryPath=lib\nDisabled=off.v",
        "== t.v\n`define D \"d.v\"\nmodule t(input x); a ua(x); b ub(x); c uc(x); d ud(x); e ue(x); "
        "endmodule\n"
        "`include \"c.v\"\n`include `D\n== off.v\nmodule b(input x); endmodule\n"
        "== sub/none.v\n== inc/a.v\nmodule a(input chance); endmodule\n== inc/e.v\nsome words\n"
        "== inc/b.v\nmodule b(input chance); endmodule\n== inc/d.v\nmodule d(input x); endmodule\n"
        "== lib/a.v\nmodule a(input x); endmodule\n== inc/c.v\nmodule c(input x); endmodule\n",
        "top t\nmodules a c d t" + boxed("e, b") +
            "\nWARNING: Module e is in @/inc/e.v, which is no source of the project.\n"
            "WARNING: Module b is in @/off.v, which the project has disabled.",
        "t:t x\nt/ua:a x\nt/ub:b\nt/uc:c x\nt/ud:d x\nt/ue:e");
    row("libraries", "LibraryPath=lib\nLibrarySuffix=.cell\nUsed=all.v",
        "== t.v\nmodule t(input x); a ua(x); b ub(x); c uc(x); d ud(x); endmodule\n"
        "== lib/c.v\nmodule c(input x); logic [1:0] y; endmodule\n"
        "== lib/d.sv\nmodule d(input x); cover property (@(posedge x) x ##1 x); endmodule\n"
        "== all.v\nmodule a(input y); endmodule\nmodule unused; endmodule\n"
        "== lib/b.cell\nmodule b(input z);\n// synthesis translate_off\nwire y;\n// synthesis translate_on\n"
        "endmodule\n",
        "top t\nmodules a b c d t\nWARNING: @/lib/c.v:1: This is no Verilog, so the file is read as "
        "SystemVerilog.",
        "t:t x\nt/ua:a y\nt/ub:b z\nt/uc:c x y[1:0]\nt/ud:d x");
    row("parameters", "Parameters=W=4\nParameters=S=word\nParameters=NONE=1",
        "== t.v\nmodule t #(parameter W = 1, parameter S = \"\")(input [W-1:0] x);\n"
        "generate case (S) \"word\": begin : g wire y; end endcase endgenerate endmodule\n",
        "top t\nmodules t\nWARNING: The top module has no parameter NONE. Its value is left out.",
        "t:t x[3:0]\nt/g:g y");
    const QString second = "Module a is declared a second time. What @/a.v:1 declares is used.";
    row("declared twice", "",
        "== a.v\nmodule a(input first); endmodule\n== b.v\n\nmodule a(input second); endmodule\n"
        "== c.v\nmodule a(input third); endmodule\n",
        "top a\nmodules a\nWARNING: @/b.v:2: " + second + "\nWARNING: @/c.v:1: " + second, "a:a first");
    row("warnings", "",
        "== a.sv\n`timescale 1ns/1ps\nmodule a(input x);\nif (1) $warning(\"odd\");\nif (1) "
        "$warning(\"odd\");\n"
        "if (1) $warning(\"other\");\nwire [3:0] v; wire k = v[7]; b u(); endmodule\n== b.sv\nmodule b; "
        "endmodule\n",
        "top a\nmodules a b\nWARNING: @/a.sv:3: odd (2 times)\nWARNING: @/a.sv:5: other",
        "a:a x k v[3:0]\na/u:b");
    row("declared twice in VHDL", "",
        "== a.vhd\nentity a is port (first : in bit); end; architecture r of a is begin end;\n"
        "== b.vhd\nentity A is port (second : in bit); end; architecture r of A is begin end;\n"
        "== c.vhd\narchitecture late of a is signal s : bit; begin s <= first; end;\n",
        "top a\nmodules a\nWARNING: @/b.vhd:1: A is declared a second time. What @/a.vhd declares is used.",
        "a:a first s");
    row("byte order marks and nothing", "",
        "== a.vhd\n\xef\xbb\xbf"
        "entity a is port (x : in bit); end; architecture r of a is begin end;\n"
        "== b.vhd\n\n== c.vhd\n-- only words\n",
        "top a\nmodules a", "a:a x");
}

} // namespace

class ElaborationTest : public ReadingTest
{
    Q_OBJECT

private Q_SLOTS:
    void readsDesigns_data()
    {
        textColumns("options", "sources", "lists", "design");
        verilogRows();
        repairRows();
    }
    void readsDesigns() { readDesign(); }

    void refusesUtf16()
    {
        const QByteArray texts[] = {QByteArray("\xff\xfem\0", 4), QByteArray("m\0o\0", 4),
                                    QByteArray("\0m\0o", 4)};
        for (int i = 0; i < 6; ++i) {
            const QString name = i < 3 ? "a.v" : "a.vhd";
            m_sources->write(name, texts[i % 3]);
            QCOMPARE(listModules(m_sources->input({name})).messages,
                     QStringList(
                         "ERROR: " + path(name) +
                         " cannot be read: it is written in UTF-16, which no tool reads. Save it as UTF-8."));
        }
    }

    void takesAnyFileName_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name :
             {"two words", "it's \"quoted\"", "a;touch hacked;", "$(touch hacked)", "$HOME", "${HOME}x",
              "`touch hacked`", "-f", "+incdir+x", "new\nline", "back\\slash", "\u00fcml\u00e4ut", "a:3:4:b"})
            row(name, QString::fromUtf8(name));
    }
    void takesAnyFileName()
    {
        QFETCH(QString, name);
        for (const QString &file : {name + ".v", name + "/m.v", name + "/" + name + ".vhd"}) {
            m_sources->write(name + "/near it.vh", "wire near;");
            const bool isVhdl = file.endsWith(".vhd");
            m_sources->write(
                file, isVhdl
                          ? "entity m is port (x : in bit; y : out bit); end;\narchitecture a of m is begin "
                            "y <= x; end;"
                          : "module m(input x);\n`include \"near it.vh\"\nendmodule");
            DesignInput design = m_sources->input({file});
            design.workingDir = path(name);
            QCOMPARE(listed(design), QString("top m\nmodules m"));
            QStringList messages;
            const std::unique_ptr<RtlNetlist> netlist(buildNetlist(design, messages));
            QVERIFY2(netlist, qPrintable(messages.join('\n')));
            QCOMPARE(netlist->findNet("m/x")->declaration().file, path(file));
            if (!isVhdl)
                QCOMPARE(netlist->findNet("m/near")->declaration().file, path(name + "/near it.vh"));
            m_sources->write(file, isVhdl ? "entity m is\nport (x : inn bit); end;"
                                          : "module m;\nwire = ;\nendmodule");
            const QString text = listModules(design).messages.value(0);
            QVERIFY2(text.startsWith("ERROR: " + path(file) + ":2: "), qPrintable(text));
        }
        QVERIFY(!QFile::exists(path("hacked")));
        QVERIFY(!QFile::exists(path(name + "/hacked")));
    }

    void elaboratesOnce()
    {
        m_sources->write("t.v", "`include \"bits.vh\"\nmodule t(input `BITS x); endmodule");
        m_sources->write("bits.vh", "`define BITS [3:0]");
        DesignInput design = m_sources->input({"t.v"});
        const auto builtWithoutTool = [&] {
            qputenv("JEX_VERILATOR", path("none").toUtf8());
            const QString drawing = built(design);
            qunsetenv("JEX_VERILATOR");
            return drawing;
        };
        QTest::qWait(20); // file times count in ticks of the kernel
        QCOMPARE(listed(design), QString("top t\nmodules t"));
        QCOMPARE(builtWithoutTool(), QString("t:t x[3:0]"));
        QCOMPARE(leftInTemp(), QStringList()); // used once, then gone
        QCOMPARE(builtWithoutTool(), QString());
        QCOMPARE(built(design), QString("t:t x[3:0]"));

        listed(design);
        m_sources->write("bits.vh", "`define BITS [7:4]"); // same size
        QCOMPARE(builtWithoutTool(), QString());
        QTest::qWait(20);
        listed(design);
        QCOMPARE(builtWithoutTool(), QString("t:t x[7:4]"));

        listed(design);
        design.defines += "UNUSED";
        QCOMPARE(builtWithoutTool(), QString());
        design.top = "t";
        listed(design);
        QCOMPARE(builtWithoutTool(), QString("t:t x[7:4]"));
    }
};

QTEST_GUILESS_MAIN(ElaborationTest)
#include "tst_elaboration.moc"
