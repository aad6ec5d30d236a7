#include "elaboration/reading/ghwfile.h"
#include "elaboration/reading/vhdlplaces.h"
#include "elaboration/tools/missingpackages.h"
#include "elaboration/tools/safenames.h"
#include "elaboration/tools/scratchdir.h"
#include "elaboration/tools/sourcecopies.h"
#include "elaboration/tools/sourceorder.h"
#include "elaboration/tools/verilogmodules.h"
#include "elaboration/tools/vhdlgenerates.h"
#include "elaboration/tools/vhdllibraries.h"
#include "tests/elaboration/sources.h"
#include "tests/support/tablerow.h"

#include <sys/resource.h>

using namespace QUARRY;

namespace {

const qint64 mostMemory = qint64(200) << 20;

QByteArray times(int count, const QByteArray &text)
{
    return text.repeated(count);
}

QByteArray numbered(int count, const QByteArray &pattern)
{
    QByteArray text;
    for (int i = 0; i < count; ++i)
        text += QByteArray(pattern).replace('#', QByteArray::number(i));
    return text;
}

// A number of a wave file, seven bits a byte.
QByteArray number(int value)
{
    QByteArray bytes;
    for (; value > 127; value >>= 7)
        bytes += char((value & 127) | 128);
    return bytes + char(value);
}

QByteArray fourBytes(int value)
{
    return QByteArray(1, char(value)) + char(value >> 8) + char(value >> 16) + char(value >> 24);
}

const QByteArray head("GHDLwave\n\x10\0\0\0\0\0\0", 16);
const QByteArray noBytes(17, 0);
const QByteArray scopes("HIE" + noBytes);

// How much a string shares with the one before it stands behind that one, five bits a byte.
QByteArray strings(const QByteArray &first, int count)
{
    const int shared = first.size();
    QByteArray text = "STR" + noBytes.left(5) + fourBytes(count + 1) + fourBytes(0) + first;
    QByteArray length(1, char((shared > 31 ? 128 : 0) | (shared & 31)));
    for (int rest = shared >> 5; rest > 0; rest >>= 5)
        length += char((rest > 31 ? 128 : 0) | (rest & 31));
    return text + length + times(count, "x" + length);
}

QByteArray types(int count, const QByteArray &all)
{
    return "TYP" + noBytes.left(5) + fourBytes(count) + all + '\0';
}

qint64 memoryUsed()
{
    rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    return qint64(usage.ru_maxrss) << 10;
}

template <class Work>
void inMemory(Work work)
{
    const qint64 before = memoryUsed();
    work();
    QVERIFY(memoryUsed() - before < mostMemory);
}

// The readers of sources, each for a text of its own.

void repair(const QByteArray &text)
{
    QByteArray source = text;
    BlankedNames names;
    repairSource(source, VerilogSource, HideAssertions, names);
}

void lookForIncludes(const QByteArray &text)
{
    const Sources sources;
    ScratchDir scratch;
    SafeNames names(scratch);
    SourceCopies copies(scratch, names);
    QCOMPARE(copies.look(QStringList(sources.write("a.v", text)), VerilogSource), QStringList());
}

void lookForLibraries(const QByteArray &text)
{
    inMemory([&text] {
        VhdlFile file;
        file.path = "a.vhd";
        file.scan = scanVhdl(text);
        vhdlLibraries({file});
    });
}

void lookForPackages(const QByteArray &text)
{
    const Sources sources;
    ToolMessage error;
    error.file = sources.write("a.sv", text);
    error.line = 1;
    error.text = "syntax error";
    const QStringList files(error.file);
    QVERIFY(!withMissingPackages({error}, files, files).isEmpty());
}

typedef void (*Reader)(const QByteArray &text);

} // namespace

Q_DECLARE_METATYPE(Reader)

// What sources and wave files from strangers may be made of to fill the stack, the memory or the time of the
// program that reads them.
class HostileTextsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sources_data()
    {
        columns<Reader, QByteArray>("reader", "text");
        const auto row = [](const char *name, Reader reader, const QByteArray &text) {
            QTest::newRow(name) << reader << text;
        };
        row("nested ifs", repair, "assert property (a) " + times(100000, "if (a) "));
        row("nested elses", repair, "assert property (a) " + times(100000, "if (a) b; else "));
        row("no closing words", repair, times(20000, "property sequence checker covergroup "));
        row("in a macro", repair, "`define m " + times(60000, "property "));
        row("lets of lets", repair,
            numbered(60, "let l#(a) = a + a;") + "let k0 = 1;" +
                times(30, "let k1 = k0 + k0; let k0 = k1 + k1;"));
        row("uses in uses", repair, "let l(a) = a + a; assign x = " + times(60, "l(") + "1" + times(60, ")"));
        row("uses without end", repair, "let l(a) = a;" + times(60000, "l( l[ "));
        row("lets without end", repair, times(30000, "let l(a = (b = "));
        row("many imports", repair,
            "package p;" + numbered(2000, "let l# = 1;") + "endpackage " + times(20000, "import p::*;"));
        row("includes on one line", repair, times(300000, "`include "));
        row("uses that grow too long", repair,
            "let a(x) = x" + times(400, "+x") + ";let b(x) = a(x)" + times(15, "+a(x)") + ";" +
                numbered(200, "let c#(x) = 1" + times(99, "+b(x+x)+b(x+x+x+x+x+x+x)") + ";"));
        row("instances of checkers", repair, "checker c; endchecker " + times(30000, "bind a c c ["));
        row("binds", repair, times(100000, "bind ") + times(50000, "bind , "));
        row("no closing bracket", lookForIncludes, times(100000, "`include <\n"));
        row("one line", lookForIncludes, times(100000, "`include <"));
        row("generics without end", lookForLibraries, times(20000, "entity e is generic (a : b;"));
        row("generics of one type", lookForLibraries,
            "entity e is generic (" + times(20000, "a, ") + "b : " + times(50000, "x"));
        row("many of one name", lookForLibraries,
            times(20000, "entity e is end;architecture a of e is end;") + "library l;use l.e;");
        row("many libraries", lookForLibraries,
            "library " + numbered(10000, "l#,") + ";package p is end;" + numbered(10000, "l#.p ") +
                numbered(10000, "work.w# "));
        row("typedefs without end", lookForPackages, "p::q\n" + times(20000, "typedef "));
        row("a long name", lookForPackages, times(100000, "a") + " p::q");
        row("many packages", lookForPackages, numbered(20000, "a#::b "));
    }
    void sources()
    {
        QFETCH(Reader, reader);
        QFETCH(QByteArray, text);
        reader(text);
    }

    // A source of 8 MiB, and as many names of files as a project may have.
    void namesInATalkativeSource()
    {
        BlankedNames names;
        for (int i = 0; i < 5000; ++i)
            names.includables.insert("lets_of_part_" + QByteArray::number(i) + ".svh", VerilogLets());
        QByteArray text = QByteArray("  `include \"lets_of_part_x.svh\"\n").repeated(250000);
        QVERIFY(!names.areIn(text));
        for (const char *use : {"`include \"lets_of_part_4999.svh\"", "`include <../inc/lets_of_part_0.svh>",
                                "`define USED \"lets_of_part_7.svh\""})
            QVERIFY2(names.areIn(text + use), use);
    }

    // The selector stands once in the source, and in the condition of each choice.
    void caseGenerates()
    {
        QByteArray text =
            "g: case " + times(50000, "a") + " generate when 0" + times(50000, "|1") + " => end generate;";
        inMemory([&text] { replaceCaseGenerates(text); });
    }

    // "`line" lets a source say where it is.
    void lineFarAway() { QCOMPARE(moduleAt("module a;\nendmodule\n", 2000000000), QByteArray()); }

    // Each type is known to two packages, which see two others.
    void typesOfPackages()
    {
        Sources sources;
        QByteArray text = "package a40 is type t40 is (x, y); end; package b40 is type t40 is (x, y); end;\n";
        for (int i = 39; i >= 0; --i) {
            for (const char *name : {"a", "b"})
                text += QByteArray("use work.#.t$; package @ is subtype t% is t$; end;\n")
                            .replace("#", name + QByteArray::number(i + 1))
                            .replace("@", name + QByteArray::number(i))
                            .replace("%", QByteArray::number(i))
                            .replace("$", QByteArray::number(i + 1));
        }
        text += "entity e is end; architecture r of e is signal s : work.a0.t0; begin end;\n";
        const QMap<QString, QString> names;
        VhdlPlaceTable table;
        table.open({{"work", sources.write("a.vhd", text)}}, names);
        while (table.readSome()) {
        }
        QVERIFY(table.of("work", "e", "")->declarations.value("s").enumLabels.isEmpty());
    }

    void longChainOfFiles()
    {
        Sources sources;
        QStringList files, sorted;
        for (int i = 0; i < 2000; ++i) {
            const QString text = QString("package p%1; import p%2::*; endpackage").arg(i).arg(i + 1);
            files.append(sources.write(QString("%1.sv").arg(i), text.toUtf8()));
        }
        QScopedPointer<QThread> thread(
            QThread::create([&files, &sorted] { sorted = orderedByUse(files, VerilogSource); }));
        thread->setStackSize(256 << 10); // the usual one takes thirty times as many files
        thread->start();
        QVERIFY(thread->wait());
        std::reverse(files.begin(), files.end());
        QCOMPARE(sorted, files);
    }

    void waves_data()
    {
        columns<QByteArray, QByteArray>("small", "large");
        const auto row = [](const char *name, QByteArray (*wave)(int size)) {
            QTest::newRow(name) << head + wave(3) + '\0' << head + wave(20000) + '\0';
        };
        row("strings", [](int size) { return strings(times(size, "a"), size) + scopes; });
        row("labels", [](int size) {
            return strings(times(size, "a"), 1) +
                   types(1, char(23) + number(1) + number(size) + times(size, number(2))) + scopes;
        });
        row("copies of a record", [](int size) {
            const int fields = size / 3;
            return strings("ab", 1) +
                   types(size + 2, char(25) + number(1) + char(32) + number(1) + number(fields) +
                                       times(fields, number(1) + number(1)) +
                                       times(size, char(39) + number(1) + number(2))) +
                   scopes;
        });
        row("members", [](int size) {
            return strings(times(size, "a"), 1) +
                   types(2, char(25) + number(1) + char(32) + number(1) + number(size) +
                                times(size, number(2) + number(1))) +
                   scopes + char(16) + number(1) + number(2) + times(size, number(1));
        });
        row("scopes",
            [](int size) { return strings("ab", 1) + scopes + times(5 * size, char(3) + number(1)); });
        row("rounds", [](int size) {
            return strings(times(size, "a"), 1) + types(1, char(25) + number(1)) + scopes +
                   times(size, char(5) + number(2) + number(1) + number(3) + char(15));
        });
    }
    void waves()
    {
        QFETCH(QByteArray, small);
        QFETCH(QByteArray, large);
        VhdlScope all;
        QVERIFY(readGhwScopes(small, all));
        inMemory([&] { QVERIFY(!readGhwScopes(large, all)); });
    }

    void nestedScopesOfVcd()
    {
        Sources sources;
        const QString file = sources.write("a.vcd", times(100000, "$scope module a $end\n"));
        QVERIFY(!readVhdlScopes(file, "a"));
    }

    // Through each of them a constant passes to an instance.
    void arraysOfInterfaces()
    {
        const Sources sources;
        sources.write("a.sv",
                      "interface link(input c); logic en; endinterface\n"
                      "module sink(link l, link m, output o); assign o = l.en & m.en; endmodule\n"
                      "module top(input clk); link a[1000](clk), b[1000](clk); assign a[0].en = 1;\n" +
                          numbered(8, "wire [999:0] o#; sink s#[1000](.l(a), .m(b), .o(o#));\n") +
                          "endmodule\n");
        const std::unique_ptr<RtlNetlist> netlist = netlistOf(sources.input({"a.sv"}));
        QVERIFY(netlist);
        QVERIFY(netlist->findNet("top/a[0]/en")->excluded);
    }
};

QTEST_GUILESS_MAIN(HostileTextsTest)
#include "tst_hostiletexts.moc"
