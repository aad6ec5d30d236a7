// What is tapped is what the net is: every net of a design is tapped at once, and the values that arrive at
// the analyzer in the written netlist are those of the same nets in the sources, at all times, unknown ones
// too.

#include "elaboration/tools/elaborator.h"
#include "insertion/analyzer.h"
#include "insertion/attaching.h"
#include "insertion/flatnetlist.h"
#include "insertion/insertionjob.h"
#include "insertion/insertiontexts.h"
#include "tests/insertion/captures.h"
#include "tests/support/tablerow.h"
#include "tests/support/tools.h"

using namespace QUARRY;

namespace {

void addRows(const Hierachy &node, QList<JEX::SignalItem> &rows)
{
    for (const RtlNet *net : node.nets)
        rows << signalNamed(net->fullPathName());
    for (const RtlNetBus *bus : node.buses)
        rows << signalNamed(bus->fullBusName());
    for (const Hierachy *child : node.children)
        addRows(*child, rows);
}

// In place of the cores: writes all that arrives whenever something changed.
QByteArray monitor(const Insertion::Analyzer &analyzer, int nanoseconds)
{
    QByteArray ports, formats, values;
    const QList<Insertion::Tap> &taps = analyzer.taps().taps();
    for (int i = 0; i < taps.size(); ++i) {
        const QByteArray name = "tap_" + QByteArray::number(i);
        ports += "input wire [" + QByteArray::number(taps.at(i).width() - 1) + ":0] " + name + ",\n";
        formats += " %b";
        values += ", " + name;
    }
    for (const QByteArray &name : analyzer.controlInputs())
        ports += "input wire " + name + ",\n";
    for (const QByteArray &name : analyzer.controlOutputs())
        ports += "output wire " + name + ",\n";
    ports.chop(2);
    return "`timescale 1ns / 1ps\nmodule jex_cores (" + ports + ");\ninitial begin $monitor(\"%0t" + formats +
           "\", $time" + values + ");\n#" + QByteArray::number(nanoseconds) + " $finish; end\nendmodule\n";
}

// As Icarus sees the net in the sources, where VHDL is what GHDL made of it.
QByteArray sourcePath(const Insertion::Tap &tap)
{
    if (!tap.isVhdl) // and numbers unnamed scopes in its own way
        return Insertion::verilogPath(tap).replace("genblk2.", "genblk3.");
    QByteArray path;
    for (const QByteArray &cell : tap.cells)
        path += cell.mid(1) + '.';
    return path + tap.signal().mid(1).replace(" [", "[");
}

// The first net that is not the same in both, with the moment. A variable that nothing drives is unknown in
// the sources and open in a netlist, which has no variables; there is a warning about it.
QString firstDifference(const QByteArray &a, const QByteArray &b, const Insertion::InsertionJob &job)
{
    const QList<Insertion::Tap> &taps = job.analyzer().taps().taps();
    const QList<QByteArray> left = a.split('\n'), right = b.split('\n');
    for (int line = 0; line < qMax(left.size(), right.size()); ++line) {
        const QList<QByteArray> ours = left.value(line).split(' '), theirs = right.value(line).split(' ');
        for (int i = 0; i < qMax(ours.size(), theirs.size()); ++i) {
            if (ours.value(i) == theirs.value(i))
                continue;
            const QString net = i == 0 ? QString("the time") : taps.value(i - 1).net;
            const bool isOpen =
                !job.messages().filter("Nothing drives mix/unset").isEmpty() && net == "mix/unset";
            if (!isOpen || ours.value(i) != "z" || theirs.value(i) != "x")
                return QString("%1 at %2: %3 is not %4")
                    .arg(net, QString(ours.value(0)), QString(ours.value(i)), QString(theirs.value(i)));
        }
    }
    return QString();
}

} // namespace

class InsertionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyTap_data()
    {
        // "words": of memories
        columns<QString, QString, int, int>("design", "place", "nanoseconds", "words");
        const bool isFull = qEnvironmentVariable("JEX_WAVE") == "full";
        row("clocks, loops, ranges, VHDL", "mix", "mix_tb.dut", (isFull ? 13000 : 4000), 16);
        row("example", "soc", "soc_tb.dut", (isFull ? 1000000 : 60000), 24);
    }
    void everyTap()
    {
        auto [design, place, nanoseconds, words] =
            cells<QString, QString, int, int>("design", "place", "nanoseconds", "words");
        const DesignInput input = design == "mix"
                                      ? m_example.input({TEST_DESIGNS "/mix.v", TEST_DESIGNS "/counter.vhd"})
                                      : example();
        const std::unique_ptr<RtlNetlist> netlist = netlistOf(input);
        QVERIFY(netlist);
        QList<JEX::SignalItem> rows;
        addRows(*netlist->topHierarchy, rows);
        const QString clock = rows.first().members.isEmpty() ? rows.first().name : design + "/clk_a";
        Insertion::InsertionOptions options;
        options.forSimulation = true;
        const LiteConfiguration all(clock, rows, 16);
        Insertion::InsertionJob refusing(input, all, *netlist, options);
        finish(refusing);
        const QStringList lost = refusing.messages().filter("cannot be tapped");
        for (const QString &sentence : lost)
            QVERIFY2(fits(sentence, "*: it is a word of a memory, and these are no nets."),
                     qPrintable(sentence));
        QCOMPARE(lost.size(), words);
        for (int i = rows.size() - 1; i >= 0; --i) {
            if (lost.join('\n').contains(' ' + rows.at(i).name + ' '))
                rows.removeAt(i);
        }
        const LiteConfiguration capture(clock, rows, 16);
        Insertion::InsertionJob job(input, capture, *netlist, options);
        finish(job);
        QVERIFY2(job.outcome() == Insertion::InsertionJob::Done, qPrintable(job.messages().join('\n')));

        const QByteArray cores = job.files().value("cores.v"), whole = job.files().value("design.v");
        QVERIFY(whole.endsWith(cores));
        Folder folder;
        folder.write("monitor.v", monitor(job.analyzer(), nanoseconds));
        folder.write("netlist.v", "`timescale 1ns / 1ps\n" + whole.left(whole.size() - cores.size()));
        folder.write("probe.v", probe(job.analyzer(), place));
        const QByteArray fromNetlist = simulate(folder, {"netlist.v", "monitor.v"}, bench(design), {});
        const QByteArray fromSources = simulate(
            folder, sources(input, folder) + QStringList{"probe.v", "monitor.v"}, bench(design), {"probe"});
        QVERIFY2(fromSources.count('\n') > 100, fromSources.left(2000));
        QCOMPARE(firstDifference(fromNetlist, fromSources, job), QString());

        // Such a comparison does see a net that is read the wrong way round.
        QByteArray wrong = whole.left(whole.size() - cores.size());
        const QByteArray pin = "    .tap_0(";
        folder.write("netlist.v", "`timescale 1ns / 1ps\n" + wrong.replace(pin, pin + '~'));
        const QByteArray fromWrong = simulate(folder, {"netlist.v", "monitor.v"}, bench(design), {});
        QVERIFY(wrong.contains(pin));
        QVERIFY(firstDifference(fromWrong, fromSources, job) != QString());
    }

    // One small design each, all of whose nets are captured.
    void designs_data()
    {
        // "message": one of those that are told, as a pattern, empty: no error; "written": a pattern for a
        // line of design.v
        textColumns("file", "text", "message", "written", "parameters");
        row("open pins", "a.v",
            "module top(input clk, inout [5:2] pins, output [1:0] mixed, output x);\n"
            "assign pins = 4'bzzzz; assign mixed = {clk, 1'bz}; assign x = 1'bx;\nendmodule",
            "", "  assign pins = 4'hz;", "");
        row("an open pin of an instance", "a.v",
            "module top(input clk); PRIM p(.io(1'bz), .c(clk)); endmodule",
            "ERROR: Open bits (z) of the original are not open any more.", "", "");
        row("no definition", "a.v",
            "module top(input clk, output q);\nPLL #(.MUL(4)) p(.i(clk), .o(q)); endmodule", "", "  PLL #(",
            "");
        row("parameter", "a.v",
            "module top #(parameter N = 3, S = \"no\") (input clk, output [7:0] q);\n"
            "assign q = S == \"y s\" ? N : 8'h0; endmodule",
            "", "*8'h4d*", "N=77|S=\"y s\"");
        row("parameter that is a command", "a.v", "module top #(parameter N = 3) (input clk); endmodule",
            "ERROR: The parameter \"N=1;!touch owned\" * cannot be told to Yosys.", "", "N=1;!touch owned");
        row("name of an added port", "a.v",
            "module top(input clk, output jex_tap_0); assign jex_tap_0 = clk; endmodule", "",
            "  input jexx_ctl_clock;", "");
        row("name of a core", "a.v",
            "module top(input clk); jex_cores c(clk); endmodule\nmodule jex_cores(input i); endmodule",
            "ERROR: A module of the design has the name of one of the analyzer's.", "", "");
        row("text that looks like a name", "a.v",
            "module top(input clk);\nPRIM #(.INIT(\"cost $5, \\\"\\\\$a/b\\\" $c\")) p(.c(clk)); endmodule",
            "", "*INIT(\"cost $5, \\\"\\\\$a/b\\\" $c\")*", "");
        const auto loop = [](const char *range) {
            return QString(
                       "library ieee; use ieee.std_logic_1164.all;\n"
                       "entity top is port (clk : in std_logic; a : in std_logic_vector(2 downto 0);\n"
                       "q : out std_logic_vector(2 downto 0)); end;\narchitecture r of top is begin\n"
                       "g : for n in %1 generate signal s : std_logic_vector(n downto 0);\n"
                       "begin s <= a(n downto 0); q(n) <= s(n) xor s(0) when rising_edge(clk); end generate; "
                       "end;")
                .arg(range);
        };
        // The width of each round tells whether it is the right one.
        row("rounds upwards", "a.vhd", loop("0 to 2"), "", "*tap_*(g_n3_s)*", "");
        row("rounds downwards", "a.vhd", loop("2 downto 0"), "", "*tap_*(g_n3_s)*", "");
        row("rounds of a range", "a.vhd", loop("a'range"), "ERROR: top/g[0]/s[0:0] cannot be tapped: *", "",
            "");
        row("newer than Yosys", "a.sv",
            "module top(input logic clk); typedef struct { logic [3:0] v; } t; t u;\n"
            "always_ff @(posedge clk) u.v <= 4'h3; endmodule",
            "WARNING: There is therefore no design.v. *", "", "");
    }
    void designs()
    {
        auto [file, text, message, written, parameters] =
            textCells("file", "text", "message", "written", "parameters");
        const Sources folder;
        folder.write(file, text.toUtf8());
        DesignInput input = folder.input({file});
        const std::unique_ptr<RtlNetlist> netlist = netlistOf(input);
        QVERIFY(netlist);
        QList<JEX::SignalItem> rows;
        addRows(*netlist->topHierarchy, rows);
        const LiteConfiguration capture("top/clk", rows);
        input.parameters = parameters.split('|', Qt::SkipEmptyParts);
        Insertion::InsertionJob job(input, capture, *netlist, Insertion::InsertionOptions());
        finish(job);
        const QString said = job.messages().join('\n');
        const auto any = [](const QStringList &lines, const QString &pattern) {
            const auto fitting = [&](const QString &line) { return fits(line, pattern); };
            return std::any_of(lines.begin(), lines.end(), fitting);
        };
        QVERIFY2(message.isEmpty() ? !said.contains("ERROR") : any(job.messages(), message),
                 qPrintable(said));
        QCOMPARE(job.files().contains("design.v"), message.isEmpty());
        QCOMPARE(job.files().contains("probe.v"), !said.contains("ERROR"));
        const QString netlistText = job.files().value("design.v");
        QVERIFY2(written.isEmpty() || any(netlistText.split('\n'), written),
                 qPrintable(netlistText.left(3000)));
        QVERIFY(!QFileInfo::exists(folder.path("owned")));
    }

    // A constant may call foreign code, which Yosys runs and Verilator does not see.
    void keepsSourcesIn()
    {
        const Sources folder;
        const QString victim = folder.write("victim", "mine");
        const QByteArray command =
            "for d in $TMPDIR $TMPDIR/.. " + QDir::tempPath().toUtf8() +
            "/jexquarry-*; do for n in original.il original.v tapped.il cores.v made made/design.v; do "
            "ln -s " +
            victim.toUtf8() + " $d/insertion-$n; done; done; touch " + folder.path("owned").toUtf8();
        QByteArray text =
            "module top(input clk, output q);\n`ifdef YOSYS\n"
            "import \"DPI-C\" function chandle mmap(chandle a, integer n, integer p, integer f, "
            "integer d, integer o);\n"
            "import \"DPI-C\" function chandle memset(chandle p, integer c, integer n);\n"
            "import \"DPI-C\" function integer system(chandle p);\n"
            "localparam m = mmap(1048576, 4096, 3, 50, -1, 0);\n";
        for (int i = 0; i < command.size(); ++i)
            text += QString("localparam c%1 = memset(1048576 + %1, %2, 1);\n")
                        .arg(i)
                        .arg(int(command.at(i)))
                        .toUtf8();
        text += "localparam r = system(1048576);\n`endif\nassign q = clk;\nendmodule\n";
        folder.write("two words.sv", text);
        const DesignInput input = folder.input({"two words.sv"});
        const std::unique_ptr<RtlNetlist> netlist = netlistOf(input);
        QVERIFY(netlist);
        const LiteConfiguration capture("top/clk", {signalNamed("top/q")});
        Insertion::InsertionJob job(input, capture, *netlist, Insertion::InsertionOptions());
        finish(job);
        QCOMPARE(job.messages().filter("ERROR"), QStringList());
        QVERIFY(job.files().contains("design.v"));
        QCOMPARE(folder.read("victim"), QByteArray("mine"));
        QVERIFY(!QFileInfo::exists(folder.path("owned")));
    }

    // A net that flattening took away is not judged by another one.
    void lostTap()
    {
        const Sources folder;
        folder.write("a.v", "module top(input clk); endmodule");
        const std::unique_ptr<RtlNetlist> netlist = netlistOf(folder.input({"a.v"}));
        QVERIFY(netlist);
        const LiteConfiguration capture("top/clk", {signalNamed("top/clk")});
        const Insertion::Analyzer analyzer(capture, RTLJEX::CoreOptions(), *netlist);
        Insertion::FlatNetlist flat;
        QString error;
        const QByteArray text =
            "attribute \\top 1\nmodule \\top\n  wire \\other\n  connect \\other 1'0\nend\n";
        QVERIFY2(flat.read(folder.write("top.flat", text), &error), qPrintable(error));
        Insertion::InsertionReport report;
        report.noteTaps(analyzer, flat);
        QCOMPARE(report.warnings, QStringList("WARNING: What drives top/clk is not known."));
    }

    // A family without the memory that a core asks for.
    void noSuchMemory()
    {
        const Sources folder;
        folder.write("a.v", "module top(input clk); endmodule");
        const std::unique_ptr<RtlNetlist> netlist = netlistOf(folder.input({"a.v"}));
        for (int implementation : {JEX::BsramImplementation, JEX::SsramImplementation}) {
            const LiteConfiguration capture("top/clk", {signalNamed("top/clk")});
            capture.cores().first().as<JEX::AOCore_Lite>().implementation = implementation;
            const Insertion::Analyzer analyzer(capture, RTLJEX::CoreOptions(), *netlist);
            Insertion::InsertionReport report;
            report.noteFamily(analyzer, "ecp5");
            QCOMPARE(report.warnings, QStringList());
            report.noteFamily(analyzer, "ice40");
            const bool isNamed =
                report.warnings.join(' ').contains("SSRAM, which the family ice40 does not have");
            QCOMPARE(isNamed, implementation == JEX::SsramImplementation);
        }
    }

private:
    // As its test bench has it.
    DesignInput example()
    {
        const QDir rtl(EXAMPLES "/soc/rtl");
        QStringList names{"soc_types.sv", "soc_pkg.sv"};
        for (const QString &name : rtl.entryList({"*.v", "*.sv", "*.vhd", "*.vh"})) {
            const QByteArray text = contents(rtl.filePath(name));
            m_example.write(name, QByteArray(text).replace("50_000_000", "16").replace("115_200", "1"));
            if (!names.contains(name) && !name.endsWith(".vh"))
                names << name;
        }
        DesignInput input = m_example.input(names);
        input.top = "soc";
        return input;
    }

    static QString bench(const QString &design)
    {
        return design == "mix" ? QString(TEST_DESIGNS "/mix_tb.v") : EXAMPLES "/soc/tb/soc_tb.v";
    }

    // The Verilog sources, and what GHDL makes of the others.
    static QStringList sources(const DesignInput &input, const Folder &folder)
    {
        QStringList files;
        QUARRY::Elaborator elaborator(input);
        finish(elaborator);
        const std::unique_ptr<Elaboration> design = elaborator.takeResult();
        for (const DesignSource &source : input.files) {
            if (source.type != TE::VhdlFile)
                files << source.path;
        }
        if (!design->readOptions.generated.isEmpty()) {
            folder.write("vhdl.v", contents(design->readOptions.generated.firstKey()));
            files << "vhdl.v";
        }
        return files;
    }

    static QByteArray probe(const Insertion::Analyzer &analyzer, const QString &place)
    {
        QByteArray text = "module probe;\njex_cores cores (";
        for (int i = 0; i < analyzer.taps().taps().size(); ++i)
            text += (i ? ", .tap_" : ".tap_") + QByteArray::number(i) + '(' + place.toUtf8() + '.' +
                    sourcePath(analyzer.taps().taps().at(i)) + ')';
        return text + ");\nendmodule\n";
    }

    static QByteArray simulate(const Folder &folder, const QStringList &files, const QString &bench,
                               const QStringList &tops)
    {
        QStringList options{"-g2012", "-o", "simulation", "-s", QFileInfo(bench).baseName()};
        options << "-I" << QFileInfo(files.first()).path();
        for (const QString &top : tops)
            options << "-s" << top;
        runTool(folder.path(), "iverilog", options + files + QStringList(bench));
        return runTool(folder.path(), "vvp", {"-n", "simulation"});
    }

    Sources m_example;
};

QTEST_GUILESS_MAIN(InsertionTest)
#include "tst_insertion.moc"
