#include "tests/plugin/editorsession.h"

#include <QLineEdit>
#include <QProcess>

namespace {

const char counterSource[] = R"(
module counter(input clk, input rst, output reg [3:0] count, output tick);
  assign tick = &count;
  always @(posedge clk) count <= rst ? 4'd0 : count + 4'd1;
endmodule
)";

const char topSource[] = R"(
module top(input clk, input rst, input [3:0] din, output reg [3:0] dout, output busy);
  wire [3:0] low;
  wire tick;
  counter u0(.clk(clk), .rst(rst), .count(low), .tick(tick));
  assign busy = tick | rst;
  always @(posedge clk) dout <= din ^ low;
endmodule
)";

} // namespace

// A Lite file in the editor as it ships.
class EditorTest : public EditorSession
{
    Q_OBJECT

private Q_SLOTS:
    void editSaveReopen()
    {
        openNew();
        QCOMPARE(view()->windowTitle(), QString("probe.zub *"));
        pick("btnSampleClock", "clk", {"top/clk"});
        pick("btnAdd", "", {"top/dout[3:0]", "top/low[3]", "top/low[2]", "top/busy"});
        QCOMPARE(rows(tree()), QStringList({"top/dout[3:0] = dout[3] dout[2] dout[1] dout[0]", "top/low[3]",
                                            "top/low[2]", "top/busy"}));
        clickRows(tree(), {"top/low[3]", "top/low[2]"});
        chooseFromMenu(tree(), "Group");
        chooseFromMenu(tree(), "Rename");
        QTest::keyClicks(tree()->findChild<QLineEdit *>(), "upper half");
        QTest::keyClick(tree()->findChild<QLineEdit *>(), Qt::Key_Return);
        clickRows(tree(), {"top/dout[3:0]"});
        chooseFromMenu(tree(), "Reverse");
        chooseFromMenu(tree(), "Disable");
        const QStringList edited(
            {"upper half = low[3] low[2]", "top/busy", "top/dout[3:0] = dout[0] dout[1] dout[2] dout[3]"});
        QCOMPARE(rows(tree()), edited);
        QCOMPARE(save()->text(), QString("&Save \"probe.zub *\""));
        QVERIFY(save()->isEnabled());
        save()->trigger();
        QCOMPARE(m_user.seen.mid(2), QStringList()); // two searches and no complaint
        QCOMPARE(view()->windowTitle(), QString("probe.zub"));
        QVERIFY(!save()->isEnabled());
        const QString saved =
            "core 0 clock top/clk edge 0 implementation 0 amount 1024, 2 of 3 rows enabled\n"
            "g:top/low[3:2]=upper half{top/low[3],top/low[2]} s:top/busy "
            "!b:top/dout[3:0]{!top/dout[0],!top/dout[1],!top/dout[2],!top/dout[3]}";
        QCOMPARE(configText(path("probe.zub")).join('\n'), saved);

        closeTab();
        QVERIFY(!view());
        QVERIFY(open("probe.zub"));
        QCOMPARE(rows(tree()), edited);
        closeTab();
        QCOMPARE(configText(path("probe.zub")).join('\n'), saved);
    }

    // What comes with a design that changed on disk is there for the next search.
    void designChangedOutside()
    {
        openNew();
        const QByteArray spare = "wire spare = &count; assign tick = spare";
        m_work->write("counter.v", QByteArray(counterSource).replace("assign tick = &count", spare));
        QTRY_VERIFY_WITH_TIMEOUT(find<QLabel>("labelFile"), 10000);
        QCOMPARE(find<QLabel>("labelFile")->text(), QString("Design files changed. Do you want to reload?"));
        press("btnA");
        QTRY_VERIFY(!find<QLabel>("labelFile"));
        pick("btnAdd", "spare", {"top/u0/spare"});
        QCOMPARE(rows(tree()), QStringList("top/u0/spare"));
    }

    // The bundled example: nothing to complain about, and saving an edit that was taken back writes the same
    // file.
    void exampleComesBackAsItWas()
    {
        QCOMPARE(QProcess::execute("cp", {"-r", EXAMPLE_DIR, path("soc")}), 0);
        Core::Project project;
        QString error;
        QVERIFY2(project.load(path("soc/soc.jexprj"), &error), qPrintable(error));
        Core::ProjectManager::setCurrentProject(&project);
        for (const QString &file : QDir(path("soc")).entryList({"*.zub"})) {
            const QString name = "soc/" + file;
            const QByteArray before = m_work->read(name);
            QVERIFY(open(qPrintable(name)));
            QCOMPARE(view()->windowTitle(), file);
            for (const QLabel *label : view()->findChildren<QLabel *>())
                QVERIFY2(!label->text().contains("red>"), qPrintable(label->text()));
            showTab(view()->findChildren<QTabBar *>().first()->count() - 1);
            QLineEdit *clock = find<QLineEdit>("editSampleClock");
            QTest::keyClicks(clock, "x");
            QCOMPARE(view()->windowTitle(), file + " *");
            QTest::keyClick(clock, Qt::Key_Backspace);
            save()->trigger();
            QCOMPARE(view()->windowTitle(), file);
            closeTab();
            QVERIFY2(m_work->read(name) == before, qPrintable(file));
        }
        QCOMPARE(m_user.seen, QStringList());
        Core::ProjectManager::setCurrentProject(&m_work->project);
    }

private:
    void openNew()
    {
        m_work->addDesign("counter.v", counterSource);
        m_work->addDesign("top.v", topSource);
        JEX::fillInfoForEmptyJexConfig(path("probe.zub"), JEX::LiteMode);
        QVERIFY(open("probe.zub"));
    }
    static QTreeWidget *tree() { return find<QTreeWidget>("treeWidgetSignal"); }
};

QTEST_MAIN(EditorTest)
#include "tst_editor.moc"
