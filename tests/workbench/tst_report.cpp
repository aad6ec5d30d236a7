#include <QImage>

#include "tests/support/files.h"
#include "tests/support/tablerow.h"

const QByteArray design = "module top(input clk, input [3:0] a, output [1:0] y);\n"
                          "  child u0(.clk(clk), .d(a[1:0]), .q(y));\n"
                          "  if (1) begin : scope child u1(.clk(clk), .d(a[3:2]), .q()); end\nendmodule\n"
                          "module child(input clk, input [1:0] d, output reg [1:0] q);\n"
                          "  always @(posedge clk) q <= d;\nendmodule\n";

// The program as scripts start it: nobody looks at the screen, and the exit code tells how it went.
class ReportTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        const QMap<QString, QByteArray> files = {{"a design.v", design},
                                                 {"bad.v", "module bad(input a; endmodule\n"},
                                                 {"bad.zub", "no configuration"}};
        for (auto it = files.begin(); it != files.end(); ++it)
            put(m_dir.filePath(it.key()), it.value());
    }

    void ends_data()
    {
        // "texts": all somewhere in what it prints, %1 is the folder
        columns<QStringList, int, QStringList>("arguments", "code", "texts");
        const auto row = [](const char *name, const QString &arguments, int code, const QStringList &texts) {
            ::row(name, arguments.split(';'), code, texts);
        };
        row("wrong use", "none.v", 2, {"jexworkbench: There is no file \"none.v\".\n"});
        row("broken design", "--report;bad.v", 1, {"\nNo netlist.\nERROR: %1/bad.v:1: syntax error"});
        // The design is shown although there is no editor for it, and the program tells why there is none.
        row("no plug-in", "--report;--plugin;none.so;a design.v", 1,
            {"Project: unnamed\nDesign files: 1\nModules: 2\nTop: top\nInstances: 3\n"
             "Nets: 3 single, 6 buses with 14 bits\n",
             "The plug-in %1/none.so can not be used: there is no such file.\n"});
#ifdef SOC
        // Nobody can press OK: what the box says is printed.
        row("box", "--report;a design.v;bad.zub", 1,
            {"Message box \"Error: Can not open %1/bad.zub:\nInvalid JEX file.\""});
        row("example", "--report;--shot;window.png;" SOC "soc.jexprj;" SOC "capture.zub;" SOC "trigger.zub",
            0, {"\nTop: soc\n", "\ncapture.zub: check passed\n", "\ntrigger.zub: check passed\nPicture: "});
#endif
    }
    void ends()
    {
        auto [arguments, texts] = cells<QStringList, QStringList>("arguments", "texts");
        const Ended ended = run(WORKBENCH, arguments);
        const QString output = ended.output + ended.errors;
        for (const QString &text : qAsConst(texts))
            QVERIFY2(output.contains(QString(text).replace("%1", m_dir.path())), qPrintable(output));
        QTEST(ended.code, "code");
        const QSize picture = QImage(m_dir.filePath("window.png")).size();
        QCOMPARE(picture, arguments.contains("--shot") ? QSize(1280, 800) : QSize(0, 0));
    }

#ifdef SOC
    // Windows speak the user's language, and what scripts read is English.
    void language_data()
    {
        textColumns("locale", "option", "text");
        row("English", "C.UTF-8", "--shot", "Message box \"Error: Can not open ");
        row("German", "de_DE.UTF-8", "--shot", "Message box \"Fehler: ");
        row("report", "de_DE.UTF-8", "--report", "Message box \"Error: Can not open ");
    }
    void language()
    {
        auto [locale, option, text] = textCells("locale", "option", "text");
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove("LANGUAGE");
        environment.insert("LC_ALL", locale);
        const QString picture = option == "--shot" ? "=language.png" : "";
        const QString output =
            run(WORKBENCH, {option + picture, "a design.v", "bad.zub"}, environment).output;
        QVERIFY2(output.contains(text), qPrintable(output));
    }
#endif

    // A window needs a display, and what nobody looks at does not. The notes of the editor are for those who
    // ask for them.
    void withoutADisplay_data()
    {
        columns<QStringList, QString, int>("arguments", "display", "code");
        const QStringList report{"--report", "a design.v"};
        row("window", QStringList("a design.v"), "", 2);
        row("dead display", QStringList("a design.v"), ":4711", 2);
        row("report", report, "", 0);
#ifdef SOC
        row("editor", QStringList{"--report", SOC "soc.jexprj", SOC "capture.zub"}, "", 0);
        row("verbose", QStringList{"--report", "--verbose", SOC "soc.jexprj", SOC "capture.zub"}, "", 0);
#endif
    }
    void withoutADisplay()
    {
        auto [arguments, display] = cells<QStringList, QString>("arguments", "display");
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            environment.remove(name);
        if (!display.isEmpty())
            environment.insert("DISPLAY", display);
        const Ended ended = run(WORKBENCH, arguments, environment);
        QTEST(ended.code, "code");
        QCOMPARE(ended.errors.startsWith("jexworkbench: There is no display"), ended.code == 2);
        for (const char *option : {"--report", "--shot"})
            QCOMPARE(ended.errors.contains(option), ended.code == 2);
        QCOMPARE(ended.errors.contains("create jexins inserter"), arguments.contains("--verbose"));
    }

    // A project that would write beside itself and run a shell when its VHDL is started, in every program
    // that opens it. The plug-in reads it in the workbench.
    void opensHostileProjects_data()
    {
        columns<QString, QStringList>("program", "arguments");
        row("jex", JEX, QStringList{"check", "a.zub", "--project", "p.jexprj"});
        row("workbench", WORKBENCH, QStringList{"--report", "p.jexprj", "a.zub"});
    }
    void opensHostileProjects()
    {
        auto [program, arguments] = cells<QString, QStringList>("program", "arguments");
        const Folder folder;
        const QByteArray owned = folder.path("owned").toUtf8();
        const QByteArray start =
            "use std.textio.all;\nentity t is port (x : in bit); end;\narchitecture a of t is\n";
        const QByteArray hidden = "-- synthesis translate_off\n", shown = "-- synthesis translate_on\n";
        const QByteArray writes =
            start + "begin\n" + hidden + "process file h : text; variable l : line; begin file_open(h, \"" +
            owned + "\", write_mode); write(l, string'(\"x\")); writeline(h, l); wait; end process;\n" +
            shown + "end;\n";
        const QByteArray calls =
            start +
            "function f(c : string) return integer;\nattribute foreign of f : function is \"VHPIDIRECT "
            "libc.so.6 system\";\nfunction f(c : string) return integer is begin return 0; end;\n" +
            hidden + "signal s : integer := f(\"touch " + owned + "\" & nul);\n" + shown + "begin end;\n";
        folder.write("p.jexprj", R"({"version": 1, "files": [{"path": "t.vhd"}, {"path": "a.zub"}]})");
        folder.write("a.zub", R"(<jexconfig version="1" mode="Lite"><core number="0"/></jexconfig>)");
        for (const QByteArray &source : {writes, calls}) {
            folder.write("t.vhd", source);
            const Ended ended =
                run(program, arguments, QProcessEnvironment::systemEnvironment(), folder.path());
            const QString said = ended.output + ended.errors;
            QVERIFY2(said.contains("No sample clock specified"), qPrintable(said)); // it was opened
            QCOMPARE(entriesOf(folder.path()), (QStringList{"a.zub", "p.jexprj", "t.vhd"}));
        }
    }

private:
    struct Ended
    {
        int code;
        QString output, errors;
    };
    Ended run(const QString &program, const QStringList &arguments,
              const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment(),
              const QString &folder = QString()) const
    {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(folder.isEmpty() ? m_dir.path() : folder);
        process.start(program, arguments);
        const bool isOver = process.waitForFinished(120000) && process.exitStatus() == QProcess::NormalExit;
        return {isOver ? process.exitCode() : -1, process.readAllStandardOutput(),
                process.readAllStandardError()};
    }

    QTemporaryDir m_dir;
};

QTEST_GUILESS_MAIN(ReportTest)
#include "tst_report.moc"
