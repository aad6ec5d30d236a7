#include "elaboration/reading/netlisttree.h"

#include "elaboration/reading/elaborationprogress.h"
#include "elaboration/reading/verilatordesign.h"
#include "elaboration/reading/verilatorties.h"

#include <QCoreApplication>

#include <cstring>

namespace QUARRY {

NetlistTree::NetlistTree(VerilatorDesign &design, NetlistBuilder &builder, ElaborationProgress *progress)
    : m_design(design), m_builder(builder), m_progress(progress)
{
}

bool NetlistTree::build(VerilatorModule &top, const QString &name)
{
    return add(nullptr, name, top, TiedNets());
}

bool NetlistTree::cancelled()
{
    const int stride = 64;
    return m_progress && ++m_instances % stride == 0 && m_progress->cancelled();
}

// A pad of the whole design cannot be read inside the device: bidirectional ports of the top node are
// excluded where nodes are filled.
Hierachy *NetlistTree::addNode(Hierachy *parent, const QString &name, int module)
{
    return parent ? m_builder.addInstance(parent, name, module) : m_builder.addTop(name, module);
}

// What instances of every kind have in common before their nodes are made.
bool NetlistTree::open(Instance &instance, VerilatorModule &module, TiedNets tiedPorts)
{
    if (cancelled())
        return false;
    if (module.isOpen) {
        m_error = QCoreApplication::translate("QUARRY", "ERROR: The module %1 contains itself.");
        m_error = m_error.arg(module.name);
        return false;
    }
    // VHDL knows no case, so a component of that name may come in small letters.
    const Qt::CaseSensitivity sensitivity = module.isBlackBox ? Qt::CaseInsensitive : Qt::CaseSensitive;
    if (module.name.compare(QLatin1String("TS_JTAG"), sensitivity) == 0)
        m_builder.setUsesTsJtag();
    m_design.body(module);
    instance.module = &module;
    instance.tied = &module.tied;
    if (tiedPorts.empty())
        return true;
    const VerilatorTies ties(m_design.types(), module);
    if (!module.hasContested)
        module.contested = ties.contested();
    module.hasContested = true;
    instance.ownTies = std::move(tiedPorts);
    for (const auto &known : module.tied)
        instance.ownTies.insert(known);
    ties.follow(instance.ownTies);
    instance.tied = &instance.ownTies;
    return true;
}

bool NetlistTree::add(Hierachy *parent, const QString &name, VerilatorModule &module, TiedNets tiedPorts)
{
    if (const VhdlScope *scope = m_design.vhdlScope(module))
        return addEntity(parent, name, {*scope, m_design.vhdlPlaces(module, QString()), QString()}, module,
                         std::move(tiedPorts));
    Instance instance;
    if (!open(instance, module, std::move(tiedPorts)))
        return false;
    Hierachy *node = addNode(parent, name, module.body->builderModule);
    for (const VerilatorNet &net : module.nets)
        if (!parent && net.isInout)
            m_builder.exclude(node, net.position);
    module.isOpen = true;
    const bool done = addChildren(instance, *module.body, node);
    module.isOpen = false;
    exclude(instance);
    return done;
}

bool NetlistTree::addChildren(Instance &instance, const VerilatorScope &scope, Hierachy *node)
{
    instance.nodes[&scope] = node;
    for (const VerilatorChild &child : scope.children) {
        bool done = false;
        if (child.generate)
            done = addChildren(instance, *child.generate,
                               m_builder.addInstance(node, child.name, child.generate->builderModule));
        else
            done = addInstances(instance, scope, child, node);
        if (!done)
            return false;
    }
    return true;
}

// An array has its elements in declared order, as a bus has its bits.
bool NetlistTree::addInstances(const Instance &instance, const VerilatorScope &scope,
                               const VerilatorChild &child, Hierachy *parent)
{
    VerilatorModule &module = *child.module;
    const int count = child.isArray ? qAbs(child.left - child.right) + 1 : 1;
    for (int i = 0; i < count; ++i) {
        QString name = child.name;
        if (child.isArray) {
            const int index = child.left < child.right ? child.left + i : child.left - i;
            name += QLatin1Char('[') + QString::number(index) + QLatin1Char(']');
        }
        if (!add(parent, name, module, tiedPorts(instance, scope, child, module, count - 1 - i, count)))
            return false;
    }
    return true;
}

bool NetlistTree::addEntity(Hierachy *parent, const QString &name, const Block &block,
                            VerilatorModule &module, TiedNets tiedPorts)
{
    Instance instance;
    if (!open(instance, module, std::move(tiedPorts)))
        return false;
    Entity entity = {instance, VhdlBody(module), {}};
    Hierachy *node = addVhdlScope(entity, block, parent, name, module.name);
    module.isOpen = true;
    bool done = addVhdlChildren(entity, block, node);
    for (const VerilatorChild &child : module.body->children)
        if (done && !entity.placed.contains(&child))
            done = addInstances(instance, *module.body, child, node);
    module.isOpen = false;
    return done;
}

int NetlistTree::moduleNumber(const ModuleDecl &decl)
{
    QString key = decl.name;
    for (const NetDecl &net : decl.nets) {
        key += QLatin1Char('\n') + net.name + QLatin1Char('\n') + net.info.file + QLatin1Char(' ') +
               QString::number(net.info.line) + QLatin1Char(' ') + net.info.type;
        if (net.isBus)
            key +=
                QLatin1Char(' ') + QString::number(net.left) + QLatin1Char(' ') + QString::number(net.right);
    }
    auto known = m_vhdlModules.find(key);
    if (known == m_vhdlModules.end())
        known = m_vhdlModules.insert(key, m_builder.addModule(decl));
    return known.value();
}

Hierachy *NetlistTree::addVhdlScope(const Entity &entity, const Block &block, Hierachy *parent,
                                    const QString &name, const QString &moduleName)
{
    const VhdlBody::Signals found = entity.body.declared(block.scope, block.places, block.prefix, moduleName);
    Hierachy *node = addNode(parent, name, moduleNumber(found.decl));
    for (size_t i = 0; i < found.nets.size(); ++i) {
        if (!parent && found.nets[i] >= 0 && entity.instance.module->nets[size_t(found.nets[i])].isInout)
            m_builder.exclude(node, int(i));
        const auto tied = entity.instance.tied->find(found.nets[i]);
        if (tied == entity.instance.tied->end())
            continue;
        const NetDecl &decl = found.decl.nets.at(int(i));
        VerilatorNet shape;
        shape.isBus = decl.isBus;
        shape.left = decl.left;
        shape.right = decl.right;
        exclude(node, int(i), shape, tied->second);
    }
    return node;
}

bool NetlistTree::addVhdlChildren(Entity &entity, const Block &block, Hierachy *node)
{
    const Instance &instance = entity.instance;
    const std::vector<QString> keys = entity.body.childKeys(block.scope, block.prefix);
    for (size_t i = 0; i < keys.size(); ++i) {
        const VhdlScope &child = *block.scope.children[i];
        const VerilatorChild *cell = entity.body.instance(keys[i]);
        bool done = true;
        if (cell) {
            VerilatorModule &module = *cell->module;
            entity.placed.insert(cell);
            TiedNets tied = tiedPorts(instance, *instance.module->body, *cell, module, 0, 1);
            const bool isEntity = m_design.isGenerated(module) && !module.isBlackBox && !child.isEmpty();
            const QString architecture =
                block.places ? block.places->architectures.value(child.label().toLower()) : QString();
            const Block whole = {child, m_design.vhdlPlaces(module, architecture), QString()};
            done = isEntity ? addEntity(node, child.shownName(), whole, module, std::move(tied))
                            : add(node, child.shownName(), module, std::move(tied));
        } else if (!child.isEmpty()) {
            const Block inner = {child, block.places ? block.places->below(child.label()) : nullptr,
                                 keys[i] + QLatin1Char('_')};
            Hierachy *below = addVhdlScope(entity, inner, node, child.shownName(), child.label());
            done = addVhdlChildren(entity, inner, below);
        }
        if (!done)
            return false;
    }
    return true;
}

// A connection that is as wide as the ports of all elements together is dealt out to them, the rightmost
// element taking the lowest bits; a narrower one goes to each.
TiedNets NetlistTree::tiedPorts(const Instance &instance, const VerilatorScope &scope,
                                const VerilatorChild &child, const VerilatorModule &module, int fromRight,
                                int count) const
{
    TiedNets result;
    const VerilatorTies ties(m_design.types(), *instance.module);
    for (const pugi::xml_node &port : child.node.children("port")) {
        const int net = module.netOfPort(port.attribute("name").value());
        if (net < 0 || std::strcmp(port.attribute("direction").value(), "in") != 0)
            continue;
        const TiedBits all = ties.bits(port.first_child(), scope, *instance.tied);
        const size_t width = size_t(module.nets[size_t(net)].width());
        const size_t first = all.size() == width * size_t(count) ? width * size_t(fromRight) : 0;
        TiedBits bits(width);
        bool tied = false;
        for (size_t i = 0; i < width && first + i < all.size(); ++i) {
            bits[i] = all[first + i];
            tied = tied || bits[i];
        }
        if (tied)
            result.emplace(net, bits);
    }
    return result;
}

void NetlistTree::exclude(Hierachy *node, int position, const VerilatorNet &shape, const TiedBits &bits)
{
    for (int i = 0; i < int(bits.size()); ++i) {
        if (!bits[size_t(i)])
            continue;
        if (shape.isBus)
            m_builder.excludeBit(node, position, shape.bit(i));
        else
            m_builder.exclude(node, position);
    }
}

void NetlistTree::exclude(const Instance &instance)
{
    for (const auto &entry : *instance.tied) {
        const VerilatorNet &net = instance.module->nets[size_t(entry.first)];
        const auto node = instance.nodes.find(net.scope);
        if (node != instance.nodes.end() && net.position >= 0)
            exclude(node->second, net.position, net, entry.second);
    }
}

} // namespace QUARRY
