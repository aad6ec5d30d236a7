#include <csignal>

#include "commandline/devicename.h"
#include "commandline/endsignals.h"
#include "host/designmanager.h"
#include "model/jex/devicetable.h"
#include "tests/host/projecttext.h"
#include "tests/support/tablerow.h"
#include "tests/support/workspace.h"
#include "workbench/startoptions.h"

using namespace Workbench;

class StartOptionsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QDir::setCurrent(m_work.dir.path());
        for (const char *file : {"a.v", "b.vhd", "c.zub", "sub/x.v", "sub/d.zub", "tree/b.vhd", "tree/a/c.sv",
                                 "tree/a/h.svh", "tree/.git/d.v", "tree/notes.txt"})
            m_work.write(file, "");
        m_work.write("p.jexprj", R"({"version": 1, "files": [{"path": "a.v"}], "topModule": "own"})");
        m_work.write("q.jexprj", "{}");
        m_work.write("sub/list.f", "x.v +define+L");
        QDir().mkpath("none");
        m_work.write("sub/r.jexprj", R"({"version": 1, "files": [{"path": "x.v"}]})");
    }

    void projects_data()
    {
        textColumns("expected"); // the words of the project, and its device; or what was wrong
        row("", "");
        row("a.v b.vhd ./a.v --top t", "a.v:2 b.vhd:4 top:t");
        row("p.jexprj", "a.v:2 top:own");
        row("p.jexprj b.vhd c.zub --top t", "a.v:2 b.vhd:4 c.zub:1 top:t");
        row("sub/d.zub --top t", "sub/x.v:2 sub/d.zub:1 top:t"); // the project beside it
        row("c.zub a.v", "a.v:2 c.zub:1");
        row("a.v -DX=1 -D Y -Isub -y sub", "a.v:2 I:sub y:sub D:X=1 D:Y");
        row("-f sub/list.f", "sub/x.v:2 D:L");
        row("-F sub/list.f a.v", "a.v:2 sub/x.v:2 D:L");
        row("+define+X=1+Y -UZ +incdir+sub+tree -GN=4 -pvalue+M=2 -v a.v -y sub +libext+.v+.vo --top-module "
            "t",
            "a.v:2? I:sub I:tree y:sub ext:.v ext:.vo D:X=1 D:Y U:Z G:N=4 G:M=2 top:t");
        row("-sv a.v b.vhd -work lib sub/x.v", "a.v:3 b.vhd:4@lib sub/x.v:3");
        row("tree c.zub", "tree/a/c.sv:3 tree/b.vhd:4 c.zub:1 I:tree/a");
        row("a.v --device lfe5u-25f", "a.v:2 LFE5U-25F");
        row("a.v --device none", "The device \"none\" is not known. Project > Device shows those that are.");
        row("z.v", "There is no file \"z.v\".");
        row("y.v a.v z.v -v x.v",
            "There is no file \"x.v\".\nThere is no file \"y.v\".\nThere is no file \"z.v\".");
        row("none", "There is no source in the folder \"%1/none\".");
        row("p.jexprj q.jexprj", "Only one project can be open: \"p.jexprj\" or \"q.jexprj\".");
        row("--nonsense", "Unknown option 'nonsense'.");
        row("q.jexprj", "Can not read the project %1/q.jexprj: \"version\" is missing.");
    }
    void projects()
    {
        const QString words = QTest::currentDataTag(), here = QDir::currentPath();
        QFETCH(QString, expected);
        StartOptions options;
        QStringList faults;
        Core::Project project;
        const QStringList arguments = QStringList("jexworkbench") + words.split(' ', Qt::SkipEmptyParts);
        if (parseCommandLine(arguments, options, faults))
            fillProject(options, project, faults);
        const QStringList found = projectWords(project.data(), here) << project.data().device.device;
        QCOMPARE(faults.isEmpty() ? found.join(' ').trimmed() : faults.join('\n'),
                 expected.replace("%1", here));
        QVERIFY(!project.isModified());
    }

    // A part whose package nobody knows has the figures of its die.
    void devicesByName_data()
    {
        textColumns("found", "hint"); // device, part number and package
        row("LFE5U-25F-6BG256C", "LFE5U-25F LFE5U-25F-6BG256C BG256", "");
        row("lfe5u-25f", "LFE5U-25F LFE5U-25F-6BG256C BG256", "");
        row("LFE5U-25F-7BG381I", "LFE5U-25F LFE5U-25F-7BG381I ", "");
        row("iCE40HX8K-CB132", "iCE40HX8K iCE40HX8K-CB132 ", "");
        row("EP4CE115F23", "EP4CE115 EP4CE115F23 ", "");
        row("EP4CE1", "", "EP4CE15"); // of no die, though one begins like it
        row("EP4CE159", "", "EP4CE15");
        row("LFE5U-26F", "", "LFE5U-25F");
        row("ICE40HX8", "", "iCE40HX8K");
        row("a pear", "", "-");
        row("", "", "-");
    }
    void devicesByName()
    {
        auto [found, hint] = textCells("found", "hint");
        DEV::DeviceArg device;
        const bool isKnown = CommandLine::findDevice(QTest::currentDataTag(), device);
        QCOMPARE(isKnown, !found.isEmpty());
        if (isKnown) {
            QCOMPARE(device.device + ' ' + device.partNumber + ' ' + device.package, found);
            QVERIFY(JEX_TOOL::findDevice(device.series, device.device));
        } else {
            const QString said = CommandLine::deviceHint(QTest::currentDataTag());
            QVERIFY2(hint == "-" ? said.isEmpty() : said.contains(hint), qPrintable(said));
        }
    }

    // Between two jobs nobody looks; the second one hears of it.
    void interruptBetween()
    {
        const CommandLine::EndSignals all;
        QCOMPARE(raise(SIGTERM), 0);
        for (int job = 0; job < 2; ++job) {
            const CommandLine::EndSignals ends;
            QSignalSpy asked(&ends, SIGNAL(endAsked()));
            QVERIFY(asked.wait(5000));
        }
    }

private:
    Workspace m_work;
};

QTEST_GUILESS_MAIN(StartOptionsTest)
#include "tst_startoptions.moc"
