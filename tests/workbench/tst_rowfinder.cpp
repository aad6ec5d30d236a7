#include "host/ifileeditor.h"
#include "tests/workbench/editorwindow.h"
#include "workbench/rowfinder.h"

// Ctrl+F over the capture list of a real editor.
class RowFinderTest : public EditorWindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        EditorWindowTest::initTestCase();
        makeProject();
        JEX::AoCore core(0);
        core.captureSignals << signalFromText("s:top/clk=Takt")
                            << signalFromText("b:top/q[1:0]{top/q[1],top/q[0]}")
                            << signalFromText("b:top/d[0]");
        QList<JEX::AoCore *> cores = {&core};
        QVERIFY(JEX::writeJEXConfigToXml(cores, m_dir->path("a.zub")));
        showWindow();
        QVERIFY(m_workspace->openProject(m_dir->path("p.jexprj")));
        QVERIFY(!action("Find...")->isEnabled());
        QVERIFY(m_workspace->openFile(m_dir->path("a.zub")));
        m_view = view();
        dynamic_cast<Core::IFileEditor *>(m_view)->showPlace("core 0 tab 1");
        m_list = m_view->findChild<QTreeWidget *>("treeWidgetCapSigs");
    }
    void cleanupTestCase()
    {
        EditorWindowTest::cleanup();
        EditorWindowTest::cleanupTestCase();
    }
    void cleanup() {}

    void findsRows()
    {
        action("Find...")->trigger();
        auto *finder = m_window->findChild<Workbench::RowFinder *>();
        auto *text = finder->findChild<QLineEdit *>("findRow");
        auto *result = finder->findChild<QLabel *>("findRowResult");
        QVERIFY(finder->isVisible());
        QTest::keyClicks(text, "TOP/Q");
        QCOMPARE(m_list->currentItem()->text(0) + ' ' + result->text(), QString("top/q[1:0] 1 of 3"));
        QTest::keyClick(text, Qt::Key_Return);
        QCOMPARE(m_list->currentItem()->text(0), QString("top/q[1]"));
        QVERIFY(m_list->topLevelItem(1)->isExpanded());
        action("Find Previous")->trigger();
        action("Find Previous")->trigger(); // around the end
        QCOMPARE(m_list->currentItem()->text(0) + ' ' + result->text(), QString("top/q[0] 3 of 3"));
        text->clear();
        QTest::keyClicks(text, "clk"); // of the row that is shown as Takt
        QCOMPARE(m_list->currentItem()->text(0), QString("Takt"));
        QTest::keyClicks(text, "nowhere");
        QCOMPARE(result->text(), QString("Not found"));
        QCOMPARE(m_list->currentItem()->text(0), QString("Takt"));
        QTest::keyClick(text, Qt::Key_Escape);
        QVERIFY(!finder->isVisible());
        QVERIFY(!m_view->editedFile().isModified);
    }

    // Also when rows come back.
    void countsAnewAfterEdits()
    {
        action("Find...")->trigger();
        auto *text = m_window->findChild<QLineEdit *>("findRow");
        auto *result = m_window->findChild<QLabel *>("findRowResult");
        text->clear();
        QTest::keyClicks(text, "top/q");
        QCOMPARE(result->text(), QString("1 of 3"));
        m_list->clearSelection();
        m_list->topLevelItem(1)->setSelected(true);
        QTest::mouseClick(m_view->findChild<QWidget *>("btnRemove"), Qt::LeftButton);
        QTRY_COMPARE(result->text(), QString("Not found"));
        action("Undo Remove")->trigger();
        QTRY_VERIFY2(result->text() == "1 of 3" || result->text() == "3 found", qPrintable(result->text()));
        QTest::keyClick(text, Qt::Key_Escape);
    }

    // Not the list of cores, which is the larger one beside the trigger ports.
    void findsOnThePageInFront()
    {
        dynamic_cast<Core::IFileEditor *>(m_view)->showPlace("core 0 tab 0");
        m_view->findChild<QTreeWidget *>("treeWidget")->setFocus();
        action("Find...")->trigger();
        auto *text = m_window->findChild<QLineEdit *>("findRow");
        text->clear();
        QTest::keyClicks(text, "port 11");
        QCOMPARE(m_view->findChild<QTreeWidget *>("treeTrigger")->currentItem()->text(0),
                 QString("Trigger Port 11"));
        dynamic_cast<Core::IFileEditor *>(m_view)->showPlace("core 0 tab 1");
    }

    void theListMayGo()
    {
        action("Find...")->trigger();
        auto *text = m_window->findChild<QLineEdit *>("findRow");
        text->clear();
        QTest::keyClicks(text, "top");
        QVERIFY(m_view->reloadFile()); // makes its pages anew
        QTest::keyClick(text, Qt::Key_Return);
        Core::ViewManager::instance()->closeAllViews();
        QTest::keyClick(text, Qt::Key_Return);
        QVERIFY(!action("Find...")->isEnabled());
    }

private:
    Core::IView *m_view = nullptr;
    QTreeWidget *m_list = nullptr;
};

QTEST_MAIN(RowFinderTest)
#include "tst_rowfinder.moc"
