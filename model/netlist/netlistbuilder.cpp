#include "model/netlist/netlistbuilder.h"

#include <QCoreApplication>

#include "model/netlist/rtlmodule.h"

#include <algorithm>

namespace QUARRY {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(QUARRY::NetlistBuilder)
};

} // namespace

NetlistBuilder::NetlistBuilder() : m_netlist(new RtlNetlist)
{
}
NetlistBuilder::~NetlistBuilder() = default;

int NetlistBuilder::addModule(const ModuleDecl &module)
{
    qint64 bits = 0;
    for (const NetDecl &net : module.nets)
        bits += net.isBus ? rangeWidth(net.left, net.right) : 1;
    ModuleDecl kept;
    kept.name = module.name;
    kept.isScope = module.isScope;
    if (bits > maxNets)
        m_overflow = Texts::tr("ERROR: Module %1 has %2 nets, and a design can have %3 here. Look for a "
                               "range that is too large in it.")
                         .arg(module.name, QString::number(bits), QString::number(maxNets));
    else
        kept.nets = module.nets;
    m_netlist->m_modules.push_back(std::make_unique<RtlModule>(kept));
    return int(m_netlist->m_modules.size()) - 1;
}

void NetlistBuilder::expectInstances(qint64 count)
{
    if (qint64(m_netlist->m_nodes.size()) + count > maxInstances)
        m_overflow = Texts::tr("ERROR: The design has more than %1 instances. Look for a loop or an array "
                               "of instances that is too large.")
                         .arg(maxInstances);
}

Hierachy *NetlistBuilder::addTop(const QString &instanceName, int module)
{
    m_netlist->topHierarchy = addInstance(nullptr, instanceName, module);
    return m_netlist->topHierarchy;
}

Hierachy *NetlistBuilder::addInstance(Hierachy *parent, const QString &instanceName, int module)
{
    const RtlModule &declarations = *m_netlist->m_modules[size_t(module)];
    expectInstances(1);
    m_netCount += declarations.slotCount();
    if (m_netCount > maxNets)
        m_overflow = Texts::tr("ERROR: The design has more than %1 nets. Look for a range, a loop or an "
                               "array that is too large.")
                         .arg(maxNets);
    m_netlist->m_nodes.emplace_back();
    Hierachy *node = &m_netlist->m_nodes.back();
    node->instanceName = instanceName;
    node->moduleName = declarations.name();
    node->parent = parent;
    node->m_declarations = &declarations;
    node->m_path = instanceName;
    if (parent) {
        node->m_path = parent->m_path + QLatin1Char('/') + instanceName;
        parent->children.append(node);
    }
    if (m_overflow.isEmpty())
        fill(node, declarations);
    return node;
}

// One block for all bits of the instance and one for its buses: a net costs its record and the pointer
// to it, nothing for the allocator.
void NetlistBuilder::fill(Hierachy *node, const RtlModule &module)
{
    size_t singles = 0;
    for (const RtlModule::Entry &entry : module.entries())
        singles += entry.isBus ? 0 : 1;
    node->nets.reserve(int(singles));
    node->buses.reserve(int(module.entries().size() - singles));
    node->m_bits.resize(module.slotCount());
    node->m_buses.resize(module.entries().size() - singles);
    quint32 slot = 0;
    for (RtlNet &bit : node->m_bits) {
        bit.m_slot = slot++;
        bit.m_module = node;
    }
    for (quint32 number = 0; number < module.entries().size(); ++number) {
        const RtlModule::Entry &entry = module.entries()[number];
        if (entry.isBus) {
            RtlNetBus *bus = &node->m_buses[entry.ordinal];
            bus->m_entry = number;
            bus->m_module = node;
            bus->members.reserve(entry.width());
            for (int i = 0; i < entry.width(); ++i)
                bus->members.append(&node->m_bits[entry.firstSlot + quint32(i)]);
            node->buses.append(bus);
        } else {
            node->nets.append(&node->m_bits[entry.firstSlot]);
        }
        if (entry.excluded)
            exclude(node, int(number));
    }
    for (quint32 excluded : module.excludedSlots())
        node->m_bits[excluded].excluded = true;
}

void NetlistBuilder::exclude(Hierachy *instance, int net)
{
    const RtlModule::Entry &entry = instance->m_declarations->entries()[size_t(net)];
    for (int i = 0; i < entry.width(); ++i)
        instance->m_bits[entry.firstSlot + quint32(i)].excluded = true;
}

void NetlistBuilder::excludeBit(Hierachy *instance, int net, int bit)
{
    const RtlModule::Entry &entry = instance->m_declarations->entries()[size_t(net)];
    if (entry.isBus && entry.hasBit(bit))
        instance->m_bits[entry.slotOfBit(bit)].excluded = true;
}

void NetlistBuilder::setUsesTsJtag()
{
    m_netlist->usesTsJtag = true;
}

RtlNetlist *NetlistBuilder::take()
{
    for (Hierachy &node : m_netlist->m_nodes) {
        for (RtlNetBus &bus : node.m_buses)
            bus.excluded = std::all_of(bus.members.constBegin(), bus.members.constEnd(),
                                       [](const RtlNet *bit) { return bit->excluded; });
    }
    RtlNetlist *result = m_netlist.release();
    m_netlist.reset(new RtlNetlist);
    return result;
}

} // namespace QUARRY
