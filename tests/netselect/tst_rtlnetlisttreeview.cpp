#include <QtTest>

#include "model/netlist/rtlnetlist.h"
#include "netselect/rtlnetlisttreeview.h"
#include "tests/support/netlisttext.h"

using namespace RTLJEX;

namespace {

// "u0[uart] 1003 icon(...)": text, type and what is below
QString drawn(const QTreeWidgetItem *row)
{
    QStringList children;
    for (int i = 0; i < row->childCount(); ++i)
        children += drawn(row->child(i));
    QString text = row->text(0) + ' ' + QString::number(row->type());
    text += row->icon(0).isNull() ? "" : " icon";
    return text + (children.isEmpty() ? QString() : '(' + children.join(", ") + ')');
}

} // namespace

class RtlNetlistTreeViewTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rows()
    {
        const QScopedPointer<QUARRY::RtlNetlist> netlist(
            netlistFromText("top\n  clk\n  u1:uart\n    a[0:1]\n    u3:fifo\n  u0:uart\n"));
        RtlNetlistTreeView view;
        QVERIFY(view.isHeaderHidden());
        view.setNetlistData(netlist.data());
        QCOMPARE(view.netlistData(), netlist.data());
        QCOMPARE(view.topLevelItemCount(), 1);
        const QTreeWidgetItem *top = view.topLevelItem(0);
        QCOMPARE(drawn(top),
                 QString("top 1003 icon(u1[uart] 1003 icon(u3[fifo] 1003 icon), u0[uart] 1003 icon)"));
        QVERIFY(top->isExpanded());
        QVERIFY(!top->child(0)->isExpanded());
        const RtlTreeItem *uart = dynamic_cast<const RtlTreeItem *>(top->child(1));
        QVERIFY(uart);
        QCOMPARE(uart->netlistObject, netlist->topHierarchy->children.last());

        QUARRY::RtlNet *net = netlist->topHierarchy->nets.first();
        QUARRY::RtlNetBus *bus = netlist->topHierarchy->children.first()->buses.first();
        const QScopedPointer<RtlTreeItem> netRow(view.buildNetItem(net));
        const QScopedPointer<RtlTreeItem> busRow(view.buildNetBusItem(bus));
        QCOMPARE(drawn(netRow.data()), QString("top/clk 1001"));
        QCOMPARE(drawn(busRow.data()), QString("top/u1/a[0:1] 1002(top/u1/a[0] 1001, top/u1/a[1] 1001)"));
        QCOMPARE(netRow->netlistObject, net);
        QCOMPARE(busRow->netlistObject, bus);

        QUARRY::RtlNetlist empty;
        for (QUARRY::RtlNetlist *none : {&empty, static_cast<QUARRY::RtlNetlist *>(nullptr)}) {
            view.setNetlistData(netlist.data());
            view.setNetlistData(none);
            QCOMPARE(view.topLevelItemCount(), 0);
        }
    }
};

QTEST_MAIN(RtlNetlistTreeViewTest)
#include "tst_rtlnetlisttreeview.moc"
