#include <QTreeWidget>
#include <QtTest>

#include "host/editorregistry.h"
#include "host/filewizard.h"
#include "host/iview.h"
#include "host/pluginmanager.h"
#include "host/viewmanager.h"
#include "tests/support/messagelist.h"
#include "tests/support/workspace.h"
#include "workbench/mainwindow.h"
#include "workbench/messagepane.h"
#include "workbench/workspace.h"

namespace {

const char standardFile[] = R"(<jexconfig version="1" mode="Standard">
<core number="0" clock="top/clk"><signals/></core>
<core number="4" clock="top/clok">
<port number="2"><signal name="top/d[3]"/>
<signal name="top/gone"/></port>
<signals><signal name="top/clk"/><signal name="group_0[1:0]"><signal name="top/clk"/><signal name="top/k[1]"/>
</signal></signals></core></jexconfig>)";
const char liteFile[] = R"(<jexconfig version="1" mode="Lite"><core number="0" clock="top/clk">
<signals><signal name="top/clk"/><signal name="top/k[1]"/></signals></core>
<core number="3" clock="top/clk"><signals><signal name="top/gone"/></signals></core></jexconfig>)";

} // namespace

// The stale signals of an open file in the message pane of the window, and the way from there to their rows.
class FindingsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QString error;
        QVERIFY2(m_plugins.load(PLUGIN_FILE, &error), qPrintable(error));
        QCOMPARE(m_plugins.initialize(), QStringList());
    }
    void cleanupTestCase()
    {
        Core::FileWizardRegistry::clear();
        Core::EditorRegistry::clear();
        m_plugins.shutDown();
    }

    void listsAndShows_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QStringList>("findings"); // "line of the pane -> widget that is focused: its row"
        QTest::newRow("Standard")
            << QByteArray(standardFile)
            << QStringList({"f.zub: Core 4: clock signal top/clok is missing in the design; nearest: top/clk "
                            "-> editSampleClock: ",
                            "f.zub: Core 4: trigger port 2 signal top/gone is missing in the design "
                            "-> treeTrigger: top/gone",
                            "f.zub: Core 4: capture signal top/k[1] of group_0[1:0] is missing in the design "
                            "-> treeWidgetCapSigs: top/k[1]"});
        QTest::newRow("Lite") << QByteArray(liteFile)
                              << QStringList(
                                     {"f.zub: Core 0: capture signal top/k[1] is missing in the design "
                                      "-> treeWidgetSignal: top/k[1]",
                                      "f.zub: Core 1: capture signal top/gone is missing in the design "
                                      "-> treeWidgetSignal: top/gone"});
    }
    void listsAndShows()
    {
        QFETCH(QByteArray, text);
        QFETCH(QStringList, findings);
        const Folder dir;
        const QString source = dir.write("top.v", counterDesign);
        const QString project =
            dir.write("p.jexprj", R"({"version": 1, "files": [{"path": "top.v"}], "topModule": "top"})");
        Workbench::MainWindow window(nullptr);
        window.show();
        QVERIFY(window.workspace()->openProject(project));
        QVERIFY(window.workspace()->openFile(dir.write("f.zub", text)));
        auto *pane = window.findChild<Workbench::MessagePane *>();
        Core::IView *view = Core::ViewManager::instance()->currentView();
        QTRY_VERIFY(pane->toPlainText().contains(findings.last().section(" -> ", 0, 0)));
        QCOMPARE(pane->toPlainText().count("signal top/"), findings.size());
        for (const QString &finding : findings) {
            const QString line = finding.section(" -> ", 0, 0);
            doubleClickMessage(pane, line);
            QCOMPARE(line + " -> " + place(window), finding);
        }

        // The design changes, and the editor reads it again.
        dir.write(
            "top.v",
            "module top(input clk, clok, gone, input [3:0] d, output [1:0] k); assign k = d[1:0]; endmodule");
        QMetaObject::invokeMethod(view, "readRtlNetlist");
        QTRY_VERIFY(pane->toPlainText().endsWith("The design has all signals again."));
    }

private:
    static QString place(const Workbench::MainWindow &window)
    {
        const QWidget *focused = window.focusWidget();
        const auto *tree = qobject_cast<const QTreeWidget *>(focused);
        const QString row = tree && tree->currentItem() ? tree->currentItem()->text(0) : QString();
        return focused->objectName() + (focused->isVisible() ? ": " : " (hidden): ") + row;
    }

    ExtSys::PluginManager m_plugins;
};

QTEST_MAIN(FindingsTest)
#include "tst_findings.moc"
