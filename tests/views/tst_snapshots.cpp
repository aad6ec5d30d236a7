#include "check/configuration.h"
#include "check/snapshot.h"
#include "host/isnapshot.h"
#include "signals/signaltreewidget.h"
#include "tests/support/drawneditor.h"
#include "tests/support/netpicker.h"
#include "tests/support/tablerow.h"
#include "tests/views/editortest.h"

namespace {

const char wideDesign[] = "module top(input clk, input [3:0] d, e, output reg [3:0] q);\n"
                          "  always @(posedge clk) q <= d ^ e;\nendmodule\n";

Core::ISnapshot *stateOf(const Shown &shown)
{
    return dynamic_cast<Core::ISnapshot *>(shown.view.data());
}

RTLJEX::signalTreeWidget *rowsOf(const Shown &shown)
{
    return static_cast<RTLJEX::signalTreeWidget *>(shown.captureRows());
}

void choose(const Shown &shown, const QList<int> &rows)
{
    shown.captureRows()->clearSelection();
    for (int row : rows)
        shown.captureRows()->topLevelItem(row)->setSelected(true);
}

} // namespace

// The state of an editor as bytes, and back; every test runs for both modes.
class SnapshotsTest : public EditorTest
{
    Q_OBJECT

private Q_SLOTS:
    // Each edit is taken back and made again by the state alone.
    void restoresEachEdit_data()
    {
        textRows("edit",
                 {"clock",  "falling",    "group",      "rename",         "member", "reverse", "disable",
                  "remove", "amount",     "storage",    "implementation", "flag",   "core",    "removed core",
                  "mode",   "hidden box", "expression", "grey",           "units",  "port"});
    }
    void restoresEachEdit()
    {
        QFETCH(QString, edit);
        const QStringList ofStandard = {"storage",    "core", "removed core", "mode", "hidden box",
                                        "expression", "grey", "units",        "port"};
        if (m_mode == JEX::LiteMode && ofStandard.contains(edit))
            return;
        m_work->write("design.sv", wideDesign);
        const Shown shown(m_mode, withRows());
        QVERIFY(shown.opened);
        const QByteArray file = m_work->read("a.zub");
        const QByteArray first = stateOf(shown)->snapshot();
        const QStringList before = picture(shown);
        for (int round = 0; round < 2; ++round) { // the second from a state that was restored
            makeEdit(shown, edit);
            const QByteArray second = stateOf(shown)->snapshot();
            const QStringList after = picture(shown);
            QVERIFY(second != first);
            QVERIFY(before != after);
            QVERIFY(shown.view->isModified());
            QVERIFY(stateOf(shown)->restoreSnapshot(first));
            QCOMPARE(picture(shown), before);
            QCOMPARE(stateOf(shown)->snapshot(), first);
            QVERIFY(!shown.view->isModified());
            QVERIFY(stateOf(shown)->isSnapshotSaved());
            QVERIFY(!shown.view->windowTitle().contains('*'));
            QVERIFY(stateOf(shown)->restoreSnapshot(second));
            QCOMPARE(picture(shown), after);
            QCOMPARE(stateOf(shown)->snapshot(), second);
            QVERIFY(shown.view->isModified());
            QVERIFY(shown.view->shortTitle().contains('*'));
            QVERIFY(stateOf(shown)->restoreSnapshot(first));
        }
        QCOMPARE(m_work->read("a.zub"), file);
    }

    // The same expression, before and after the page looked at what its mode offers.
    void tellsGreyFromBlack()
    {
        if (m_mode == JEX::LiteMode)
            return;
        const Shown shown(m_mode, withRows());
        auto *mode = shown.find<QComboBox>("ModeComboBox");
        mode->setCurrentIndex(1);
        shown.find<QListWidget>("listExpression")->addItem("M12");
        shown.edit();
        const QByteArray black = stateOf(shown)->snapshot();
        mode->setCurrentIndex(0);
        mode->setCurrentIndex(1);
        const QByteArray grey = stateOf(shown)->snapshot();
        QVERIFY(black != grey);
        for (const QByteArray &state : {black, grey, black}) {
            QVERIFY(stateOf(shown)->restoreSnapshot(state));
            QCOMPARE(stateOf(shown)->snapshot(), state);
        }
    }

    // Whatever the user does meanwhile is neither ended nor part of it.
    void leavesEverythingAlone()
    {
        const Shown shown(m_mode, withRows());
        const QByteArray first = stateOf(shown)->snapshot();
        QSignalSpy modified(shown.view, SIGNAL(modificationStatusChanged(bool)));
        shown.captureRows()->setCurrentItem(shown.captureRows()->topLevelItem(1));
        rowsOf(shown)->onChangeName();
        QTest::keyClicks(shown.captureRows()->viewport()->findChild<QLineEdit *>(), "typed");
        QCOMPARE(stateOf(shown)->snapshot(), first);
        QVERIFY(shown.captureRows()->viewport()->findChild<QLineEdit *>());
        QCOMPARE(modified.size(), 0);
        rowsOf(shown)->finishEdit();
        QVERIFY(stateOf(shown)->snapshot() != first);
        QVERIFY(stateOf(shown)->snapshot().contains("typed"));
    }

    // What was saved last, and what is read anew, are not touched: a design that is read again shows the
    // stored rows.
    void leavesTheRecordsAlone()
    {
        const Shown shown(m_mode, withRows());
        choose(shown, {0});
        shown.find<QPushButton>("btnRemove")->click();
        const QByteArray fewer = stateOf(shown)->snapshot();
        QVERIFY(stateOf(shown)->restoreSnapshot(fewer));
        const int rows = shown.captureRows()->topLevelItemCount();
        QVERIFY(QMetaObject::invokeMethod(shown.view, "readRtlNetlist"));
        QCOMPARE(shown.captureRows()->topLevelItemCount(), rows + 1);
        QVERIFY(stateOf(shown)->snapshot() != fewer);
        QVERIFY(stateOf(shown)->restoreSnapshot(fewer));
        QCOMPARE(shown.captureRows()->topLevelItemCount(), rows);
    }

    void keepsThePlace()
    {
        m_work->write("design.sv", wideDesign);
        const Shown shown(m_mode, withRows(60));
        shown.pages()->setCurrentIndex(shown.pages()->count() - 1);
        auto *tabs = qobject_cast<QTabWidget *>(shown.pages()->currentWidget());
        tabs->setCurrentIndex(tabs->count() - 1);
        QTreeWidget *rows = shown.captureRows();
        const QByteArray first = stateOf(shown)->snapshot();
        choose(shown, {0, 1});
        rowsOf(shown)->onDisable();
        rows->topLevelItem(0)->setExpanded(true);
        choose(shown, {10, 12});
        rows->verticalScrollBar()->setValue(5);
        const int scrolled = rows->verticalScrollBar()->value();
        QVERIFY(scrolled > 0);
        QVERIFY(stateOf(shown)->restoreSnapshot(first));
        QCOMPARE(shown.pages()->currentIndex(), shown.pages()->count() - 1);
        QCOMPARE(tabs->currentIndex(), tabs->count() - 1);
        QVERIFY(rows->topLevelItem(2)->isExpanded());
        QStringList chosen;
        for (int i = 0; i < rows->topLevelItemCount(); ++i) {
            if (rows->topLevelItem(i)->isSelected())
                chosen << QString::number(i);
        }
        QCOMPARE(chosen.join(' '), QString("12 14"));
        QCOMPARE(rows->verticalScrollBar()->value(), scrolled);
    }

    // A file whose save would be refused for its findings has a state all the same.
    void holdsFindings()
    {
        const Shown shown(m_mode, withRows());
        shown.find<QLineEdit>("editSampleClock")->setText("no such clock \"<&\n\t");
        const QByteArray bytes = stateOf(shown)->snapshot();
        RTLJEX::Snapshot snapshot;
        RTLJEX::Configuration configuration;
        QVERIFY(RTLJEX::Snapshot::fromBytes(bytes, &snapshot));
        QCOMPARE(snapshot.file, shown.view->file());
        QCOMPARE(int(snapshot.mode), int(m_mode));
        QVERIFY(RTLJEX::readSnapshot(snapshot, &configuration));
        QCOMPARE(*configuration.cores().first().clock, shown.find<QLineEdit>("editSampleClock")->text());
        // Another editor, as after a crash.
        const Shown other(m_mode, withRows());
        QVERIFY(stateOf(other)->restoreSnapshot(bytes));
        QCOMPARE(picture(other), picture(shown));
        QVERIFY(other.view->isModified());
    }

    void refusesOtherBytes()
    {
        const Shown shown(m_mode, withRows());
        const QByteArray good = stateOf(shown)->snapshot();
        shown.edit();
        const QByteArray edited = stateOf(shown)->snapshot();
        const QStringList before = picture(shown);
        QList<QByteArray> bad = {
            "",
            "x",
            m_work->read("a.zub"),
            good + '\n',
            good + good,
            good.left(good.size() - 4),
            QByteArray(good)
                .replace("Standard ", "Lite ")
                .replace("jexsnapshot 1 Lite",
                         m_mode == JEX::LiteMode ? "jexsnapshot 1 Standard" : "jexsnapshot 1 Lite"),
            QByteArray(good).replace("jexsnapshot 1", "jexsnapshot 2"),
            QByteArray(good).replace("top/clk", "top/clq"),
            QByteArray(good).replace("core 0 0", "core 0 1").replace("core 1 1", "core 1 1")};
        for (int size = 0; size < good.size(); size += 97)
            bad << good.left(size);
        for (const QByteArray &bytes : bad) {
            QVERIFY2(!stateOf(shown)->restoreSnapshot(bytes), bytes.constData());
            QCOMPARE(stateOf(shown)->snapshot(), edited);
        }
        QCOMPARE(picture(shown), before);
    }

private:
    // Two cores with a bus, a group and single nets; static trigger with all that it leaves out.
    QString withRows(int more = 0)
    {
        RTLJEX::Configuration configuration;
        QString error;
        if (!configuration.read(config("a.zub", 2), &error))
            qFatal("%s", qPrintable(error));
        QString words = "b:top/d[3:0]{top/d[3],top/d[2],top/d[1],top/d[0]} s:top/clk "
                        "g:group_0[1:0]{b:top/q[3],b:top/q[2]=two} b:top/q[0]";
        for (int i = 0; i < more; ++i)
            words += QString(" b:top/e[%1]=e%1 ").arg(i);
        for (const RTLJEX::AnyCore &core : configuration.cores())
            *core.signalRows = *core.enabledRows = signalsFromText(words);
        if (!configuration.write(m_work->path("a.zub"), &error))
            qFatal("%s", qPrintable(error));
        return m_work->path("a.zub");
    }

    // Which core is in view is none of its state.
    static QStringList picture(const Shown &shown)
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return QStringList(shown.cores().remove('*')) + drawn(shown.view, true);
    }

    void makeEdit(const Shown &shown, const QString &edit)
    {
        QTreeWidget *rows = shown.captureRows();
        const auto box = [&](const char *standard, const char *lite) {
            return shown.find<QComboBox>(shown.standard ? standard : lite);
        };
        if (edit == "clock")
            QTest::keyClicks(shown.find<QLineEdit>("editSampleClock"), "x");
        else if (edit == "falling")
            shown.find<QAbstractButton>("radioButtonFalling")->click();
        else if (edit == "group" || edit == "disable" || edit == "remove") {
            choose(shown, {1, 3});
            if (edit == "group")
                rowsOf(shown)->onMerge();
            else if (edit == "disable")
                rowsOf(shown)->onDisable();
            else
                shown.find<QPushButton>("btnRemove")->click();
        } else if (edit == "rename" || edit == "member") {
            rows->setCurrentItem(edit == "rename" ? rows->topLevelItem(1) : rows->topLevelItem(2)->child(0));
            rowsOf(shown)->onChangeName();
            QTest::keyClicks(rows->viewport()->findChild<QLineEdit *>(), "another name");
            rowsOf(shown)->finishEdit();
        } else if (edit == "reverse") {
            choose(shown, {0});
            rowsOf(shown)->onReverse();
        } else if (edit == "amount")
            box("comboCapAmount", "comboCapAmount")->setCurrentIndex(2);
        else if (edit == "storage")
            shown.find<QComboBox>("comboStorageSize")->setCurrentIndex(1); // another amount and position, too
        else if (edit == "implementation")
            makeImplementation(shown);
        else if (edit == "flag")
            shown.edit();
        else
            makeStandardEdit(shown, edit);
    }

    // Few bits, so that registers are offered, and more again, which leaves the choice to be kept as it is.
    static void makeImplementation(const Shown &shown)
    {
        shown.find<QComboBox>(shown.standard ? "comboStorageSize" : "comboCapAmount")->setCurrentIndex(0);
        QComboBox *box = shown.find<QComboBox>(shown.standard ? "comboImpl" : "implementation");
        box->setCurrentIndex(box->findText("REG"));
        QCOMPARE(box->currentText(), QString("REG"));
    }

    void makeStandardEdit(const Shown &shown, const QString &edit)
    {
        auto *mode = shown.find<QComboBox>("ModeComboBox");
        auto *implementation = shown.find<QComboBox>("ImpleComboBox");
        auto *expressions = shown.find<QListWidget>("listExpression");
        auto *units = shown.find<QTableView>("tableMu");
        if (edit == "core")
            shown.addCore();
        else if (edit == "removed core") {
            ModalDriver driver;
            driver.press(QMessageBox::Ok);
            shown.menu(0, "Remove");
        } else if (edit == "mode")
            mode->setCurrentIndex(1);
        else if (edit == "hidden box") {
            mode->setCurrentIndex(1);
            implementation->setCurrentIndex(implementation->findText("BSRAM"));
            mode->setCurrentIndex(0);
        } else if (edit == "expression") {
            delete expressions->takeItem(0);
            mode->setCurrentIndex(1); // which reports it
        } else if (edit == "grey") {
            expressions->addItem("M1|M12");
            expressions->insertItem(0, "M15");
            mode->setCurrentIndex(1);
        } else if (edit == "units") {
            units->model()->setData(units->model()->index(12, 0), Qt::Checked, Qt::CheckStateRole);
            mode->setCurrentIndex(1);
            units->model()->setData(units->model()->index(3, 0), Qt::Checked, Qt::CheckStateRole);
        } else
            editPort(shown);
    }

    // The dialog of a port, in which the only signal is reversed, renamed or removed.
    static void editPort(const Shown &shown)
    {
        auto *ports = shown.find<QTreeWidget>("treeTrigger");
        ModalDriver driver;
        driver.then([](QDialog *dialog) {
            QTreeWidget *rows = dialog->findChild<QTreeWidget *>();
            rows->topLevelItem(0)->setSelected(true);
            dialog->findChild<QPushButton *>("btnRemove")->click();
            leave(dialog);
        });
        Q_EMIT ports->itemDoubleClicked(ports->topLevelItem(0), 0);
        QTRY_VERIFY(driver.done());
        QTRY_COMPARE(ports->topLevelItem(0)->childCount(), 0);
    }
};

QTEST_MAIN(SnapshotsTest)
#include "tst_snapshots.moc"
