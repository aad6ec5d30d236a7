#include "check/stalereport.h"

#include <QCoreApplication>
#include <QSet>

#include <algorithm>

#include "check/nearestnames.h"
#include "check/netname.h"
#include "model/netlist/rtlmodule.h"

using QUARRY::Hierachy;
using QUARRY::RtlModule;

namespace RTLJEX {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(RTLJEX::StaleReport)
};

// The full name, with its range, of what is declared under a name without one; empty for none.
QString declaredName(const Hierachy *node, const QString &name, int from)
{
    const int rest = node->restBelow(name, from);
    if (rest < 0)
        return QString();
    const RtlModule &module = node->declarations();
    const qint64 entry = module.findDeclared(name, rest);
    if (entry >= 0)
        return NetName().in(*node, module.entries()[size_t(entry)]);
    for (const Hierachy *child : node->childrenTowards(name, rest)) {
        const QString found = declaredName(child, name, rest);
        if (!found.isEmpty())
            return found;
    }
    return QString();
}

// The bus whose bits all members are; empty when they are not of one.
QString commonBase(const QList<JEX::SignalItem> &members)
{
    QString base;
    for (const JEX::SignalItem &member : members) {
        const NetName name(member.name);
        if (name.form != NetName::Bit || !member.members.isEmpty())
            return QString();
        if (base.isEmpty())
            base = name.fullBase();
        if (base != name.fullBase())
            return QString();
    }
    return base;
}

class Report
{
public:
    explicit Report(const QUARRY::RtlNetlist &netlist) : m_netlist(netlist) {}

    void addCore(const AnyCore &core, int position)
    {
        m_place.core = position;
        m_place.shown = core.shown;
        setPlace(StaleSignal::Clock, -1);
        m_place.row = -1;
        if (!core.clock->isEmpty())
            checkSingle(*core.clock, QString(), QString());
        for (const JEX::TriggerPort *port : core.ports) {
            setPlace(StaleSignal::Trigger, port->portNumber);
            addRows(port->signalItems);
        }
        setPlace(StaleSignal::Capture, -1);
        addRows(*core.signalRows);
        addOthers(*core.enabledRows, *core.signalRows);
    }

    QList<StaleSignal> take()
    {
        QStringList names;
        for (const StaleSignal &signal : m_found) {
            if (signal.fault == StaleSignal::Missing)
                names.append(signal.name);
        }
        QList<NearNames> near = nearestNames(m_netlist, names);
        for (StaleSignal &signal : m_found) {
            if (signal.fault != StaleSignal::Missing)
                continue;
            const NearNames found = near.takeFirst();
            signal.nearest = found.names;
            signal.now = found.moved;
            if (!found.moved.isEmpty())
                signal.fault = StaleSignal::Moved;
        }
        return m_found;
    }

private:
    void setPlace(StaleSignal::Place place, int port)
    {
        m_place.place = place;
        m_place.port = port;
    }

    void addRows(const QList<JEX::SignalItem> &rows)
    {
        for (m_place.row = 0; m_place.row < rows.size(); ++m_place.row)
            checkItem(rows.at(m_place.row), QString());
    }

    // What is captured without being listed: no editor writes that, but a file can hold it.
    void addOthers(const QList<JEX::SignalItem> &enabled, const QList<JEX::SignalItem> &all)
    {
        QSet<QString> listed;
        for (const JEX::SignalItem &item : all)
            listed.insert(item.name);
        m_place.row = -1;
        for (const JEX::SignalItem &item : enabled) {
            if (!listed.contains(item.name))
                checkItem(item, QString());
        }
    }

    void checkItem(const JEX::SignalItem &item, const QString &group)
    {
        if (item.members.isEmpty())
            return checkSingle(item.name, item.alias, group);
        const QString base = commonBase(item.members);
        // What the user grouped under a name of its own is as many signals as it has members.
        if (!base.isEmpty() && base == NetName(item.name).fullBase())
            return checkBus(item, base, group);
        for (const JEX::SignalItem &member : item.members)
            checkItem(member, item.name);
    }

    void checkSingle(const QString &name, const QString &alias, const QString &group)
    {
        const QUARRY::RtlNet *net = m_netlist.findNet(name);
        const QUARRY::RtlNetBus *bus = net ? nullptr : m_netlist.findBus(name);
        if (!net && !bus)
            addLost(name, NetName(name).fullBase(), alias, group);
        else if (net ? net->excluded : bus->excluded)
            add(StaleSignal::Excluded, name, alias, group);
    }

    void checkBus(const JEX::SignalItem &item, const QString &base, const QString &group)
    {
        QList<const JEX::SignalItem *> excluded;
        int there = 0;
        for (const JEX::SignalItem &member : item.members) {
            const QUARRY::RtlNet *net = m_netlist.findNet(member.name);
            there += net ? 1 : 0;
            if (net && net->excluded)
                excluded.append(&member);
        }
        if (there < item.members.size())
            return addLost(item.name, base, item.alias, group);
        // Bits that the user made a group of may be part of a bus; what was a bus is it as a whole.
        const QUARRY::RtlNet *first = m_netlist.findNet(item.members.first().name);
        const RtlModule &module = first->module()->declarations();
        const RtlModule::Entry &entry = module.entryOfSlot(first->slot());
        if (item.isOfBus() && entry.isBus && entry.width() != item.members.size())
            return add(StaleSignal::WidthChanged, item.name, item.alias, group,
                       module.busName(entry, &first->module()->fullPathName()));
        if (excluded.size() == item.members.size())
            return add(StaleSignal::Excluded, item.name, item.alias, group);
        for (const JEX::SignalItem *member : excluded)
            add(StaleSignal::Excluded, member->name, member->alias, item.name);
    }

    void addLost(const QString &name, const QString &base, const QString &alias, const QString &group)
    {
        const QString now =
            m_netlist.topHierarchy ? declaredName(m_netlist.topHierarchy, base, 0) : QString();
        add(now.isEmpty() ? StaleSignal::Missing : StaleSignal::WidthChanged, name, alias, group, now);
    }

    void add(StaleSignal::Fault fault, const QString &name, const QString &alias, const QString &group,
             const QString &now = QString())
    {
        StaleSignal signal = m_place;
        signal.fault = fault;
        signal.name = name;
        signal.alias = alias;
        signal.group = group;
        signal.now = now;
        m_found.append(signal);
    }

    const QUARRY::RtlNetlist &m_netlist;
    StaleSignal m_place; // where the signals stand that are being looked up
    QList<StaleSignal> m_found;
};

} // namespace

QList<StaleSignal> staleSignals(const QList<AnyCore> &cores, const QUARRY::RtlNetlist &netlist)
{
    Report report(netlist);
    for (int i = 0; i < cores.size(); ++i)
        report.addCore(cores.at(i), i);
    return report.take();
}

QString staleWord(StaleSignal::Fault fault)
{
    static const char *const words[] = {"missing", "width changed", "excluded", "moved"};
    static_assert(sizeof words / sizeof *words == StaleSignal::Moved + 1, "each fault has a word");
    return QLatin1String(words[fault]);
}

QString staleSentence(const StaleSignal &signal)
{
    QString name = signal.name;
    if (!signal.alias.isEmpty())
        name += QLatin1String(" \"") + signal.alias + QLatin1Char('"');
    if (!signal.group.isEmpty())
        name = Texts::tr("%1 of %2").arg(name, signal.group);
    QString subject = Texts::tr("Core %1: capture signal %2").arg(QString::number(signal.shown), name);
    if (signal.place == StaleSignal::Clock)
        subject = Texts::tr("Core %1: clock signal %2").arg(QString::number(signal.shown), name);
    else if (signal.place == StaleSignal::Trigger)
        subject = Texts::tr("Core %1: trigger port %2 signal %3")
                      .arg(QString::number(signal.shown), QString::number(signal.port), name);
    QString text;
    switch (signal.fault) {
    case StaleSignal::Missing:
        text = Texts::tr("%1 is missing in the design").arg(subject);
        break;
    case StaleSignal::WidthChanged:
        return Texts::tr("%1 changed in width, it is now %2").arg(subject, signal.now);
    case StaleSignal::Excluded:
        return Texts::tr("%1 is now excluded from probing").arg(subject);
    case StaleSignal::Moved:
        text = Texts::tr("%1 moved, it is now %2").arg(subject, signal.now);
        break;
    }
    const QStringList others = signal.nearest.mid(signal.fault == StaleSignal::Moved ? 1 : 0);
    return others.isEmpty() ? text : Texts::tr("%1; nearest: %2").arg(text, others.join(QLatin1String(", ")));
}

} // namespace RTLJEX
