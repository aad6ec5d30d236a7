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

Declaration RtlNet::declaration() const
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

Declaration RtlNetBus::declaration() const
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

// With fewer children, trying each is as fast.
const int manyChildren = 16;

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

Hierachy::Hierachy() = default;
Hierachy::~Hierachy() = default;

int Hierachy::restBelow(const QString &name, int from) const
{
    const int end = from + instanceName.size();
    if (end + 1 >= name.size() || name.at(end) != QLatin1Char('/'))
        return -1;
    const QChar *own = instanceName.constData();
    return std::equal(own, own + instanceName.size(), name.constData() + from) ? end + 1 : -1;
}

std::vector<const Hierachy *> Hierachy::childrenTowards(const QString &name, int from) const
{
    std::vector<const Hierachy *> found;
    if (children.size() < manyChildren) {
        std::copy_if(children.begin(), children.end(), std::back_inserter(found),
                     [&](const Hierachy *child) { return child->restBelow(name, from) >= 0; });
        return found;
    }
    if (!m_byName) {
        m_byName = std::make_unique<NameIndex>();
        for (const Hierachy *child : children)
            m_byName->add(child->instanceName.constData(), child->instanceName.size());
        m_byName->sort();
    }
    std::vector<quint32> numbers;
    for (int end = name.indexOf(QLatin1Char('/'), from); end >= 0;
         end = name.indexOf(QLatin1Char('/'), end + 1)) {
        m_byName->visit(name.constData() + from, end - from, [&](quint32 number) {
            if (children.at(int(number))->restBelow(name, from) == end + 1)
                numbers.push_back(number);
            return false;
        });
    }
    std::sort(numbers.begin(), numbers.end());
    for (quint32 number : numbers)
        found.push_back(children.at(int(number)));
    return found;
}

RtlNet *Hierachy::findNet(const QString &name, int from) const
{
    const int rest = restBelow(name, from);
    if (rest < 0)
        return nullptr;
    const qint64 slot = m_declarations->findSlot(name, rest);
    if (slot >= 0)
        return netOfSlot(quint32(slot));
    for (const Hierachy *child : childrenTowards(name, rest)) {
        if (RtlNet *found = child->findNet(name, rest))
            return found;
    }
    return nullptr;
}

RtlNetBus *Hierachy::findBus(const QString &name, int from) const
{
    const int rest = restBelow(name, from);
    if (rest < 0)
        return nullptr;
    const qint64 entry = m_declarations->findBus(name, rest);
    if (entry >= 0)
        return buses.at(int(m_declarations->entries()[size_t(entry)].ordinal));
    for (const Hierachy *child : childrenTowards(name, rest)) {
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
