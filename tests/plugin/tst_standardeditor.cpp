#include "tests/plugin/editorsession.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QTableView>
#include <QWizard>

namespace {

const char topSource[] = R"(
module top(input clk, input rst, input [7:0] din, output reg [7:0] dout, output busy);
  reg [63:0] wide;
  assign busy = &wide | rst;
  always @(posedge clk) wide <= {wide[55:0], din};
  always @(posedge clk) dout <= wide[63:56];
endmodule
)";

void click(QDialog *dialog, const char *button)
{
    QTest::mouseClick(dialog->findChild<QPushButton *>(button), Qt::LeftButton);
}

void leave(QDialog *dialog)
{
    QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
}

} // namespace

// A Standard file in the editor as it ships, from the wizard that makes it to the removal of a core.
class TestStandardEditor : public EditorSession
{
    Q_OBJECT

private Q_SLOTS:
    void wholeWay()
    {
        makeFile();
        QVERIFY(open("probe1.zub"));
        QCOMPARE(view()->windowTitle(), QString("probe1.zub *"));
        chooseFromMenu(cores(), "Add");
        chooseFromMenu(cores(), "Add");
        QCOMPARE(rows(cores()), QStringList({"Core 0", "Core 1", "Core 2"}));

        select(cores(), {"Core 0"});
        fillPort(0, {"top/wide[63:0]"});
        overfillPort(0);
        fillPort(1, {"top/dout[7:0]"});
        fillPort(2, {"top/rst", "top/busy"});
        bindUnit(0, "Trigger Port 0", QString(64, 'X'));
        bindUnit(1, "Trigger Port 1", "0101XXRF");
        bindUnit(2, "Trigger Port 2", "1B");
        bindUnit(12, "Trigger Port 1", "00000000");
        addExpression({"M0"});
        addExpression({"M0", "AND", "M1"});
        addExpression({"LeftBracket", "M1", "OR", "M2", "RightBracket", "AND", "NOT", "M0"});
        addExpression({"M1", "XOR", "M12"});
        addExpression({"NOT", "M2"});
        const QStringList valid({"M0", "M0&M1", "(M1|M2)&!M0", "!M2"});
        QCOMPARE(expressions(Qt::gray), QStringList());

        QCOMPARE(find<QTableView>("tableMu")->model()->rowCount(), 16);
        QTest::keyClick(find<QComboBox>("ModeComboBox"), Qt::Key_Down);
        QCOMPARE(find<QTableView>("tableMu")->model()->rowCount(), 10);
        QCOMPARE(expressions(Qt::gray), QStringList("M1^M12"));
        QCOMPARE(expressions(Qt::black), valid);

        const QByteArray before = m_work->read("probe1.zub");
        QString details;
        m_user.then([&details](QDialog *dialog) {
            details = qobject_cast<QMessageBox *>(dialog)->detailedText();
            QTest::keyClick(dialog, Qt::Key_Return);
        });
        save()->trigger();
        QCOMPARE(m_user.seen.last(), "critical | Error | Your settings contain some errors." +
                                         QString(13, ' ') + " | OK* Show Details...");
        QStringList found({"Core 0: No sample clock specified", "Core 0: No capture signals specified"});
        for (const QString core : {"Core 1: ", "Core 2: "})
            for (const char *text :
                 {"No available trigger ports", "No available match units", "No expressions specified",
                  "No sample clock specified", "No capture signals specified"})
                found << core + text;
        QCOMPARE(details.split("\n"), found);
        QVERIFY(m_work->read("probe1.zub") == before);

        setCapture("top/clk", {"top/din[7:0]", "top/busy"});
        setSimpleCore(1);
        setSimpleCore(2);
        save()->trigger();
        QCOMPARE(view()->windowTitle(), QString("probe1.zub"));
        const QStringList first(
            {"core 0 clock top/clk edge 0 implementation 0 amount 1024, 2 of 2 rows enabled, top top",
             "top/din[7:0] type 1 = din[7] din[6] din[5] din[4] din[3] din[2] din[1] din[0]",
             "top/busy type 0", "port 0: top/wide[63:0]", "port 1: top/dout[7:0]", "port 2: top/rst top/busy",
             "M0 port 0 value " + QString(64, 'X'), "M1 port 1 value 0101XXRF", "M2 port 2 value 1B",
             "static: " + valid.join(", ")});
        const QString simple =
            "core %1 clock top/clk edge 0 implementation 0 amount 1024, 1 of 1 rows enabled, top top\n"
            "top/dout[7:0] type 1 = dout[7] dout[6] dout[5] dout[4] dout[3] dout[2] dout[1] dout[0]\n"
            "port 0: top/rst\nM0 port 0 value R\ndynamic: M0";
        QCOMPARE(configText(path("probe1.zub")),
                 first + simple.arg(1).split("\n") + simple.arg(2).split("\n"));

        select(cores(), {"Core 0"});
        const QString shown = wholePage();
        closeTab();
        QVERIFY(!view() && open("probe1.zub"));
        QCOMPARE(view()->windowTitle(), QString("probe1.zub"));
        QCOMPARE(wholePage(), shown);
        QCOMPARE(rows(cores()).size(), 3);

        select(cores(), {"Core 1"});
        m_user.press(QMessageBox::Ok);
        chooseFromMenu(cores(), "Remove");
        QCOMPARE(m_user.seen.last(),
                 QString("question | Confirm | Do you want to remove AO 1 ? | Cancel OK*"));
        QCOMPARE(rows(cores()), QStringList({"Core 0", "Core 1"}));
        save()->trigger();
        QCOMPARE(configText(path("probe1.zub")), first + simple.arg(1).split("\n"));
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

    // One signal more than a port takes, which is told and taken back.
    void overfillPort(int port)
    {
        m_user.then([](QDialog *dialog) {
            click(dialog, "btnAdd");
            leave(dialog);
            QVERIFY(dialog->isVisible());
            select(dialog->findChild<QTreeWidget *>("treeWidget"), {"top/busy"});
            click(dialog, "btnRemove");
            leave(dialog);
        });
        m_user.then(pickNets("", {"top/busy"}));
        m_user.press(QMessageBox::Ok);
        QTreeWidget *ports = find<QTreeWidget>("treeTrigger");
        doubleClick(ports, ports->visualItemRect(ports->topLevelItem(port)).center());
        QCOMPARE(m_user.seen.last(), QString("warning | Warning | Support 64 signals at most. | OK"));
        QCOMPARE(ports->topLevelItem(port)->childCount(), 1);
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

    void setSimpleCore(int core)
    {
        select(cores(), {QString("Core %1").arg(core)});
        fillPort(0, {"top/rst"});
        bindUnit(0, "Trigger Port 0", "R");
        addExpression({"M0"});
        setCapture("top/clk", {"top/dout[7:0]"});
    }

    static QTreeWidget *cores() { return view()->findChild<QTreeWidget *>("treeWidget"); }

    static QStringList expressions(const QColor &colour)
    {
        QStringList texts;
        const QListWidget *list = find<QListWidget>("listExpression");
        for (int i = 0; i < list->count(); ++i)
            if (list->item(i)->foreground().color() == colour)
                texts << list->item(i)->text();
        return texts;
    }

    // What the page in view shows of its core.
    static QString wholePage()
    {
        return find<QComboBox>("ModeComboBox")->currentText() + ": " +
               (expressions(Qt::black) + rows(find<QTreeWidget>("treeTrigger")) +
                    rows(find<QTreeWidget>("treeWidgetCapSigs"))
                << find<QLineEdit>("editSampleClock")->text())
                   .join(" | ");
    }
};

QTEST_MAIN(TestStandardEditor)
#include "tst_standardeditor.moc"
