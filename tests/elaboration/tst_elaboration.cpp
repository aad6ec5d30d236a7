#include "elaboration/readingjob.h"
#include "tests/elaboration/sources.h"
#include "tests/support/tablerow.h"

#include <QtTest>

#include <memory>

using namespace QUARRY;

namespace {

// Sources stand one after the other, each below a line "== name"; those in folders are not given to the tool.
// Options are entries of the host's map, and the type of all files.

void verilogRows()
{
    const QString two = "== a.v\nmodule a(input x); leaf u(x); endmodule\nmodule leaf(input x); endmodule\n"
                        "module b(input y); leaf \\v.w (y); endmodule\n";
    row("several tops", "", two, "top a b\nmodules a b leaf", "");
    row("named top", "Top=b", two, "top b\nmodules b leaf", "b:b y\nb/v.w:leaf x");
    row("unknown top", "Top=c", two,
        "top \nmodules \nWARNING: No module is named \"c\". The top modules of the design are: a, b", "");
    const QString faulty =
        "== a.v\nmodule a(input x); leaf u(x); endmodule\n== leaf.v\nmodule leaf(input x); "
        "endmodule\n== bad.v\nmodule bad;\nleaf = 1;\nendmodule\n";
    row("error that no top needs", "", faulty,
        "top \nmodules \nERROR: @/bad.v:2: *\nWARNING: No top module is set. Set it, and what it does not "
        "need may "
        "have errors: there is none in what these need: a",
        "");
    row("error that the top does not need", "Top=a", faulty,
        "top a\nmodules a leaf\nWARNING: @/bad.v:2: The file has errors and is left out: the top module does "
        "not "
        "need it.",
        "a:a x\na/u:leaf x");
    row("error that the top needs", "Top=a", QString(faulty).replace("leaf u(x)", "leaf u(x); bad v()"),
        "top \nmodules \nERROR: @/bad.v:2: *", "");
    row("missing source", "", "== sub/a.v\n== -a.v\n",
        "top \nmodules \nERROR: @/-a.v cannot be read: No such file or directory. Remove it from the "
        "project or restore it.",
        "");
    row("users before packages", "",
        "== t.sv\nmodule t(input p::w_t x); import q::*; wire [N-1:0] y; e_t e; endmodule\n"
        "== p.sv\npackage p; typedef logic [q::N:0] w_t; endpackage\n"
        "== q.sv\n/* package p; */ package q; localparam N = 2; endpackage\n"
        "== u.sv\ntypedef enum logic {OFF, ON} e_t; // no module\n",
        "top t\nmodules t", "t:t e x[2:0] y[1:0]");
    row("includes, defines and libraries",
        "IncludePath=inc\nLibraryPath=lib\nDefines=WIDTH=1+2\nDefines=SOME=\"a $HOME b\"",
        "== t.v\n`include \"far.vh\"\n`include \"sub/mid.vh\"\nmodule t(input `BITS x); "
        "localparam A = `SOME; cell1 u(x[0]); endmodule\n"
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
        "module "
        "leaf is read, so that *",
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
        "top t\nmodules t\nWARNING: These modules have no definition and are shown as black boxes, with "
        "nothing inside: *",
        "t:t clk a[31:0] y[1:0] mem[0][7:0] mem[1][7:0] mem[2][7:0] mem[3][7:0]\nt/i0:ifc v\nt/ia[0]:ifc "
        "v\nt/ia[1]:ifc v\nt/u0:prim\nt/u1:prim\n"
        "t/us[3]:split\nt/us[2]:split\nt/us[1]:split\nt/us[0]:split\nt/ub:bus\nt/un:none\nt/uo:odd$");
}

// Files that no tool takes as they are, and files that it must not take.
void repairRows()
{
    row("copies and what they include", "Top=t\nIncludePath=inc\nDefines=FAR=\"far.vh\"",
        "== t.v\n`include \"both.vh\"\n`include \"sub/own.vh\"\nmodule t(input x); own o({4{x}});\n// "
        "synthesis "
        "translate_off\n"
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
        "does not "
        "define. What depends on it may differ in hardware.",
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
        "black box: "
        "@/a.v, @/b.vp, @/c.vhd\nWARNING: These modules have no definition and are shown as black boxes, "
        "with "
        "nothing inside: b",
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
        "endmodule\n== sub.sv\nmodule sub(input [1:0] x);\nimport p::both; wire z = "
        "both(x + 1);\nendmodule\n"
        "== p.sv\npackage p; let both(v) = v[0] & v[1]; endpackage\nchecker far(logic c); endchecker\n",
        "top t\nmodules t\nWARNING: @/sub.sv:2: syntax error* The tool cannot take this, so module sub is "
        "left "
        "out.\nWARNING: These modules have no definition and are shown as black boxes, with nothing inside: "
        "sub",
        "t:t y x[1:0]\nt/u:sub");
    row("lets of an included file", "",
        "== t.sv\nmodule t(input x);\n`include \"sub/lets.svh\"\nassign y = no(x); sub u(x);\nendmodule\n"
        "== sub/lets.svh\nlet no(v) = !v; wire y;\n"
        "== sub.sv\nmodule sub import p::*; (input x); wire z = no(x); endmodule\n"
        "== p.sv\npackage p;\nlet other = 1;\n`include \"only.svh\"\nendpackage\n== only.svh\nlet no(v) = "
        "~v;\n",
        "top t\nmodules sub t", "t:t x y\nt/u:sub x z");
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
        "top t\nmodules a c d t\nWARNING: These modules have no definition and are shown as black boxes, "
        "with "
        "nothing inside: e, b\nWARNING: Module e is in @/inc/e.v, which is no source of the project.\n"
        "WARNING: Module b is in @/off.v, which the project has disabled.",
        "t:t x\nt/ua:a x\nt/ub:b\nt/uc:c x\nt/ud:d x\nt/ue:e");
    row("libraries", "LibraryPath=lib\nLibrarySuffixes=.cell\nUsed=all.v",
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
        "top a\nmodules a\nWARNING: @/b.vhd: What this file declares is declared a second time. What @/a.vhd "
        "declares "
        "is used.",
        "a:a first s");
    row("byte order marks and nothing", "",
        "== a.vhd\n\xef\xbb\xbf"
        "entity a is port (x : in bit); end; architecture r of a is begin end;\n"
        "== b.vhd\n\n== c.vhd\n-- only words\n",
        "top a\nmodules a", "a:a x");
}

const char vhdl[] =
    "== top.vhd\nlibrary ieee; use ieee.std_logic_1164.all; use work.pack.all;\n"
    "entity Top is port (clk : in std_logic; q : out std_logic_vector(C downto 0)); end;\n"
    "architecture a of Top is component prim is port (Aa : in std_logic); end component;\n"
    "signal reg : std_logic_vector(C downto 0); begin\n"
    "u : entity work.leaf generic map (W => C + 1) port map (clk, reg); p : prim port map (clk); q "
    "<= "
    "reg; end;\n"
    "== leaf.vhd\nlibrary ieee; use ieee.std_logic_1164.all;\n"
    "entity Leaf is generic (W : integer := 2);\n"
    "port (c : in std_logic; q : out std_logic_vector(W - 1 downto 0)); end;\n"
    "architecture a of Leaf is begin q <= (others => c); end;\n"
    "== pack.vhd\npackage pack is constant C : integer := 3; end;\n";
const char boxed[] = "\nWARNING: These modules have no definition and are shown as black boxes, with "
                     "nothing inside: prim";

// Units that use each other across libraries, which nothing but their names tells; what is called "work" is
// another one in each of them.
const char libraries[] =
    "== top.vhd\nlibrary blocks, common; use common.Types.all;\nentity Top is port (A : in Word_T); end;\n"
    "architecture rtl of Top is begin U : entity blocks.Part port map (A); end;\n"
    "== part.vhd\nlibrary common; use common.Types.all; use work.helpers.all;\n"
    "entity Part is port (X : in Word_T); end;\n"
    "architecture rtl of Part is signal S : help_t; begin S <= X(0); end;\n"
    "== helpers.vhd\npackage Helpers is subtype help_t is bit; end;\n"
    "== types.vhd\nuse work.base.all;\npackage Types is subtype Word_T is bit_vector(Width - 1 downto 0); "
    "end;\n"
    "== base.vhd\npackage Base is constant Width : integer := 2; end;\n";

void libraryRows()
{
    row("VHDL in several libraries", "", libraries, "top Top\nmodules Part Top",
        "Top:Top A[1:0]\nTop/U:Part S X[1:0]");
    row("VHDL libraries beside Verilog", "Top=v",
        libraries + QString("== v.v\nmodule v; Top u(); endmodule\n"), "top v\nmodules Part Top v",
        "v:v\nv/u:Top A[1:0]\nv/u/U:Part S X[1:0]");
    const QString sound = "== s.vhd\nentity Sound is port (a : in bit); end;\n"
                          "architecture r of Sound is begin end;\n";
    const QString halves = "== v.v\nmodule v(input x); half u(x); endmodule\n";
    row("VHDL that cannot be read beside Verilog", "", "== h.vhd\nhalf is port (\n" + halves,
        "top v\nmodules v\nWARNING: @/h.vhd:1: *\nWARNING: The VHDL sources cannot be read and are left "
        "out." +
            QString(boxed).replace("prim", "half"),
        "v:v x\nv/u:half");
    row("an entity that cannot be read", "", "== h.vhd\nentity half is port (\n" + halves,
        "top v\nmodules v\nWARNING: @/h.vhd:2: *" + QString(boxed).replace("prim", "half"),
        "v:v x\nv/u:half");
    row("nothing of a file can be read", "",
        sound + "== w.vhd\nlibrary ieee;\nentity w is port (a : in none); end;\n",
        "top Sound\nmodules Sound\nWARNING: @/w.vhd:2: no declaration for \"none\"", "Sound:Sound a");
    row("an entity without a body", "",
        "== s.vhd\nentity Hidden is port (a : in bit); end; -- no more\n"
        "== t.vhd\nentity t is port (a : in bit); end;\n"
        "architecture r of t is begin u : entity work.hidden port map (a); end;\n",
        "top t\nmodules Hidden t\nWARNING: @/s.vhd:1: Hidden has no architecture and is shown as a black "
        "box, with "
        "nothing inside.",
        "t:t a\nt/u:Hidden a");
    row("an entity twice", "",
        sound + "== t.vhd\nentity t is port (a : in bit); end;\narchitecture r of t is begin\n"
                "u : entity work.sound port map (a); end;\nentity sound is port (a : in bit); end;\n"
                "architecture s of sound is signal other : bit; begin other <= a; end;\n",
        "top t\nmodules Sound t\nWARNING: @/t.vhd:4: sound is declared a second time. What @/s.vhd declares "
        "is "
        "used.",
        "t:t a\nt/u:Sound a");
    row("Verilog that cannot be read beside VHDL", "", sound + "== v.v\nmodule v(input x;\n",
        "top Sound\nmodules Sound\nWARNING: @/v.v:1: *\n"
        "WARNING: The Verilog sources cannot be read and are left out.",
        "Sound:Sound a");
    row("a top of VHDL that cannot be read", "",
        sound + "== w.vhd\nentity Wrong is port (a : in bit); end;\n"
                "architecture r of Wrong is begin x; u : entity work.Sound port map (a); end;\n",
        "top \nmodules \nERROR: @/w.vhd:2: *", "");
    row("generics of a VHDL top", "Parameters=w=3\nParameters=name=xy",
        "== g.vhd\nentity G is generic (W : positive; Name : string); port (a : in bit); end;\n"
        "architecture r of G is signal s : bit_vector(W downto 1); signal t : bit_vector(1 to Name'length);\n"
        "begin s <= (others => a); t <= (others => a); end;\n",
        "top G\nmodules G", "G:G a s[3:1] t[1:2]");
    row("parameters of a Verilog top", "Parameters=W=3",
        "== g.v\nmodule g #(parameter W = 1)(input [W-1:0] a); endmodule\n", "top g\nmodules g",
        "g:g a[2:0]");
}

void vhdlRows()
{
    row("VHDL in any order", "", vhdl, "top Top\nmodules Leaf Top" + QString(boxed),
        "Top:Top clk q[3:0] reg[3:0]\nTop/u:Leaf c q[3:0]\nTop/p:prim");
    row("VHDL top in another case", "Top=TOP", vhdl, "top TOP\nmodules Leaf TOP" + QString(boxed),
        "TOP:TOP clk q[3:0] reg[3:0]\nTOP/u:Leaf c q[3:0]\nTOP/p:prim");
    // Which order a loop has is tried out, and that must not multiply.
    const int depth = 24;
    QString text = "== deep.vhd\nentity deep is port (x : in bit; y : out bit); end;\n"
                   "architecture a of deep is begin y <= x;\n";
    QString node = "deep";
    QString design = "deep:deep x y";
    for (int i = 0; i < depth; ++i) {
        text += QString("g%1 : for i%1 in 0 to 0 generate signal s : bit; begin s <= x;\n").arg(i);
        node += QString("/g%1[0]").arg(i);
        design += QString("\n%1:g%2 s").arg(node).arg(i);
    }
    row("VHDL loops in loops", "", text + QString("end generate;\n").repeated(depth) + "end;\n",
        "top deep\nmodules deep", design);
    // GHDL numbers the rounds in the order of the loop. A constant in one round tells which is which.
    for (const char *range : {"0 to 2", "2 downto 0", "a'range", "a'reverse_range"})
        row(qPrintable(QString("VHDL rounds of ") + range), "",
            QString(
                "== r.vhd\nentity r is port (a : in bit_vector(2 downto 0); y : out bit_vector(2 downto 0)); "
                "end;\narchitecture a of r is begin\n"
                "g : for i in %1 generate signal s : bit_vector(i downto 0); signal t : bit;\nbegin "
                "s <= a(i downto 0); y(i) <= s(i) and t; t <= '1' when i = 2 else a(i); end generate; end;\n")
                .arg(range),
            "top r\nmodules r",
            "r:r a[2:0] y[2:0]\nr/g[0]:g t s[0:0]\nr/g[1]:g t s[1:0]\nr/g[2]:g t! s[2:0]");
    row("unknown VHDL top", "Top=c", vhdl,
        "top \nmodules \nWARNING: No module is named \"c\". The top modules of the design are: Top", "");
    row("VHDL names that Verilog reserves", "",
        "== r.vhd\nentity sub is port (input : in bit; wire : out bit); end;\n"
        "architecture a of sub is signal always, \\two words\\ : bit; begin always <= input; "
        "\\two words\\ <= always; wire <= \\two words\\; end;\n"
        "entity r is port (reg : in bit; q : out bit); end;\n"
        "architecture a of r is signal u_wire : bit; begin "
        "u : entity work.sub port map (reg, u_wire); q <= u_wire; end;\n",
        "top r\nmodules r sub", "r:r reg q u_wire\nr/u:sub input wire always two words");
    libraryRows();
}

void mixedRows()
{
    row("VHDL in Verilog", "Top=v",
        QString(vhdl) + "== v.v\nmodule v(input x); LEAF #(.W(8)) u0(.C(x)); leaf u1(x, ); Top u2(.CLK(x)); "
                        "endmodule\n",
        "top v\nmodules Leaf Top v" + QString(boxed),
        "v:v x\nv/u0:Leaf c q[7:0]\nv/u1:Leaf c q[1:0]\nv/u2:Top clk q[3:0] reg[3:0]\n"
        "v/u2/u:Leaf c q[3:0]\nv/u2/p:prim");
    row("VHDL without a value for its generic", "",
        "== l.vhd\nentity L is generic (W : integer);\nport (a : in bit); end;\narchitecture a of L is "
        "begin "
        "end;\n== v.v\nmodule v(input x); l u(x); endmodule\n",
        "top v\nmodules L v\nWARNING: *\nWARNING: VHDL entity L, which Verilog instantiates, cannot be "
        "translated with the default values of its generics. It is shown as a black box." +
            QString(boxed).replace("prim", "l"),
        "v:v x\nv/u:l");
    row("generics that Verilog sets on VHDL", "",
        "== l.vhd\nentity L is generic (W : integer; N : string := \"ab\"; B : boolean := false; R : real := "
        "1.0);\n"
        "port (a : in bit; q : out bit_vector(W - 1 downto 0)); end;\n"
        "architecture r of L is signal s : bit_vector(1 to N'length); begin s <= (others => a); "
        "g : if B generate signal t : bit; begin t <= a; end generate; end;\n"
        "== v.v\nmodule m #(parameter P = 1)(input x); l #(.W(P + 1), .n(\"abc\")) u(.a(x));\n"
        "l #(.W(P), .B(1'b1)) w(.a(1'b1)); endmodule\n"
        "module v(input x); m #(2) a(x); m b(x); l #(4) p(x, ); l #(.W(2), .R(2.5)) r(x); endmodule\n",
        "top v\nmodules L m v\nWARNING: The generics that Verilog sets on VHDL entity L (R) have no effect "
        "here: "
        "the entity is shown with its default values.",
        "v:v x\nv/a:m x\nv/a/u:L a q[2:0] s[1:3]\nv/a/w:L a! q[1:0] s[1:2]\nv/a/w/g:g t\n"
        "v/b:m x\nv/b/u:L a q[1:0] s[1:3]\nv/b/w:L a! q[0:0] s[1:2]\nv/b/w/g:g t\n"
        "v/p:L a q[3:0] s[1:2]\nv/r:L a q[1:0] s[1:2]");
    row("generics of Verilog that VHDL spells its own way", "",
        "== p.vhd\nlibrary ieee; use ieee.std_logic_1164.all;\n"
        "package p is subtype word is std_logic_vector(2 downto 0); subtype small is natural range 0 to 9; "
        "end;\n"
        "== l.vhd\nlibrary ieee; use ieee.std_logic_1164.all; use work.p.all;\n"
        "entity l is generic (V : work.p.word; N : small; S : string := \"ab\");\n"
        "port (a : in std_logic); end;\narchitecture r of l is begin\n"
        "g : if V(2) = '0' and V(1) = 'X' generate signal s : std_logic_vector(N downto 0); begin "
        "s <= (others => a); end generate; end;\n"
        "== v.v\nmodule v(input x); l #(.V(3'b0x1), .N(4)) u(x); l #(.V(3'b111), .N(2)) w(x); endmodule\n",
        "top v\nmodules l v", "v:v x\nv/u:l a\nv/u/g:g s[4:0]\nv/w:l a");
    row("vectors that share a declaration", "",
        "== l.vhd\nlibrary ieee; use ieee.std_logic_1164.all;\n"
        "entity l is generic (n : natural; A, -- of both\n B : std_logic_vector(3 downto 0));\n"
        "port (x : in std_logic); end;\narchitecture r of l is begin\n"
        "g : if A = \"0011\" and B = \"1001\" generate signal s : std_logic_vector(n downto 0); begin "
        "s <= (others => x); end generate; end;\n"
        "== v.v\nmodule v(input x); l #(.n(2), .A(4'd3), .B(4'd9)) u(x); l #(1, 4'd9, 4'd9) w(x); "
        "endmodule\n",
        "top v\nmodules l v", "v:v x\nv/u:l x\nv/u/g:g s[2:0]\nv/w:l x");
    row("VHDL in Verilog in VHDL, in a library", "",
        "== top.vhd\nlibrary own; use own.p.all;\nentity top is port (a : in w_t); end;\n"
        "architecture a of top is component mid is port (a : in w_t); end component; begin "
        "u : mid port map (a); end;\n"
        "== bot.vhd\nentity bot is port (a : in bit); end;\narchitecture a of bot is begin end;\n"
        "== p.vhd\npackage p is subtype w_t is bit_vector(1 downto 0); end;\n"
        "== mid.v\nmodule Mid(input [1:0] A); Bot b(.a(A[0])); endmodule\n",
        "top top\nmodules Mid bot top", "top:top a[1:0]\ntop/u:Mid A[1:0]\ntop/u/b:bot a");
    row("test bench beside the design", "",
        "== t.v\nmodule t(input x); endmodule\n== tb.vhd\nentity tb is end;\narchitecture a of tb is "
        "begin "
        "process begin wait for 1 ns;\nend process; end;\n",
        "top t tb\nmodules t tb\nWARNING: @/tb.vhd:2: *", "");
}

} // namespace

class ElaborationTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_sources.reset(new Sources);
        QDir().mkpath(path("tmp"));
        qputenv("TMPDIR", path("tmp").toUtf8());
    }

    void cleanup()
    {
        for (const char *variable : {"JEX_VERILATOR", "JEX_GHDL", "JEX_TOOL_TIMEOUT", "TMPDIR"})
            qunsetenv(variable);
        listModules(DesignInput()); // drops the remembered design
        QCOMPARE(leftInTemp(), QStringList());
    }

    void readsDesigns_data()
    {
        textColumns("options", "sources", "lists", "design");
        verilogRows();
        repairRows();
        vhdlRows();
        mixedRows();
    }

    void readsDesigns()
    {
        QFETCH(QString, options);
        QFETCH(QString, sources);
        QFETCH(QString, lists);
        QFETCH(QString, design);
        QStringList given;
        for (const QString &part : sources.split("== ", Qt::SkipEmptyParts)) {
            const QString name = part.section('\n', 0, 0);
            if (part.count('\n') > 1)
                m_sources->write(name, part.section('\n', 1).toUtf8());
            if (!name.contains('/'))
                given += name;
        }
        QVariantMap info{{"WorkingDir", path("")}};
        for (const QString &option : options.split('\n', Qt::SkipEmptyParts)) {
            const QString key = option.section('=', 0, 0);
            const QString value = option.section('=', 1);
            const bool isList =
                key == "IncludePath" || key == "LibraryPath" || key == "Defines" || key == "Parameters";
            info[key] = isList ? QVariant(info[key].toStringList() << value) : QVariant(value);
        }
        QVariantList files;
        for (const QString &name : given)
            files += QVariantMap{{"Path", path(name)}, {"Type", info["Type"]}};
        info["Files"] = files;
        DesignInput input = designInputFromInfo(info);
        takeLists(options, input);
        const QString found = listed(input);
        QVERIFY2(fits(found, lists), qPrintable("\nfound:\n" + found + "\nexpected:\n" + lists));
        QCOMPARE(built(input), design);
    }

    // GHDL gives both the same name.
    void tellsEntitiesOfLibrariesApart()
    {
        m_sources->write("a.vhd", "entity Sub is port (c : in bit; q : out bit_vector(3 downto 0)); end;\n"
                                  "architecture r of Sub is signal Alpha : bit; begin Alpha <= c;\n"
                                  "q <= (others => Alpha); end;\n");
        m_sources->write("b.vhd", "\nentity Sub is port (c : in bit; q : out bit_vector(4 downto 0)); end;\n"
                                  "architecture r of Sub is\nsignal Beta : bit; begin Beta <= c;\n"
                                  "q <= (others => Beta); end;\n");
        m_sources->write("mid.vhd",
                         "entity mid is port (c : in bit; q : out bit_vector(4 downto 0)); end;\n"
                         "architecture r of mid is begin\nu : entity work.sub port map (c, q); end;\n");
        m_sources->write("top.vhd",
                         "library la, lb;\nentity top is port (c : in bit;\n"
                         "  q, r : out bit_vector(4 downto 0)); end;\narchitecture r of top is begin\n"
                         "m : entity lb.mid port map (c, r);\n"
                         "u : entity la.sub port map (c, q(3 downto 0)); q(4) <= c; end;\n");
        DesignInput input = m_sources->input({"a.vhd", "b.vhd", "mid.vhd", "top.vhd"});
        const char *const names[] = {"la", "lb", "lb", "work"};
        for (int i = 0; i < input.files.size(); ++i)
            input.files[i].library = names[i];
        QStringList messages;
        const std::unique_ptr<RtlNetlist> netlist(buildNetlist(input, messages));
        QCOMPARE(messages, QStringList());
        QCOMPARE(drawn(netlist.get()).join('\n'),
                 QString("top:top c q[4:0] r[4:0]\ntop/m:mid c q[4:0]\ntop/m/u:Sub c Beta q[4:0]\n"
                         "top/u:Sub c Alpha q[3:0]"));
        QCOMPARE(netlist->findNet("top/u/Alpha")->declaration().file, path("a.vhd"));
        QCOMPARE(netlist->findNet("top/m/u/Beta")->declaration().line, 4);
    }

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
            QTest::newRow(name) << QString::fromUtf8(name);
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

    void reportsFailingTools_data()
    {
        QTest::addColumn<QByteArray>("body"); // empty: there is no such program
        QTest::addColumn<QString>("message"); // %1 is the tool, %2 its variable, %3 its program

        QTest::newRow("missing")
            << QByteArray()
            << "ERROR: %1 could not be started (%3: *). Install it, or let the variable %2 name the "
               "program.";
        const QString died =
            "ERROR: %1 crashed or was killed before it finished. Read the design again; if it happens "
            "again, look for the source that causes it by leaving files out.";
        QTest::newRow("crashes") << QByteArray("echo oh no >&2; kill -SEGV $$")
                                 << died + " Its last words: oh no";
        QTest::newRow("is killed") << QByteArray("kill -KILL $$") << died;
        QTest::newRow("hangs")
            << QByteArray("sleep 60 & wait")
            << "ERROR: %1 did not end within 1 seconds and was stopped while it read the * sources. If the "
               "design needs longer, let the variable JEX_TOOL_TIMEOUT give a larger number of seconds.";
        QTest::newRow("prints garbage") << QByteArray("head -c 100000 /bin/sh; head -c 10000 /bin/sh >&2")
                                        << "ERROR: %1 ended with code 0 and gave no design. *";
        QTest::newRow("has no run bit") << QByteArray("chmod")
                                        << "ERROR: %1 could not be started (%3: it is not executable). "
                                           "Install it, or let the variable %2 name the program.";
        QTest::newRow("floods")
            << QByteArray("exec yes >&2")
            << "ERROR: %1 wrote more than 64 MB of messages and was stopped while it read "
               "the * sources. Look for the source that causes it by leaving files out.";
        QTest::newRow("is of another version")
            << QByteArray(
                   "case $0 in *Verilator) echo '%Error: Invalid option: --xml-only';; *) echo \"$0: unknown "
                   "command option '--xml-only'\";; esac >&2; exit 1")
            << "ERROR: %1 (%3) does not know --xml-only, so it is of another version. Install Debian's "
               "package, or let the variable %2 name another program.";
        QTest::newRow("fails") << QByteArray("exit 3") << "ERROR: %1 ended with code 3 and gave no design. *";
    }

    void reportsFailingTools()
    {
        QFETCH(QByteArray, body);
        QFETCH(QString, message);
        qputenv("JEX_TOOL_TIMEOUT", "1");
        m_sources->write("a.v", "module a; endmodule");
        m_sources->write("b.vhd", "entity b is end; architecture a of b is begin end;");
        const QStringList tools[] = {{"Verilator", "JEX_VERILATOR", "a.v"}, {"GHDL", "JEX_GHDL", "b.vhd"}};
        for (const QStringList &tool : tools) {
            const QString program = body.isEmpty() ? path("none") : m_sources->script(tool.at(0), body);
            if (body == "chmod")
                QFile::setPermissions(program, QFile::ReadOwner);
            qputenv(qPrintable(tool.at(1)), program.toUtf8());
            const ModuleList list = listModules(m_sources->input({tool.at(2)}));
            QCOMPARE(list.messages.size(), 1);
            const QString expected =
                QString(message).replace("%1", tool.at(0)).replace("%2", tool.at(1)).replace("%3", program);
            QVERIFY2(fits(list.messages.first(), expected), qPrintable(list.messages.first()));
            QCOMPARE(list.modules + list.topModules, QStringList());
        }
    }

    // Whatever a tool says then, or does not say.
    void namesAFullDisk_data()
    {
        QTest::addColumn<int>("kilobytes");
        for (const int size : {12, 44, 76, 108, 140})
            QTest::addRow("%d KB", size) << size;
    }

    void namesAFullDisk()
    {
        QFETCH(int, kilobytes);
        QByteArray leaves, instances;
        for (int i = 0; i < 60; ++i) {
            const QByteArray number = QByteArray::number(i);
            leaves += "module leaf" + number + "(input a, output b); assign b = ~a; endmodule\n";
            instances += "wire s" + number + "; leaf" + number + " u" + number + "(a, s" + number + ");\n";
        }
        m_sources->write("t.v",
                         leaves + "module t(input a);\n" + instances + "b v(a); none w(a); endmodule\n");
        m_sources->write("b.vhd", "entity b is port (x : in bit); end;\narchitecture a of b is begin end;\n");
        const QString folder = path("tmp");
        if (QProcess::execute("mount", {"-t", "tmpfs", "-o", "size=" + QString::number(kilobytes) + "k",
                                        "none", folder}) != 0)
            QSKIP("no disk can be mounted here");
        const auto unmount = qScopeGuard([&] { QProcess::execute("umount", {"-l", folder}); });
        QCOMPARE(
            listModules(m_sources->input({"t.v", "b.vhd"})).messages,
            QStringList("ERROR: The temporary folder " + folder +
                        " is full. Make room on its disk, or let the variable TMPDIR name another folder."));
    }

    // Tools that end well and yet did not do what they should.
    void distrustsTools_data()
    {
        textColumns("tool", "script", "outcome");
        row("cut design", "JEX_VERILATOR",
            "verilator_bin \"$@\"; cut design.xml $(($(stat -c %s $TMPDIR/design.xml) / 2))",
            "ERROR: Verilator ended with code 0 and gave no design. Check that @tool is Verilator 5.");
        row("cut translation", "JEX_GHDL",
            "case $1 in --synth) ghdl \"$@\" | head -c 12;; *) ghdl \"$@\";; esac",
            "WARNING: GHDL ended with code 0 and gave no design. Look for the VHDL source that causes it by "
            "*");
        row("cut waveform", "JEX_GHDL", "ghdl \"$@\"; case $1 in --elab-run) cut scopes0.* 80;; esac",
            "a:a x\na/u:b x");
    }

    void distrustsTools()
    {
        QFETCH(QString, tool);
        QFETCH(QString, script);
        QFETCH(QString, outcome);
        m_sources->write("a.v", "module a(input x); b u(x); endmodule");
        m_sources->write(
            "b.vhd",
            "entity b is port (x : in bit); end;\narchitecture a of b is signal s : bit; begin s <= x; end;");
        const QByteArray cut =
            "cut() { f=$(echo $TMPDIR/$1); head -c $2 $f > $TMPDIR/cut; mv $TMPDIR/cut $f; }\n";
        qputenv(qPrintable(tool), m_sources->script("tool", cut + script.toUtf8()).toUtf8());
        QStringList seen;
        const std::unique_ptr<RtlNetlist> netlist(buildNetlist(m_sources->input({"a.v", "b.vhd"}), seen));
        seen += drawn(netlist.get());
        const QString text = seen.join('\n').replace(m_sources->path("") + "/", "@");
        QVERIFY2(fits(text, outcome), qPrintable(text));
    }

    void cancelsAtOnce()
    {
        // The tools see other numbers of processes than we do; what tells them is how long they sleep.
        const QByteArray seconds = "600." + QByteArray::number(QCoreApplication::applicationPid());
        const auto running = [&seconds] {
            int count = 0;
            for (const QString &entry : QDir("/proc").entryList(QDir::Dirs))
                count += entry.toInt() > 0 && contents("/proc/" + entry + "/cmdline").contains(seconds);
            return count;
        };
        const QByteArray slow = "sleep " + seconds + " & sleep " + seconds;
        // A tool that ends well takes along what it started.
        m_sources->write("a.v", "module a; endmodule");
        qputenv("JEX_VERILATOR",
                m_sources->script("tool", "sleep " + seconds + " & exec verilator_bin \"$@\"").toUtf8());
        QCOMPARE(listModules(m_sources->input({"a.v"})).modules, QStringList("a"));
        QTRY_COMPARE(running(), 0);
        qunsetenv("JEX_VERILATOR");
        // The second one is slow only where it runs beside the others.
        const QByteArray slowBeside =
            "case \"$*\" in *--elab-run*) " + slow + ";; *) exec ghdl \"$@\";; esac";
        const QByteArrayList tools[] = {
            {"JEX_GHDL", "a.vhd", slow}, {"JEX_GHDL", "a.vhd", slowBeside}, {"JEX_VERILATOR", "a.v", slow}};
        for (const QByteArrayList &tool : tools) {
            const QString source = tool.at(1);
            m_sources->write(source, source == "a.v" ? "module a; endmodule"
                                                     : "entity a is end; architecture a of a is begin end;");
            qputenv(tool.at(0), m_sources->script("slow", tool.at(2)).toUtf8());
            ReadingJob job(m_sources->input({source}), ReadingJob::Netlist);
            QSignalSpy stages(&job, SIGNAL(stageChanged(QString)));
            QSignalSpy ends(&job, SIGNAL(finished()));
            job.start();
            QTRY_COMPARE(running(), 2);
            QTRY_VERIFY(!stages.isEmpty());
            QVERIFY(!job.isFinished());
            job.cancel();
            QVERIFY(job.isCancelled());
            QCOMPARE(ends.size(), 1);
            QCOMPARE(job.modules().messages + job.netlistMessages(), QStringList());
            QVERIFY(!job.takeNetlist());
            QCOMPARE(leftInTemp(), QStringList());
            QTRY_COMPARE(running(), 0);
        }
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

    // When GHDL cannot run the design, what it made of it is shown, without its own names.
    void showsWhatGhdlGave()
    {
        m_sources->write(
            "t.vhd", "entity l is port (a : in bit; y : out bit); end;\n"
                     "architecture a of l is signal n_o : bit; begin n_o <= not a; y <= n_o; end;\n"
                     "entity t is port (a, b : in bit; y : out bit); end;\n"
                     "architecture a of t is signal s, v : bit; begin u : entity work.l port map (s, v);\n"
                     "s <= a and not b; y <= v xor a; end;\n");
        const QByteArray script = "case \"$*\" in *--elab-run*) exit 1;; *) exec ghdl \"$@\";; esac";
        qputenv("JEX_GHDL", m_sources->script("tool", script).toUtf8());
        QStringList messages;
        const std::unique_ptr<RtlNetlist> netlist(buildNetlist(m_sources->input({"t.vhd"}), messages));
        QCOMPARE(messages, QStringList());
        QCOMPARE(drawn(netlist.get()).join('\n'), QString("t:t a b y s v\nt/u:l a y n_o"));
        QCOMPARE(netlist->findNet("t/u/n_o")->declaration().line, 2);
    }

private:
    // What the host's map has no key for.
    void takeLists(const QString &options, DesignInput &input) const
    {
        const QMap<QString, QStringList *> lists{{"Undefines", &input.undefines},
                                                 {"Parameters", &input.parameters},
                                                 {"LibrarySuffixes", &input.librarySuffixes},
                                                 {"Disabled", &input.disabledFiles}};
        for (const QString &option : options.split('\n', Qt::SkipEmptyParts)) {
            const QString value = option.section('=', 1);
            if (QStringList *list = lists.value(option.section('=', 0, 0)))
                list->append(list == &input.disabledFiles ? path(value) : value);
            for (int i = input.files.size() - 1; i >= 0; --i) {
                if (input.files.at(i).path != path(value))
                    continue;
                input.files[i].onlyWhenUsed = true;
                if (option.startsWith("Disabled"))
                    input.files.removeAt(i);
            }
        }
    }

    // The sources' folder is @; the order of modules is the tool's own and not compared.
    QString listed(const DesignInput &input) const
    {
        ModuleList list = listModules(input);
        list.topModules.sort();
        list.modules.sort();
        const QStringList lines{"top " + list.topModules.join(' '), "modules " + list.modules.join(' ')};
        return (lines + list.messages).join('\n').replace(path(""), "@").trimmed();
    }

    QString built(const DesignInput &input) const
    {
        QStringList messages;
        return drawn(std::unique_ptr<RtlNetlist>(buildNetlist(input, messages)).get()).join('\n');
    }

    QString path(const QString &name) const { return m_sources->path(name); }
    QStringList leftInTemp() const
    {
        return QDir(path("tmp")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }

    std::unique_ptr<Sources> m_sources;
};

QTEST_GUILESS_MAIN(ElaborationTest)
#include "tst_elaboration.moc"
