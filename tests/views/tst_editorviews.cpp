#include <QDir>
#include <QTextEdit>

#include <cstdio>
#include <functional>
#include <unistd.h>

#include "host/designmanager.h"
#include "host/eventmanager.h"
#include "signals/signaltreewidget.h"
#include "tests/support/configtext.h"
#include "tests/support/rowtext.h"
#include "tests/support/tablerow.h"
#include "tests/views/shown.h"
#include "views/pathlabel.h"

namespace {

// FILE is the file of the editor.
const char changedText[] = "The file 'FILE' changed on disk.\nDo you want to reload?";
const char removedText[] = "The file 'FILE' has been removed on disk.\nDo you still want to keep it?";
const char designText[] = "Design files changed. Do you want to reload?";
const char topText[] = "Top module changed. Do you want to reload?";

} // namespace

// What the editors of both modes do with their file and their design; every test runs for each.
class EditorViewsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data()
    {
        QTest::addColumn<int>("mode");
        QTest::newRow("Standard") << int(JEX::StandardMode);
        QTest::newRow("Lite") << int(JEX::LiteMode);
    }

    void init()
    {
        QFETCH_GLOBAL(int, mode);
        m_mode = JEX::JexMode(mode);
        m_work.reset();
        m_work.reset(new Workspace);
        m_work->addDesign("design.sv", counterDesign);
    }

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
        QFETCH(QString, design);
        QFETCH(QString, top);
        QFETCH(QString, said);
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
        JEX::fillInfoForEmptyJexConfig(m_work->path("other.zub"), JEX::JexMode(10087 + 10088 - m_mode));
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
        const struct
        {
            QMessageBox::StandardButton answer; // none: there is nothing to save
            bool valid, closed, written;
        } rows[] = {{none, true, true, false},
                    {ok, true, true, true},
                    {ok, false, false, false},
                    {QMessageBox::Discard, true, true, false},
                    {QMessageBox::Cancel, true, false, false}};
        m_work->project.setOption("Synthesize_tool", "Synplify"); // closing does not ask for it
        for (const auto &row : rows) {
            Shown shown(m_mode, config("a.zub"));
            const QByteArray before = m_work->read("a.zub");
            ModalDriver driver;
            QStringList said;
            if (row.answer != none) {
                shown.edit();
                driver.press(row.answer);
                said << "question | Save | Save changes to \"" + shown.view->file() +
                            "\" ? | Cancel Discard OK*";
            }
            if (!row.valid) {
                shown.find<QLineEdit>("editSampleClock")->clear();
                driver.press(ok);
                said << checkFailed("Core 0: No sample clock specified");
            }
            QCOMPARE(shown.view->close(), row.closed);
            QCOMPARE(driver.seen, said);
            QCOMPARE(m_work->read("a.zub") != before, row.written);
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

    // Editors and version control replace a file by a rename; each time is reported.
    void fileBanners()
    {
        const QString file = config("<b>%1 & 2.zub");
        Shown shown(m_mode, file);
        shown.edit();
        for (int cores = 2; cores <= 3; ++cores) {
            config("b.zub", cores);
            // What the design does not have is found out on a reload as well.
            m_work->write("b.zub", m_work->read("b.zub").replace("signal name=\"top/clk\"",
                                                                 "signal name=\"top/lost\""));
            QFile::remove(file);
            QVERIFY(QFile::rename(m_work->path("b.zub"), file));
            QTRY_COMPARE(shown.banners(), QStringList(changedText));
            const auto *banner = shown.find<RTLJEX::ReloadBanner>("RTLJEX__ReloadBanner");
            QCOMPARE(banner->findChild<QLabel *>("labelFile")->textFormat(), Qt::PlainText);
            QVERIFY2(!banner->findChild<QLabel *>("label")->pixmap()->isNull(), "no icon");
            shown.answer("Reload");
            QCOMPARE(shown.banners(), QStringList());
            QVERIFY(shown.find<QWidget>("bannerContainer")->isHidden());
            QCOMPARE(shown.pages()->count(), cores);
            QCOMPARE(shown.cores().section(",", 0, 1),
                     QString(shown.standard ? "Core 0*, Core 1" : "AO 0*, AO 1"));
            QVERIFY2(shown.view->isModified(), "a reload keeps the mark");
            QVERIFY(!shown.initialData()->isChecked());
            const QVariant row = shown.captureRows()->topLevelItem(0)->data(0, Qt::UserRole);
            QVERIFY(row.value<JEX::SignalItem>().type != 0);
        }
        config("<b>%1 & 2.zub", 0);
        QTRY_COMPARE(shown.banners(), QStringList(changedText));
        shown.answer("Cancel");
        QCOMPARE(shown.banners(), QStringList());
        QCOMPARE(shown.pages()->count(), 3);
    }

    // The old file lives on under another name, so that a watcher of it hears nothing of the new one.
    void replacedFileLivesOn()
    {
        const QString file = config("a.zub");
        Shown shown(m_mode, file);
        for (int cores = 2; cores <= 4; ++cores) {
            const QString held = m_work->path(QString("held%1").arg(cores)), fresh = config("b.zub", cores);
            QCOMPARE(::link(QFile::encodeName(file), QFile::encodeName(held)), 0);
            QCOMPARE(std::rename(QFile::encodeName(fresh), QFile::encodeName(file)), 0);
            QTRY_COMPARE(shown.banners(), QStringList(changedText));
            shown.answer(cores == 2 ? "Cancel" : "Reload");
            QCOMPARE(shown.pages()->count(), cores == 2 ? 1 : cores);
        }
        m_work->write("held4", "what the name does not stand for any more");
        QTest::qWait(800);
        QCOMPARE(shown.banners(), QStringList());
    }

    void removedFileComesBack()
    {
        const QString file = config("a.zub"), away = m_work->path("away");
        Shown shown(m_mode, file);
        const auto remove = [&] {
            QVERIFY(QFile::rename(file, away));
            QTRY_COMPARE(shown.banners(), QStringList(removedText));
        };
        remove();
        QVERIFY(QFile::rename(away, file));
        QTest::qWait(800);
        QCOMPARE(shown.banners(), QStringList(removedText)); // nothing is added while it stands
        shown.answer("Keep It");
        QTRY_COMPARE(shown.banners(), QStringList(changedText));
        shown.answer("Cancel");

        remove();
        shown.answer("Keep It");
        QTest::qWait(800);
        QCOMPARE(shown.banners(), QStringList());
        QVERIFY(QFile::rename(away, file));
        QTRY_COMPARE(shown.banners(), QStringList(changedText));
        shown.answer("Reload");

        // It was the editor that brought it back.
        remove();
        shown.answer("Keep It");
        QVERIFY(shown.view->save());
        QTest::qWait(1000);
        QCOMPARE(shown.banners(), QStringList());

        // The question about the design stands on its own.
        m_work->project.setOption("TopModule", "top");
        QVERIFY(QFile::remove(away));
        QVERIFY(QFile::rename(file, away));
        QTRY_COMPARE(shown.banners(), QStringList({topText, removedText}));
        QMetaObject::invokeMethod(shown.view, "onBannerKeep");
        m_work->project.setOption("TopModule", "");
        QCOMPARE(shown.banners(), QStringList({topText, removedText}));
    }

    void burstsSavesAndRemovals()
    {
        const QString file = config("a.zub");
        Shown shown(m_mode, file), other(m_mode, config("other.zub"));
        shown.edit();
        QSignalSpy modified(shown.view, SIGNAL(modificationStatusChanged(bool)));
        QVERIFY(shown.view->save());
        QTest::qWait(800);
        QCOMPARE(shown.banners(), QStringList());

        for (int i = 0; i < 10; ++i) {
            m_work->write("a.zub", QByteArray(i, 'x'));
            QTest::qWait(20);
        }
        QTRY_COMPARE(shown.banners(), QStringList(changedText));
        m_work->write("a.zub", "still more");
        QTest::qWait(800);
        QCOMPARE(shown.banners(), QStringList(changedText));

        // The answer to the one question ends the waiting for the other as well.
        m_work->project.setOption("TopModule", "top");
        QCOMPARE(shown.banners(), QStringList({changedText, topText}));
        shown.answer("Cancel");
        QCOMPARE(shown.banners(), QStringList(topText));
        m_work->project.setOption("TopModule", "");
        QCOMPARE(shown.banners(), QStringList({topText, topText}));
        shown.answer("Cancel");
        shown.answer("Cancel");

        for (const bool close : {false, true}) {
            QVERIFY(shown.view->save());
            QVERIFY(QFile::remove(file));
            QTRY_COMPARE(shown.banners(), QStringList(removedText));
            shown.edit();
            modified.clear();
            shown.answer(close ? "Close" : "Keep It");
            QCOMPARE(shown.banners(), QStringList());
            QCOMPARE(modified.size(), close ? 1 : 0);
        }
        QCOMPARE(modified.first(), QVariantList({false}));
        QTRY_VERIFY2(!shown.container, "the container dies");
        QCOMPARE(shown.state() + ", " + other.state(), QString("gone, visible"));
    }

    void invalidFileOnReload()
    {
        const struct
        {
            const char *from, *to;
        } damages[] = {{"mode=\"", "mode=\"X"}, {"</core>", ""}, {"\"rising\"", "\"raising\""}};
        Shown other(m_mode, config("other.zub"));
        for (const auto &damage : damages) {
            Shown shown(m_mode, config("a.zub"));
            m_work->write("a.zub", m_work->read("a.zub").replace(damage.from, damage.to));
            QTRY_COMPARE(shown.banners(), QStringList(changedText));
            ModalDriver driver;
            driver.then([&shown](QDialog *dialog) {
                QCOMPARE(shown.pages()->count(), 1);
                dialog->findChild<QPushButton *>()->click();
            });
            shown.answer("Reload");
            QCOMPARE(driver.seen.join("\n"), QString("warning | Reload Jex | Invalid JEX file. | OK"));
            QTRY_VERIFY(!shown.container);
            QVERIFY(other.view);
        }
    }

    void designBanner()
    {
        Shown shown(m_mode, config("a.zub"));
        m_work->addDesign("more.v", "module leaf(input clk); endmodule\n");
        QCOMPARE(shown.banners(), QStringList(designText));
        m_work->project.setOption("TopModule", "top");
        m_work->addDesign("evenmore.v", "module leaf2(input clk); endmodule\n");
        QCOMPARE(shown.banners(), QStringList(designText));
        shown.answer("Cancel");
        QCOMPARE(shown.banners(), QStringList());
        m_work->project.setOption("TopModule", "");
        QCOMPARE(shown.banners(), QStringList(topText));
        shown.answer("Cancel");

        // A net that the new design does not have is found missing by the next save.
        m_work->write("design.sv", QByteArray(counterDesign).replace("clk", "clock"));
        m_work->project.setOption("TopModule", "top");
        QDialog open(shown.pages()->currentWidget());
        open.show();
        shown.answer("Reload");
        QVERIFY2(!open.isVisible(), "it may show nets that are gone");
        QCOMPARE(shown.banners(), QStringList());
        ModalDriver driver;
        driver.press(QMessageBox::Ok);
        QVERIFY(!shown.view->save());
        QCOMPARE(driver.seen.join("\n"), checkFailed("Core 0: The specified sample clock does not exist"));

        m_work->project.setOption("IncludePath", QStringList("inc"));
        QCOMPARE(shown.banners(), QStringList(designText));

        // What can become of a source.
        const QString more = m_work->path("more.v");
        for (const int change : {0, 1, 2}) {
            shown.answer("Cancel");
            QCOMPARE(shown.banners(), QStringList());
            if (change == 0)
                m_work->project.setFileType(more, TE::SystemVerilogFile);
            else if (change == 1)
                m_work->project.setFileEnabled(m_work->path("design.sv"), false);
            else
                m_work->project.removeFile(more);
            QCOMPARE(shown.banners(), QStringList(designText));
        }
    }

    // Side by side they have no room for a long path.
    void bannersElidePaths()
    {
        const QString file = config(QString("%1.zub").arg(QString(80, 'x')));
        Shown shown(m_mode, file);
        m_work->write(QFileInfo(file).fileName(), "changed");
        QTRY_COMPARE(shown.banners(), QStringList(changedText));
        m_work->project.setOption("TopModule", "top");
        shown.container->resize(1300, 600);
        auto *label = shown.find<RTLJEX::PathLabel>("labelFile");
        QVERIFY(QTest::qWaitFor([=] { return label->shownText() != label->text(); }));
        QVERIFY2(label->text().contains(file), "whoever asks has it whole");
        QCOMPARE(label->toolTip(), file);
        const QString line = label->shownText().section('\n', 0, 0);
        QVERIFY2(label->fontMetrics().boundingRect(line).width() <= label->width() + 2, qPrintable(line));
        QVERIFY2(line.startsWith(QString("The file '") + QChar(0x2026)) &&
                     line.endsWith(".zub' changed on disk."),
                 qPrintable(line));
        label->resize(4000, label->height());
        QCOMPARE(label->shownText(), label->text());
    }

    void designReloadFails()
    {
        Shown shown(m_mode, config("a.zub")), other(m_mode, config("other.zub"));
        shown.edit();
        m_work->write("design.sv", faultyDesign);
        m_work->project.setOption("TopModule", "top");
        ModalDriver driver;
        bool saved = false;
        driver.then([&](QDialog *dialog) {
            QVERIFY2(shown.view->isModified(), "nothing is given up before the message was read");
            // A Lite editor keeps the design it had until there is another.
            if (shown.standard)
                driver.press(QMessageBox::Ok);
            saved = shown.view->save();
            dialog->accept();
        });
        shown.answer("Reload");
        QCOMPARE(driver.seen.takeFirst(), QString("dialog | Design files contain some errors."));
        QCOMPARE(driver.seen,
                 shown.standard
                     ? QStringList(checkFailed("Core 0: The specified sample clock does not exist"))
                     : QStringList());
        QCOMPARE(saved, !shown.standard);
        QTRY_VERIFY(!shown.container);
        QCOMPARE(shown.state() + ", " + other.state(), QString("gone, visible"));
        QCOMPARE(other.banners(), QStringList(topText));
    }

    // Neither success nor failure: the question is asked again.
    void cancelledReading()
    {
        Shown shown(m_mode, config("a.zub")), other(m_mode, config("other.zub"));
        shown.edit();
        const QString rows = rowNames(shown.captureRows());
        m_work->project.setOption("TopModule", "top");
        ModalDriver driver;
        slowDesign("exec sleep 20");
        whileReading([&](QProgressDialog *dialog) {
            // A second reading changes nothing and closes nothing.
            other.answer("Reload");
            QMetaObject::invokeMethod(other.view, "readRtlNetlist");
            dialog->findChild<QPushButton *>()->click();
        });
        shown.answer("Reload");
        QCOMPARE(driver.seen, QStringList());
        for (const Shown *editor : {&shown, &other}) {
            QCOMPARE(editor->state(), QString("visible"));
            QCOMPARE(editor->banners(), QStringList(topText));
            QCOMPARE(rowNames(editor->captureRows()), rows);
        }
        QVERIFY(shown.view->isModified());
        m_work->project.setOption("TopModule", "");
        QCOMPARE(shown.banners(), QStringList(topText));
        QVERIFY2(other.view->save(), "it has its design");
        if (shown.standard)
            driver.press(QMessageBox::Ok);
        QCOMPARE(shown.view->save(), !shown.standard);
        QCOMPARE(driver.seen,
                 shown.standard
                     ? QStringList(checkFailed("Core 0: The specified sample clock does not exist"))
                     : QStringList());

        whileReading([](QProgressDialog *dialog) { dialog->findChild<QPushButton *>()->click(); });
        const Shown third(m_mode, config("third.zub"));
        QCOMPARE(third.error + (third.opened ? "opened" : "not opened"), QString("not opened"));
        QVERIFY(driver.done());

        // What an editor pays no heed to while it reads is told again when that has ended.
        slowDesign("sleep 0.6; exec verilator_bin \"$@\"");
        driver.press(QMessageBox::Ok); // the second module may be the top one as well
        whileReading([&](QProgressDialog *) {
            m_work->addDesign("more.v", "module leaf(input clk); endmodule\n");
            QCOMPARE(shown.banners(), QStringList());
        });
        shown.answer("Reload");
        qunsetenv("JEX_VERILATOR");
        QTRY_COMPARE(shown.banners(), QStringList(designText));
    }

    void diesWhileAsking()
    {
        for (const QByteArray action : {"close", "save", "onRtlReload", "onBannerReload"}) {
            init();
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

    // The tool would go on until this test is given up.
    void stopsTheToolWhenItDies()
    {
        Shown shown(m_mode, config("a.zub"));
        slowDesign("exec sleep 20");
        QTimer::singleShot(300, shown.container, [&shown] { delete shown.container; });
        QMetaObject::invokeMethod(shown.view, "onRtlReload");
        qunsetenv("JEX_VERILATOR");
        QCOMPARE(shown.state(), QString("gone"));
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

private:
    // A tool in place of Verilator, and a design that it has to be asked about.
    void slowDesign(const QByteArray &command)
    {
        QFile::remove(m_work->path("slow"));
        const QString tool = m_work->write("slow", "#!/bin/sh\n" + command);
        QVERIFY(QFile::setPermissions(tool, QFile::ReadOwner | QFile::ExeOwner));
        qputenv("JEX_VERILATOR", tool.toUtf8());
        m_work->write("design.sv", counterDesign + QByteArray(++m_designs, '\n'));
    }

    // Once, when the dialog is up.
    void whileReading(const std::function<void(QProgressDialog *)> &act)
    {
        auto *poll = new QTimer(qApp);
        connect(poll, &QTimer::timeout, [=] {
            if (auto *dialog = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget())) {
                poll->deleteLater();
                poll->stop();
                act(dialog);
            }
        });
        poll->start(5);
    }

    QString config(const QString &name, int cores = 1) const
    {
        return m_work->writeConfig(m_mode, name, cores);
    }
    QString checkFailed(const QString &details) const
    {
        return "critical | Error | Your settings contain some errors." +
               QString(m_mode == JEX::StandardMode ? 13 : 0, ' ') + " | OK* Show Details... | " + details;
    }

    JEX::JexMode m_mode = JEX::InvalidMode;
    int m_designs = 0;
    QScopedPointer<Workspace> m_work;
};

QTEST_MAIN(EditorViewsTest)
#include "tst_editorviews.moc"
