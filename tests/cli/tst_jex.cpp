#include <csignal>

#include "tests/support/files.h"
#include "tests/support/tablerow.h"

// Runs transcripts of terminal sessions and compares what they show with what happens now. In a transcript
// "== name" begins a file that is written, "==" ends it; "$ words" is a command for the shell, followed by
// what it prints, "2> " before what comes on standard error, and "[1]" for an exit code other than 0. Each
// transcript has a folder of its own, with a copy of the example project in it. Documents are transcripts,
// too:
// "```console" begins what a terminal shows, "```vhdl a.vhd" a file that is written, and a command that ends
// in "\" goes on in a line that begins with "> ". What is looked at behind guide/examples.md, and would only
// bore its readers, is in examples.then.
class JexTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("PATH", QFile::encodeName(QFileInfo(JEX).path()) + ':' + qgetenv("PATH"));
        qputenv("JEX", JEX);
        qputenv("BUILD", BUILD);
        qputenv("SOURCES", SOURCES);
        qputenv("PROJECTS", PROJECTS);
    }

    void transcripts_data()
    {
        QTest::addColumn<QString>("text");
        for (const QFileInfo &file : QDir(TRANSCRIPTS).entryInfoList({"*.session"}))
            row(qPrintable(file.baseName()), QString(contents(file.filePath())));
        for (const QFileInfo &file :
             QDir(DOCUMENTS).entryInfoList({"*.md"}) + QDir(DOCUMENTS "/guide").entryInfoList({"*.md"})) {
            const QString text = sessions(contents(file.filePath()));
            const QFileInfo then(TRANSCRIPTS "/" + file.baseName() + ".then");
            if (text.contains("$ "))
                row(qPrintable("document " + file.baseName()),
                    text + (then.exists() ? contents(then.filePath()) : QByteArray()));
        }
    }
    void transcripts()
    {
        QFETCH(QString, text);
        QTemporaryDir dir;
        QCOMPARE(bash("cp -r " EXAMPLE "/. .", dir.path()), QString());
        QVERIFY(text.contains("\n$ ") || text.startsWith("$ "));
        const bool isDocument = QByteArray(QTest::currentDataTag()).startsWith("document ");
        const QString now = replay(text, dir.path(), isDocument);
        if (now != text)
            qWarning("Now it is:\n%s", qPrintable(now));
        QCOMPARE(now.split('\n'), text.split('\n'));
    }

    void linksNoGui()
    {
        const QString libraries = bash("ldd $JEX", QDir::currentPath());
        for (const char *library : {"libQt5Core", "libJexModel"})
            QVERIFY2(libraries.contains(library), qPrintable(libraries));
        QVERIFY2(!libraries.contains(QRegularExpression("Qt5(Gui|Widgets)|HostSdk|QuarryGui")),
                 qPrintable(libraries));
    }

    // No child and no temporary folder is left, however early or late the interrupt comes.
    void interrupted_data()
    {
        QTest::addColumn<int>("signal");
        for (const int signal : {SIGHUP, SIGINT, SIGQUIT, SIGTERM})
            QTest::addRow("%d", signal) << signal;
    }
    void interrupted()
    {
        QFETCH(int, signal);
        QTemporaryDir dir;
        QProcess process;
        const QString tool = dir.filePath("tool");
        QCOMPARE(bash("printf '#!/bin/sh\\ntouch \"$TMPDIR/started\"; exec sleep 300\\n' > tool; chmod +x "
                      "tool; mkdir tmp",
                      dir.path()),
                 QString());
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("JEX_VERILATOR", tool);
        environment.insert("TMPDIR", dir.filePath("tmp"));
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(dir.path());
        process.start(JEX, {"nets", EXAMPLE "/rtl/ram.v"});
        QTRY_VERIFY_WITH_TIMEOUT(bash("find . -name started", dir.path()) != "", 20000);
        QCOMPARE(kill(pid_t(process.processId()), signal), 0);
        QVERIFY(process.waitForFinished(20000));
        QCOMPARE(process.readAllStandardError(), QByteArray("jex: Interrupted.\n"));
        QCOMPARE(process.exitCode(), 3);
        QCOMPARE(entriesOf(dir.filePath("tmp")), QStringList());
    }

private:
    // The blocks that show a terminal, and those with the name of a file.
    static QString sessions(const QString &markdown)
    {
        static const QRegularExpression fence("(?ms)^```(\\w+)(?: (\\S+))?\\n(.*?)^```$");
        QString text;
        for (auto blocks = fence.globalMatch(markdown); blocks.hasNext();) {
            const QRegularExpressionMatch block = blocks.next();
            if (!block.captured(2).isEmpty())
                text += "== " + block.captured(2) + '\n' + block.captured(3) + "==\n";
            else if (block.captured(1) == "console")
                text += block.captured(3);
        }
        return text;
    }

    // What the command prints, in the form of a transcript; merged as a terminal has it.
    static QString bash(const QString &command, const QString &folder, bool isMerged = false)
    {
        QProcess process;
        if (isMerged)
            process.setProcessChannelMode(QProcess::MergedChannels);
        process.setWorkingDirectory(folder);
        process.start("bash", {"-c", command});
        if (!process.waitForFinished(60000))
            return "not finished: " + command;
        QString text = QString::fromUtf8(process.readAllStandardOutput());
        for (const QString &line : QString::fromUtf8(process.readAllStandardError()).split('\n')) {
            if (!line.isEmpty())
                text += "2> " + line + '\n';
        }
        text.replace(folder, "DIR");
        return process.exitCode() == 0 ? text : text + QString("[%1]\n").arg(process.exitCode());
    }

    static QString replay(const QString &text, const QString &folder, bool isDocument)
    {
        QString now;
        QStringList lines = text.split('\n');
        while (!lines.isEmpty()) {
            const QString line = lines.takeFirst();
            if (line.startsWith("== ")) {
                now += line + '\n';
                QString text;
                while (!lines.isEmpty() && lines.first() != "==")
                    text += lines.takeFirst() + '\n';
                put(folder + '/' + line.mid(3), text.toUtf8());
                now += text + "==\n";
            } else if (line.startsWith("$ ")) {
                QStringList command = {line.mid(2)};
                while (command.last().endsWith('\\') && !lines.isEmpty() && lines.first().startsWith("> "))
                    command << lines.takeFirst().mid(2);
                now += "$ " + command.join("\n> ") + '\n' + bash(command.join('\n'), folder, isDocument);
            } else if (line.startsWith("#")) {
                now += line + '\n';
            }
        }
        return now;
    }
};

QTEST_GUILESS_MAIN(JexTest)
#include "tst_jex.moc"
