#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

struct Run
{
    int exitCode;
    QString output;
    QString errors;
};

Run run(const QString &folder, const QStringList &arguments)
{
    QProcess process;
    process.setWorkingDirectory(folder);
    process.start(WORKBENCH, arguments);
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
        return {-1, process.readAllStandardOutput(), process.readAllStandardError()};
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

void put(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

} // namespace

class ReportTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void refusedCommandLine()
    {
        const Run ended = run(m_dir.path(), {"none.v"});
        QCOMPARE(ended.exitCode, 2);
        QCOMPARE(ended.errors.trimmed().section('\n', -1),
                 QString("jexworkbench: There is no file \"none.v\"."));
    }

    // The design is shown although there is no editor for it, and the program tells why there is none.
    void withoutPlugin()
    {
        put(m_dir.filePath("a design.v"), "module top(input clk, input [3:0] a, output [1:0] y);\n"
                                          "  child u0(.clk(clk), .d(a[1:0]), .q(y));\n"
                                          "  child u1(.clk(clk), .d(a[3:2]), .q());\nendmodule\n"
                                          "module child(input clk, input [1:0] d, output reg [1:0] q);\n"
                                          "  always @(posedge clk) q <= d;\nendmodule\n");
        const Run ended = run(m_dir.path(), {"--report", "--plugin", "none.so", "a design.v"});
        QCOMPARE(ended.output,
                 QString("Project: unnamed\nDesign files: 1\nModules: 2\nTop: top\nInstances: 3\n"
                         "Nets: 3 single, 6 buses with 14 bits\n"));
        QVERIFY2(ended.errors.contains("The plug-in " + m_dir.filePath("none.so") +
                                       " can not be used: there is no such file."),
                 qPrintable(ended.errors));
        QCOMPARE(ended.exitCode, 1);
    }

#ifdef EXAMPLE
    void example()
    {
        const QString picture = m_dir.filePath("window.png");
        const Run ended =
            run(QFileInfo(EXAMPLE).path(), {"--report", "--shot", picture, "soc.jexprj", "capture.zub"});
        QVERIFY2(ended.exitCode == 0, qPrintable(ended.output + ended.errors));
        QVERIFY2(ended.output.contains("\nTop: soc\n"), qPrintable(ended.output));
        QVERIFY2(ended.output.contains("\ncapture.zub: check passed\n"), qPrintable(ended.output));
        QCOMPARE(QImage(picture).size(), QSize(1280, 800));
    }

    // Nobody can press OK: what the box says is printed, and the exit code tells that there was one.
    void boxesAreAnswered()
    {
        put(m_dir.filePath("bad.zub"), "no configuration");
        put(m_dir.filePath("one.v"), "module one(input a); endmodule\n");
        const Run ended = run(m_dir.path(), {"--report", "one.v", "bad.zub"});
        QVERIFY2(ended.output.contains("Message box \"Error: Can not open " + m_dir.filePath("bad.zub") +
                                       ":\nInvalid JEX file.\""),
                 qPrintable(ended.output));
        QCOMPARE(ended.exitCode, 1);
    }
#endif

private:
    QTemporaryDir m_dir;
};

QTEST_GUILESS_MAIN(ReportTest)
#include "tst_report.moc"
