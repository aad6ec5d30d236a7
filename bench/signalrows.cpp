#include "bench/bench.h"
#include "bench/context.h"

#include <QApplication>
#include <QSet>
#include <QTreeWidget>

#include "netselect/resultrows.h"
#include "signals/checkrepeat.h"
#include "signals/signalrows.h"
#include "signals/signalrules.h"

using namespace QUARRY;
using namespace RTLJEX;

namespace {

int rowsOf(const QList<RtlNet *> &nets, const QList<RtlNetBus *> &buses)
{
    int rows = nets.size();
    for (const RtlNetBus *bus : buses)
        rows += 1 + bus->members.size();
    return rows;
}

void layOut(QTreeWidget &tree)
{
    tree.setUniformRowHeights(true);
    tree.setSelectionMode(QAbstractItemView::ExtendedSelection);
    tree.resize(600, 500);
    tree.show();
    QApplication::processEvents();
}

QTreeWidgetItem *bareItem(const QVariant &value)
{
    QTreeWidgetItem *item = new QTreeWidgetItem;
    item->setData(0, Qt::DisplayRole, value);
    return item;
}

// What any tree of these rows costs: as many items of the toolkit's own, in the same shape, one value each.
void fillBare(QTreeWidget &tree, const QList<RtlNet *> &nets, const QList<RtlNetBus *> &buses)
{
    const QVariant value(QLatin1String("top/u_cluster_00/u_core_0000/net"));
    QList<QTreeWidgetItem *> rows;
    for (const RtlNetBus *bus : buses) {
        rows.append(bareItem(value));
        QList<QTreeWidgetItem *> bits;
        for (int i = 0; i < bus->members.size(); ++i)
            bits.append(bareItem(value));
        rows.last()->addChildren(bits);
    }
    for (int i = 0; i < nets.size(); ++i)
        rows.append(bareItem(value));
    tree.addTopLevelItems(rows);
}

void measureResultTree(const Hierachy *top)
{
    const QList<RtlNet *> nets = top->singleNetsIncludeSub();
    const QList<RtlNetBus *> buses = top->netbusesIncludeSub();
    const int rows = rowsOf(nets, buses);
    double limit = 0;
    double figure = 0;
    for (int run = 0; run < 3; ++run) { // destruction is not part of either
        QTreeWidget bare;
        const double bareTime = fastest(1, [&] {
            fillBare(bare, nets, buses);
            layOut(bare);
        });
        bare.hide();
        QTreeWidget tree;
        const double time = fastest(1, [&] {
            showFlatResult(&tree, nets, buses);
            layOut(tree);
        });
        limit = run == 0 ? bareTime : qMin(limit, bareTime);
        figure = run == 0 ? time : qMin(figure, time);
    }
    print({QString("Result tree of %1 rows, filled and laid out | bare tree").arg(rows), figure, limit, 1.3,
           "ms"});

    QTreeWidget tree;
    showFlatResult(&tree, nets, buses);
    layOut(tree);
    int collected = 0;
    const double selecting = fastest(3, [&] {
        tree.clearSelection();
        tree.selectAll();
        collected = selectedSignals(&tree).size();
    });
    print({QString("Selecting all and collecting the records, %1 rows, each").arg(collected),
           selecting * 1000 / collected, 0, 0.4, "us"});
}

QList<JEX::SignalItem> storedSignals(const Hierachy *top, int count)
{
    QList<JEX::SignalItem> stored;
    for (const RtlNetBus *bus : top->netbusesIncludeSub().mid(0, count / 5))
        stored.append(signalOfBus(bus));
    const QList<RtlNet *> nets = top->singleNetsIncludeSub();
    const int step = nets.size() / (count - stored.size());
    for (int i = 0; stored.size() < count; i += step)
        stored.append(signalOfNet(nets.at(i)));
    return stored;
}

void measureClassifying(const RtlNetlist *netlist)
{
    QList<JEX::SignalItem> stored = storedSignals(netlist->topHierarchy, 1000);
    const double limit = fastest(3, [&] {
        QSet<QString> names;
        for (const RtlNet *net : netlist->topHierarchy->singleNetsIncludeSub())
            names.insert(net->fullPathName());
        for (const RtlNetBus *bus : netlist->topHierarchy->netbusesIncludeSub())
            names.insert(bus->fullBusName());
        keep(names);
    });
    const double figure = fastest(1, [&] { classifySignals(netlist, stored); }); // nothing looked up before
    print({"Classifying 1,000 stored signals | hash of all full names", figure, limit, 0.05, "ms"});
}

void measureAdding(const Hierachy *top)
{
    const QList<JEX::SignalItem> records = storedSignals(top, 10000);
    QTreeWidget tree;
    insertCaptureRows(&tree, records.mid(0, 5000), 0);
    layOut(tree);
    const double figure = fastest(1, [&] {
        QList<JEX::SignalItem> buses;
        QList<JEX::SignalItem> others;
        Grouped(records.mid(5000), buses, others);
        CheckRepeat(&tree, buses, others);
        insertCaptureRows(&tree, buses + others, firstDisabledRow(&tree));
        updateCapEnable(&tree);
        sortEnabledFirst(&tree);
        QApplication::processEvents();
    });
    print({"Adding 5,000 signals to a list of 5,000", figure / 1000, 0, 0.3, "s"});
}

} // namespace

void measureSignals(Context &context)
{
    measureClassifying(context.netlist.get());
    measureResultTree(context.netlist->topHierarchy);
    measureAdding(context.netlist->topHierarchy);
}
