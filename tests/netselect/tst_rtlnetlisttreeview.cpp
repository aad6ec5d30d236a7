#include <QtTest>

#include "model/quarry/rtlnetlist.h"
#include "netselect/rtlnetlisttreeview.h"
#include "tests/support/netlisttext.h"

using namespace RTLJEX;

class TestRtlNetlistTreeView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noDesignNoRows();
    void modulesOnly();
    void netsAndBuses();
};

void TestRtlNetlistTreeView::noDesignNoRows()
{
    const QScopedPointer<QUARRY::RtlNetlist> netlist(netlistFromText("top\n"));
    RtlNetlistTreeView view;
    QVERIFY(view.isHeaderHidden());
    view.setNetlistData(netlist.data());
    QCOMPARE(view.netlistData(), netlist.data());
    QCOMPARE(view.topLevelItemCount(), 1);
    view.setNetlistData(nullptr);
    QCOMPARE(view.topLevelItemCount(), 0);
    QUARRY::RtlNetlist empty;
    view.setNetlistData(&empty);
    QCOMPARE(view.topLevelItemCount(), 0);
}

void TestRtlNetlistTreeView::modulesOnly()
{
    const QScopedPointer<QUARRY::RtlNetlist> netlist(
        netlistFromText("top\n  clk\n  u1:uart\n    a[1:0]\n    u3:fifo\n  u0:uart\n"));
    RtlNetlistTreeView view;
    view.setNetlistData(netlist.data());
    const QTreeWidgetItem *top = view.topLevelItem(0);
    QCOMPARE(top->text(0), QString("top"));
    QVERIFY(top->isExpanded());
    QCOMPARE(top->childCount(), 2);
    QCOMPARE(top->child(0)->text(0) + ' ' + top->child(1)->text(0), QString("u1[uart] u0[uart]"));
    QVERIFY(!top->child(0)->isExpanded());
    QVERIFY(!top->child(0)->icon(0).isNull());
    const RtlTreeItem *fifo = dynamic_cast<const RtlTreeItem *>(top->child(0)->child(0));
    QVERIFY(fifo);
    QCOMPARE(fifo->text(0), QString("u3[fifo]"));
    QCOMPARE(fifo->type(), 1003);
    QCOMPARE(fifo->netlistObject,
             static_cast<void *>(netlist->topHierarchy->children.first()->children.first()));
}

void TestRtlNetlistTreeView::netsAndBuses()
{
    const QScopedPointer<QUARRY::RtlNetlist> netlist(netlistFromText("top\n  clk\n  a[0:1]\n"));
    RtlNetlistTreeView view;
    const QScopedPointer<RtlTreeItem> net(view.buildNetItem(netlist->topHierarchy->nets.first()));
    QCOMPARE(net->text(0), QString("top/clk"));
    QCOMPARE(net->type(), 1001);
    QCOMPARE(net->netlistObject, static_cast<void *>(netlist->topHierarchy->nets.first()));
    QUARRY::RtlNetBus *bus = netlist->topHierarchy->buses.first();
    const QScopedPointer<RtlTreeItem> row(view.buildNetBusItem(bus));
    QCOMPARE(row->text(0), QString("top/a[0:1]"));
    QCOMPARE(row->type(), 1002);
    QCOMPARE(row->netlistObject, static_cast<void *>(bus));
    QCOMPARE(row->childCount(), 2);
    QCOMPARE(row->child(1)->text(0), QString("top/a[1]"));
    QCOMPARE(row->child(1)->type(), 1001);
}

QTEST_MAIN(TestRtlNetlistTreeView)
#include "tst_rtlnetlisttreeview.moc"
