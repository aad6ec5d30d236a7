#include <QtTest>

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <functional>

#include "model/quarry/rtlnetlist.h"
#include "netselect/jexsignalselectdialog.h"
#include "netselect/resultrows.h"
#include "netselect/rtlnetlisttreeview.h"
#include "signals/signalrows.h"
#include "tests/signals/rowtext.h"
#include "tests/signals/signaltext.h"
#include "tests/support/netlisttext.h"

using namespace RTLJEX;

namespace {

const char design[] = R"(
top
  clk
  tied x
  count[1:0]
  held[1:0] x
  part[1:0] x1
  u0:uart
    ready
    data[0:1]
  u1:gap
    u2:fifo
      Full
)";

// What a user does in the open dialog: the steps are looked up by object name.
struct Hand
{
    explicit Hand(QWidget *dialog) : dialog(dialog) {}

    template <typename Widget>
    Widget *find(const char *name) const
    {
        Widget *widget = dialog->findChild<Widget *>(name);
        if (!widget)
            qFatal("No %s in the dialog", name);
        return widget;
    }

    void click(const char *name) const
    {
        QAbstractButton *button = find<QAbstractButton>(name);
        QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, QPoint(8, button->height() / 2));
    }
    void press(QDialogButtonBox::StandardButton button) const
    {
        QTest::mouseClick(find<QDialogButtonBox>("buttonBox")->button(button), Qt::LeftButton);
    }
    void type(const QString &text) const { QTest::keyClicks(find<QLineEdit>("lineEditName"), text); }
    QTreeWidget *tree() const { return find<QTreeWidget>("treeWidget"); }
    QTreeWidgetItem *row(const QString &text) const
    {
        return tree()->findItems(text, Qt::MatchExactly | Qt::MatchRecursive).value(0);
    }
    void search(const QString &text) const
    {
        type(text);
        click("pushButtonSearch");
    }
    void select(const QString &names) const
    {
        for (const QString &name : names.split(' ', Qt::SkipEmptyParts)) {
            QTreeWidgetItem *item = row(name);
            if (!item)
                qFatal("No row %s", qPrintable(name));
            if (item->parent())
                item->parent()->setExpanded(true);
            tree()->scrollToItem(item);
            QTest::mouseClick(tree()->viewport(), Qt::LeftButton, Qt::ControlModifier,
                              tree()->visualItemRect(item).center());
        }
    }

    QWidget *dialog;
};

// Runs `steps` as soon as a modal dialog is open; it is cancelled when the steps leave it so.
class Driver : public QObject
{
public:
    explicit Driver(std::function<void(const Hand &)> steps) : m_steps(std::move(steps))
    {
        m_timer = startTimer(0);
    }

private:
    void timerEvent(QTimerEvent *) override
    {
        QWidget *dialog = QApplication::activeModalWidget();
        if (!dialog)
            return;
        killTimer(m_timer);
        const QPointer<QWidget> guard(dialog);
        m_steps(Hand(dialog));
        if (guard && guard->isVisible())
            Hand(dialog).press(QDialogButtonBox::Cancel);
    }

    std::function<void(const Hand &)> m_steps;
    int m_timer;
};

QString texts(const QTreeWidgetItem *row)
{
    QStringList children;
    for (int i = 0; i < row->childCount(); ++i)
        children.append(texts(row->child(i)));
    return row->text(0) + (children.isEmpty() ? "" : "(" + children.join(' ') + ")");
}

} // namespace

class TestJexSignalSelectDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_netlist.reset(netlistFromText(design)); }
    void beginsWithItsDefaults();
    void returnListsTheWholeDesign();
    void searches_data();
    void searches();
    void rowsAreThoseOfTheRecords();
    void picksAreReturned_data();
    void picksAreReturned();
    void oneName_data();
    void oneName();
    void modulesAreChosenFromTheTree();
    void keysThatCloseDialogsDoNot();
    void withoutADesign();
    void aParentMayDieMeanwhile();
    void rejectingForgetsTheDesign();

private:
    QList<JEX::SignalItem> run(std::function<void(const Hand &)> steps)
    {
        const Driver driver(std::move(steps));
        return JexSignalSelectDialog::getNetName(m_netlist.data(), nullptr);
    }

    QScopedPointer<QUARRY::RtlNetlist> m_netlist;
};

void TestJexSignalSelectDialog::beginsWithItsDefaults()
{
    run([](const Hand &hand) {
        QCOMPARE(hand.dialog->windowTitle(), QString("Search Nets"));
        QCOMPARE(hand.dialog->focusWidget(), hand.find<QWidget>("lineEditName"));
        QVERIFY(hand.find<QRadioButton>("radioButtonNormal")->isChecked());
        QVERIFY(!hand.find<QCheckBox>("checkBoxAdvancedFilter")->isChecked());
        QVERIFY(!hand.find<QComboBox>("comboBoxSearchIn")->isVisible());
        QVERIFY(hand.find<QPushButton>("pushButtonSearch")->isDefault());
        QVERIFY(!hand.find<QDialogButtonBox>("buttonBox")->button(QDialogButtonBox::Ok)->autoDefault());
        hand.click("checkBoxAdvancedFilter");
        QVERIFY(hand.find<QComboBox>("comboBoxSearchIn")->isVisible());
        hand.click("checkBoxAdvancedFilter");
        QVERIFY(!hand.find<QComboBox>("comboBoxSearchIn")->isVisible());
    });
}

void TestJexSignalSelectDialog::returnListsTheWholeDesign()
{
    run([](const Hand &hand) {
        QTest::keyClick(hand.dialog->focusWidget(), Qt::Key_Return);
        QCOMPARE(rowNames(hand.tree()), QString("top/count[1:0] top/held[1:0] top/part[1:0] top/u0/data[0:1] "
                                                "top/clk top/tied top/u0/ready top/u1/u2/Full"));
        QCOMPARE(texts(hand.tree()->topLevelItem(3)),
                 QString("top/u0/data[0:1](top/u0/data[0] top/u0/data[1])"));
        QCOMPARE(hand.find<QLabel>("labelFound")->text(), QString("Buses: 4, single nets: 4"));
        QVERIFY(hand.find<QPushButton>("pushButtonSearch")->isEnabled());
        QVERIFY(!QApplication::overrideCursor());
    });
}

void TestJexSignalSelectDialog::searches_data()
{
    QTest::addColumn<QStringList>("clicks");
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("rows");
    const QString wildcard = "radioButtonWildcard";
    const QString expression = "radioButtonRegularExpression";
    const QString advanced = "checkBoxAdvancedFilter";
    const QString below = "checkBoxIncludeSubentries";
    const QString modules = "checkBoxHierarchyView";
    const QString exact = "checkBoxCaseSensitive";
    QTest::newRow("substring") << QStringList() << "FULL"
                               << "top/u1/u2/Full";
    QTest::newRow("case") << QStringList{exact} << "FULL"
                          << "";
    QTest::newRow("wildcard is the whole name") << QStringList{wildcard} << "full"
                                                << "";
    QTest::newRow("wildcard crosses instances") << QStringList{wildcard} << "*full"
                                                << "top/u1/u2/Full";
    QTest::newRow("expression") << QStringList{expression} << ".*/(ready|clk)"
                                << "top/clk top/u0/ready";
    QTest::newRow("broken expression") << QStringList{expression} << "("
                                       << "";
    QTest::newRow("advanced: top alone") << QStringList{advanced} << "a"
                                         << "top/part[1:0]";
    QTest::newRow("advanced: below it, too") << QStringList{advanced, below} << "a"
                                             << "top/part[1:0] top/u0/data[0:1] top/u0/ready";
    QTest::newRow("a hidden panel says nothing") << QStringList{advanced, modules, advanced} << "ready"
                                                 << "top/u0/ready";
    QTest::newRow("modules") << QStringList{advanced, below, modules} << "ll"
                             << "top(gap:u1(fifo:u2(Full)))";
    QTest::newRow("modules: buses first") << QStringList{advanced, below, modules} << "u0"
                                          << "top(uart:u0(data[0:1](data[0] data[1]) ready))";
    QTest::newRow("modules: nothing found") << QStringList{advanced, below, modules} << "xyz"
                                            << "top";
}

void TestJexSignalSelectDialog::searches()
{
    QFETCH(QStringList, clicks);
    QFETCH(QString, pattern);
    QFETCH(QString, rows);
    QStringList shown;
    run([&](const Hand &hand) {
        for (const QString &name : clicks)
            hand.click(name.toLatin1());
        hand.search("nothing left of this");
        hand.find<QLineEdit>("lineEditName")->clear();
        hand.search(pattern);
        const bool asModules = hand.find<QCheckBox>("checkBoxHierarchyView")->isVisible() &&
                               hand.find<QCheckBox>("checkBoxHierarchyView")->isChecked();
        for (int i = 0; i < hand.tree()->topLevelItemCount(); ++i)
            shown.append(asModules ? texts(hand.tree()->topLevelItem(i))
                                   : hand.tree()->topLevelItem(i)->text(0));
    });
    QCOMPARE(shown.join(' '), rows);
}

// They make their record and look when asked, and must not differ from those that hold them.
void TestJexSignalSelectDialog::rowsAreThoseOfTheRecords()
{
    const QUARRY::Hierachy *top = m_netlist->topHierarchy;
    for (QUARRY::RtlNet *net : top->buses.at(1)->members)
        net->excluded = false; // of a bus that is
    QTreeWidget shown;
    showFlatResult(&shown, top->nets, top->buses);
    QTreeWidget built;
    QList<JEX::SignalItem> records;
    for (const QUARRY::RtlNetBus *bus : top->buses)
        records.append(signalOfBus(bus));
    for (const QUARRY::RtlNet *net : top->nets)
        records.append(signalOfNet(net));
    QCOMPARE(toText(records), QString("b:top/count[1:0]{top/count[1],top/count[0]} "
                                      "~b:top/held[1:0]{top/held[1],top/held[0]} "
                                      "b:top/part[1:0]{~top/part[1],top/part[0]} s:top/clk ~s:top/tied"));
    for (const JEX::SignalItem &item : records)
        signal2TreeItem(&built, item, 0);
    QCOMPARE(rowText(&shown), rowText(&built));
    for (int i = 0; i < records.size(); ++i) {
        const QTreeWidgetItem *row = shown.topLevelItem(i);
        QCOMPARE(toText(recordOf(row)), toText(records.at(i)));
        for (int k = 0; k < row->childCount(); ++k)
            QCOMPARE(toText(recordOf(row->child(k))), toText(records.at(i).members.at(k)));
    }
}

void TestJexSignalSelectDialog::picksAreReturned_data()
{
    QTest::addColumn<bool>("modules");
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QString>("records");
    QTest::newRow("none") << false << ""
                          << "";
    QTest::newRow("in the order of the tree") << false << "top/clk top/count[1:0]"
                                              << "b:top/count[1:0]{top/count[1],top/count[0]} s:top/clk";
    QTest::newRow("a bus and its bit") << false << "top/count[0] top/count[1:0]"
                                       << "b:top/count[1:0]{top/count[1],top/count[0]} b:top/count[0]";
    QTest::newRow("bits of several") << false << "top/u0/data[1] top/part[0] top/count[1]"
                                     << "b:top/count[1] b:top/part[0] b:top/u0/data[1]";
    QTest::newRow("what is not valid cannot be picked")
        << false << "top/tied top/held[1:0] top/held[0] top/part[1]"
        << "";
    QTest::newRow("modules cannot be picked") << true << "uart:u0 data[0] ready"
                                              << "b:top/u0/data[0] s:top/u0/ready";
}

void TestJexSignalSelectDialog::picksAreReturned()
{
    QFETCH(bool, modules);
    QFETCH(QString, chosen);
    const QList<JEX::SignalItem> picked = run([&](const Hand &hand) {
        if (modules)
            for (const char *box :
                 {"checkBoxAdvancedFilter", "checkBoxIncludeSubentries", "checkBoxHierarchyView"})
                hand.click(box);
        hand.search("");
        hand.tree()->expandAll();
        hand.select(chosen);
        hand.press(QDialogButtonBox::Ok);
    });
    QTEST(toText(picked), "records");
    const QList<JEX::SignalItem> cancelled = run([&](const Hand &hand) {
        hand.search("");
        hand.tree()->selectAll();
        hand.press(QDialogButtonBox::Cancel);
    });
    QVERIFY(cancelled.isEmpty());
}

void TestJexSignalSelectDialog::oneName_data()
{
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QString>("name");
    QTest::newRow("net") << "top/clk" << true << "top/clk";
    QTest::newRow("bit") << "top/count[0]" << true << "top/count[0]";
    QTest::newRow("bus: its first valid bit") << "top/part[1:0]" << true << "top/part[0]";
    QTest::newRow("bus: no valid bit") << "top/dead[1:0]" << true << "";
    QTest::newRow("nothing") << "" << true << "";
    QTest::newRow("cancelled") << "top/clk" << false << "";
}

void TestJexSignalSelectDialog::oneName()
{
    QFETCH(QString, chosen);
    QFETCH(bool, ok);
    m_netlist.reset(netlistFromText("top\n  clk\n  count[1:0]\n  part[1:0] x1\n  dead[1:0] x0 x1\n"));
    const Driver driver([&](const Hand &hand) {
        hand.search("");
        hand.select(chosen);
        hand.press(ok ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel);
    });
    QTEST(JexSignalSelectDialog::getOneNetName(m_netlist.data(), nullptr), "name");
}

void TestJexSignalSelectDialog::modulesAreChosenFromTheTree()
{
    run([](const Hand &hand) {
        hand.click("checkBoxAdvancedFilter");
        QComboBox *box = hand.find<QComboBox>("comboBoxSearchIn");
        QCOMPARE(box->currentText(), QString("top"));
        QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(20, box->height() / 2));
        RtlNetlistTreeView *view = qobject_cast<RtlNetlistTreeView *>(box->view());
        QVERIFY(view && view->isVisible());
        QTreeWidgetItem *fifo = view->findItems("u2[fifo]", Qt::MatchExactly | Qt::MatchRecursive).value(0);
        QVERIFY(fifo && fifo->parent()->isExpanded());
        QTest::qWait(QApplication::doubleClickInterval() + 50); // a release right after opening is not taken
        QTest::mouseMove(view->viewport(), view->visualItemRect(fifo).center());
        QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier,
                          view->visualItemRect(fifo).center());
        QTRY_VERIFY(!view->isVisible());
        QCOMPARE(box->currentText(), QString("u2[fifo]"));
        hand.search("");
        QCOMPARE(rowNames(hand.tree()), QString("top/u1/u2/Full"));

        QWheelEvent wheel(QPointF(5, 5), box->mapToGlobal(QPoint(5, 5)), QPoint(), QPoint(0, 120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(box, &wheel);
        QCOMPARE(box->currentText(), QString("u2[fifo]"));
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Up);
        QVERIFY(view->isVisible());
        QCOMPARE(view->currentItem(), fifo);
        box->hidePopup();
    });
}

void TestJexSignalSelectDialog::keysThatCloseDialogsDoNot()
{
    const QList<JEX::SignalItem> picked = run([](const Hand &hand) {
        hand.search("clk");
        hand.select("top/clk");
        QPushButton *ok = hand.find<QDialogButtonBox>("buttonBox")->button(QDialogButtonBox::Ok);
        for (Qt::Key key : {Qt::Key_Escape, Qt::Key_Enter, Qt::Key_Return}) {
            ok->setFocus();
            QTest::keyClick(ok, key);
            QVERIFY(hand.dialog->isVisible());
            QCOMPARE(hand.tree()->selectedItems().isEmpty(), key == Qt::Key_Return); // it searched
        }
        hand.dialog->close();
        QVERIFY(!hand.dialog->isVisible());
    });
    QVERIFY(picked.isEmpty());
}

void TestJexSignalSelectDialog::withoutADesign()
{
    m_netlist.reset();
    const QList<JEX::SignalItem> picked = run([](const Hand &hand) {
        for (const char *box : {"pushButtonSearch", "checkBoxAdvancedFilter", "pushButtonSearch",
                                "checkBoxHierarchyView", "pushButtonSearch"})
            hand.click(box);
        QCOMPARE(hand.tree()->topLevelItemCount(), 0);
        QCOMPARE(hand.find<QComboBox>("comboBoxSearchIn")->count(), 0);
        QVERIFY(hand.find<QPushButton>("pushButtonSearch")->isEnabled());
        QVERIFY(!QApplication::overrideCursor());
        hand.press(QDialogButtonBox::Ok);
    });
    QVERIFY(picked.isEmpty());
}

void TestJexSignalSelectDialog::aParentMayDieMeanwhile()
{
    QPointer<QWidget> parent = new QWidget;
    const Driver driver([&](const Hand &hand) {
        hand.search("");
        hand.tree()->selectAll();
        delete parent.data();
    });
    QVERIFY(JexSignalSelectDialog::getNetName(m_netlist.data(), parent).isEmpty());
    QVERIFY(!parent);
}

void TestJexSignalSelectDialog::rejectingForgetsTheDesign()
{
    JexSignalSelectDialog dialog(m_netlist.data());
    dialog.show();
    dialog.on_pushButtonSearch_clicked();
    dialog.reject();
    m_netlist.reset();
    dialog.show(); // would paint rows of a design that is gone
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    dialog.on_pushButtonSearch_clicked();
    QCOMPARE(dialog.findChild<QTreeWidget *>("treeWidget")->topLevelItemCount(), 0);
}

QTEST_MAIN(TestJexSignalSelectDialog)
#include "tst_jexsignalselectdialog.moc"
