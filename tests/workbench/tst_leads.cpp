#include "host/ifileeditor.h"
#include "tests/support/messagelist.h"
#include "tests/support/rowtext.h"
#include "tests/support/tablerow.h"
#include "tests/workbench/editorwindow.h"
#include "workbench/optionsdialog.h"
#include "workbench/projecttree.h"
#include "workbench/sourceedit.h"
#include "workbench/sourceview.h"

const char design[] = R"(module sub(input clk, output reg [1:0] k, output s);
  assign s = clk;
  always @(posedge clk) k <= k + 1;
endmodule
module top(input clk, output [1:0] a, b, output sa, sb);
  sub now(.clk(clk), .k(a), .s(sa));
  sub other(.clk(clk), .k(b), .s(sb));
endmodule
)";

// A clock that is misspelled, signals of an instance that has another name now, and one that is gone.
const char stale[] = R"(<jexconfig version="1" mode="Standard"><core number="0" clock="top/clok">
<port number="1"><signal name="top/was/s"/><signal name="top/clk"/></port>
<expression text="M7"/>
<signals><signal name="top/clk"/>
<signal name="top/was/k[1:0]" type="bus"><signal name="top/was/k[1]"/><signal name="top/was/k[0]"/></signal>
<signal name="top/was/s"/><signal name="top/was/gone"/></signals></core></jexconfig>)";

const char staleStandard[] = R"(<jexconfig version="1" mode="Standard">
<core number="0" clock="top/clk"><signals/></core>
<core number="4" clock="top/clok">
<port number="2"><signal name="top/d[3]"/>
<signal name="top/gone"/></port>
<signals><signal name="top/clk"/><signal name="group_0[1:0]"><signal name="top/clk"/><signal name="top/k[1]"/>
</signal></signals></core></jexconfig>)";
const char staleLite[] = R"(<jexconfig version="1" mode="Lite"><core number="0" clock="top/clk">
<signals><signal name="top/clk"/><signal name="top/k[1]"/></signals></core>
<core number="3" clock="top/clk"><signals><signal name="top/gone"/></signals></core></jexconfig>)";

// From messages to what they are about, in the real editor in the real window.
class LeadsTest : public EditorWindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_user.beginAnew();
        makeProject(design);
        m_source = m_dir->path("top.v");
        showWindow();
        m_pane = m_window->findChild<Workbench::MessagePane *>();
    }
    void cleanup()
    {
        EditorWindowTest::cleanup();
        QVERIFY(m_user.done());
    }

    // The stale signals of a file, and the way from there to their rows.
    void listsAndShows_data()
    {
        // "findings": line of the pane -> widget that is focused: its row
        columns<QString, QStringList>("text", "findings");
        row("Standard", staleStandard,
            QStringList{"f.zub: Core 4: clock signal top/clok is missing in the design; nearest: top/clk "
                        "-> editSampleClock: ",
                        "f.zub: Core 4: trigger port 2 signal top/gone is missing in the design "
                        "-> treeTrigger: top/gone",
                        "f.zub: Core 4: capture signal top/k[1] of group_0[1:0] is missing in the design "
                        "-> treeWidgetCapSigs: top/k[1]"});
        row("Lite", staleLite,
            QStringList{"f.zub: Core 0: capture signal top/k[1] is missing in the design "
                        "-> treeWidgetSignal: top/k[1]",
                        "f.zub: Core 1: capture signal top/gone is missing in the design "
                        "-> treeWidgetSignal: top/gone"});
    }
    void listsAndShows()
    {
        auto [text, findings] = cells<QString, QStringList>("text", "findings");
        m_dir->write("top.v", counterDesign);
        open(text.toUtf8());
        QTRY_VERIFY(pane().contains(findings.last().section(" -> ", 0, 0)));
        QCOMPARE(pane().count("signal top/"), findings.size());
        for (const QString &finding : findings) {
            const QString line = finding.section(" -> ", 0, 0);
            doubleClickMessage(m_pane, line);
            QCOMPARE(line + " -> " + focused(), finding);
        }
        // The design changes, and the editor reads it again.
        m_dir->write("top.v", "module top(input clk, clok, gone, input [3:0] d, output [1:0] k);\n"
                              "  assign k = d[1:0];\nendmodule\n");
        QMetaObject::invokeMethod(view(), "readRtlNetlist");
        QTRY_VERIFY(pane().endsWith("The design has all signals again."));
    }

    void aRefusedSaveLeadsToItsRows()
    {
        open(stale);
        edit();
        m_user.press(QMessageBox::Ok);
        save()->trigger();
        const QString units = "E f.zub: Core 0: No available match units";
        for (const auto &[line, place] : Rows<QString, QString>{
                 {units, "tableMu: "},
                 {"E f.zub: Core 0: M7 in expression \"M7\" is not enable", "listExpression: M7"},
                 {"E f.zub: Core 0: The specified sample clock does not exist", "editSampleClock: "}}) {
            QTRY_VERIFY2(lines().contains(line), qPrintable(lines().join('\n')));
            doubleClickMessage(m_pane, line.mid(2));
            QCOMPARE(focused(), place);
        }
        m_user.press(QMessageBox::Discard);
        QVERIFY(Core::ViewManager::instance()->closeView(view()));
        QVERIFY(lines().contains('(' + units + ')'));
    }

    void aSaveSaysSo()
    {
        open(contents(writeConfig(JEX::StandardMode, "f.zub")));
        auto *clock = view()->findChild<QLineEdit *>("editSampleClock");
        clock->setText("top/clck");
        m_user.press(QMessageBox::Ok);
        save()->trigger();
        const QString fault = "E f.zub: Core 0: The specified sample clock does not exist";
        const QString lost = "W f.zub: Core 0: clock signal top/clck is missing in the design";
        QTRY_VERIFY2(!lines().filter(lost).isEmpty(), qPrintable(lines().join('\n')));
        QVERIFY(lines().contains(fault));
        clock->setText("top/clk");
        save()->trigger();
        QTRY_VERIFY(!lines().filter('(' + lost).isEmpty());
        QVERIFY(lines().contains('(' + fault + ')'));
        QCOMPARE(lines().filter("Saved "), QStringList("N Saved " + m_dir->path("f.zub") + '.'));

        m_workspace->project()->setOption("Synthesize_tool", "Synplify");
        edit();
        m_user.press(QMessageBox::Ok);
        save()->trigger();
        QTRY_VERIFY(!lines().filter("E f.zub: For RTL Design").isEmpty());
        m_workspace->project()->setOption("Synthesize_tool", "");
        save()->trigger();
        QTRY_VERIFY(!lines().filter("(E f.zub: For RTL Design").isEmpty());
    }

    void replacesOne()
    {
        open(stale);
        choose("top/clok is missing", "Replace by top/clk");
        QCOMPARE(view()->findChild<QLineEdit *>("editSampleClock")->text(), QString("top/clk"));
        QVERIFY(view()->editedFile().isModified);
        choose("port 1 signal top/was/s", "Replace by top/now/s");
        QCOMPARE(rows("treeTrigger"), QString("top/now/s top/clk"));
        QCOMPARE(rows("treeWidgetCapSigs"), QString("top/clk top/was/k[1:0] top/was/s top/was/gone"));
        QVERIFY(!lines().filter("(W f.zub: Core 0: trigger port 1 signal top/was/s").isEmpty());
        QCOMPARE(lines().filter("Replaced"), QStringList({"N f.zub: Replaced top/clok -> top/clk",
                                                          "N f.zub: Replaced top/was/s -> top/now/s"}));
    }

    void replacesAllAlike()
    {
        open(stale);
        auto *tree = view()->findChild<QTreeWidget *>("treeWidgetCapSigs");
        tree->topLevelItem(1)->setExpanded(true);
        choose("capture signal top/was/k[1:0]", "Replace All Alike, as by top/now/k[1:0]");
        QCOMPARE(rows("treeTrigger"), QString("top/now/s top/clk"));
        QCOMPARE(rows("treeWidgetCapSigs"), QString("top/clk top/now/k[1:0] top/now/s top/was/gone"));
        QCOMPARE(tree->topLevelItem(1)->child(0)->text(0), QString("top/now/k[1]"));
        QVERIFY(tree->topLevelItem(1)->isExpanded());
        QTRY_COMPARE(lines().filter(QRegularExpression("^W f.zub")).size(), 2); // the clock, and what is gone
    }

    // The rules of a rename: a list holds a name once.
    void refusesToReplace()
    {
        open(R"(<jexconfig version="1" mode="Lite"><core number="0" clock="top/clk">
<signals><signal name="top/clk"/><signal name="top/clck"/></signals></core></jexconfig>)");
        choose("capture signal top/clck", "Replace by top/clk");
        QCOMPARE(rows("treeWidgetSignal"), QString("top/clk top/clck"));
        QVERIFY(!view()->editedFile().isModified);
        QTRY_VERIFY(lines().contains("E f.zub: A list would hold top/clk twice. Nothing was changed."));
    }

    void goesToTheDeclaration_data()
    {
        textColumns("widget", "place"); // line of the source, or what the status bar says
        row("top/clk", "treeWidgetCapSigs", "5");
        row("top/was/s", "treeWidgetCapSigs", "The design does not have top/was/s.");
        row("top/clk ", "treeTrigger", "5");
        row("Trigger Port 0", "treeTrigger",
            "Choose a signal first: in a capture list, a trigger port or a message.");
        row("changed in width, it is now top/now/k[1:0]", "messages", "1");
    }
    void goesToTheDeclaration()
    {
        QFETCH(QString, widget);
        open(QByteArray(stale).replace("top/was/gone", "top/now/k"));
        const QString row = QString(QTest::currentDataTag()).trimmed();
        if (auto *tree = view()->findChild<QTreeWidget *>(widget)) {
            const char *const place = widget == "treeTrigger" ? "core 0 tab 0" : "core 0 tab 1";
            dynamic_cast<Core::IFileEditor *>(view())->showPlace(place);
            tree->setFocus();
            tree->setCurrentItem(rowNamed(tree, row));
        } else {
            QTRY_VERIFY(messageRow(m_pane, row).isValid());
            auto *list = m_pane->findChild<QListView *>();
            list->setFocus();
            list->setCurrentIndex(messageRow(m_pane, row));
        }
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        QTest::keyClick(m_window->focusWidget(), Qt::Key_F12);
        const auto *source = qobject_cast<Workbench::SourceView *>(view());
        QTEST(source ? QString::number(source->edit()->textCursor().blockNumber() + 1)
                     : m_window->statusBar()->currentMessage(),
              "place");
    }

    // Each is offered, and taking one opens the file that could not be opened.
    void severalTops()
    {
        m_source = m_dir->write("more.v", "module second(input clk); endmodule");
        m_dir->write("p.jexprj", R"({"version": 1, "files": [{"path": "top.v"}, {"path": "more.v"}]})");
        m_user.press(QMessageBox::Ok);
        QVERIFY(!m_workspace->openFile(m_dir->write("f.zub", stale)));
        QVERIFY(lines().contains("E Multiple Top Module: Multiple top, please set top module."));
        const QString offer = "Candidate for the top module: %1. A double click takes it.";
        QVERIFY(lines().contains("N " + offer.arg("second")));
        doubleClickMessage(m_pane, offer.arg("top"));
        QTRY_VERIFY(view());
        QCOMPARE(m_workspace->project()->data().topModule, QString("top"));
        QVERIFY(lines().contains("(N " + offer.arg("second") + ')'));

        Workbench::OptionsDialog options(m_workspace->project(), m_window.get());
        auto *box = options.findChild<QComboBox *>("topModule");
        QTRY_COMPARE(box->count(), 3);
        QVERIFY(box->isEditable());
        QCOMPARE(box->currentText(), QString("top"));
        QStringList candidates = {box->itemText(0), box->itemText(1)};
        candidates.sort();
        QCOMPARE(candidates.join(' ') + " before " + box->itemText(2), QString("second top before sub"));

        auto *files = m_window->findChild<Workbench::ProjectTree *>();
        rowNamed(files, "more.v")->setSelected(true);
        const std::unique_ptr<QMenu> menu(files->createFileMenu());
        named("Set as Top: second", menu->actions())->trigger();
        QCOMPARE(m_workspace->project()->data().topModule, QString("second"));
    }

    // All that the tool said stays, leads to the source, and is past when the design reads again.
    void aFailedReading()
    {
        m_dir->write("top.v", QByteArray(design) + "module broken(input a);\n  assign = 1;\nendmodule\n");
        m_user.then([](QDialog *dialog) { dialog->accept(); });
        QVERIFY(!m_workspace->openFile(m_dir->write("f.zub", stale)));
        const QString place = "E ERROR: " + m_source + ":10: ";
        QVERIFY2(!lines().filter(place).isEmpty(), qPrintable(lines().join('\n')));
        QVERIFY(lines().contains("E Design files contain some errors."));
        doubleClickMessage(m_pane, place.mid(2));
        const auto *source = qobject_cast<Workbench::SourceView *>(view());
        QVERIFY(source);
        QCOMPARE(source->edit()->textCursor().blockNumber() + 1, 10);

        m_dir->write("top.v", design);
        QVERIFY(m_workspace->openFile(m_dir->path("f.zub")));
        QVERIFY(!lines().filter('(' + place).isEmpty());
        QVERIFY(lines().contains("(E Design files contain some errors.)"));
    }

private:
    void open(const QByteArray &configuration)
    {
        QVERIFY(m_workspace->openFile(m_dir->write("f.zub", configuration)));
    }
    static void edit()
    {
        auto *amount = view()->findChild<QComboBox *>("comboCapAmount");
        amount->setCurrentIndex(amount->currentIndex() - 1);
        QVERIFY(view()->editedFile().isModified);
    }

    QStringList lines() const { return messageLines(*m_pane->model()); }

    static QString rows(const char *name)
    {
        const auto *tree = view()->findChild<QTreeWidget *>(name);
        return rowNames(qstrcmp(name, "treeTrigger") == 0 ? tree->topLevelItem(1)
                                                          : tree->invisibleRootItem());
    }

    // The widget with the focus, and its row.
    QString focused() const
    {
        const QWidget *widget = m_window->focusWidget();
        const auto *list = qobject_cast<const QListWidget *>(widget);
        const auto *tree = qobject_cast<const QTreeWidget *>(widget);
        const QString row = list && list->currentItem()   ? list->currentItem()->text()
                            : tree && tree->currentItem() ? tree->currentItem()->text(0)
                                                          : QString();
        return widget->objectName() + (widget->isVisible() ? ": " : " (hidden): ") + row;
    }

    // An entry of the context menu of a message, which its key brings up.
    void choose(const QString &line, const QString &entry)
    {
        QTRY_VERIFY2(messageRow(m_pane, line).isValid(), qPrintable(lines().join('\n')));
        auto *list = m_pane->findChild<QListView *>();
        list->setCurrentIndex(messageRow(m_pane, line));
        QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint());
        const QStringList offered =
            useMenu([list, &key] { QCoreApplication::sendEvent(list->viewport(), &key); }, entry);
        QVERIFY2(offered.contains(entry), qPrintable(offered.join('\n')));
        QTest::qWait(0);
    }

    QString m_source;
    Workbench::MessagePane *m_pane = nullptr;
    ModalDriver m_user;
};

QTEST_MAIN(LeadsTest)
#include "tst_leads.moc"
