#include <QtTest>

#include "signals/addedrows.h"
#include "signals/checkrepeat.h"
#include "signals/rowedit.h"
#include "signals/signalrows.h"
#include "signals/signalrules.h"
#include "tests/support/randomsignals.h"
#include "tests/support/rowtext.h"

using namespace RTLJEX;
using JEX::SignalItem;

namespace {

QString memberRecords(const QTreeWidgetItem *row)
{
    QStringList texts;
    for (int i = 0; i < row->childCount(); ++i)
        texts.append(row->child(i)->data(0, Qt::UserRole).isValid() ? toText(recordOf(row->child(i)))
                                                                    : "none");
    return texts.join(' ');
}

} // namespace

class SignalRowsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rowsShowTheirRecord()
    {
        const char mixed[] = "!~^s:clk b:a[1:0]=bus{!^a[1]=high,~a[0]} ~s:gone g:group_0[0:0]{s:x}";
        QTreeWidget tree;
        for (const SignalItem &item : signalsFromText(mixed))
            signal2TreeItem(&tree, item, 0);
        QCOMPARE(rowText(&tree), QString("clk gray dDc\n"
                                         "bus/i none sdDce {high/i none sdDce, a[0] gray dDc}\n"
                                         "gone gray dDc\n"
                                         "group_0[0:0] none sdDce {x none sdDce}"));
        QVERIFY(topLevelRecords(&tree) == signalsFromText(mixed));
        QCOMPARE(memberRecords(tree.topLevelItem(1)), QString("none none"));
        QCOMPARE(QByteArray(tree.topLevelItem(0)->data(0, Qt::UserRole).typeName()),
                 QByteArray("JEX::SignalItem"));
        QTreeWidget bulk;
        insertCaptureRows(&bulk, signalsFromText(mixed), 0);
        updateCapEnable(&tree);
        QCOMPARE(rowText(&bulk), rowText(&tree));
        QCOMPARE(records(bulk), records(tree));
    }

    void rowsGoWhereTheyAreAskedFor()
    {
        QTreeWidget tree;
        signal2TreeItem(&tree, signalFromText("s:b"), 7);
        signal2TreeItemWithIndex(&tree, signalFromText("s:a"), -5, 7);
        signal2TreeItemWithIndex(&tree, signalFromText("b:d{x}"), 99, 7);
        signal2TreeItemWithIndex(&tree, signalFromText("s:c"), 2, 7);
        insertSignalRows(&tree, signalsFromText("s:y s:z"), 1, 0);
        QCOMPARE(rowNames(&tree), QString("a y z b c d"));
        QCOMPARE(tree.topLevelItem(5)->type(), 7);
        QCOMPARE(tree.topLevelItem(5)->child(0)->type(), 7);
        signal2TreeItem(tree.topLevelItem(0), signalFromText("s:below"), 8);
        QCOMPARE(tree.topLevelItem(0)->child(0)->text(0), QString("below"));
        signal2TreeItem(static_cast<QTreeWidget *>(nullptr), signalFromText("s:x"), 0);
        signal2TreeItem(static_cast<QTreeWidgetItem *>(nullptr), signalFromText("s:x"), 0);
        signal2TreeItemWithIndex(nullptr, signalFromText("s:x"), 0, 0);
    }

    void hierarchyRowsTakeTheirTexts()
    {
        QTreeWidget tree;
        QTreeWidgetItem *module = new QTreeWidgetItem(&tree, QStringList("m"));
        const SignalItem bus = signalFromText("b:top/a[1:0]=bus{top/a[1]=high,~top/a[0]}");
        signal2TreeItemForHierarchy(module, bus, {"a[1:0]", "a[1]", "a[0]"}, 0);
        signal2TreeItemForHierarchy(module, signalFromText("~s:top/clk"), {"clk"}, 0);
        signal2TreeItemForHierarchy(module, bus, {"a[1:0]", "a[1]"}, 0);
        signal2TreeItemForHierarchy(module, signalFromText("s:x"), {}, 0);
        signal2TreeItemForHierarchy(nullptr, bus, {"a[1:0]", "a[1]", "a[0]"}, 0);
        QCOMPARE(
            rowText(&tree),
            QString("m none sdDce {a[1:0]/i none sdDce {a[1] none sdDce, a[0] gray dDc}, clk gray dDc}"));
        QCOMPARE(memberRecords(module->child(0)), QString("b:top/a[1]=high ~b:top/a[0]"));
    }

    void captureColours()
    {
        QTreeWidget tree;
        insertSignalRows(&tree, signalsFromText("s:clk ^b:a{^a1,a0} !b:b{b1} ~s:gone !~s:off b:c{c1,c0}"), 0,
                         0);
        setRecord(tree.topLevelItem(5), signalFromText("b:c{c1}")); // fewer members than rows
        new QTreeWidgetItem(&tree, QStringList("without"));
        const QString painted = QString("clk black sde\n"
                                        "a red sde {a1 red sdDce, a0 black sdDce}\n"
                                        "b gray sDce {b1 gray sdDce}\n"
                                        "gone black sde\n"
                                        "off gray sDce\n"
                                        "c black sde {c1 black sdDce, c0 none sdDce}\n"
                                        "without black sde");
        updateCapEnable(&tree);
        QCOMPARE(rowText(&tree), painted);
        // Members get records of their own that only tell the flag.
        QCOMPARE(memberRecords(tree.topLevelItem(1)), QString("none g:"));
        QCOMPARE(memberRecords(tree.topLevelItem(2)), QString("!g:"));

        QSignalSpy changes(tree.model(), SIGNAL(dataChanged(QModelIndex, QModelIndex)));
        updateCapEnable(&tree);
        updateCapEnable(static_cast<QTreeWidget *>(nullptr));
        QCOMPARE(rowText(&tree), painted);
        QCOMPARE(changes.count(), 0);
    }

    void repeatsInATree()
    {
        QTreeWidget tree;
        insertSignalRows(
            &tree, signalsFromText("!s:clk b:a[0] b:a[1] g:group_0[2:0]{a[0],s:x,s:y} !s:rst b:c[0]"), 0, 0);
        const QList<SignalItem> added =
            withoutRepeats(&tree, signalsFromText("s:clk b:a[1:0]{a[1],a[0]} s:new"));
        QCOMPARE(records(tree), QString("s:clk !s:rst b:c[0]"));
        QCOMPARE(toText(added), QString("g:group_0[1:0]{s:x,s:y} b:a[1:0]{a[1],a[0]} s:new"));
        QCOMPARE(toText(withoutRepeats(nullptr, added)),
                 toText(added.mid(1, 1) + added.mid(0, 1) + added.mid(2)));
    }

    // What a page does at once is what the functions for one row do one after the other.
    void oneByOneAsAtOnce()
    {
        for (quint32 seed = 0; seed < 300; ++seed) {
            RandomSignals random(seed);
            QTreeWidget atOnce, oneByOne;
            const QList<SignalItem> rows = random.list(), more = random.list();
            const int place = random.below(rows.size() + 1);
            insertCaptureRows(&atOnce, rows, 0);
            insertCaptureRows(&atOnce, more, place);
            for (const SignalItem &item : rows)
                signal2TreeItem(&oneByOne, item, 0);
            for (int i = 0; i < more.size(); ++i)
                signal2TreeItemWithIndex(&oneByOne, more.at(i), place + i, 0);
            updateCapEnable(&oneByOne);
            QVERIFY2(rowText(&atOnce) == rowText(&oneByOne), qPrintable(QString::number(seed)));

            QList<SignalItem> buses, others, busList, otherList;
            Grouped(random.list(), buses, others);
            busList = buses;
            otherList = others;
            CheckRepeat(&atOnce, buses, others);
            for (int i = 0; i < oneByOne.topLevelItemCount(); ++i) {
                SignalItem item = recordOf(oneByOne.topLevelItem(i));
                if (item.type == JEX::NetKind) {
                    CheckRepeatSignal(item, otherList);
                    setRecord(oneByOne.topLevelItem(i), item);
                } else if (item.type == JEX::GroupKind) {
                    CheckRepeatGroupBus(&oneByOne, i, otherList, busList);
                } else {
                    CheckRepeatBus(&oneByOne, i, busList);
                }
            }
            QCOMPARE(QString("%1: ").arg(seed) + records(atOnce) + " | " + toText(buses) + " | " +
                         toText(others),
                     QString("%1: ").arg(seed) + records(oneByOne) + " | " + toText(busList) + " | " +
                         toText(otherList));
        }
    }

    // A list without a tree comes out as the page and the dialog leave theirs.
    void listsAsTrees()
    {
        for (quint32 seed = 0; seed < 300; ++seed) {
            RandomSignals random(seed);
            const QList<SignalItem> rows = random.list(), chosen = random.list();
            QTreeWidget page, port;
            insertCaptureRows(&page, rows, 0);
            const QList<SignalItem> added = withoutRepeats(&page, chosen);
            insertCaptureRows(&page, added, firstDisabledRow(&page));
            sortEnabledFirst(&page);
            insertSignalRows(&port, rows, 0, 0);
            insertSignalRows(&port, withoutRepeats(&port, chosen), port.topLevelItemCount(), 0);
            QCOMPARE(QString("%1: ").arg(seed) + toText(withCaptureSignals(rows, chosen)) + " | " +
                         toText(withPortSignals(rows, chosen)),
                     QString("%1: ").arg(seed) + records(page) + " | " + records(port));
        }
    }

    // An invalid bus and its members cannot be chosen, however its row has come there.
    void invalidRowsStayInvalid()
    {
        const QList<SignalItem> items = signalsFromText("~b:b{x,~y} s:c");
        QTreeWidget built, inserted, moved;
        signal2TreeItem(&built, items.first(), 0);
        insertSignalRows(&inserted, items.mid(0, 1), 0, 0);
        insertSignalRows(&moved, items, 0, 0);
        RowEdit(&moved).reorder({1, 0});
        QTreeWidgetItem *port = new QTreeWidgetItem(&moved);
        signal2TreeItem(port, items.first(), 0);
        signal2TreeItemForHierarchy(port, items.first(), {"b", "x", "y"}, 0);
        const QString look = "b gray dDc {x none sdDc, y gray dDc}";
        QCOMPARE(rowText(&built), look);
        QCOMPARE(rowText(&inserted), look);
        QCOMPARE(rowText(&moved), "c none sdDce\n" + look + "\n none sdDce {" + look + ", " + look + "}");
    }

    void sorting()
    {
        QTreeWidget tree;
        insertSignalRows(&tree, signalsFromText("s:a !b:b{x,y} s:c !s:d b:e{z}"), 0, 0);
        tree.topLevelItem(1)->setExpanded(true);
        tree.topLevelItem(4)->setExpanded(true);
        tree.setCurrentItem(tree.topLevelItem(3));
        QCOMPARE(firstDisabledRow(&tree), 1);
        sortEnabledFirst(&tree);
        const QString sorted = QString("a black sde\n"
                                       "c black sde\n"
                                       "e black sde > {z black sdDce}\n"
                                       "b gray sDce > {x gray sdDce, y gray sdDce}\n"
                                       "d gray sDce * @");
        QCOMPARE(rowText(&tree), sorted);
        QCOMPARE(firstDisabledRow(&tree), 3);

        QSignalSpy removed(tree.model(), SIGNAL(rowsRemoved(QModelIndex, int, int)));
        sortEnabledFirst(&tree);
        QCOMPARE(removed.count(), 0);
        QCOMPARE(rowText(&tree), sorted);
    }

    void editsKeepWhatTheyCan()
    {
        QTreeWidget tree;
        tree.setSelectionMode(QTreeWidget::ExtendedSelection);
        insertSignalRows(&tree, signalsFromText("s:a b:b{x,y} s:c s:d"), 0, 0);
        QVERIFY(!removeChosenRows(&tree));
        QTreeWidgetItem *member = tree.topLevelItem(1)->child(1);
        tree.topLevelItem(1)->setExpanded(true);
        tree.setCurrentItem(member);
        tree.topLevelItem(3)->setSelected(true);
        tree.topLevelItem(2)->setSelected(true);
        QSignalSpy selection(&tree, SIGNAL(itemSelectionChanged()));
        RowEdit(&tree).reorder({3, 2, 1, 0});
        QCOMPARE(rowText(&tree), QString("d none sdDce *\n"
                                         "c none sdDce *\n"
                                         "b none sdDce > {x none sdDce, y none sdDce * @}\n"
                                         "a none sdDce"));
        QStringList order;
        for (const QTreeWidgetItem *row : tree.selectedItems())
            order.append(row->text(0));
        QCOMPARE(order.join(' '), QString("y d c")); // as they were selected
        QCOMPARE(selection.count(), 0);

        QVERIFY(removeChosenRows(&tree)); // but members stay with their bus
        QCOMPARE(rowText(&tree), QString("b none sdDce > {x none sdDce, y none sdDce * @}\na none sdDce"));
        QCOMPARE(selection.count(), 1);
        QVERIFY(!removeChosenRows(&tree));
    }

private:
    static QString records(const QTreeWidget &tree) { return toText(topLevelRecords(&tree)); }
};

QTEST_MAIN(SignalRowsTest)
#include "tst_signalrows.moc"
