#include "signals/namedsignals.h"

#include <QCoreApplication>
#include <QMimeData>

#include "check/nearestnames.h"
#include "model/jex/core.h"
#include "model/jex/zubinput.h"
#include "model/jex/zubreader.h"
#include "model/jex/zubwriter.h"
#include "model/netlist/rtlnetlist.h"
#include "signals/addedrows.h"
#include "signals/signalrules.h"

namespace RTLJEX {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(RTLJEX::NamedSignals)
};

// Signals travel as the capture list of a Lite file, so that there is one form of a record.
const char recordFormat[] = "application/x-jex-signals";
const int largestClipboard = 64 * 1024 * 1024; // bytes; others can put anything there
const int mostPasted = 250000;                 // names, which are looked up while the user waits

// The bus that is named without its range, below the node; null when there is none.
const QUARRY::RtlNetBus *findWholeBus(const QUARRY::Hierachy &node, const QString &name, int from)
{
    const int rest = node.restBelow(name, from);
    if (rest < 0)
        return nullptr;
    const QString begin = name.mid(rest) + QLatin1Char('[');
    for (const QUARRY::RtlNetBus *bus : node.buses) {
        const QString known = bus->BusName();
        if (known.startsWith(begin) && known.indexOf(QLatin1Char('['), begin.size()) < 0)
            return bus;
    }
    for (const QUARRY::Hierachy *child : node.childrenTowards(name, rest)) {
        if (const QUARRY::RtlNetBus *bus = findWholeBus(*child, name, rest))
            return bus;
    }
    return nullptr;
}

bool findSignal(const QUARRY::RtlNetlist &netlist, const QString &name, JEX::SignalItem *item)
{
    const QUARRY::RtlNetBus *bus = netlist.findBus(name);
    const QUARRY::RtlNet *net = bus ? nullptr : netlist.findNet(name);
    if (!bus && !net)
        bus = findWholeBus(*netlist.topHierarchy, name, 0);
    if (bus || net)
        *item = bus ? signalOfBus(bus) : signalOfNet(net);
    return bus || net;
}

// As it is; with dots for separators; and either from the top instance on.
QStringList spellings(const QString &name, const QString &top)
{
    QStringList all(name);
    all << QString(name).replace(QLatin1Char('.'), QLatin1Char('/'));
    for (int i = 0; i < 2; ++i) {
        const int place = all.at(i).indexOf(QLatin1Char('/') + top + QLatin1Char('/'));
        if (place >= 0)
            all << all.at(i).mid(place + 1);
    }
    return all;
}

bool isExcluded(const QUARRY::RtlNetlist &netlist, const JEX::SignalItem &item)
{
    const QUARRY::RtlNet *net = item.isSingle() ? netlist.findNet(item.name) : nullptr;
    return net && net->excluded;
}

// Names that a record needs and the design does not have: its own, or those of its bits.
QStringList missingNames(const QUARRY::RtlNetlist *netlist, const JEX::SignalItem &item)
{
    QStringList missing;
    const QList<JEX::SignalItem> bits = item.isSingle() ? QList<JEX::SignalItem>() << item : item.members;
    for (const JEX::SignalItem &bit : bits) {
        if (!netlist || !netlist->findNet(bit.name) || isExcluded(*netlist, bit))
            missing << bit.name;
    }
    return missing;
}

QString missingFault(const QString &name, const QStringList &nearest)
{
    return nearest.isEmpty() ? Texts::tr("%1 is missing in the design.").arg(name)
                             : Texts::tr("%1 is missing in the design; nearest: %2.")
                                   .arg(name, nearest.join(QLatin1String(", ")));
}

QList<JEX::SignalItem> recordsOf(const QByteArray &bytes)
{
    QList<JEX::SignalItem> items;
    const QString name = QLatin1String("clipboard");
    QString fault;
    if (bytes.size() > largestClipboard || !JEX::keepsZubBounds(bytes, name, &fault))
        return items;
    const QList<JEX::AOCore_Lite *> cores = JEX::ZubReader(bytes, name).cores<JEX::AOCore_Lite>();
    for (const JEX::AOCore_Lite *core : cores)
        items += core->captureSignals;
    qDeleteAll(cores);
    return items;
}

} // namespace

QList<JEX::SignalItem> signalsNamed(const QUARRY::RtlNetlist *netlist, const QStringList &names,
                                    QStringList *faults)
{
    QList<JEX::SignalItem> items;
    if (!netlist || !netlist->topHierarchy) {
        faults->append(Texts::tr("There is no design to look the signals up in."));
        return items;
    }
    QStringList missing;
    for (const QString &name : names) {
        JEX::SignalItem item;
        bool isFound = false;
        for (const QString &spelling : spellings(name, netlist->topHierarchy->instanceName))
            isFound = isFound || findSignal(*netlist, spelling, &item);
        if (!isFound)
            missing << name;
        else if (!item.valid)
            faults->append(
                Texts::tr("%1 must not be probed: it is tied to a constant or is a bidirectional pin.")
                    .arg(item.name));
        else
            items.append(item);
    }
    const QList<NearNames> near = nearestNames(*netlist, missing);
    for (int i = 0; i < missing.size(); ++i)
        faults->append(missingFault(missing.at(i), near.at(i).names));
    classifySignals(netlist, items); // tells bits of buses from nets
    return items;
}

QStringList signalNames(const QString &text)
{
    QStringList names;
    for (const QString &line : text.split(QLatin1Char('\n'))) {
        const QString name = line.section(QLatin1Char('\t'), 0, 0).trimmed();
        if (!name.isEmpty() && !name.startsWith(QLatin1Char('#')))
            names << name;
    }
    return names;
}

QMimeData *dataOfSignals(const QList<JEX::SignalItem> &items)
{
    QMimeData *data = new QMimeData;
    QString text;
    for (const JEX::SignalItem &item : items)
        text += item.name + QLatin1Char('\n');
    data->setText(text);
    JEX::AOCore_Lite core;
    core.captureSignals = items;
    QByteArray bytes;
    QString error;
    if (JEX::zubFromCores(QList<JEX::AOCore_Lite *>() << &core, &bytes, &error))
        data->setData(QLatin1String(recordFormat), bytes);
    return data;
}

QList<JEX::SignalItem> signalsOfData(const QMimeData &data, const QUARRY::RtlNetlist *netlist,
                                     QStringList *faults)
{
    if (!data.hasFormat(QLatin1String(recordFormat))) {
        const QStringList names = signalNames(data.text().left(largestClipboard));
        if (names.size() > mostPasted)
            faults->append(Texts::tr("There are %1 names, of which the first %2 were looked up.")
                               .arg(names.size())
                               .arg(mostPasted));
        return signalsNamed(netlist, names.mid(0, mostPasted), faults);
    }
    QList<JEX::SignalItem> items;
    for (JEX::SignalItem item : recordsOf(data.data(QLatin1String(recordFormat)))) {
        const QStringList missing = missingNames(netlist, item);
        for (const QString &name : missing)
            faults->append(missingFault(name, QStringList()));
        item.capEnable = true;
        setBusCapEnable(item);
        if (missing.isEmpty())
            items.append(item);
    }
    classifySignals(netlist, items);
    return items;
}

} // namespace RTLJEX
