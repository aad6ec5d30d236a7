// What is tapped is what the net is: every net of a design is tapped at once, and the values that arrive at
// the analyzer in the written netlist are those of the same nets in the sources, at all times, unknown ones
// too.

#include "elaboration/tools/elaborator.h"
#include "insertion/analyzer.h"
#include "insertion/attaching.h"
#include "insertion/flatnetlist.h"
#include "insertion/insertionjob.h"
#include "insertion/insertiontexts.h"
#include "tests/elaboration/sources.h"

#include <QProcess>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

using namespace QUARRY;

namespace {

QByteArray run(const QString &program, const QStringList &arguments, const QString &folder)
{
    QProcess process;
    process.setWorkingDirectory(folder);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    if (!process.waitForFinished(120000) || process.exitCode() != 0)
        return program.toUtf8() + " failed: " + process.readAll();
    return process.readAll();
}

JEX::SignalItem rowOf(const QString &name, int kind)
{
    JEX::SignalItem item;
    item.name = name;
    item.type = kind;
    return item;
}

void addRows(const Hierachy &node, QList<JEX::SignalItem> &rows)
{
    for (const RtlNet *net : node.nets)
        rows << rowOf(net->fullPathName(), JEX::NetKind);
    for (const RtlNetBus *bus : node.buses) {
        rows << rowOf(bus->fullBusName(), JEX::BusKind);
        for (const RtlNet *bit : bus->members)
            rows.last().members << rowOf(bit->fullPathName(), JEX::BusKind);
    }
    for (const Hierachy *child : node.children)
        addRows(*child, rows);
}

// A Lite core that captures these nets.
struct Capture
{
    Capture(const QString &clock, const QList<JEX::SignalItem> &rows) : configuration(JEX::LiteMode)
    {
        JEX::AOCore_Lite *core = new JEX::AOCore_Lite;
        core->sampleClock = clock;
        core->captureAmount = 16;
        core->captureSignals = rows;
        core->enabledCaptureSignals = rows;
        configuration.coresOf<JEX::AOCore_Lite>() << core;
    }
    RTLJEX::Configuration configuration;
};

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
        QTest::addColumn<QString>("design");
        QTest::addColumn<QString>("place");
        QTest::addColumn<int>("nanoseconds");
        QTest::addColumn<int>("words"); // of memories
        const bool isFull = qEnvironmentVariable("JEX_WAVE") == "full";
        QTest::newRow("clocks, loops, ranges, VHDL") << "mix"
                                                     << "mix_tb.dut" << (isFull ? 13000 : 4000) << 16;
        QTest::newRow("example") << "soc"
                                 << "soc_tb.dut" << (isFull ? 1000000 : 60000) << 24;
    }
    void everyTap()
    {
        QFETCH(QString, design);
        QFETCH(QString, place);
        QFETCH(int, nanoseconds);
        QFETCH(int, words);
        const DesignInput input = design == "mix" ? mix() : example();
        const std::unique_ptr<RtlNetlist> netlist(build(input));
        QVERIFY(netlist);
        QList<JEX::SignalItem> rows;
        addRows(*netlist->topHierarchy, rows);
        const QString clock = rows.first().members.isEmpty() ? rows.first().name : design + "/clk_a";
        Insertion::InsertionOptions options;
        options.forSimulation = true;
        const Capture all(clock, rows);
        Insertion::InsertionJob refusing(input, all.configuration, *netlist, options);
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
        const Capture capture(clock, rows);
        Insertion::InsertionJob job(input, capture.configuration, *netlist, options);
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
        QVERIFY(wrong.contains(pin) && firstDifference(fromWrong, fromSources, job) != QString());
    }

    // One small design each, all of whose nets are captured.
    void designs_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QStringList>("parameters");
        QTest::addColumn<QString>("message"); // one of those, as a pattern; empty: no error
        QTest::addColumn<QString>("written"); // a pattern for a line of design.v
        QTest::newRow("open pins")
            << "a.v"
            << QByteArray("module top(input clk, inout [5:2] pins, output [1:0] mixed, output x);\n"
                          "assign pins = 4'bzzzz; assign mixed = {clk, 1'bz}; assign x = 1'bx;\n"
                          "endmodule")
            << QStringList() << ""
            << "  assign pins = 4'hz;";
        QTest::newRow("an open pin of an instance")
            << "a.v" << QByteArray("module top(input clk); PRIM p(.io(1'bz), .c(clk)); endmodule")
            << QStringList() << "ERROR: Open bits (z) of the original are not open any more."
            << "";
        QTest::newRow("no definition") << "a.v"
                                       << QByteArray("module top(input clk, output q);\n"
                                                     "PLL #(.MUL(4)) p(.i(clk), .o(q)); endmodule")
                                       << QStringList() << ""
                                       << "  PLL #(";
        QTest::newRow("parameter")
            << "a.v"
            << QByteArray("module top #(parameter N = 3, S = \"no\") (input clk, output [7:0] q);\n"
                          "assign q = S == \"y s\" ? N : 8'h0; endmodule")
            << QStringList{"N=77", "S=\"y s\""} << ""
            << "*8'h4d*";
        QTest::newRow("parameter that is a command")
            << "a.v" << QByteArray("module top #(parameter N = 3) (input clk); endmodule")
            << QStringList{"N=1;!touch owned"}
            << "ERROR: The parameter \"N=1;!touch owned\" * cannot be told to Yosys."
            << "";
        QTest::newRow("name of an added port")
            << "a.v"
            << QByteArray("module top(input clk, output jex_tap_0); assign jex_tap_0 = clk; endmodule")
            << QStringList() << ""
            << "  input jexx_ctl_clock;";
        QTest::newRow("name of a core")
            << "a.v"
            << QByteArray("module top(input clk); jex_cores c(clk); endmodule\n"
                          "module jex_cores(input i); endmodule")
            << QStringList() << "ERROR: A module of the design has the name of one of the analyzer's."
            << "";
        QTest::newRow("text that looks like a name")
            << "a.v"
            << QByteArray("module top(input clk);\n"
                          "PRIM #(.INIT(\"cost $5, \\\"\\\\$a/b\\\" $c\")) p(.c(clk)); endmodule")
            << QStringList() << ""
            << "*INIT(\"cost $5, \\\"\\\\$a/b\\\" $c\")*";
        const QByteArray loop =
            "library ieee; use ieee.std_logic_1164.all;\n"
            "entity top is port (clk : in std_logic; a : in std_logic_vector(2 downto 0);\n"
            "q : out std_logic_vector(2 downto 0)); end;\n"
            "architecture r of top is begin\n"
            "g : for n in RANGE generate signal s : std_logic_vector(n downto 0);\n"
            "begin s <= a(n downto 0); q(n) <= s(n) xor s(0) when rising_edge(clk); end generate; end;";
        // The width of each round tells whether it is the right one.
        QTest::newRow("rounds upwards")
            << "a.vhd" << QByteArray(loop).replace("RANGE", "0 to 2") << QStringList() << ""
            << "*tap_*(g_n3_s)*";
        QTest::newRow("rounds downwards")
            << "a.vhd" << QByteArray(loop).replace("RANGE", "2 downto 0") << QStringList() << ""
            << "*tap_*(g_n3_s)*";
        QTest::newRow("rounds of a range") << "a.vhd" << QByteArray(loop).replace("RANGE", "a'range")
                                           << QStringList() << "ERROR: top/g[0]/s[0:0] cannot be tapped: *"
                                           << "";
        QTest::newRow("newer than Yosys")
            << "a.sv"
            << QByteArray("module top(input logic clk); typedef struct { logic [3:0] v; } t; t u;\n"
                          "always_ff @(posedge clk) u.v <= 4'h3; endmodule")
            << QStringList() << "WARNING: There is therefore no design.v. *"
            << "";
    }
    void designs()
    {
        QFETCH(QString, file);
        QFETCH(QByteArray, text);
        QFETCH(QStringList, parameters);
        QFETCH(QString, message);
        QFETCH(QString, written);
        Folder folder;
        folder.write(file, text);
        DesignInput input = inputOf(folder.path(), {file});
        const std::unique_ptr<RtlNetlist> netlist(build(input));
        QVERIFY(netlist);
        QList<JEX::SignalItem> rows;
        addRows(*netlist->topHierarchy, rows);
        const Capture capture("top/clk", rows);
        input.parameters = parameters;
        Insertion::InsertionJob job(input, capture.configuration, *netlist, Insertion::InsertionOptions());
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
        Folder folder;
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
        const DesignInput input = inputOf(folder.path(), {"two words.sv"});
        const std::unique_ptr<RtlNetlist> netlist(build(input));
        QVERIFY(netlist);
        const Capture capture("top/clk", {rowOf("top/q", JEX::NetKind)});
        Insertion::InsertionJob job(input, capture.configuration, *netlist, Insertion::InsertionOptions());
        finish(job);
        QCOMPARE(job.messages().filter("ERROR"), QStringList());
        QVERIFY(job.files().contains("design.v"));
        QCOMPARE(folder.read("victim"), QByteArray("mine"));
        QVERIFY(!QFileInfo::exists(folder.path("owned")));
    }

    // A net that flattening took away is not judged by another one.
    void lostTap()
    {
        Folder folder;
        folder.write("a.v", "module top(input clk); endmodule");
        const std::unique_ptr<RtlNetlist> netlist(build(inputOf(folder.path(), {"a.v"})));
        QVERIFY(netlist);
        const Capture capture("top/clk", {rowOf("top/clk", JEX::NetKind)});
        const Insertion::Analyzer analyzer(capture.configuration, RTLJEX::CoreOptions(), *netlist);
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
        Folder folder;
        folder.write("a.v", "module top(input clk); endmodule");
        const std::unique_ptr<RtlNetlist> netlist(build(inputOf(folder.path(), {"a.v"})));
        for (int implementation : {JEX::BsramImplementation, JEX::SsramImplementation}) {
            const Capture capture("top/clk", {rowOf("top/clk", JEX::NetKind)});
            capture.configuration.cores().first().as<JEX::AOCore_Lite>().implementation = implementation;
            const Insertion::Analyzer analyzer(capture.configuration, RTLJEX::CoreOptions(), *netlist);
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
    static DesignInput inputOf(const QString &folder, const QStringList &names)
    {
        DesignInput input;
        input.workingDir = folder;
        for (const QString &name : names) {
            DesignSource source;
            source.path = folder + '/' + name;
            source.type = name.endsWith(".vhd") ? 4 : name.endsWith(".sv") ? 3 : 2;
            input.files << source;
        }
        return input;
    }

    static DesignInput mix() { return inputOf(TEST_DESIGNS, {"mix.v", "counter.vhd"}); }

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
        DesignInput input = inputOf(m_example.path(), names);
        input.top = "soc";
        return input;
    }

    static QString bench(const QString &design)
    {
        return design == "mix" ? QString(TEST_DESIGNS "/mix_tb.v") : EXAMPLES "/soc/tb/soc_tb.v";
    }

    static RtlNetlist *build(const DesignInput &input)
    {
        QStringList messages;
        RtlNetlist *netlist = buildNetlist(input, messages);
        if (!netlist)
            qWarning("%s", qPrintable(messages.join('\n')));
        return netlist;
    }

    static void finish(Insertion::InsertionJob &job)
    {
        QSignalSpy end(&job, SIGNAL(finished()));
        job.start();
        QVERIFY(end.wait(60000));
    }

    // The Verilog sources, and what GHDL makes of the others.
    static QStringList sources(const DesignInput &input, const Folder &folder)
    {
        QStringList files;
        QUARRY::Elaborator elaborator(input);
        QSignalSpy end(&elaborator, SIGNAL(finished()));
        elaborator.start();
        if (!end.wait(60000))
            return {};
        const std::unique_ptr<Elaboration> design = elaborator.takeResult();
        for (const DesignSource &source : input.files) {
            if (source.type != 4)
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
        QStringList options{"-g2012",
                            "-o",
                            "simulation",
                            "-s",
                            QFileInfo(bench).baseName(),
                            "-I",
                            QFileInfo(files.first()).path()};
        for (const QString &top : tops)
            options << "-s" << top;
        const QByteArray said = run("iverilog", options + files + QStringList(bench), folder.path());
        if (said.contains("failed"))
            return said;
        return run("vvp", {"-n", "simulation"}, folder.path());
    }

    Folder m_example;
};

QTEST_GUILESS_MAIN(InsertionTest)
#include "tst_insertion.moc"
