#include "tests/plugin/editorsession.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QTableView>
#include <QWizard>

namespace {

const char topSource[] = R"(
module top(input clk, input rst, input [3:0] din, output reg [3:0] dout, output busy);
  reg [63:0] wide;
  assign busy = &wide | rst;
  always @(posedge clk) {dout, wide} <= {wide, din};
endmodule
)";

void click(QDialog *dialog, const char *button)
{
    QTest::mouseClick(dialog->findChild<QPushButton *>(button), Qt::LeftButton);
}

} // namespace

// A Standard file in the editor as it ships, from the wizard that makes it to the removal of a core.
class StandardEditorTest : public EditorSession
{
    Q_OBJECT

private Q_SLOTS:
    void wholeWay()
    {
        makeFile();
        QVERIFY(open("probe1.zub"));
        QCOMPARE(view()->windowTitle(), QString("probe1.zub *"));
        fillPort(0, {"top/rst"});
        bindUnit(0, "Trigger Port 0", "R");
        addExpression({"M0"});
        setCapture("top/clk", {"top/busy"});

        chooseFromMenu(cores(), "Add");
        QCOMPARE(rows(cores()), QStringList({"Core 0", "Core 1"}));
        fillPort(0, {"top/wide[63:0]"});
        fillPort(1, {"top/dout[3:0]"});
        fillPort(2, {"top/rst", "top/busy"});
        bindUnit(0, "Trigger Port 0", QString(64, 'X'));
        bindUnit(1, "Trigger Port 1", "01RF");
        bindUnit(2, "Trigger Port 2", "1B");
        bindUnit(12, "Trigger Port 1", "0000");
        addExpression({"M0", "AND", "M1"});
        addExpression({"LeftBracket", "M1", "OR", "M2", "RightBracket", "AND", "NOT", "M0"});
        addExpression({"M1", "XOR", "M12"});
        addExpression({"NOT", "M2"});
        const QStringList valid({"M0&M1", "(M1|M2)&!M0", "!M2"});
        QCOMPARE(expressions(Qt::gray), QStringList());
        QCOMPARE(find<QTableView>("tableMu")->model()->rowCount(), 16);
        QTest::keyClick(find<QComboBox>("ModeComboBox"), Qt::Key_Down);
        QCOMPARE(find<QTableView>("tableMu")->model()->rowCount(), 10);
        QCOMPARE(expressions(Qt::gray), QStringList("M1^M12"));
        QCOMPARE(expressions(Qt::black), valid);

        const QByteArray before = m_work->read("probe1.zub");
        m_user.then([](QDialog *dialog) { QTest::keyClick(dialog, Qt::Key_Return); });
        save()->trigger();
        QCOMPARE(m_user.seen.last(),
                 "critical | Error | Your settings contain some errors." + QString(13, ' ') +
                     " | OK* Show Details... | "
                     "Core 1: No sample clock specified\nCore 1: No capture signals specified");
        QVERIFY(m_work->read("probe1.zub") == before);

        setCapture("top/clk", {"top/dout[3:0]", "top/busy"});
        save()->trigger();
        QCOMPARE(view()->windowTitle(), QString("probe1.zub"));
        const QString first =
            "core 0 clock top/clk edge 0 implementation 0 amount 1024, 1 of 1 rows enabled, top top\n"
            "s:top/busy\nport 0: top/rst\nM0 port 0 value R\ndynamic: M0\n";
        const QString second =
            "core %1 clock top/clk edge 0 implementation 0 amount 1024, 2 of 2 rows enabled, top top\n"
            "b:top/dout[3:0]{top/dout[3],top/dout[2],top/dout[1],top/dout[0]} s:top/busy\n"
            "port 0: top/wide[63:0]\nport 1: top/dout[3:0]\nport 2: top/rst top/busy\n"
            "M0 port 0 value " +
            QString(64, 'X') + "\nM1 port 1 value 01RF\nM2 port 2 value 1B\nstatic: " + valid.join(", ");
        QCOMPARE(configText(path("probe1.zub")).join('\n'), first + second.arg(1));

        closeTab();
        QVERIFY(!view());
        QVERIFY(open("probe1.zub"));
        clickRows(cores(), {"Core 1"});
        QCOMPARE(expressions(Qt::black), valid);
        clickRows(cores(), {"Core 0"});
        m_user.press(QMessageBox::Ok);
        chooseFromMenu(cores(), "Remove");
        QCOMPARE(rows(cores()), QStringList("Core 0"));
        save()->trigger();
        QCOMPARE(configText(path("probe1.zub")).join('\n'), second.arg(0));
        closeTab();
        QVERIFY(!view());
    }

private:
    void makeFile()
    {
        m_work->addDesign("top.v", topSource);
        m_user.then([](QDialog *dialog) {
            QWizard *wizard = qobject_cast<QWizard *>(dialog);
            QVERIFY(wizard->findChild<QRadioButton *>("stdRadioButton")->isChecked());
            QTest::mouseClick(wizard->button(QWizard::NextButton), Qt::LeftButton);
            QTest::keyClicks(wizard->findChild<QLineEdit *>("fileLineEdit"), "probe.1");
            QTest::mouseClick(wizard->button(QWizard::NextButton), Qt::LeftButton);
            QTest::mouseClick(wizard->button(QWizard::FinishButton), Qt::LeftButton);
        });
        Core::FileWizardRegistry::factories().first()->runWizard(m_window.get(), m_work->dir.path());
        // A dot can not be typed.
        QCOMPARE(m_work->project.data().files.last().path, path("probe1.zub"));
    }

    // Until the dialogs that it opens are done with.
    void doubleClick(QAbstractItemView *list, const QPoint &at)
    {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, at);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, at);
        QTRY_VERIFY(m_user.done());
    }

    void fillPort(int port, const QStringList &names)
    {
        m_user.then([](QDialog *dialog) {
            click(dialog, "btnAdd");
            leave(dialog);
        });
        m_user.then(pickNets("", names));
        QTreeWidget *ports = find<QTreeWidget>("treeTrigger");
        QTreeWidgetItem *row = ports->topLevelItem(port);
        ports->scrollToItem(row);
        doubleClick(ports, ports->visualItemRect(row).center());
        QVERIFY(row->isExpanded());
        QCOMPARE(row->childCount(), names.size());
    }

    void bindUnit(int unit, const QString &port, const QString &value)
    {
        m_user.then([=](QDialog *dialog) {
            QComboBox *ports = dialog->findChild<QComboBox *>("comboPort");
            for (int i = 0; i < ports->count() && !ports->currentText().startsWith(port); ++i)
                QTest::keyClick(ports, Qt::Key_Down);
            QLineEdit *bits = dialog->findChild<QLineEdit *>("editValue");
            bits->selectAll();
            QTest::keyClicks(bits, value);
            leave(dialog);
        });
        QTableView *units = find<QTableView>("tableMu");
        const QModelIndex row = units->model()->index(unit, 0);
        units->scrollTo(row);
        doubleClick(units, units->visualRect(row).center());
        QCOMPARE(row.data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
    }

    void addExpression(const QStringList &buttons)
    {
        m_user.then([buttons](QDialog *dialog) {
            for (const QString &button : buttons)
                click(dialog, qPrintable("btn" + button));
            leave(dialog);
        });
        QListWidget *list = find<QListWidget>("listExpression");
        doubleClick(list, list->viewport()->rect().bottomRight() - QPoint(5, 5));
    }

    void setCapture(const QString &clock, const QStringList &names)
    {
        showTab(1);
        pick("btnSampleClock", "", {clock});
        pick("btnAdd", "", names);
        QCOMPARE(find<QTreeWidget>("treeWidgetCapSigs")->topLevelItemCount(), names.size());
        showTab(0);
    }

    static QTreeWidget *cores() { return view()->findChild<QTreeWidget *>("treeWidget"); }

    static QStringList expressions(const QColor &colour)
    {
        QStringList texts;
        const QListWidget *list = find<QListWidget>("listExpression");
        for (int i = 0; i < list->count(); ++i) {
            if (list->item(i)->foreground().color() == colour)
                texts << list->item(i)->text();
        }
        return texts;
    }
};

QTEST_MAIN(StandardEditorTest)
#include "tst_standardeditor.moc"
