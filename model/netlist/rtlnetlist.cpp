#include "model/netlist/rtlnetlist.h"

#include "model/netlist/rtlmodule.h"

#include <algorithm>

namespace QUARRY {

QString RtlNet::name() const
{
    return m_module->declarations().netName(m_slot, nullptr);
}

QString RtlNet::fullPathName() const
{
    return m_module->declarations().netName(m_slot, &m_module->fullPathName());
}

const Declaration &RtlNet::declaration() const
{
    const RtlModule &module = m_module->declarations();
    return module.info(module.entryNumber(m_slot));
}

QString RtlNetBus::BusName() const
{
    const RtlModule &module = m_module->declarations();
    return module.busName(module.entries()[m_entry], nullptr);
}

QString RtlNetBus::fullBusName() const
{
    const RtlModule &module = m_module->declarations();
    return module.busName(module.entries()[m_entry], &m_module->fullPathName());
}

const Declaration &RtlNetBus::declaration() const
{
    return m_module->declarations().info(m_entry);
}

namespace {

// Both walks fill one list on the way down.
template <typename List>
void collect(const Hierachy *node, List Hierachy::*own, List &result)
{
    result += node->*own;
    for (const Hierachy *child : node->children)
        collect(child, own, result);
}

// Where the rest of `name` after the node's own name and the separator begins; -1 when it is not below.
int restBelow(const Hierachy *node, const QString &name, int from)
{
    const int end = from + node->instanceName.size();
    if (end + 1 >= name.size() || name.at(end) != QLatin1Char('/'))
        return -1;
    const QChar *own = node->instanceName.constData();
    return std::equal(own, own + node->instanceName.size(), name.constData() + from) ? end + 1 : -1;
}

} // namespace

QList<RtlNet *> Hierachy::singleNetsIncludeSub() const
{
    QList<RtlNet *> result;
    collect(this, &Hierachy::nets, result);
    return result;
}

QList<RtlNetBus *> Hierachy::netbusesIncludeSub() const
{
    QList<RtlNetBus *> result;
    collect(this, &Hierachy::buses, result);
    return result;
}

// A name may hold the separator itself, so more than one child can be the way: each one that fits is
// followed until the net is found.
RtlNet *Hierachy::findNet(const QString &name, int from) const
{
    const int rest = restBelow(this, name, from);
    if (rest < 0)
        return nullptr;
    const qint64 slot = m_declarations->findSlot(name, rest);
    if (slot >= 0)
        return const_cast<RtlNet *>(&m_bits[size_t(slot)]);
    for (const Hierachy *child : children) {
        if (RtlNet *found = child->findNet(name, rest))
            return found;
    }
    return nullptr;
}

RtlNetBus *Hierachy::findBus(const QString &name, int from) const
{
    const int rest = restBelow(this, name, from);
    if (rest < 0)
        return nullptr;
    const qint64 entry = m_declarations->findBus(name, rest);
    if (entry >= 0)
        return buses.at(int(m_declarations->entries()[size_t(entry)].ordinal));
    for (const Hierachy *child : children) {
        if (RtlNetBus *found = child->findBus(name, rest))
            return found;
    }
    return nullptr;
}

RtlNetlist::RtlNetlist() = default;
RtlNetlist::~RtlNetlist() = default;

RtlNet *RtlNetlist::findNet(const QString &name) const
{
    return topHierarchy ? topHierarchy->findNet(name, 0) : nullptr;
}

RtlNetBus *RtlNetlist::findBus(const QString &name) const
{
    return topHierarchy ? topHierarchy->findBus(name, 0) : nullptr;
}

} // namespace QUARRY
