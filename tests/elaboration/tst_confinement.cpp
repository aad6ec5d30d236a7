#include "elaboration/tools/confinement.h"
#include "elaboration/tools/scratchdir.h"
#include "elaboration/tools/toolprocess.h"
#include "tests/elaboration/readingtest.h"

#include <sys/stat.h>

// Each entity has a port x and a signal s; the rest tries what a source must not be able to do. @ is the
// folder of the sources.
static QByteArray entity(const QByteArray &declarations, const QByteArray &statements)
{
    return "library std; use std.textio.all;\nentity t is port (x : in bit); end;\narchitecture a of t is\n" +
           declarations + "signal s : bit;\nbegin s <= x;\n" + statements + "end;\n";
}

const char writer[] = "impure function f return natural is file h : text; variable l : line; begin\n"
                      "file_open(h, \"@owned\", write_mode); write(l, string'(\"x\")); writeline(h, l);\n"
                      "file_close(h); return 0; end;\n";
const char shell[] = "function f(c : string) return integer;\n"
                     "attribute Foreign of f : function is \"VHPIDIRECT libc.so.6 system\";\n"
                     "function f(c : string) return integer is begin return 0; end;\n";

// What a source can do to the machine and to its user while it is read: nothing.
class ConfinementTest : public ReadingTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        ReadingTest::init();
        m_path = qgetenv("PATH");
    }

    void cleanup()
    {
        qputenv("PATH", m_path);
        ReadingTest::cleanup();
    }

    void keepsSourcesIn_data()
    {
        textColumns("source", "setting", "message", "design");
        const QString whole = "t:t x n s", translated = "t:t x"; // which drops what nothing reads
        // A delay is what the simulator alone computes.
        const QByteArray late = "n <= x after f * 1 ns;\n";
        const QByteArray off = "-- synthesis translate_off\n", on = "-- synthesis translate_on\n";
        const QString foreign = "The attribute foreign can run code from outside the design. *";
        row("writes where both look", entity(writer + QByteArray("constant c : natural := f;\n"), ""), "",
            "ERROR: @t.vhd:5: cannot open file: @owned", "");
        row("writes in an initial value",
            entity(writer + off + QByteArray("signal n : natural := f;\n") + on, ""), "", "", "t:t x s");
        row("writes in a delay", entity(writer + QByteArray("signal n : bit;\n"), late), "", "", whole);
        row("runs a shell",
            entity(shell + QByteArray("signal n : bit;\n"),
                   "n <= x after f(\"touch @owned\" & nul) * 1 ns;\n"),
            "", "WARNING: @t.vhd:5: " + foreign, translated);
        row("only speaks of it", entity("-- foreign\nsignal \\Foreign\\ : bit; -- names no attribute\n", ""),
            "", "", "t:t x Foreign s");
        row("loops",
            entity(
                "function f return natural is begin loop null; end loop; return 0; end;\nsignal n : bit;\n",
                late),
            "JEX_TOOL_TIMEOUT=3",
            "WARNING: GHDL did not end within 3 seconds and was stopped while it read the first moment of "
            "VHDL "
            "entity t. *",
            translated);
        row("allocates",
            entity("type p is access string;\nimpure function f return natural is variable v : p; begin loop "
                   "v := new string(1 to 1000000); end loop; return 0; end;\nsignal n : bit;\n",
                   late),
            "JEX_TOOL_MEMORY=400", "", whole);
        row("repeats itself",
            "entity u is port (x : in bit); end;\narchitecture a of u is begin end;\n" +
                entity("",
                       "g : for i in 0 to 16777215 generate u : entity work.u port map (x); end generate;\n"),
            "JEX_TOOL_MEMORY=300",
            "ERROR: GHDL needed more memory than the 300 MB that it may take while it read VHDL entity t. *",
            "");
        row("fills the disk",
            entity("impure function f return natural is file h : text; variable l : line; begin\n"
                   "file_open(h, \"big\", write_mode); loop write(l, string'(1 to 100000 => 'x'));\n"
                   "writeline(h, l); end loop; return 0; end;\nsignal n : bit;\n",
                   late),
            "JEX_TOOL_DISK=20",
            "WARNING: GHDL wrote more than 20 MB of files and was stopped while it read the first moment of "
            "VHDL "
            "entity t. *",
            translated);
        // Were it found, the simulation would not end.
        row("reads a secret of ours",
            entity(
                "impure function f return natural is file h : text; variable l : line; begin\n"
                "file_open(h, \"/proc/self/environ\", read_mode);\n"
                "while not endfile(h) loop readline(h, l); for i in 1 to l'length - 6 loop "
                "while l(i to i + 5) = \"SECRET\" loop null; end loop; end loop; end loop; return 0; end;\n"
                "signal n : bit;\n",
                late),
            "SECRET_VALUE=1", "", whole);
    }
    void keepsSourcesIn()
    {
        auto [source, setting, message, design] = textCells("source", "setting", "message", "design");
        if (!setting.isEmpty())
            qputenv(qPrintable(setting.section('=', 0, 0)), setting.section('=', 1).toUtf8());
        m_sources->write("t.vhd", source.replace("@", path("") + "/").toUtf8());
        QStringList messages;
        const std::unique_ptr<RtlNetlist> netlist(buildNetlist(m_sources->input({"t.vhd"}), messages));
        QVERIFY2(fits(told(messages), message), qPrintable(told(messages)));
        const QString drawing = drawn(netlist.get()).join('\n');
        QVERIFY2(fits(drawing, design), qPrintable(drawing));
        QCOMPARE(entriesOf(path("")), (QStringList{"t.vhd", "tmp"}));
        QCOMPARE(leftInTemp(), QStringList());
    }

    // What a tool that was taken over would find.
    void confinesTools()
    {
        qputenv("SECRET_VALUE", "1");
        const QByteArray script =
            "say() { echo \"%Error: $1\" >&2; }\n"
            "touch '" +
            path("owned").toUtf8() +
            "' 2>/dev/null && say 'wrote beside the sources'\n"
            "touch \"$HOME/jex-owned\" /tmp/jex-owned /dev/jex-owned 2>/dev/null && say 'wrote elsewhere'\n"
            "touch \"$TMPDIR/own\" || say 'cannot write into its folder'\n"
            "env | grep -q SECRET && say 'knows the environment'\n"
            "[ -e /dev/zero ] && say 'has devices'\n"
            "[ \"$(ls -d /proc/[0-9]* | wc -l)\" -lt 12 ] || say 'sees other processes'\n"
            "[ \"$(grep -c : /proc/net/dev)\" -le 1 ] || say 'has a network'\n"
            "grep -q 'NoNewPrivs:.1' /proc/self/status || say 'may gain rights'\n"
            "grep -q 'CapEff:.0000000000000000' /proc/self/status || say 'has capabilities'\n"
            "grep -q 'Seccomp:.2' /proc/self/status || say 'may call everything'\n"
            "[ \"$(ls /proc/self/fd | wc -l)\" -le 4 ] || say 'has our files'\n"
            "say 'is over'\n";
        qputenv("JEX_VERILATOR", m_sources->script("tool", script).toUtf8());
        m_sources->write("a.v", "module a; endmodule");
        const QFile held(path("a.v"));
        QCOMPARE(listModules(m_sources->input({"a.v"})).messages, QStringList("ERROR: is over"));
        QCOMPARE(entriesOf(path("")), (QStringList{"a.v", "tmp", "tool"}));
        qunsetenv("SECRET_VALUE");
    }

    // Where a tool cannot be confined, what would run the sources is not started, and what evaluates them can
    // write nothing.
    void runsNothingUnconfined_data()
    {
        textColumns("bubblewrap", "reason", "remedy");
        row("is missing", "", "bubblewrap is not installed", "Install Debian's package bubblewrap.");
        row("is refused", "echo 'bwrap: No permissions to create a new namespace.' >&2; exit 1",
            "this system does not let bubblewrap work: bwrap: No permissions to create a new namespace",
            "Let this user make user namespaces (kernel.unprivileged_userns_clone).");
    }
    void runsNothingUnconfined()
    {
        auto [bubblewrap, reason, remedy] = textCells("bubblewrap", "reason", "remedy");
        QVERIFY(QDir().mkpath(path("bin")));
        for (const char *tool : {"ghdl-mcode", "verilator_bin"})
            QFile::link(QStandardPaths::findExecutable(tool), path(QString("bin/") + tool));
        if (!bubblewrap.isEmpty())
            m_sources->script("bin/bwrap", bubblewrap.toUtf8());
        qputenv("PATH", path("bin").toUtf8());
        const QString warning =
            "WARNING: The tools that read the design run with your rights, since " + reason +
            ". VHDL is therefore not started, and its signals are shown as GHDL translates "
            "them. " +
            remedy;
        const QByteArray process =
            "-- synthesis translate_off\nprocess variable n : natural; begin n := f; wait; end "
            "process;\n-- synthesis translate_on\n";
        const QStringList texts[] = {{entity(writer, process), warning},
                                     {entity(writer + QByteArray("constant c : natural := f;\n"), ""),
                                      warning + "\nERROR: @t.vhd:5: cannot open file: @owned"}};
        for (const QStringList &text : texts) {
            m_sources->write("t.vhd", QString(text.at(0)).replace("@", path("") + "/").toUtf8());
            QCOMPARE(told(listModules(m_sources->input({"t.vhd"})).messages), text.at(1));
            QCOMPARE(entriesOf(path("")), (QStringList{"bin", "t.vhd", "tmp"}));
        }
        // Declared ranges come from the sources then.
        m_sources->write(
            "t.vhd", "entity t is port (x : in bit_vector(1 to 4); y : out bit_vector(7 downto 4)); end;\n"
                     "architecture a of t is begin y <= x; end;\n");
        QCOMPARE(built(m_sources->input({"t.vhd"})), QString("t:t x[1:4] y[7:4]"));
    }

    void refusesWhatTakesTheMachine_data()
    {
        textColumns("source", "message");
        row("wide", "module t(input [99999999:0] p); endmodule",
            "ERROR: Module t has 100000000 nets, and a design can have 33554432 here. *");
        const QString widest = "ERROR: Module t has 2147483647 nets, and a design can have 33554432 here. *";
        row("wider than numbers", "module t(); logic [2147483647:-5] x; endmodule", widest);
        row("packed wider than numbers", "module t(); logic [46341:0][46341:0] x; endmodule", widest);
        row("more than numbers", "module l(); endmodule\nmodule t(); l u[2147483647:-5](); endmodule",
            "ERROR: The design has more than 4194304 instances. *");
        row("many", "module l(input c); endmodule\nmodule t(input c); l u[16777215:0](c); endmodule",
            "ERROR: The design has more than 4194304 instances. *");
        row("wide and many",
            "module l(input [1048575:0] c); endmodule\nmodule t(input [1048575:0] c); l u[99:0](c); "
            "endmodule",
            "ERROR: The design has more than 33554432 nets. *");
        row("device", "`include \"/dev/zero\"\nmodule t(input c); endmodule",
            "ERROR: @t.sv includes /dev/zero, which is no regular file.");
        row("pipe", "`include \"inner.vh\"\nmodule t(input c); endmodule",
            "ERROR: @inner.vh includes @pipe.vh, which is no regular file.");
    }
    void refusesWhatTakesTheMachine()
    {
        auto [source, message] = textCells("source", "message");
        m_sources->write("t.sv", source.toUtf8());
        m_sources->write("inner.vh", "`include <pipe.vh>");
        QCOMPARE(mkfifo(qPrintable(path("pipe.vh")), 0600), 0);
        QStringList messages;
        QVERIFY(!std::unique_ptr<RtlNetlist>(buildNetlist(m_sources->input({"t.sv"}), messages)));
        QVERIFY2(fits(told(messages), message), qPrintable(told(messages)));
    }

    void stopsFloods_data()
    {
        textColumns("script");
        row("one file", "exec yes > \"$TMPDIR/big\"");
        row("many files", "i=0; while :; do i=$((i+1)); head -c 4000000 /bin/bash > \"$TMPDIR/$i\"; done");
    }
    void stopsFloods()
    {
        QFETCH(QString, script);
        qputenv("JEX_TOOL_DISK", "20");
        qputenv("JEX_VERILATOR", m_sources->script("tool", script.toUtf8()).toUtf8());
        m_sources->write("a.v", "module a; endmodule");
        const QString said = listModules(m_sources->input({"a.v"})).messages.join('\n');
        const QString limit = "ERROR: Verilator wrote more than 20 MB of files and was stopped while it read "
                              "the Verilog sources. *";
        QVERIFY2(fits(said, limit), qPrintable(said.left(1000)));
    }

    // Who is killed writes nothing more: the folder can go at once.
    void leavesNothing()
    {
        const QString script = m_sources->script(
            "tool",
            "(while :; do : > \"$TMPDIR/a$((a+=1))\"; done) &\nwhile :; do : > \"$TMPDIR/b$((b+=1))\"; done");
        for (int i = 0; i < 8; ++i) {
            std::unique_ptr<ScratchDir> scratch(new ScratchDir);
            const QString folder = scratch->path();
            ToolCall call;
            call.program = script;
            call.workingDir = "/";
            call.writableFolder = folder;
            call.runsSources = true;
            std::unique_ptr<ToolRun> tool(new ToolRun(call));
            QTRY_VERIFY(QFileInfo::exists(folder + "/b1"));
            tool.reset();
            scratch.reset();
            QVERIFY(!QFileInfo::exists(folder));
        }
    }

private:
    QByteArray m_path;
};

QTEST_GUILESS_MAIN(ConfinementTest)
#include "tst_confinement.moc"
