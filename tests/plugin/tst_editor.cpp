#include "tests/plugin/editorsession.h"

#include <QDirIterator>
#include <QLineEdit>

namespace {

const char counterSource[] = R"(
module counter(input clk, input rst, output reg [3:0] count, output tick);
  assign tick = &count;
  always @(posedge clk) count <= rst ? 4'd0 : count + 4'd1;
endmodule
)";

const char topSource[] = R"(
module top(input clk, input rst, input [7:0] din, output reg [7:0] dout, output busy);
  wire [3:0] low;
  wire tick;
  counter u0(.clk(clk), .rst(rst), .count(low), .tick(tick));
  assign busy = tick | rst;
  always @(posedge clk) dout <= din ^ {4'd0, low};
endmodule
)";

} // namespace

// A Lite file in the editor as it ships.
class TestEditor : public EditorSession
{
    Q_OBJECT

private Q_SLOTS:
    void editSaveReopen()
    {
        QVERIFY(openNew());
        QCOMPARE(view()->windowTitle(), QString("probe.zub *"));
        pick("btnSampleClock", "clk", {"top/clk"});
        pick("btnAdd", "", {"top/dout[7:0]", "top/low[3]", "top/low[2]", "top/busy"});
        QCOMPARE(rows(tree()), QStringList({"top/dout[7:0] = dout[7] dout[6] dout[5] dout[4] dout[3] dout[2] "
                                            "dout[1] dout[0]",
                                            "top/low[3]", "top/low[2]", "top/busy"}));
        select(tree(), {"top/low[3]", "top/low[2]"});
        chooseFromMenu(tree(), "Group");
        chooseFromMenu(tree(), "Rename");
        QTest::keyClicks(tree()->findChild<QLineEdit *>(), "upper half");
        QTest::keyClick(tree()->findChild<QLineEdit *>(), Qt::Key_Return);
        select(tree(), {"top/dout[7:0]"});
        chooseFromMenu(tree(), "Reverse");
        chooseFromMenu(tree(), "Disable");
        const QStringList edited({"upper half = low[3] low[2]", "top/busy",
                                  "top/dout[7:0] = dout[0] dout[1] dout[2] dout[3] dout[4] dout[5] dout[6] "
                                  "dout[7]"});
        QCOMPARE(rows(tree()), edited);
        QCOMPARE(save()->text(), QString("&Save \"probe.zub *\""));
        QVERIFY(save()->isEnabled());
        save()->trigger();
        QCOMPARE(m_user.seen.mid(2), QStringList()); // two searches and no complaint
        QCOMPARE(view()->windowTitle(), QString("probe.zub"));
        QVERIFY(!save()->isEnabled());
        const QStringList saved(
            {"core 0 clock top/clk edge 0 implementation 0 amount 1024, 2 of 3 rows enabled",
             "top/low[3:2] type -1 shown as 'upper half' = low[3] low[2]", "top/busy type 0",
             "top/dout[7:0] type 1 disabled = dout[0] dout[1] dout[2] dout[3] dout[4] dout[5] "
             "dout[6] dout[7]"});
        QCOMPARE(configText(path("probe.zub")), saved);

        closeTab();
        QVERIFY(!view() && open("probe.zub"));
        QCOMPARE(rows(tree()), edited);
        closeTab();
        QCOMPARE(configText(path("probe.zub")), saved);
    }

    void changedOutside()
    {
        m_work->project.setOption("TopModule", "tpo");
        m_user.press(QMessageBox::Ok);
        QVERIFY(!openNew() && !view());
        QCOMPARE(m_user.seen,
                 QStringList("critical | Invalid Top Module | No module named \"tpo\", please reset "
                             "top module. | OK"));
        m_work->project.setOption("TopModule", "");
        QVERIFY(open("probe.zub"));
        m_work->write("counter.v",
                      QByteArray(counterSource)
                          .replace("assign tick = &count", "wire spare = &count; assign tick = spare"));
        QCOMPARE(banner(), QString("Design files changed. Do you want to reload?"));
        answerBanner("btnA");
        QVERIFY(!find<QLabel>("labelFile"));
        pick("btnAdd", "spare", {"top/u0/spare"});
        QCOMPARE(rows(tree()), QStringList("top/u0/spare"));

        // Without its file the editor goes on, without a design it does not.
        QVERIFY(QFile::remove(path("probe.zub")));
        QCOMPARE(banner(), QString("The file '%1' has been removed on disk.\nDo you still want to keep it?")
                               .arg(path("probe.zub")));
        answerBanner("btnA");
        QVERIFY(view() && !find<QLabel>("labelFile"));
        m_work->write("counter.v", "module counter(");
        QCOMPARE(banner(), QString("Design files changed. Do you want to reload?"));
        m_user.then([](QDialog *dialog) { dialog->accept(); });
        answerBanner("btnA");
        QCOMPARE(m_user.seen.last(), QString("dialog | Design files contain some errors."));
        QVERIFY(!view());
    }

    // The bundled example: nothing to complain about, and saving an edit that was taken back writes the same
    // file.
    void exampleComesBackAsItWas()
    {
        const QDir example(EXAMPLE_DIR);
        QDirIterator files(example.path(), QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString copy = path("soc") + '/' + example.relativeFilePath(files.next());
            QVERIFY(QDir().mkpath(QFileInfo(copy).path()));
            QVERIFY(QFile::copy(files.filePath(), copy));
        }
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
    bool openNew()
    {
        m_work->addDesign("counter.v", counterSource);
        m_work->addDesign("top.v", topSource);
        JEX::fillInfoForEmptyJexConfig(path("probe.zub"), JEX::LiteMode);
        return open("probe.zub");
    }
    static QTreeWidget *tree() { return find<QTreeWidget>("treeWidgetSignal"); }
};

QTEST_MAIN(TestEditor)
#include "tst_editor.moc"
