#include <cstdio>
#include <unistd.h>

#include "host/designmanager.h"
#include "tests/support/rowtext.h"
#include "tests/support/tablerow.h"
#include "tests/views/editortest.h"
#include "views/pathlabel.h"

// What the editors of both modes do when their file or their design changes outside; every test runs for
// each.
class OutsideChangesTest : public EditorTest
{
    Q_OBJECT

private Q_SLOTS:
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
            QVERIFY(row.value<JEX::SignalItem>().type != JEX::NetKind);
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
        const Rows<const char *, const char *> damages = {
            {"mode=\"", "mode=\"X"}, {"</core>", ""}, {"\"rising\"", "\"raising\""}};
        Shown other(m_mode, config("other.zub"));
        for (const auto &[from, to] : damages) {
            Shown shown(m_mode, config("a.zub"));
            m_work->write("a.zub", m_work->read("a.zub").replace(from, to));
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
        QCOMPARE(driver.seen.join("\n"), clockIsGone());

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
        const QString file = config(QString("<b>%1.zub").arg(QString(80, 'x')));
        Shown shown(m_mode, file);
        m_work->write(QFileInfo(file).fileName(), "changed");
        QTRY_COMPARE(shown.banners(), QStringList(changedText));
        m_work->project.setOption("TopModule", "top");
        shown.container->resize(1300, 600);
        auto *label = shown.find<RTLJEX::PathLabel>("labelFile");
        QVERIFY(QTest::qWaitFor([=] { return label->shownText() != label->text(); }));
        QVERIFY2(label->text().contains(file), "whoever asks has it whole");
        QCOMPARE(QTextDocumentFragment::fromHtml(label->toolTip()).toPlainText(), file); // as it is written
        const QString line = label->shownText().section('\n', 0, 0);
        QVERIFY2(label->fontMetrics().boundingRect(line).width() <= label->width() + 2, qPrintable(line));
        QVERIFY2(line.startsWith(QString("The file '") + QChar(0x2026)), qPrintable(line));
        QVERIFY2(line.endsWith(".zub' changed on disk."), qPrintable(line));
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
        QCOMPARE(driver.seen.join("\n"), shown.standard ? clockIsGone() : QString());
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
        QCOMPARE(driver.seen.join("\n"), shown.standard ? clockIsGone() : QString());

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

    // Their rows point into the design that goes, as long as something that runs above them keeps them alive.
    void dialogsThatHaveNotReturned_data() { textRows("way", {"OK", "Cancel", "hidden", "open"}); }
    void dialogsThatHaveNotReturned()
    {
        QFETCH(QString, way);
        const Shown shown(m_mode, config("a.zub"));
        ModalDriver driver;
        driver.then([&](QDialog *dialog) {
            QTreeWidget *found = dialog->findChild<QTreeWidget *>("treeWidget");
            dialog->findChild<QPushButton *>("pushButtonSearch")->click();
            found->selectAll();
            QVERIFY(!found->selectedItems().isEmpty());
            if (way == "hidden")
                dialog->hide();
            else if (way != "open")
                leave(dialog, way == "OK" ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel);
            QVERIFY(QMetaObject::invokeMethod(shown.view, "readRtlNetlist"));
            QCOMPARE(found->topLevelItemCount(), 0);
        });
        const int rows = shown.captureRows()->topLevelItemCount();
        shown.find<QPushButton>("btnAdd")->click();
        QVERIFY(driver.done());
        QCOMPARE(shown.captureRows()->topLevelItemCount(), rows);
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

private:
    QString clockIsGone() const { return checkFailed("Core 0: The specified sample clock does not exist"); }
};

QTEST_MAIN(OutsideChangesTest)
#include "tst_outsidechanges.moc"
