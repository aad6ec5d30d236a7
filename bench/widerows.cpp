#include "bench/bench.h"
#include "bench/context.h"
#include "bench/widedesign.h"
#include "check/stalereport.h"

using namespace QUARRY;

namespace {

const int asked = 5000;

// Every twentieth net of the cells, or of the flat module.
QStringList names(const QList<RtlNet *> &nets, int first)
{
    QStringList result;
    for (int i = first; result.size() < asked; i += 20)
        result << nets.at(i)->fullPathName();
    return result;
}

// In a netlist that nobody asked before, as after a re-parse.
void measureFinding(const QString &where, const QStringList &names)
{
    double best = 0;
    for (int run = 0; run < 5; ++run) {
        const std::unique_ptr<RtlNetlist> netlist = WideDesign().netlist();
        int found = 0;
        const double time = fastest(1, [&] {
            for (const QString &name : names)
                found += netlist->findNet(name) ? 1 : 0;
        });
        if (found != names.size())
            qFatal("findNet finds %d of %d names", found, int(names.size()));
        best = run == 0 ? time : qMin(best, time);
    }
    print({"findNet, 5,000 names, " + where, best, 0, 20, "ms"});
}

// A tenth of the signals is gone, by another name or in another width.
void measureStale(const RtlNetlist &netlist, const QStringList &names)
{
    JEX::AOCore_Lite core;
    for (int i = 0; i < names.size(); ++i) {
        JEX::SignalItem item;
        item.name = names.at(i);
        if (i % 20 == 0)
            item.name.replace(QLatin1String("u_cell_"), QLatin1String("u_call_"));
        else if (i % 20 == 10)
            item.name += QLatin1String("[3]");
        core.captureSignals << item;
    }
    const auto hashAll = [&] {
        QHash<QString, const RtlNet *> byName;
        for (const RtlNet *net : netlist.topHierarchy->singleNetsIncludeSub())
            byName.insert(net->fullPathName(), net);
        keep(byName);
    };
    int stale = 0;
    const auto report = [&] {
        stale = RTLJEX::staleSignals(RTLJEX::anyCores(QList<JEX::AOCore_Lite *>{&core}), netlist).size();
    };
    const Times times = inTurn(3, report, hashAll);
    if (stale != asked / 10)
        qFatal("the stale report has %d lines", stale);
    print({"Stale report, 5,000 signals, 500 of them stale | one hash of all full names", times.figure,
           times.limit, 4, "ms"});
}

} // namespace

void measureWide()
{
    const std::unique_ptr<RtlNetlist> netlist = WideDesign().netlist();
    const Hierachy *top = netlist->topHierarchy;
    const QList<RtlNet *> nets = top->singleNetsIncludeSub();
    const QStringList ofCells = names(nets, 2);
    measureFinding(QStringLiteral("100,000 instances in one module"), ofCells);
    measureFinding(QStringLiteral("100,000 nets in one module"), names(nets, 2 * WideDesign::width + 1));
    measureStale(*netlist, ofCells);
}
