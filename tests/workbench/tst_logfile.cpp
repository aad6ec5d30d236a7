#include <csignal>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/support/files.h"
#include "tests/support/tablerow.h"
#include "workbench/logfile.h"

using namespace Workbench;

class LogFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { LogFile::close(); }

    void refusals_data()
    {
        textColumns("name", "expected");
        row("link", "link", "it is a link");
        row("pipe", "pipe", "it is not a regular file");
        row("two names", "hard", "it belongs to another user, or has several names");
        row("somebody's file", "top.v", "it is there already, and is no log");
        row("no folder", "none/log", "there is no such folder");
        row("folder", "dir", "Is a directory");
    }
    void refusals()
    {
        auto [name, expected] = textCells("name", "expected");
        const Folder folder;
        folder.write("top.v", "module top; endmodule\n");
        folder.write("dir/x", "");
        const auto path = [&folder](const char *file) { return QFile::encodeName(folder.path(file)); };
        folder.write("one", "");
        QCOMPARE(symlink(path("one").constData(), path("link").constData()), 0);
        QCOMPARE(link(path("one").constData(), path("hard").constData()), 0);
        QCOMPARE(mkfifo(path("pipe").constData(), 0600), 0);
        QString reason;
        QVERIFY(!LogFile::open(folder.path(name), &reason));
        QCOMPARE(reason, expected);
        LogFile::note("nothing is to be seen of this");
        QCOMPARE(folder.read("top.v"), QByteArray("module top; endmodule\n"));
        QCOMPARE(folder.read("one"), QByteArray());
    }

    void linksOfStrangers()
    {
        if (geteuid() != 0)
            QSKIP("needs the right to give a link to another user");
        const Folder folder;
        folder.write("real/x", "");
        const QByteArray name = QFile::encodeName(folder.path("way"));
        QCOMPARE(symlink(QFile::encodeName(folder.path("real")).constData(), name.constData()), 0);
        QString reason;
        QVERIFY(LogFile::open(folder.path("way/log"), &reason));
        QCOMPARE(lchown(name.constData(), 12345, 12345), 0);
        QVERIFY(!LogFile::open(folder.path("way/log"), &reason));
        QCOMPARE(reason, QString("a link of another user leads to its folder"));
    }

    void goesOn()
    {
        const Folder folder;
        QString reason;
        for (const char *text : {"first", "second\nline \x1b[31m"}) {
            QVERIFY2(LogFile::open(folder.path("log"), &reason), qPrintable(reason));
            LogFile::note(text);
        }
        QStringList lines = QString::fromUtf8(folder.read("log")).split('\n');
        QCOMPARE(lines.takeFirst(), QString("Log of jexworkbench"));
        for (QString &line : lines)
            line.remove(QRegularExpression("^\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d\\.\\d{3} "));
        QCOMPARE(lines, QStringList({"first", "second", "    line \\u001b[31m", ""}));
    }

    void staysBounded()
    {
        const Folder folder;
        QString reason;
        QVERIFY(LogFile::open(folder.path("log"), &reason));
        qint64 largest = 0;
        for (int i = 0; i < 600; ++i) {
            LogFile::note(QString::number(i) + QString(20000, 'x'));
            largest = qMax(largest, QFileInfo(folder.path("log")).size());
        }
        QVERIFY(largest > (3 << 20));
        QVERIFY(largest <= (4 << 20));
        const QList<QByteArray> lines = folder.read("log").split('\n');
        QCOMPARE(lines.first(), QByteArray("Log of jexworkbench"));
        QVERIFY(lines.at(1).startsWith("20")); // a whole line
        QVERIFY(lines.at(lines.size() - 2).contains(" 599xxx"));
        LogFile::close();
        QVERIFY(LogFile::open(folder.path("log"), &reason)); // it is a log still
    }

    void aFaultIsTold()
    {
        const Folder folder;
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("XDG_CONFIG_HOME", folder.path("config"));
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(folder.path());
        process.start(WORKBENCH, {"--log", "log", "--plugin", "none.so"});
        QVERIFY(process.waitForStarted());
        QTRY_VERIFY_WITH_TIMEOUT(folder.read("log").contains("none.so can not be used"), 20000);
        QCOMPARE(::kill(pid_t(process.processId()), SIGSEGV), 0);
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.exitStatus(), QProcess::CrashExit);
        const QString said = QString::fromLocal8Bit(process.readAllStandardError());
        QVERIFY2(said.contains("The program has a fault and ends (SIGSEGV). What went before is in the log " +
                               QFileInfo(folder.path("log")).absoluteFilePath() + ".\n"),
                 qPrintable(said));
        QVERIFY(folder.read("log").endsWith("The program has a fault and ends (SIGSEGV).\n"));
    }

    void noLogIsToldAtOnce()
    {
        const Folder folder;
        folder.write("top.v", "module top; endmodule\n");
        QProcess process;
        process.setWorkingDirectory(folder.path());
        process.start(WORKBENCH, {"--log", "top.v", "--report"});
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.exitCode(), 2);
        QCOMPARE(process.readAllStandardError(),
                 QByteArray("jexworkbench: Can not log to top.v: it is there already, and is no log.\n"));
    }
};

QTEST_MAIN(LogFileTest)
#include "tst_logfile.moc"
