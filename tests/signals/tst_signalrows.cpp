#include <QtTest>

#include <QSignalSpy>
#include <QTreeWidget>

#include "signals/checkrepeat.h"
#include "signals/rowedit.h"
#include "signals/signalrows.h"
#include "signals/signalrules.h"
#include "tests/signals/rowtext.h"
#include "tests/signals/signaltext.h"

using namespace RTLJEX;
using JEX::SignalItem;

namespace {

QString records(const QTreeWidget &tree)
{
    QList<SignalItem> items;
    for (int i = 0; i < tree.topLevelItemCount(); ++i)
        items.append(recordOf(tree.topLevelItem(i)));
    return toText(items);
}

QString memberRecords(const QTreeWidgetItem *row)
{
    QStringList texts;
    for (int i = 0; i < row->childCount(); ++i)
        texts.append(row->child(i)->data(0, Qt::UserRole).isValid() ? toText(recordOf(row->child(i)))
                                                                    : "none");
    return texts.join(' ');
}

} // namespace

class TestSignalRows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rowsShowTheirRecord();
    void rowsGoWhereTheyAreAskedFor();
    void hierarchyRowsTakeTheirTexts();
    void aRecordSurvivesItsRow();
    void captureColours();
    void captureColoursOfOddRows();
    void captureRowsComePainted();
    void repeatsInATree();
    void oneRowOfTheCheck();
    void sorting();
    void removingReportsOnce();
    void editingKeepsWhatItCan();
    void manyAreAddedInTime();
};

static const char mixedSignals[] = "s:clk b:a[1:0]=bus{a[1]=high,~a[0]} ~s:gone g:group_0[0:0]{s:x}";

void TestSignalRows::rowsShowTheirRecord()
{
    QTreeWidget tree;
    for (const SignalItem &item : signalsFromText(mixedSignals))
        signal2TreeItem(&tree, item, 0);
    QCOMPARE(rowText(&tree), expected(R"(
        clk none sedDc
        bus/i none sedDc
          high/i none sedDc
          a[0] gray dDc
        gone gray dDc
        group_0[0:0] none sedDc
          x none sedDc)"));
    QCOMPARE(records(tree), QString("s:clk b:a[1:0]=bus{a[1]=high,~b:a[0]} ~s:gone g:group_0[0:0]{s:x}")
                                .replace("~b:a[0]", "~a[0]"));
    QCOMPARE(memberRecords(tree.topLevelItem(1)), QString("none none"));
}

void TestSignalRows::rowsGoWhereTheyAreAskedFor()
{
    QTreeWidget tree;
    signal2TreeItem(&tree, signalFromText("s:b"), 7);
    signal2TreeItemWithIndex(&tree, signalFromText("s:a"), -5, 7);
    signal2TreeItemWithIndex(&tree, signalFromText("b:d{x}"), 99, 7);
    signal2TreeItemWithIndex(&tree, signalFromText("s:c"), 2, 7);
    QCOMPARE(rowNames(&tree), QString("a b c d"));
    QCOMPARE(tree.topLevelItem(3)->type(), 7);
    QCOMPARE(tree.topLevelItem(3)->child(0)->type(), 7);

    signal2TreeItem(tree.topLevelItem(0), signalFromText("s:below"), 8);
    QCOMPARE(tree.topLevelItem(0)->child(0)->text(0), QString("below"));
    signal2TreeItem(static_cast<QTreeWidget *>(nullptr), signalFromText("s:x"), 0);
    signal2TreeItem(static_cast<QTreeWidgetItem *>(nullptr), signalFromText("s:x"), 0);
    signal2TreeItemWithIndex(nullptr, signalFromText("s:x"), 0, 0);
}

void TestSignalRows::hierarchyRowsTakeTheirTexts()
{
    QTreeWidget tree;
    QTreeWidgetItem *module = new QTreeWidgetItem(&tree, QStringList("m"));
    const SignalItem bus = signalFromText("b:top/a[1:0]=bus{top/a[1]=high,~top/a[0]}");
    signal2TreeItemForHierarchy(module, bus, {"a[1:0]", "a[1]", "a[0]"}, 0);
    signal2TreeItemForHierarchy(module, signalFromText("~s:top/clk"), {"clk"}, 0);
    signal2TreeItemForHierarchy(module, bus, {"a[1:0]", "a[1]"}, 0);
    signal2TreeItemForHierarchy(module, signalFromText("s:x"), {}, 0);
    signal2TreeItemForHierarchy(nullptr, bus, {"a[1:0]", "a[1]", "a[0]"}, 0);
    QCOMPARE(rowText(&tree), expected(R"(
        m none sedDc
          a[1:0]/i none sedDc
            a[1] none sedDc
            a[0] gray dDc
          clk gray dDc)"));
    QCOMPARE(memberRecords(module->child(0)), QString("b:top/a[1]=high ~b:top/a[0]"));
}

void TestSignalRows::aRecordSurvivesItsRow()
{
    QTreeWidget tree;
    const SignalItem item = signalFromText("!~^b:a[1:0]=bus{!~^a[1]=high,s:a[0]}");
    signal2TreeItem(&tree, item, 0);
    QVERIFY(recordOf(tree.topLevelItem(0)) == item);
    QCOMPARE(QByteArray(tree.topLevelItem(0)->data(0, Qt::UserRole).typeName()),
             QByteArray("JEX::SignalItem"));
}

void TestSignalRows::captureColours()
{
    QTreeWidget tree;
    for (const SignalItem &item :
         signalsFromText("s:clk ^b:a[1:0]{^a[1],a[0]} !b:b[1:0]{b[1],b[0]} ~s:gone !~s:off"))
        signal2TreeItem(&tree, item, 0);
    const QString painted = expected(R"(
        clk black sed
        a[1:0] red sed
          a[1] red sedDc
          a[0] black sedDc
        b[1:0] gray seDc
          b[1] gray sedDc
          b[0] gray sedDc
        gone black sed
        off gray seDc)");
    updateCapEnable(&tree);
    QCOMPARE(rowText(&tree), painted);
    // Members get records of their own that only tell the flag.
    QCOMPARE(memberRecords(tree.topLevelItem(1)), QString("none g:"));
    QCOMPARE(memberRecords(tree.topLevelItem(2)), QString("!g: !g:"));

    QSignalSpy changes(tree.model(), SIGNAL(dataChanged(QModelIndex, QModelIndex)));
    updateCapEnable(&tree);
    QCOMPARE(rowText(&tree), painted);
    QCOMPARE(changes.count(), 0);
}

void TestSignalRows::captureColoursOfOddRows()
{
    QTreeWidget tree;
    new QTreeWidgetItem(&tree, QStringList("no record"));
    signal2TreeItem(&tree, signalFromText("b:a[1:0]{a[1],a[0]}"), 0);
    setRecord(tree.topLevelItem(1), signalFromText("b:a[1:0]{a[1]}")); // fewer members than rows
    updateCapEnable(&tree);
    updateCapEnable(static_cast<QTreeWidget *>(nullptr));
    QCOMPARE(rowText(&tree), expected(R"(
        no record black sed
        a[1:0] black sed
          a[1] black sedDc
          a[0] none sedDc)"));
}

void TestSignalRows::captureRowsComePainted()
{
    QTreeWidget single;
    for (const SignalItem &item : signalsFromText(mixedSignals))
        signal2TreeItem(&single, item, 0);
    updateCapEnable(&single);
    QTreeWidget bulk;
    insertCaptureRows(&bulk, signalsFromText(mixedSignals), 0);
    QCOMPARE(rowText(&bulk), rowText(&single));
    QCOMPARE(records(bulk), records(single));
    insertSignalRows(&bulk, signalsFromText("s:y s:z"), 1, 0);
    QCOMPARE(rowNames(&bulk), QString("clk y z bus gone group_0[0:0]"));
}

void TestSignalRows::repeatsInATree()
{
    QTreeWidget tree;
    insertSignalRows(
        &tree, signalsFromText("!s:clk b:a[0] b:a[1] g:group_0[2:0]{a[0],s:x,s:y} !s:rst b:c[0]"), 0, 0);
    QList<SignalItem> buses;
    QList<SignalItem> others;
    Grouped(signalsFromText("s:clk b:a[1:0]{a[1],a[0]} s:new"), buses, others);
    CheckRepeat(&tree, buses, others);
    QCOMPARE(records(tree), QString("s:clk !s:rst b:c[0]"));
    QCOMPARE(toText(buses), QString("g:group_0[1:0]{s:x,s:y} b:a[1:0]{a[1],a[0]}"));
    QCOMPARE(toText(others), QString("s:new"));
    CheckRepeat(nullptr, buses, others);
}

void TestSignalRows::oneRowOfTheCheck()
{
    QTreeWidget tree;
    insertSignalRows(&tree, signalsFromText("b:a[0] !b:b[0] g:group_0[1:0]{a[0],c[0]}"), 0, 0);
    QList<SignalItem> buses = signalsFromText("b:a[1:0]{a[1],a[0]} b:b[0]");
    QList<SignalItem> others;
    int index = 0;
    CheckRepeatBus(&tree, index, buses);
    QCOMPARE(index, -1);
    CheckRepeatBus(&tree, index = 0, buses);
    QCOMPARE(index, 0);
    CheckRepeatGroupBus(&tree, index = 1, others, buses);
    QCOMPARE(index, 0);
    QCOMPARE(records(tree) + " | " + toText(buses), QString("b:b[0] | b:c[0] b:a[1:0]{a[1],a[0]}"));
}

void TestSignalRows::sorting()
{
    QTreeWidget tree;
    insertSignalRows(&tree, signalsFromText("s:a !b:b{x,y} s:c !s:d b:e{z}"), 0, 0);
    tree.topLevelItem(1)->setExpanded(true);
    tree.topLevelItem(4)->setExpanded(true);
    tree.setCurrentItem(tree.topLevelItem(3));
    QCOMPARE(firstDisabledRow(&tree), 1);
    sortEnabledFirst(&tree);
    const QString sorted = expected(R"(
        a black sed
        c black sed
        e black sed >
          z black sedDc
        b gray seDc >
          x gray sedDc
          y gray sedDc
        d gray seDc * @)");
    QCOMPARE(rowText(&tree), sorted);
    QCOMPARE(firstDisabledRow(&tree), 3);

    QSignalSpy removed(tree.model(), SIGNAL(rowsRemoved(QModelIndex, int, int)));
    sortEnabledFirst(&tree);
    QCOMPARE(removed.count(), 0);
    QCOMPARE(rowText(&tree), sorted);
}

void TestSignalRows::removingReportsOnce()
{
    QTreeWidget tree;
    tree.setSelectionMode(QTreeWidget::ExtendedSelection);
    insertSignalRows(&tree, signalsFromText("s:a b:b{x} s:c s:d"), 0, 0);
    tree.topLevelItem(1)->setExpanded(true);
    QVERIFY(!removeChosenRows(&tree));
    tree.setCurrentItem(tree.topLevelItem(0));
    for (int row : {0, 1, 3})
        tree.topLevelItem(row)->setSelected(true);
    tree.topLevelItem(1)->child(0)->setSelected(true);
    QVERIFY(!removeChosenRows(&tree)); // members stay with their bus
    tree.topLevelItem(1)->child(0)->setSelected(false);
    QSignalSpy selection(&tree, SIGNAL(itemSelectionChanged()));
    QVERIFY(removeChosenRows(&tree));
    QCOMPARE(rowText(&tree), QString("c none sedDc @"));
    QCOMPARE(selection.count(), 1);
}

void TestSignalRows::editingKeepsWhatItCan()
{
    QTreeWidget tree;
    tree.setSelectionMode(QTreeWidget::ExtendedSelection);
    insertSignalRows(&tree, signalsFromText("s:a b:b{x,y} s:c s:d"), 0, 0);
    tree.topLevelItem(1)->setExpanded(true);
    tree.setCurrentItem(tree.topLevelItem(1)->child(1));
    tree.topLevelItem(3)->setSelected(true);
    tree.topLevelItem(2)->setSelected(true);
    QSignalSpy selection(&tree, SIGNAL(itemSelectionChanged()));
    RowEdit(&tree).reorder({3, 2, 1, 0});
    QCOMPARE(rowText(&tree), expected(R"(
        d none sedDc *
        c none sedDc *
        b none sedDc >
          x none sedDc
          y none sedDc * @
        a none sedDc)"));
    QCOMPARE(selection.count(), 0);
    QStringList order;
    for (const QTreeWidgetItem *row : tree.selectedItems())
        order.append(row->text(0));
    QCOMPARE(order.join(' '), QString("y d c")); // as they were selected
}

// 5,000 to 5,000, as a page does it. A quadratic step would take many seconds under the sanitizers.
void TestSignalRows::manyAreAddedInTime()
{
    QTreeWidget tree;
    tree.setUniformRowHeights(true);
    QList<SignalItem> chosen;
    QList<SignalItem> present;
    for (int i = 0; i < 5000; ++i) {
        present.append(signalFromText(QString(i % 2 ? "!s:old%1" : "s:old%1").arg(i)));
        chosen.append(signalFromText(QString("s:new%1").arg(i)));
    }
    insertCaptureRows(&tree, present, 0);
    tree.show();
    QElapsedTimer timer;
    timer.start();
    QList<SignalItem> buses;
    QList<SignalItem> others;
    Grouped(chosen, buses, others);
    CheckRepeat(&tree, buses, others);
    insertCaptureRows(&tree, buses + others, firstDisabledRow(&tree));
    updateCapEnable(&tree);
    sortEnabledFirst(&tree);
    const qint64 elapsed = timer.elapsed();
    QCOMPARE(tree.topLevelItemCount(), 10000);
    QCOMPARE(firstDisabledRow(&tree), 7500);
    QVERIFY2(elapsed < 3000, qPrintable(QString::number(elapsed)));
    qInfo("%lld ms", elapsed);
}

QTEST_MAIN(TestSignalRows)
#include "tst_signalrows.moc"
