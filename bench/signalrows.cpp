#include "signals/signalrows.h"
#include "bench/bench.h"
#include "bench/context.h"
#include "options/capturerows.h"
#include "signals/signalrules.h"

#include <QHash>
#include <QTreeWidget>

using namespace QUARRY;
using JEX::SignalItem;

namespace {

SignalItem recordOf(const RtlNet *net, int type)
{
    SignalItem item;
    item.name = net->fullPathName();
    item.type = type;
    return item;
}

SignalItem recordOf(const RtlNetBus *bus)
{
    SignalItem item;
    item.name = bus->fullBusName();
    item.type = JEX::BusKind;
    for (const RtlNet *bit : bus->members)
        item.members += recordOf(bit, 1);
    return item;
}

void measureClassifying(const Context &context, const QList<RtlNet *> &nets, const QList<RtlNetBus *> &buses)
{
    const double limit = fastest(3, [&] {
        QHash<QString, const void *> byName;
        for (const RtlNet *net : nets)
            byName.insert(net->fullPathName(), net);
        for (const RtlNetBus *bus : buses)
            byName.insert(bus->fullBusName(), bus);
        keep(byName);
    });
    // Nine in ten are still there.
    QList<SignalItem> stored = signalRecords(nets, buses, 0, 1000);
    for (int i = 0; i < stored.size(); i += 10)
        stored[i].name += QLatin1String("_gone");
    // A netlist that nobody asked before, as after a re-parse.
    double figure = 0;
    for (int run = 0; run < 3; ++run) {
        const std::unique_ptr<RtlNetlist> fresh = context.design.netlist();
        const double time = fastest(1, [&] { RTLJEX::classifySignals(fresh.get(), stored); });
        figure = run == 0 ? time : qMin(figure, time);
    }
    print({"Classifying 1,000 stored signals | one hash of all full names", figure, limit, 0.02, "ms"});
}

// As the page does it: the new ones reconciled with the list, then all rows coloured and put in order.
double addingTime(const QList<SignalItem> &list, const QList<SignalItem> &added, int expected)
{
    double best = 0;
    for (int run = 0; run < 3; ++run) {
        QTreeWidget tree;
        tree.setUniformRowHeights(true);
        tree.resize(400, 600);
        RTLJEX::addCaptureRows(&tree, list);
        tree.show();
        const double time = fastest(1, [&] {
            RTLJEX::addCaptureRows(&tree, added);
            RTLJEX::updateCapEnable(&tree);
            RTLJEX::sortEnabledFirst(&tree);
            tree.doItemsLayout();
        });
        if (tree.topLevelItemCount() != expected)
            qFatal("%d rows instead of %d", tree.topLevelItemCount(), expected);
        best = run == 0 ? time : qMin(best, time);
    }
    return best;
}

} // namespace

QList<SignalItem> signalRecords(const QList<RtlNet *> &nets, const QList<RtlNetBus *> &buses, int first,
                                int count)
{
    QList<SignalItem> items;
    for (int i = first; i < first + count; ++i)
        items += i % 5 == 0 ? recordOf(buses.at(i * 7 % buses.size()))
                            : recordOf(nets.at(int(qint64(i) * 131 % nets.size())), 0);
    return items;
}

void measureSignals(Context &context)
{
    const Hierachy *top = context.netlist->topHierarchy;
    const QList<RtlNet *> nets = top->singleNetsIncludeSub();
    const QList<RtlNetBus *> buses = top->netbusesIncludeSub();
    measureClassifying(context, nets, buses);

    // A tenth of the new ones is in the list already.
    double times[2];
    for (int i = 0; i < 2; ++i) {
        const int count = 5000 * (i + 1);
        const QList<SignalItem> list = signalRecords(nets, buses, 0, count);
        times[i] =
            addingTime(list, signalRecords(nets, buses, count - count / 10, count), 2 * count - count / 10);
    }
    print({"Adding 5,000 signals to a list of 5,000", times[0], 0, 300, "ms"});
    print({"Adding 10,000 signals to a list of 10,000 | the same with half of both", times[1], times[0], 2.5,
           "ms"});
}
