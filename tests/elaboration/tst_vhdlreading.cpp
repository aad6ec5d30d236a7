#include "tests/elaboration/readingtest.h"

namespace {

const char vhdl[] = "== top.vhd\nlibrary ieee; use ieee.std_logic_1164.all; use work.pack.all;\n"
                    "entity Top is port (clk : in std_logic; q : out std_logic_vector(C downto 0)); end;\n"
                    "architecture a of Top is component prim is port (Aa : in std_logic); end component;\n"
                    "signal reg : std_logic_vector(C downto 0); begin\n"
                    "u : entity work.leaf generic map (W => C + 1) port map (clk, reg); p : prim port map "
                    "(clk); q <= reg; end;\n"
                    "== leaf.vhd\nlibrary ieee; use ieee.std_logic_1164.all;\n"
                    "entity Leaf is generic (W : integer := 2);\n"
                    "port (c : in std_logic; q : out std_logic_vector(W - 1 downto 0)); end;\n"
                    "architecture a of Leaf is begin q <= (others => c); end;\n"
                    "== pack.vhd\npackage pack is constant C : integer := 3; end;\n";

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
    row("VHDL entities of one name without a statement",
        "Library of a.vhd=la\nLibrary of b.vhd=lb\nLibrary of c.vhd=lc",
        "== a.vhd\nentity Sub is port (input : in bit); end;\narchitecture r of Sub is begin end;\n"
        "== b.vhd\nentity Sub is port (c : in bit); end;\narchitecture r of Sub is begin end;\n"
        "== c.vhd\nentity Sub is port (c : in bit); end;\narchitecture r of Sub is signal s : bit; begin s "
        "<= c; "
        "end;\n== top.vhd\nlibrary la, lb, lc; entity top is port (x : in bit); end;\narchitecture r of top "
        "is begin\n"
        "u : entity lc.sub port map (x);\nv : entity la.sub port map (x);\nw : entity lb.sub port map (x); "
        "end;\n",
        "top top\nmodules Sub top", "top:top x\ntop/u:Sub c s\ntop/v:Sub input\ntop/w:Sub c");
    const QString sound = "== s.vhd\nentity Sound is port (a : in bit); end;\n"
                          "architecture r of Sound is begin end;\n";
    const QString halves = "== v.v\nmodule v(input x); half u(x); endmodule\n";
    row("VHDL that cannot be read beside Verilog", "", "== h.vhd\nhalf is port (\n" + halves,
        "top v\nmodules v\nWARNING: @/h.vhd:1: *\nWARNING: The VHDL sources cannot be read and are left "
        "out." +
            boxed("half"),
        "v:v x\nv/u:half");
    row("an entity that cannot be read", "", "== h.vhd\nentity half is port (\n" + halves,
        "top v\nmodules v\nWARNING: @/h.vhd:2: *" + boxed("half"), "v:v x\nv/u:half");
    row("nothing of a file can be read", "",
        sound + "== w.vhd\nlibrary ieee;\nentity w is port (a : in none); end;\n",
        "top Sound\nmodules Sound\nWARNING: @/w.vhd:2: no declaration for \"none\"", "Sound:Sound a");
    row("an entity without a body", "",
        "== s.vhd\nentity Hidden is port (a : in bit); end; -- no more\n"
        "== t.vhd\nentity t is port (a : in bit); end;\n"
        "architecture r of t is begin u : entity work.hidden port map (a); end;\n",
        "top t\nmodules Hidden t\nWARNING: @/s.vhd:1: Hidden has no architecture and is shown as a black "
        "box, with nothing inside.",
        "t:t a\nt/u:Hidden a");
    const QString absent = " is in no file of the project";
    row("missing packages of VHDL", "Disabled=off.vhd",
        "== t.vhd\nuse work.p.all; library vend; use vend.cells.all;\nuse work.q.all;\n"
        "entity t is port (x : in w_t; y : out word_t); end;\narchitecture r of t is signal s : w_t := ZERO; "
        "begin s <= x; end;\n== u.vhd\nentity u is port (x : in bit); end;\n"
        "architecture r of u is begin i : entity work.t port map (x, open); end;\n"
        "== off.vhd\npackage p is subtype w_t is bit; end;\n",
        "top u\nmodules u\nWARNING: @/t.vhd:1: package p" + absent +
            " that is enabled. It is in @/off.vhd\n" + "WARNING: @/t.vhd:1: package vend.cells" + absent +
            "\nWARNING: @/t.vhd:2: package q" + absent + boxed("t"),
        "u:u x\nu/i:t");
    row("what follows from a missing package in a body", "",
        "== t.vhd\nuse work.p.all;\nentity t is port (x : in bit); end;\narchitecture r of t is\n"
        "signal s : rec_t; begin s.a <= x; end;\n",
        "top \nmodules \nERROR: @/t.vhd:1: package p" + absent, "");
    row("a unit that a faulty package leaves out", "",
        sound + "== p.vhd\npackage p is\nsubtype w_t is none; end;\n"
                "== t.vhd\nuse work.p.all;\nentity t is port (x : in w_t); end;\n"
                "architecture r of t is begin u : entity work.sound port map (x); end;\n",
        "top \nmodules \nERROR: @/p.vhd:2: no declaration for \"none\"", "");
    row("names that are words of VHDL since 2008", "",
        "== a.vhd\nentity a is port (clk, Default : in bit; property : out bit); end;\n"
        "architecture r of a is signal Cover : bit; begin cover <= DEFAULT; property <= cover; end;\n"
        "== b.vhd\nentity b is port (sequence : in bit; q : out bit); end;\narchitecture r of b is begin\n"
        "u : entity work.a port map (clk => sequence, default => sequence, property => q); end;\n",
        "top b\nmodules a b", "b:b sequence q\nb/u:a clk Default property Cover");
    row("an entity twice", "",
        sound + "== t.vhd\nentity t is port (a : in bit); end;\narchitecture r of t is begin\n"
                "u : entity work.sound port map (a); end;\nentity sound is port (a : in bit); end;\n"
                "architecture s of sound is signal other : bit; begin other <= a; end;\n",
        "top t\nmodules Sound t\nWARNING: @/t.vhd:4: sound is declared a second time. What @/s.vhd declares "
        "is used.",
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
    row("VHDL in any order", "", vhdl, "top Top\nmodules Leaf Top" + boxed("prim"),
        "Top:Top clk q[3:0] reg[3:0]\nTop/u:Leaf c q[3:0]\nTop/p:prim");
    row("VHDL top in another case", "Top=TOP", vhdl, "top TOP\nmodules Leaf TOP" + boxed("prim"),
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
            QString("== r.vhd\nentity r is port (a : in bit_vector(2 downto 0); y : out bit_vector(2 downto "
                    "0)); end;\narchitecture a of r is begin\n"
                    "g : for i in %1 generate signal s : bit_vector(i downto 0); signal t : bit;\nbegin s <= "
                    "a(i downto 0); y(i) <= s(i) and t; t <= '1' when i = 2 else a(i); end generate; end;\n")
                .arg(range),
            "top r\nmodules r",
            "r:r a[2:0] y[2:0]\nr/g[0]:g t s[0:0]\nr/g[1]:g t s[1:0]\nr/g[2]:g t! s[2:0]");
    row("unknown VHDL top", "Top=c", vhdl,
        "top \nmodules \nWARNING: No module is named \"c\". The top modules of the design are: Top", "");
    row("VHDL names that Verilog reserves", "",
        "== r.vhd\nentity sub is port (input : in bit; wire : out bit); end;\n"
        "architecture a of sub is signal always, \\two words\\ : bit; begin always <= input; \\two words\\ "
        "<= always; wire <= \\two words\\; end;\n"
        "entity r is port (reg : in bit; q : out bit); end;\n"
        "architecture a of r is signal u_wire : bit; begin u : entity work.sub port map (reg, u_wire); q <= "
        "u_wire; end;\n",
        "top r\nmodules r sub", "r:r reg q u_wire\nr/u:sub input wire always two words");
}

void mixedRows()
{
    row("VHDL in Verilog", "Top=v",
        QString(vhdl) +
            "== v.v\nmodule v(input x); LEAF #(.W(8)) u0(.C(x)); leaf u1(x, ); Top u2(.CLK(x)); endmodule\n",
        "top v\nmodules Leaf Top v" + boxed("prim"),
        "v:v x\nv/u0:Leaf c q[7:0]\nv/u1:Leaf c q[1:0]\nv/u2:Top clk q[3:0] reg[3:0]\n"
        "v/u2/u:Leaf c q[3:0]\nv/u2/p:prim");
    row("VHDL without a value for its generic", "",
        "== l.vhd\nentity L is generic (W : integer);\nport (a : in bit); end;\narchitecture a of L is begin "
        "end;\n== v.v\nmodule v(input x); l u(x); endmodule\n",
        "top v\nmodules L v\nWARNING: *\nWARNING: VHDL entity L, which Verilog instantiates, cannot be "
        "translated with the default values of its generics. It is shown as a black box." +
            boxed("l"),
        "v:v x\nv/u:l");
    row("generics that Verilog sets on VHDL", "",
        "== l.vhd\nentity L is generic (W : integer; N : string := \"ab\"; B : boolean := false; R : real := "
        "1.0);\n"
        "port (a : in bit; q : out bit_vector(W - 1 downto 0)); end;\n"
        "architecture r of L is signal s : bit_vector(1 to N'length); begin s <= (others => a); g : if B "
        "generate signal t : bit; begin t <= a; end generate; end;\n"
        "== v.v\nmodule m #(parameter P = 1)(input x); l #(.W(P + 1), .n(\"abc\")) u(.a(x));\n"
        "l #(.W(P), .B(1'b1)) w(.a(1'b1)); endmodule\n"
        "module v(input x); m #(2) a(x); m b(x); l #(4) p(x, ); l #(.W(2), .R(2.5)) r(x); endmodule\n",
        "top v\nmodules L m v\nWARNING: The generics that Verilog sets on VHDL entity L (R) have no effect "
        "here: the entity is shown with its default values.",
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
        "g : if V(2) = '0' and V(1) = 'X' generate signal s : std_logic_vector(N downto 0); begin s <= "
        "(others => a); end generate; end;\n"
        "== v.v\nmodule v(input x); l #(.V(3'b0x1), .N(4)) u(x); l #(.V(3'b111), .N(2)) w(x); endmodule\n",
        "top v\nmodules l v", "v:v x\nv/u:l a\nv/u/g:g s[4:0]\nv/w:l a");
    row("empty texts", "",
        "== l.vhd\nentity l is generic (S, T : string; W : bit_vector(1 downto 0));\nport (x : in bit); "
        "end;\n"
        "architecture r of l is signal u : bit_vector(S'length downto 0); begin\n"
        "u <= (others => x); g : if T = \"\" generate signal e : bit; begin e <= x; end generate; end;\n"
        "== v.v\nmodule v(input x); l #(.S(\"\"), .T(\"ab\"), .W(2'd1)) u(x); l #(.S(\"ab\"), .T(\"\"), "
        ".W(2'd1)) w(x);\n"
        "endmodule\n",
        "top v\nmodules l v", "v:v x\nv/u:l x u[0:0]\nv/w:l x u[2:0]\nv/w/g:g e");
    row("an empty text for a VHDL top", "Parameters=S=",
        "== l.vhd\nentity l is generic (S : string := \"ab\"); port (x : in bit); end;\n"
        "architecture r of l is signal u : bit_vector(S'length downto 0); begin u <= (others => x); end;\n",
        "top l\nmodules l", "l:l x u[0:0]");
    row("vectors that share a declaration", "",
        "== l.vhd\nlibrary ieee; use ieee.std_logic_1164.all;\n"
        "entity l is generic (n : natural; A, -- of both\n B : std_logic_vector(3 downto 0));\n"
        "port (x : in std_logic); end;\narchitecture r of l is begin\n"
        "g : if A = \"0011\" and B = \"1001\" generate signal s : std_logic_vector(n downto 0); begin s <= "
        "(others => x); end generate; end;\n"
        "== v.v\nmodule v(input x); l #(.n(2), .A(4'd3), .B(4'd9)) u(x); l #(1, 4'd9, 4'd9) w(x); "
        "endmodule\n",
        "top v\nmodules l v", "v:v x\nv/u:l x\nv/u/g:g s[2:0]\nv/w:l x");
    row("VHDL in Verilog in VHDL, in a library", "",
        "== top.vhd\nlibrary own; use own.p.all;\nentity top is port (a : in w_t); end;\n"
        "architecture a of top is component mid is port (a : in w_t); end component; begin u : mid port map "
        "(a); end;\n"
        "== bot.vhd\nentity bot is port (a : in bit); end;\narchitecture a of bot is begin end;\n"
        "== p.vhd\npackage p is subtype w_t is bit_vector(1 downto 0); end;\n"
        "== mid.v\nmodule Mid(input [1:0] A); Bot b(.a(A[0])); endmodule\n",
        "top top\nmodules Mid bot top", "top:top a[1:0]\ntop/u:Mid A[1:0]\ntop/u/b:bot a");
    row("test bench beside the design", "",
        "== t.v\nmodule t(input x); endmodule\n== tb.vhd\nentity tb is end;\narchitecture a of tb is begin "
        "process begin wait for 1 ns;\nend process; end;\n",
        "top t tb\nmodules t tb\nWARNING: @/tb.vhd:2: *", "");
}

} // namespace

class VhdlReadingTest : public ReadingTest
{
    Q_OBJECT

private Q_SLOTS:
    void readsDesigns_data()
    {
        textColumns("options", "sources", "lists", "design");
        vhdlRows();
        libraryRows();
        mixedRows();
    }
    void readsDesigns() { readDesign(); }

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

    // What stands for missing entities of one library is not made for all others: each is a run of GHDL.
    void suppliesEachLibraryAlone()
    {
        const QByteArray entity = "entity # is port (x : in bit); end;\narchitecture r of # is begin\n"
                                  "i : entity work.no_# port map (x); end;\n";
        m_sources->write("la.vhd", QByteArray(entity).replace('#', "la"));
        m_sources->write("lb.vhd", QByteArray(entity).replace('#', "lb"));
        m_sources->write("top.vhd", "library la, lb; entity top is port (x : in bit); end;\n"
                                    "architecture r of top is begin u : entity la.la port map (x);\n"
                                    "v : entity lb.lb port map (x); end;\n");
        DesignInput input = m_sources->input({"la.vhd", "lb.vhd", "top.vhd"});
        for (int i = 0; i < 2; ++i)
            input.files[i].library = i == 0 ? "la" : "lb";
        const QByteArray script =
            "for own in la lb; do case \"$*\" in *--work=$own*made*) for file; do :; done\n"
            "grep -q no_$own \"$file\" || exit 3;; esac; done; exec ghdl \"$@\"";
        qputenv("JEX_GHDL", m_sources->script("tool", script).toUtf8());
        QCOMPARE(built(input), QString("top:top x\ntop/u:la x\ntop/u/i:no_la\ntop/v:lb x\ntop/v/i:no_lb"));
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
};

QTEST_GUILESS_MAIN(VhdlReadingTest)
#include "tst_vhdlreading.moc"
