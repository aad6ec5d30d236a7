#include "host/designmanager.h"
#include "host/eventmanager.h"
#include "signals/signaltreewidget.h"
#include "tests/support/configtext.h"
#include "tests/support/tablerow.h"
#include "tests/views/editortest.h"

// What the editors of both modes do with their file; every test runs for each.
class EditorViewsTest : public EditorTest
{
    Q_OBJECT

private Q_SLOTS:
    void openJudgesTheDesign_data()
    {
        textColumns("design", "top", "said");
        const QByteArray two = "module a(input clk); endmodule\nmodule b(input clk); endmodule\n";
        const QByteArray jtag = "module top(input clk);\n  TS_JTAG u0(.tck(clk));\nendmodule\n";
        row("usable", counterDesign, "", "");
        row("usable, top named", two, "b", "");
        row("no files", "", "", "critical | Error | Design files are not exist. | OK");
        row("syntax error", faultyDesign, "", "dialog | Design files contain some errors.");
        row("no module", "package p;\n  localparam int x = 1;\nendpackage\n", "",
            "critical | Design files contain some errors | Get no module from design. | OK");
        row("wrong top", counterDesign, "nosuch",
            "critical | Invalid Top Module | No module named \"nosuch\", please reset top module. | OK");
        row("two tops", two, "",
            "critical | Multiple Top Module | Multiple top, please set top module. | OK");
        row("TS_JTAG", jtag, "", "critical | Error | TS_JTAG used in design conflicts with ZUB. | OK");
    }
    void openJudgesTheDesign()
    {
        auto [design, top, said] = textCells("design", "top", "said");
        if (design.isEmpty())
            m_work->project.removeFile(m_work->path("design.sv"));
        m_work->write("design.sv", design.toUtf8());
        m_work->project.setOption("TopModule", top);
        ModalDriver driver;
        QString details;
        if (!said.isEmpty())
            driver.then([&details](QDialog *dialog) {
                if (const QTextEdit *text = dialog->findChild<QTextEdit *>("textEdit"))
                    details = text->toPlainText();
                dialog->findChild<QPushButton *>()->click();
            });

        const Shown shown(m_mode, config("a.zub"));
        QMap<QString, QVariant> info = TE::TaskEngine::instance()->designManager()->getSourceFileInfo();
        QStringList tops, modules, messages; // the library's answer is that about the sources alone
        auto *view = static_cast<RTLJEX::EditorView *>(shown.view.data());
        const bool isGood = view->getRtlModules(info, tops, modules, messages);
        QCOMPARE(isGood, messages.filter("ERROR").isEmpty());
        QCOMPARE(driver.seen.join("\n"), said);
        QCOMPARE(shown.opened, said.isEmpty());
        QCOMPARE(shown.error, QString());
        if (said.startsWith("dialog")) {
            for (const char *part : {"ERROR", "design.sv"})
                QVERIFY2(details.contains(part), qPrintable(details));
        }
    }

    void openRefusesOtherFiles()
    {
        const QString text = m_work->write("text.zub", "not a configuration\n");
        JEX::fillInfoForEmptyJexConfig(m_work->path("other.zub"),
                                       m_mode == JEX::LiteMode ? JEX::StandardMode : JEX::LiteMode);
        for (const QString &file : {text, m_work->path("other.zub"), m_work->path("missing.zub")}) {
            const Shown shown(m_mode, file);
            QVERIFY(!shown.opened);
            QCOMPARE(shown.error, file + " open file failed.");
        }

        // The reader knows better what is wrong.
        const QString damaged = config("damaged.zub");
        m_work->write("damaged.zub", m_work->read("damaged.zub").replace("rising", "raising"));
        const Shown shown(m_mode, damaged);
        QVERIFY(!shown.opened);
        for (const QString &part : {damaged, QString("raising")})
            QVERIFY2(shown.error.contains(part), qPrintable(shown.error));
    }

    void newFile()
    {
        const Shown shown(m_mode, config("new.zub", 0));
        QVERIFY(shown.opened);
        QVERIFY(shown.view->isModified());
        QCOMPARE(shown.view->windowTitle() + ", " + shown.view->shortTitle(),
                 QString("new.zub *, new.zub *"));
        QCOMPARE(shown.cores(), QString(shown.standard ? "Core 0*" : "AO 0*"));
        QCOMPARE(shown.find<QComboBox>("comboCapAmount")->currentText(), QString("1024"));

        ModalDriver driver;
        for (int i = 1; i < 16; ++i)
            shown.addCore();
        QCOMPARE(driver.seen, QStringList());
        driver.press(QMessageBox::Ok);
        shown.addCore();
        QCOMPARE(driver.seen.join("\n"), QString("warning | Warning | Support 16 AOs at most. | OK"));
        QCOMPARE(shown.pages()->count(), 16);
        QVERIFY2(shown.cores().endsWith(shown.standard ? ", Core 15*" : ", AO 15*"),
                 qPrintable(shown.cores()));
    }

    void saving()
    {
        const QString file = config("a.zub");
        const QStringList before = configText(file);
        QTest::ignoreMessage(QtDebugMsg, m_mode == JEX::StandardMode
                                             ? " This is open file to Ao"
                                             : "try to set a null netlist for Lite JEX.");
        QTest::ignoreMessage(QtDebugMsg, "save jex");
        Shown shown(m_mode, file);
        QCOMPARE(shown.view->windowTitle() + ", " + shown.view->shortTitle(), QString("a.zub, a.zub"));
        QStringList told;
        connect(shown.view, &RTLJEX::JexInserterView::modificationStatusChanged, [&](bool modified) {
            told << (modified ? "modified, " : "saved, ") + shown.view->windowTitle() + ", " +
                        shown.view->shortTitle();
        });
        for (int i = 0; i < 3; ++i)
            shown.edit();
        QVERIFY(shown.view->isModified());
        QVERIFY(shown.view->save());
        QVERIFY(!shown.view->isModified());
        QCOMPARE(told, QStringList({"modified, a.zub *, a.zub *", "saved, a.zub, a.zub"}));
        QStringList expected = before;
        expected[0] += shown.standard ? ", initial data, top top" : ", initial data";
        QCOMPARE(configText(file), expected);
    }

    void savingIsRefused()
    {
        m_work->write("gone/a.zub", "");
        const QString file = config("gone/a.zub");
        Shown shown(m_mode, file);
        const QByteArray before = m_work->read("gone/a.zub");
        shown.find<QLineEdit>("editSampleClock")->setText("top/nosuch");
        ModalDriver driver;
        driver.then([](QDialog *box) { QTest::keyClick(box, Qt::Key_Escape); });
        QVERIFY(!shown.view->save());
        QCOMPARE(driver.seen.takeFirst(), checkFailed("Core 0: The specified sample clock does not exist"));
        QCOMPARE(m_work->read("gone/a.zub"), before);

        shown.find<QLineEdit>("editSampleClock")->setText("top/clk");
        m_work->project.setOption("Synthesize_tool", "Synplify");
        driver.press(QMessageBox::Ok);
        QVERIFY(!shown.view->save());
        QCOMPARE(
            driver.seen.takeFirst(),
            QString("critical | Error | For RTL Design, JEX is only available for TarselSynthesis. Please "
                    "change Synthesis Tool to TarselSynthesis in Configurations. | OK"));
        QCOMPARE(m_work->read("gone/a.zub"), before);
        m_work->project.setOption("Synthesize_tool", "synplify");

        QVERIFY(QDir(m_work->path("gone")).removeRecursively());
        driver.press(QMessageBox::Ok);
        QVERIFY(!shown.view->save());
        QCOMPARE(driver.seen.join("\n"),
                 "critical | Error | Can not save to " + file + " | OK* Show Details... | Can not save to " +
                     file + ": creating a file in its folder failed (No such file or directory).");
        QVERIFY(shown.view->isModified());
        QCOMPARE(shown.view->windowTitle(), QString("a.zub *"));
    }

    void closing()
    {
        const QMessageBox::StandardButton none = QMessageBox::NoButton, ok = QMessageBox::Ok;
        // What is answered, none: there is nothing to save; whether that is valid, closes and writes.
        const Rows<QMessageBox::StandardButton, bool, bool, bool> rows = {
            {none, true, true, false},
            {ok, true, true, true},
            {ok, false, false, false},
            {QMessageBox::Discard, true, true, false},
            {QMessageBox::Cancel, true, false, false}};
        m_work->project.setOption("Synthesize_tool", "Synplify"); // closing does not ask for it
        for (const auto &[answer, valid, closed, written] : rows) {
            Shown shown(m_mode, config("a.zub"));
            const QByteArray before = m_work->read("a.zub");
            ModalDriver driver;
            QStringList said;
            if (answer != none) {
                shown.edit();
                driver.press(answer);
                said << "question | Save | Save changes to \"" + shown.view->file() +
                            "\" ? | Cancel Discard OK*";
            }
            if (!valid) {
                shown.find<QLineEdit>("editSampleClock")->clear();
                driver.press(ok);
                said << checkFailed("Core 0: No sample clock specified");
            }
            QCOMPARE(shown.view->close(), closed);
            QCOMPARE(driver.seen, said);
            QCOMPARE(m_work->read("a.zub") != before, written);
        }

        // A name that is being typed is a change, too.
        Shown shown(m_mode, config("a.zub"));
        auto *tree = shown.view->findChild<RTLJEX::signalTreeWidget *>();
        tree->setCurrentItem(tree->topLevelItem(0));
        tree->onChangeName();
        tree->findChild<QLineEdit *>()->setText("beat");
        ModalDriver driver;
        driver.press(ok);
        QVERIFY(shown.view->close());
        QVERIFY(m_work->read("a.zub").contains("\"beat\""));
    }

    void diesWhileAsking()
    {
        for (const QByteArray action : {"close", "save", "onRtlReload", "onBannerReload"}) {
            beginAnew();
            Shown shown(m_mode, config("a.zub"));
            shown.find<QLineEdit>("editSampleClock")->clear();
            m_work->write("design.sv", faultyDesign);
            m_work->write("a.zub", "damaged");
            ModalDriver driver;
            driver.then([&shown](QDialog *) { delete shown.container; });
            if (action == "save")
                shown.view->save();
            else
                QMetaObject::invokeMethod(shown.view, action);
            QVERIFY2(!shown.view, action);
            QVERIFY2(driver.done(), action);
        }
    }

    // Events come while a Lite editor is being built, since it subscribes first, and a host need not have put
    // an editor into anything.
    void withoutContainer()
    {
        struct Teller : QObject
        {
            bool eventFilter(QObject *, QEvent *) override
            {
                QUtil::EventManager::instance()->post("TE.Option.Change", {{"option", "TopModule"}});
                return false;
            }
        } teller;
        qApp->installEventFilter(&teller);
        const Shown shown(m_mode, config("a.zub"), false);
        qApp->removeEventFilter(&teller);
        QVERIFY(shown.opened);
        shown.edit();
        m_work->write("a.zub", "damaged");
        ModalDriver driver;
        driver.press(QMessageBox::Ok);
        QVERIFY(QMetaObject::invokeMethod(shown.view, "onBannerReload"));
        QCOMPARE(driver.seen.join("\n"), QString("warning | Reload Jex | Invalid JEX file. | OK"));
        QTRY_VERIFY(!shown.view);
    }
};

QTEST_MAIN(EditorViewsTest)
#include "tst_editorviews.moc"
