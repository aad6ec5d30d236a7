#include "elaboration/readingjob.h"
#include "tests/elaboration/readingtest.h"

class ToolFaultsTest : public ReadingTest
{
    Q_OBJECT

private Q_SLOTS:
    void reportsFailingTools_data()
    {
        // Of the tool, empty: there is no such program. %1 is its name, %2 its variable, %3 its program.
        textColumns("body", "message");

        row("missing", "",
            "ERROR: %1 could not be started (%3: *). Install it, or let the variable %2 name the program.");
        const QString died = "ERROR: %1 crashed or was killed before it finished. Read the design again; if "
                             "it happens again, look for the source that causes it by leaving files out.";
        row("crashes", "echo oh no >&2; kill -SEGV $$", died + " Its last words: oh no");
        row("is killed", "kill -KILL $$", died);
        row("hangs", "sleep 60 & wait",
            "ERROR: %1 did not end within 1 seconds and was stopped while it read the * sources. If the "
            "design needs longer, let the variable JEX_TOOL_TIMEOUT give a larger number of seconds.");
        row("prints garbage", "head -c 100000 /bin/sh; head -c 10000 /bin/sh >&2",
            "ERROR: %1 ended with code 0 and gave no design. *");
        row("has no run bit", "chmod",
            "ERROR: %1 could not be started (%3: it is not executable). Install it, or let the variable %2 "
            "name the program.");
        row("floods", "exec yes >&2",
            "ERROR: %1 wrote more than 64 MB of messages and was stopped while it read the * sources. Look "
            "for the source that causes it by leaving files out.");
        row("is of another version",
            "case $0 in *Verilator) echo '%Error: Invalid option: --xml-only';; *) echo \"$0: unknown "
            "command option '--xml-only'\";; esac >&2; exit 1",
            "ERROR: %1 (%3) does not know --xml-only, so it is of another version. Install Debian's package, "
            "or let the variable %2 name another program.");
        row("fails", "exit 3", "ERROR: %1 ended with code 3 and gave no design. *");
    }
    void reportsFailingTools()
    {
        auto [body, message] = textCells("body", "message");
        qputenv("JEX_TOOL_TIMEOUT", "1");
        m_sources->write("a.v", "module a; endmodule");
        m_sources->write("b.vhd", "entity b is end; architecture a of b is begin end;");
        const QStringList tools[] = {{"Verilator", "JEX_VERILATOR", "a.v"}, {"GHDL", "JEX_GHDL", "b.vhd"}};
        for (const QStringList &tool : tools) {
            const QString program =
                body.isEmpty() ? path("none") : m_sources->script(tool.at(0), body.toUtf8());
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
            "verilator_bin \"$@\"; cut design.xml $(($(stat -c %s $TMPDIR/design.xml) / 3))",
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
        auto [tool, script, outcome] = textCells("tool", "script", "outcome");
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
        QVERIFY2(fits(told(seen), outcome), qPrintable(told(seen)));
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
};

QTEST_GUILESS_MAIN(ToolFaultsTest)
#include "tst_toolfaults.moc"
