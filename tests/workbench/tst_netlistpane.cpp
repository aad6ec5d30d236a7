#include "host/isignaltarget.h"
#include "tests/support/drops.h"
#include "tests/support/tablerow.h"
#include "tests/workbench/editorwindow.h"
#include "workbench/messagemodel.h"
#include "workbench/netlistpane.h"

// Two levels; "tied" must not be probed.
const char design[] = "module leaf(input clk, input [3:0] d, output reg [3:0] q);\n"
                      "  always @(posedge clk) q <= d;\nendmodule\n"
                      "module top(input clk, input [3:0] d, output [3:0] q, output done);\n"
                      "  wire tied = 1'b0; wire [3:0] mid;\n"
                      "  leaf u_a(.clk(clk), .d(d), .q(mid)); leaf u_b(.clk(clk), .d(mid), .q(q));\n"
                      "  assign done = &q;\nendmodule\n";

static QString rowsOf(const QAbstractItemModel *model)
{
    QStringList rows;
    for (int row = 0; row < model->rowCount(); ++row) {
        const bool chosen = model->index(row, 0).flags() & Qt::ItemIsSelectable;
        rows << (chosen ? "" : "-") + model->index(row, 0).data().toString() + ':' +
                    model->index(row, 1).data().toString();
    }
    return rows.join(' ');
}

// The real editor in the real window: nets of the design on their way into its lists and from list to list.
class NetlistPaneTest : public EditorWindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        makeProject(design);
        writeConfig(JEX::StandardMode, "s.zub");
        writeConfig(JEX::LiteMode, "l.zub");
        showWindow();
        QVERIFY(m_workspace->openProject(m_dir->path("p.jexprj")));
        m_pane = m_window->findChild<Workbench::NetlistPane *>();
        m_pattern = m_pane->findChildren<QComboBox *>().first();
        for (QTreeView *view : m_pane->findChildren<QTreeView *>())
            (view->accessibleName() == "Nets" ? m_nets : m_tree) = view;
        m_window->findChild<QDockWidget *>("netlistDock")->raise();
    }

    void filter_data()
    {
        textColumns("instance", "syntax", "nets");
        row("", "top", "0", "d[3:0]:4 q[3:0]:4 mid[3:0]:4 clk:1 done:1 -tied:1");
        row("", "u_b", "0", "d[3:0]:4 q[3:0]:4 clk:1");
        row("Q", "top", "0", "q[3:0]:4 u_a/q[3:0]:4 u_b/q[3:0]:4");
        row("u_", "u_a", "0", "d[3:0]:4 q[3:0]:4 clk:1");
        row("*/u_?/c*", "top", "1", "u_a/clk:1 u_b/clk:1");
        row("top/(done|clk)", "top", "2", "clk:1 done:1");
        row("top/(done", "top", "2", "");
    }
    void filter()
    {
        QFETCH(QString, instance);
        waitForDesign();
        const QModelIndexList found =
            m_tree->model()->match(m_tree->model()->index(0, 0), Qt::DisplayRole, instance, 1,
                                   Qt::MatchExactly | Qt::MatchRecursive);
        QCOMPARE(found.size(), 1);
        m_tree->setCurrentIndex(found.first());
        QFETCH(QString, syntax);
        m_pane->findChildren<QComboBox *>().at(1)->setCurrentIndex(syntax.toInt());
        m_pattern->setEditText(QTest::currentDataTag());
        QFETCH(QString, nets);
        QTRY_COMPARE(rowsOf(m_nets->model()), nets);
    }

    // Nor are they pictures, which a tool tip would read from wherever they say.
    void namesAreNoMarkup()
    {
        m_dir->write("top.v", "module top(input clk);\n wire \\<b>x = clk; leaf \\<b>u (clk);\nendmodule\n"
                              "module leaf(input clk); endmodule\n");
        waitForDesign();
        m_pattern->setEditText("<b>x");
        QTRY_COMPARE(rowsOf(m_nets->model()), QString("<b>x:1"));
        const QModelIndex instance = m_tree->model()->index(0, 0, m_tree->model()->index(0, 0));
        for (const QModelIndex &index : {m_nets->model()->index(0, 0), instance}) {
            QTextDocument shown;
            shown.setHtml(index.data(Qt::ToolTipRole).toString());
            QVERIFY2(shown.toPlainText().contains("top/<b>"), qPrintable(shown.toPlainText()));
        }
    }

    // A source that is edited is read anew, and the place is kept; one that cannot be read says why.
    void followsTheSources()
    {
        waitForDesign();
        m_tree->setCurrentIndex(m_tree->model()->index(1, 0, m_tree->model()->index(0, 0)));
        QString text = design;
        m_dir->write("top.v", text.replace("reg [3:0] q", "reg [3:0] other")
                                  .replace("q <= d", "other <= d")
                                  .replace(".q(", ".other(")
                                  .toUtf8());
        QTRY_COMPARE_WITH_TIMEOUT(rowsOf(m_nets->model()), QString("d[3:0]:4 other[3:0]:4 clk:1"), 30000);
        QCOMPARE(m_tree->currentIndex().data().toString(), QString("u_b"));
        m_dir->write("top.v", "module top(; endmodule\n");
        QTRY_VERIFY_WITH_TIMEOUT(status().contains("cannot be read"), 30000);
        QVERIFY2(status().contains("top.v:1"), qPrintable(status()));
        QCOMPARE(rowsOf(m_nets->model()), QString("d[3:0]:4 other[3:0]:4 clk:1"));
        QVERIFY(m_workspace->closeProject());
        QTRY_COMPARE(rowsOf(m_nets->model()), QString());
    }

    void intoTheLists()
    {
        waitForDesign();
        QVERIFY(m_workspace->openFile(m_dir->path("s.zub")));
        // By Return, to where the user is at work; the one before leads from the filter to the list.
        QApplication::setActiveWindow(m_window.get());
        m_pattern->setFocus();
        QTest::keyClick(m_pattern, Qt::Key_Return);
        QTest::keyClick(m_nets, Qt::Key_Return);
        QVERIFY(lastMessage().contains("Choose a"));
        choose("d[3:0]");
        QTreeWidget *ports = view()->findChild<QTreeWidget *>("treeTrigger");
        ports->setCurrentItem(ports->topLevelItem(0));
        QTest::keyClick(m_nets, Qt::Key_Return);
        QVERIFY(lastMessage().endsWith("Added to trigger port 0."));
        QTest::keyClick(m_nets, Qt::Key_Return);
        QVERIFY(lastMessage().endsWith("Nothing was added to trigger port 0: it is all there already."));
        QCOMPARE(chosen(), QString("top/clk top/d[3:0]"));
        // By a drag, to where it is dropped. The tree of ports takes none itself, so the editor gets it.
        const QPoint port = ports->visualItemRect(ports->topLevelItem(2)).center();
        QCOMPARE(dropOn(view(), "top/u_a/q\n", ports->viewport()->mapTo(view(), port)), Qt::CopyAction);
        QCOMPARE(chosen(), QString("top/u_a/q[3:0]"));
        view()->findChild<QTabWidget *>()->setCurrentIndex(1);
        QTreeWidget *list = view()->findChild<QTreeWidget *>("treeWidgetCapSigs");
        dropOn(list->viewport(), "tb.top.u_b.q[1]\tand more\n# no name\ntop/nothing\ntop/tied\n");
        list->selectAll();
        QCOMPARE(chosen(), QString("top/clk top/u_b/q[1]"));
        QVERIFY(pane().contains("top/nothing is missing in the design"));
        QVERIFY(pane().contains("top/tied must not be probed"));
        QVERIFY(view()->editedFile().isModified);
        // A bit gives way to its bus.
        dropOn(list->viewport(), "top/u_b/q");
        list->selectAll();
        QCOMPARE(chosen(), QString("top/clk top/u_b/q[3:0]"));
    }

    // From one file to another with all that the user made of a row.
    void copyAndPaste()
    {
        QVERIFY(m_workspace->openFile(m_dir->path("s.zub")));
        view()->findChild<QTabWidget *>()->setCurrentIndex(1);
        auto *from = view()->findChild<QTreeWidget *>("treeWidgetCapSigs");
        dropOn(from->viewport(), "top/done\ntop/d\ntop/u_a/q");
        from->clearSelection();
        from->topLevelItem(2)->setSelected(true);
        from->topLevelItem(3)->setSelected(true);
        QVERIFY(QMetaObject::invokeMethod(from, "onMerge"));
        from->selectAll();
        m_window->findChild<QAction *>("copySignals")->trigger();
        QCOMPARE(QApplication::clipboard()->text().split('\n').first(), QString("top/clk"));
        QVERIFY(m_workspace->openFile(m_dir->path("l.zub")));
        m_window->findChild<QAction *>("pasteSignals")->trigger();
        auto *to = view()->findChild<QTreeWidget *>("treeWidgetSignal");
        to->selectAll();
        QStringList texts;
        for (int i = 0; i < to->topLevelItemCount(); ++i)
            texts << to->topLevelItem(i)->text(0) + '*' + QString::number(to->topLevelItem(i)->childCount());
        QCOMPARE(texts.join(' '), QString("top/clk*0 top/d[3:0]*4 group_0[4:0]*5"));
        // What others put on the clipboard is looked at.
        auto *data = new QMimeData;
        data->setData("application/x-jex-signals", "<jexconfig version=\"1\" mode=\"Lite\"><core");
        data->setText("top/q");
        QApplication::clipboard()->setMimeData(data);
        m_window->findChild<QAction *>("pasteSignals")->trigger();
        QCOMPARE(to->topLevelItemCount(), 3);
    }

    // A key that was meant for another window.
    void pasteOfALongText()
    {
        QVERIFY(m_workspace->openFile(m_dir->path("l.zub")));
        QString text;
        for (int i = 0; i < 200000; ++i)
            text += QString("%1 is a line of a log\n").arg(i);
        QApplication::clipboard()->setText(text + "top/q\n");
        const auto *messages = m_window->findChild<Workbench::MessagePane *>();
        const int before = messages->model()->rowCount();
        m_window->findChild<QAction *>("pasteSignals")->trigger();
        QVERIFY(messages->model()->rowCount() - before < 100);
        QVERIFY(pane().contains("E And 199950 more like that."));
        QCOMPARE(view()->findChild<QTreeWidget *>("treeWidgetSignal")->topLevelItemCount(), 2);
        QApplication::clipboard()->setText("top/ready\n" + QString("x\n").repeated(1000000));
        m_window->findChild<QAction *>("pasteSignals")->trigger();
        QVERIFY(pane().contains("There are 1000001 names, of which the first 250000 were looked up."));
    }

    // One step of undo, with what was not saved; at most 16 cores.
    void duplicateCore()
    {
        QVERIFY(m_workspace->openFile(m_dir->path("s.zub")));
        view()->findChild<QTabWidget *>()->setCurrentIndex(1);
        dropOn(view()->findChild<QTreeWidget *>("treeWidgetCapSigs")->viewport(), "top/done");
        QMenu *menu = action("Duplicate Core")->menu();
        auto *edit = qobject_cast<QMenu *>(menu->menuAction()->associatedWidgets().first());
        QTreeWidget *cores = view()->findChild<QTreeWidget *>("treeWidget");
        for (int count = 2; count <= 16; ++count) {
            Q_EMIT edit->aboutToShow();
            QVERIFY(menu->isEnabled());
            QCOMPARE(menu->actions().size(), count - 1);
            menu->actions().first()->trigger();
            QCOMPARE(cores->topLevelItemCount(), count);
            QCoreApplication::processEvents();
        }
        Q_EMIT edit->aboutToShow();
        QVERIFY(!menu->isEnabled());
        QCOMPARE(cores->topLevelItem(15)->text(0), QString("Core 15"));
        QVERIFY(cores->topLevelItem(15)->isSelected()); // the copy is shown
        QTRY_VERIFY(view()->findChildren<QTreeWidget *>("treeWidgetCapSigs").size() == 16);
        QTreeWidget *last = view()->findChildren<QTreeWidget *>("treeWidgetCapSigs").last();
        QCOMPARE(last->topLevelItemCount(), 2);
        QTRY_VERIFY(edit->actions().first()->isEnabled());
        edit->actions().first()->trigger();
        QCOMPARE(cores->topLevelItemCount(), 15);
    }

private:
    void waitForDesign()
    {
        QTRY_COMPARE_WITH_TIMEOUT(m_tree->model()->rowCount(), 1, 30000);
        QTRY_VERIFY(m_nets->model()->rowCount() > 0);
    }
    QString status() { return m_pane->findChildren<QLabel *>().last()->text(); }
    QString lastMessage() { return pane().trimmed().section('\n', -1); }
    void choose(const QString &name)
    {
        const QModelIndexList found =
            m_nets->model()->match(m_nets->model()->index(0, 0), Qt::DisplayRole, name);
        m_nets->setCurrentIndex(found.value(0));
        m_nets->setFocus();
    }
    QString chosen()
    {
        const std::unique_ptr<QMimeData> data(dynamic_cast<Core::ISignalTarget *>(view())->chosenSignals());
        return data ? data->text().trimmed().replace('\n', ' ') : QString();
    }

    Workbench::NetlistPane *m_pane = nullptr;
    QComboBox *m_pattern = nullptr;
    QTreeView *m_tree = nullptr;
    QTreeView *m_nets = nullptr;
};

QTEST_MAIN(NetlistPaneTest)
#include "tst_netlistpane.moc"
