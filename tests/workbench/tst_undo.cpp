#include "check/configuration.h"
#include "host/isignaltarget.h"
#include "host/isnapshot.h"
#include "signals/signaltreewidget.h"
#include "tests/support/drawneditor.h"
#include "tests/support/drops.h"
#include "tests/support/rowtext.h"
#include "tests/support/tablerow.h"
#include "tests/workbench/editorwindow.h"
#include "views/editorview.h"
#include "views/reloadbanner.h"
#include "workbench/editmenu.h"

// The Edit menu of the workbench above the real editors, used as by mouse and keyboard; every test runs for
// both modes.
class UndoTest : public EditorWindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data()
    {
        QTest::addColumn<int>("mode");
        row("Standard", int(JEX::StandardMode));
        row("Lite", int(JEX::LiteMode));
    }

    void init()
    {
        QFETCH_GLOBAL(int, mode);
        m_isStandard = mode == JEX::StandardMode;
        makeProject();
        RTLJEX::Configuration configuration;
        QString error;
        const QString file = writeConfig(JEX::JexMode(mode), "a.zub");
        QVERIFY(configuration.read(file, &error));
        const RTLJEX::AnyCore core = configuration.cores().first();
        core.clock->clear();
        *core.signalRows = *core.enabledRows = signalsFromText("s:top/clk b:top/d[3] b:top/d[1] b:top/q[0]");
        QVERIFY(configuration.write(file, &error));
        showWindow();
        m_menu = m_window->findChild<Workbench::EditMenu *>();
        QVERIFY(m_workspace->openFile(file));
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        showCapture();
        m_first = state();
    }

    // Each edit is one step of its own name.
    void namesEachEdit()
    {
        QCOMPARE(texts(), QString("Undo | Redo"));
        QVERIFY(!m_menu->undoAction()->isEnabled());
        QVERIFY(!m_menu->redoAction()->isEnabled());
        const QList<QPair<QString, std::function<void()>>> edits = {
            {"Capture Initial Data",
             [&] { click(find<QWidget>(m_isStandard ? "chkBoxCaptureInitial" : "capIniDataCheckBox")); }},
            {"Falling", [&] { click(find<QWidget>("radioButtonFalling")); }},
            {"Capture Amount", [&] { QTest::keyClick(find<QWidget>("comboCapAmount"), Qt::Key_Up); }},
            {"Group",
             [&] {
                 chooseRows(2);
                 useMenu([&] { menuKey(); }, "Group");
             }},
            {"Rename",
             [&] {
                 QTest::keyClick(rows(), Qt::Key_F2);
                 QTest::keyClicks(rows()->viewport()->findChild<QLineEdit *>(), "bits");
                 QTest::keyClick(rows()->viewport()->findChild<QLineEdit *>(), Qt::Key_Return);
             }},
            {"Disable",
             [&] {
                 chooseRows(1);
                 useMenu([&] { menuKey(); }, "Disable");
             }},
            {"Remove",
             [&] {
                 chooseRows(1);
                 QTest::keyClick(rows(), Qt::Key_Delete);
             }},
            {"Clock", [&] { QTest::keyClicks(find<QLineEdit>("editSampleClock"), "top/clk"); }},
        };
        QList<QStringList> states;
        QStringList names;
        for (const auto &edit : edits) {
            edit.second();
            QCoreApplication::processEvents();
            QCOMPARE(texts(), "Undo " + edit.first + " | Redo");
            QVERIFY(view()->editedFile().isModified);
            states << picture();
            names << edit.first;
        }
        QCOMPARE(m_menu->historyOf(view())->stepCount(), edits.size());
        find<QWidget>("radioButtonFalling")->setFocus();
        for (int i = edits.size() - 1; i >= 0; --i) {
            QCOMPARE(picture(), states.at(i));
            QTest::keyClick(m_window.get(), Qt::Key_Z, Qt::ControlModifier);
            QCOMPARE(texts(),
                     (i > 0 ? "Undo " + names.at(i - 1) : QString("Undo")) + " | Redo " + names.at(i));
        }
        QCOMPARE(state(), m_first);
        QVERIFY(!view()->editedFile().isModified);
        for (int i = 0; i < edits.size(); ++i) {
            QTest::keyClick(m_window.get(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
            QCOMPARE(picture(), states.at(i));
        }
        QVERIFY(!m_menu->redoAction()->isEnabled());
    }

    // By what opened it, or by itself.
    void namesDialogs()
    {
        ModalDriver driver;
        driver.then([](QDialog *dialog) {
            QTest::mouseClick(dialog->findChild<QPushButton *>("pushButtonSearch"), Qt::LeftButton);
            dialog->findChild<QTreeWidget *>()->selectAll();
            leave(dialog);
        });
        click(find<QWidget>("btnAdd"));
        QCOMPARE(texts() + driver.seen.filter("unexpected").join(""), QString("Undo Add | Redo"));
        if (!m_isStandard)
            return;
        auto *units = find<QTableView>("tableMu");
        qobject_cast<QTabWidget *>(pages()->currentWidget())->setCurrentIndex(0);
        driver.then([](QDialog *dialog) {
            QTest::keyClicks(dialog->findChild<QLineEdit *>("editValue"), "0");
            leave(dialog);
        });
        doubleClick(units, units->model()->index(0, 2));
        QTRY_VERIFY(driver.done());
        QTRY_COMPARE(texts(), QString("Undo Match Unit M0 | Redo"));
        const QPoint box = units->visualRect(units->model()->index(0, 0)).topLeft() + QPoint(8, 8);
        QTest::mouseClick(units->viewport(), Qt::LeftButton, Qt::NoModifier, box);
        QTRY_COMPARE(texts(), QString("Undo Match Units | Redo"));
    }

    // What comes from outside a page, by a key or by what ended an edit.
    void namesOtherWays()
    {
        const auto comesTo = [&](const char *name) {
            QCoreApplication::processEvents();
            return texts() == QString("Undo ") + name + " | Redo";
        };
        QApplication::clipboard()->setText("top/d[2]");
        chooseRows(1);
        QTest::keyClick(rows(), Qt::Key_V, Qt::ControlModifier);
        QVERIFY2(comesTo("Paste Signals"), qPrintable(texts()));
        dropOn(rows()->viewport(), "top/d[0]");
        QVERIFY2(comesTo("Add Signals"), qPrintable(texts()));
        QTest::keyClick(rows(), Qt::Key_Down, Qt::AltModifier);
        QVERIFY2(comesTo("Move"), qPrintable(texts()));
        const int steps = m_menu->historyOf(view())->stepCount();
        chooseRows(1);
        QTest::keyClick(rows(), Qt::Key_F2);
        QTest::keyClicks(rows()->viewport()->findChild<QLineEdit *>(), "bits");
        QWidget *falling = find<QWidget>("radioButtonFalling");
        QTest::mousePress(falling, Qt::LeftButton, Qt::NoModifier, QPoint(8, falling->height() / 2));
        QVERIFY2(comesTo("Rename"), qPrintable(texts()));
        QTest::mouseRelease(falling, Qt::LeftButton, Qt::NoModifier, QPoint(8, falling->height() / 2));
        QVERIFY2(comesTo("Falling"), qPrintable(texts()));
        QCOMPARE(m_menu->historyOf(view())->stepCount(), steps + 2);
        if (!m_isStandard)
            return;
        QMenu *menu = action("Duplicate Core")->menu();
        Q_EMIT static_cast<QMenu *>(menu->parentWidget())->aboutToShow();
        useMenu([menu] { menu->popup(QPoint()); }, "Core 0");
        QVERIFY2(comesTo("Duplicate Core"), qPrintable(texts()));
    }

    // A port stays open as long as it is there, and rows of it stay selected.
    void keepsPortsOpen()
    {
        if (!m_isStandard)
            return;
        qobject_cast<QTabWidget *>(pages()->currentWidget())->setCurrentIndex(0);
        auto *ports = find<QTreeWidget>("treeTrigger");
        auto *target = dynamic_cast<Core::ISignalTarget *>(view());
        const auto add = [&](const char *name) {
            QMimeData net;
            net.setText(name);
            QStringList faults;
            ports->setCurrentItem(ports->topLevelItem(0));
            QVERIFY(target->addSignals(net, nullptr, QPoint(), &faults));
            QCoreApplication::processEvents();
        };
        add("top/d[2]");
        add("top/d[0]");
        ports->topLevelItem(0)->child(1)->setSelected(true);
        undo();
        QCOMPARE(ports->topLevelItem(0)->childCount(), 2);
        QVERIFY(ports->topLevelItem(0)->isExpanded());
        QVERIFY(ports->topLevelItem(0)->child(1)->isSelected());
        redo();
        QCOMPARE(ports->topLevelItem(0)->childCount(), 3);
        QVERIFY(ports->topLevelItem(0)->isExpanded());
        QVERIFY(ports->topLevelItem(0)->child(1)->isSelected());
    }

    // Until the box has nothing to take back by itself.
    void leavesTypingToItsBox()
    {
        auto *clock = find<QLineEdit>("editSampleClock");
        click(find<QWidget>("radioButtonFalling"));
        clock->setFocus();
        QTest::keyClicks(clock, "abc");
        QCoreApplication::processEvents();
        QCOMPARE(m_menu->historyOf(view())->stepCount(), 2);
        QTest::keyClick(clock, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(clock->text(), QString());
        QCoreApplication::processEvents();
        QCOMPARE(texts(), QString("Undo Falling | Redo Clock"));
        QTest::keyClick(clock, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCoreApplication::processEvents();
        QCOMPARE(clock->text() + ' ' + texts(), QString("abc Undo Clock | Redo"));
        QTest::keyClick(clock, Qt::Key_Z, Qt::ControlModifier);
        QTest::keyClick(clock, Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(find<QAbstractButton>("radioButtonRising")->isChecked());
        QCOMPARE(state(), m_first);
        // By the menu it is the whole burst at once.
        QTest::keyClicks(clock, "abc");
        m_menu->undoAction()->trigger();
        QCOMPARE(state(), m_first);
        // A name that is being typed counts as an edit, and is taken back.
        chooseRows(1);
        QTest::keyClick(rows(), Qt::Key_F2);
        QTest::keyClicks(rows()->viewport()->findChild<QLineEdit *>(), "bits");
        QVERIFY(!m_menu->undoAction()->isEnabled());
        m_menu->undoAction()->setEnabled(true); // as it is while there is any step
        m_menu->undoAction()->trigger();
        QCOMPARE(texts(), QString("Undo | Redo Rename"));
        QCOMPARE(state(), m_first);
    }

    void followsSaving()
    {
        const ModalDriver nobodyAsks;
        const auto flag = [&] { click(find<QWidget>("radioButtonFalling")); };
        QTest::keyClicks(find<QLineEdit>("editSampleClock"), "top/clk");
        save()->trigger();
        QCOMPARE(marks(), QString("-"));
        const QByteArray saved = m_dir->read("a.zub");
        QVERIFY(saved.contains("top/clk\" edge=\"rising"));
        flag();
        QCOMPARE(marks(), QString("*"));
        undo();
        QCOMPARE(marks(), QString("-"));
        QVERIFY(!save()->isEnabled());
        undo(); // beyond the save
        QCOMPARE(texts() + ' ' + marks(), QString("Undo | Redo Clock *"));
        QVERIFY(save()->isEnabled());
        redo();
        QCOMPARE(marks(), QString("-"));
        QCOMPARE(m_dir->read("a.zub"), saved);
        redo();
        QCOMPARE(texts() + ' ' + marks(), QString("Undo Falling | Redo *"));
    }

    void beginsAnewWithTheFile()
    {
        click(find<QWidget>("radioButtonFalling"));
        QCOMPARE(texts(), QString("Undo Falling | Redo"));
        QVERIFY(view()->reloadFile());
        QCoreApplication::processEvents();
        QCOMPARE(texts(), QString("Undo | Redo"));
        showCapture();
        chooseRows(1);
        click(find<QWidget>("btnRemove"));
        QCOMPARE(texts(), QString("Undo Remove | Redo"));
        undo();
        QCOMPARE(rows()->topLevelItemCount(), 4);
    }

    // It drops the rows that were not saved, and they come back.
    void takesADesignForAStep()
    {
        chooseRows(2);
        click(find<QWidget>("btnRemove"));
        const QStringList before = picture();
        static_cast<RTLJEX::EditorView *>(view())->designFileChanged();
        click(shownButton(view()->findChild<RTLJEX::ReloadBanner *>(), "Reload"));
        QTRY_COMPARE(rows()->topLevelItemCount(), 4);
        QCoreApplication::processEvents();
        QCOMPARE(texts(), QString("Undo Reload | Redo"));
        undo();
        QCOMPARE(picture(), before);
        undo();
        QCOMPARE(rows()->topLevelItemCount(), 4);
    }

    void followsCores()
    {
        if (!m_isStandard)
            return;
        auto *cores = view()->findChild<QTreeWidget *>("treeWidget");
        const auto choose = [&](int row, const QString &entry) {
            const QPoint at = row < 0 ? cores->viewport()->rect().bottomLeft()
                                      : cores->visualItemRect(cores->topLevelItem(row)).center();
            useMenu([&] { Q_EMIT cores->customContextMenuRequested(at); }, entry);
            QCoreApplication::processEvents();
        };
        choose(-1, "Add");
        showCapture();
        QTest::keyClicks(find<QLineEdit>("editSampleClock"), "second");
        choose(-1, "Add");
        QCOMPARE(rowNames(cores), QString("Core 0 Core 1 Core 2"));
        const QStringList three = picture();
        ModalDriver driver;
        driver.press(QMessageBox::Ok);
        choose(1, "Remove");
        QCOMPARE(texts() + ' ' + rowNames(cores), QString("Undo Remove | Redo Core 0 Core 1"));
        undo();
        QCOMPARE(rowNames(cores), QString("Core 0 Core 1 Core 2"));
        QCOMPARE(picture(), three);
        for (const char *left : {"Core 0 Core 1", "Core 0 Core 1", "Core 0"}) {
            undo();
            QCOMPARE(rowNames(cores), QString(left));
        }
        QCOMPARE(state(), m_first);
        for (int i = 0; i < 3; ++i)
            redo();
        QCOMPARE(picture(), three);
    }

private:
    static QByteArray state() { return dynamic_cast<Core::ISnapshot *>(view())->snapshot(); }
    static QStringList picture()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return drawn(view(), true);
    }
    static QString marks()
    {
        const bool isModified = view()->editedFile().isModified;
        return isModified == view()->shortTitle().endsWith('*') ? (isModified ? "*" : "-") : "title";
    }

    QStackedWidget *pages() const { return view()->findChild<QStackedWidget *>("stackedWidget"); }
    template <class Widget>
    Widget *find(const char *name) const
    {
        return pages()->currentWidget()->findChild<Widget *>(name);
    }
    RTLJEX::signalTreeWidget *rows() const
    {
        return find<RTLJEX::signalTreeWidget>(m_isStandard ? "treeWidgetCapSigs" : "treeWidgetSignal");
    }
    void showCapture() const
    {
        auto *tabs = qobject_cast<QTabWidget *>(pages()->currentWidget());
        tabs->setCurrentIndex(tabs->count() - 1);
    }
    void chooseRows(int count) const
    {
        m_window->activateWindow(); // after a menu
        rows()->setFocus();
        QTRY_VERIFY(rows()->hasFocus());
        rows()->clearSelection();
        rows()->setCurrentItem(rows()->topLevelItem(0));
        for (int i = 1; i < count; ++i)
            rows()->topLevelItem(i)->setSelected(true);
    }
    void menuKey() const
    {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint());
        QApplication::sendEvent(rows(), &event);
    }
    static void click(QWidget *button)
    {
        QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, QPoint(8, button->height() / 2));
        QCoreApplication::processEvents();
    }
    void undo() const { m_menu->undoAction()->trigger(); }
    void redo() const { m_menu->redoAction()->trigger(); }
    QString texts() const
    {
        QString texts = m_menu->undoAction()->text() + " | " + m_menu->redoAction()->text();
        return texts.remove('&');
    }

    bool m_isStandard = false;
    Workbench::EditMenu *m_menu = nullptr;
    QByteArray m_first;
};

QTEST_MAIN(UndoTest)
#include "tst_undo.moc"
