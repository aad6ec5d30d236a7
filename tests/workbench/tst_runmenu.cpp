#include <QtWidgets>

#include "tests/support/files.h"
#include "tests/support/messagelist.h"
#include "tests/support/tablerow.h"
#include "workbench/mainwindow.h"
#include "workbench/runmenu.h"
#include "workbench/simulatedialog.h"
#include "workbench/workspace.h"

using namespace Workbench;

// The menu Run on a copy of the example.
class RunMenuTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCOMPARE(QProcess::execute("cp", {"-r", SOC, m_folder.path("soc")}), 0); }

    void runs()
    {
        MainWindow window(nullptr);
        window.show();
        QCOMPARE(actions(window),
                 QStringList({"-&Insert into Design...", "-&Simulate Capture...", "-&Open Waveform"}));
        QVERIFY(window.workspace()->openProject(m_folder.path("soc/soc.jexprj")));
        QCOMPARE(actions(window),
                 QStringList({"+&Insert into Design...", "+&Simulate Capture...", "-&Open Waveform"}));
        const QString file = m_folder.path("soc/capture.zub"), made = m_folder.path("soc/jex");

        QVERIFY(!window.runMenu()->insert(file, m_folder.path("soc/rtl")));
        QVERIFY(told(window).contains("is a folder of the sources"));
        QVERIFY(window.runMenu()->insert(file, made));
        QVERIFY(told(window).contains("The analyzer of capture.zub is in " + made));
        QVERIFY(QFileInfo::exists(made + "/design.v"));

        const QString bench = m_folder.path("soc/tb/soc_tb.v"), waveform = m_folder.path("capture.vcd");
        QVERIFY2(window.runMenu()->simulate(file, {bench}, waveform), qPrintable(told(window)));
        QVERIFY(told(window).contains("PASS"));
        QVERIFY(contents(waveform).contains("bridge_state"));
        QVERIFY(actions(window).contains("+&Open Waveform"));
        const QString shot = qEnvironmentVariable("JEX_SHOT");
        QTest::qWait(shot.isEmpty() ? 0 : 100); // the messages scroll
        if (!shot.isEmpty())
            window.grab().save(shot);
    }

    // In whatever stage, of a bench without an end, too: nothing is written, and the window goes on.
    void cancelled_data()
    {
        // "stage": a part of what it says then
        textColumns("title", "stage");
        row("reading", "Read Design", "");
        row("insertion", "Insert into Design", "");
        row("compiling", "Simulate Capture", "");
        row("simulation", "Simulate Capture", "Simulating");
    }
    void cancelled()
    {
        auto [title, stage] = textCells("title", "stage");
        QByteArray bench = contents(SOC "/tb/soc_tb.v");
        const QString endless = m_folder.write("endless.v", bench.replace("$finish", ""));
        MainWindow window(nullptr);
        QVERIFY(window.workspace()->openProject(m_folder.path("soc/soc.jexprj")));
        QTimer timer;
        connect(&timer, &QTimer::timeout, [&] {
            for (QProgressDialog *dialog : window.findChildren<QProgressDialog *>()) {
                if (dialog->windowTitle() == title && dialog->labelText().contains(stage))
                    dialog->findChild<QPushButton *>()->click();
            }
        });
        timer.start(20);
        const QString file = m_folder.path("soc/capture.zub"), output = m_folder.path("cancelled");
        const bool isDone = title == "Simulate Capture" ? window.runMenu()->simulate(file, {endless}, output)
                                                        : window.runMenu()->insert(file, output);
        QVERIFY(!isDone);
        QVERIFY2(told(window).contains("Cancelled"), qPrintable(told(window)));
        QVERIFY(!QFileInfo::exists(output));
        QVERIFY(window.findChildren<QProgressDialog *>().isEmpty());
    }

    // The choice is kept; without what Verilator needs it is said, and nothing begins.
    void simulator()
    {
        QSettings settings(m_folder.path("settings.ini"), QSettings::IniFormat);
        SimulateDialog dialog(m_folder.path("soc/capture.zub"), &settings, nullptr);
        const QPushButton *ok = dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
        QComboBox *box = dialog.findChild<QComboBox *>();
        const auto says = [&dialog](const QString &text) {
            for (const QLabel *label : dialog.findChildren<QLabel *>()) {
                if (label->text().contains(text))
                    return true;
            }
            return false;
        };
        QVERIFY(!ok->isEnabled());
        QVERIFY(says("capture.zub is there already"));
        dialog.addBench({"/a/tb.v", "/a/tb.v", "/a/other.v"});
        QCOMPARE(dialog.bench(), QStringList({"/a/tb.v", "/a/other.v"}));
        QVERIFY(ok->isEnabled());
        QVERIFY(dialog.simulator() == Insertion::Simulator::Icarus);
        qputenv("JEX_MAKE", "/no/make");
        box->setCurrentIndex(1);
        qunsetenv("JEX_MAKE");
        QVERIFY(!ok->isEnabled());
        QVERIFY(says("needs make, and /no/make is not there"));
        box->setCurrentIndex(0);
        QVERIFY(ok->isEnabled());
        box->setCurrentIndex(1);
        QVERIFY(ok->isEnabled());
        QVERIFY(says("0 and 1 only"));
        dialog.accept();
        QVERIFY(SimulateDialog(QString(), &settings, nullptr).simulator() == Insertion::Simulator::Verilator);
    }

private:
    // Of the menu, "+" before those that are enabled.
    static QStringList actions(const MainWindow &window)
    {
        QStringList texts;
        for (const QAction *menu : window.menuBar()->actions()) {
            if (menu->text() != "&Run")
                continue;
            for (const QAction *action : menu->menu()->actions())
                texts << (action->isEnabled() ? '+' : '-') + action->text();
        }
        return texts;
    }

    static QString told(const MainWindow &window) { return messageText(window); }

    Folder m_folder;
};

QTEST_MAIN(RunMenuTest)
#include "tst_runmenu.moc"
