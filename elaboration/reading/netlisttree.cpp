#include "elaboration/reading/netlisttree.h"

#include "elaboration/reading/verilatordesign.h"
#include "elaboration/reading/verilatorties.h"
#include "elaboration/reading/vhdlbody.h"

#include <QSet>

#include <cstring>

namespace QUARRY {

// An instance that is being filled.
struct NetlistTree::Instance
{
    VerilatorModule *module = nullptr;
    const TiedNets *tied = nullptr;
    std::unordered_map<const VerilatorScope *, Hierachy *> nodes;
};

// A VHDL entity that is being filled.
struct NetlistTree::Entity
{
    Instance &instance;
    VhdlBody body;
    QSet<const VerilatorChild *> placed; // instances that a VHDL scope showed
};

// The entity itself, a block of it or a round of a loop.
struct NetlistTree::Block
{
    const VhdlScope *scope;
    const VhdlPlaces *places; // null: unknown
    QString prefix;           // see VhdlBody
};

// A node whose children are being added: those of a scope of Verilog, or of a block of VHDL.
struct NetlistTree::Level
{
    Level(Instance &of, Hierachy *at) : instance(of), node(at) {}

    Instance &instance;
    Hierachy *node;
    std::unique_ptr<Instance> ownInstance; // of the node itself; null in a scope or block of it
    std::unique_ptr<Entity> ownEntity;

    const VerilatorScope *scope = nullptr;
    Entity *entity = nullptr; // in a block, and where a scope has what the blocks of that entity left
    Block block = {nullptr, nullptr, QString()};
    std::vector<QString> keys; // of the block's children

    size_t child = 0;
    int element = 0; // of an array of instances
};

NetlistTree::NetlistTree(VerilatorDesign &design, NetlistBuilder &builder)
    : m_design(design), m_builder(builder)
{
}

NetlistTree::~NetlistTree() = default;

void NetlistTree::start(VerilatorModule &top, const QString &name)
{
    enter(nullptr, name, top, TiedNets());
}

bool NetlistTree::addNode()
{
    if (m_levels.empty() || !m_error.isEmpty())
        return false;
    if (!addChild(*m_levels.back()))
        closeLevel();
    return true;
}

bool NetlistTree::addChild(Level &level)
{
    return level.scope ? addScopeChild(level) : addBlockChild(level);
}

NetlistTree::Level &NetlistTree::openLevel(Instance &instance, Hierachy *node)
{
    m_levels.emplace_back(new Level(instance, node));
    return *m_levels.back();
}

void NetlistTree::closeLevel()
{
    const std::unique_ptr<Level> level = std::move(m_levels.back());
    m_levels.pop_back();
    if (!level->ownInstance)
        return;
    level->instance.module->isOpen = false;
    if (!level->ownEntity) // its signals were judged with their nodes
        exclude(level->instance);
}

// A pad of the whole design cannot be read inside the device: bidirectional ports of the top node are
// excluded where nodes are filled.
Hierachy *NetlistTree::makeNode(Hierachy *parent, const QString &name, int module)
{
    return parent ? m_builder.addInstance(parent, name, module) : m_builder.addTop(name, module);
}

// What instances of every kind have in common before their nodes are made. Null when it is an error.
std::unique_ptr<NetlistTree::Instance> NetlistTree::open(VerilatorModule &module, const TiedNets &tiedPorts)
{
    if (module.isOpen) {
        m_error = tr("ERROR: The module %1 contains itself.");
        m_error = m_error.arg(module.name);
        return nullptr;
    }
    module.isOpen = true;
    // VHDL knows no case, so a component of that name may come in small letters.
    const Qt::CaseSensitivity sensitivity = module.isBlackBox ? Qt::CaseInsensitive : Qt::CaseSensitive;
    if (module.name.compare(QLatin1String("TS_JTAG"), sensitivity) == 0)
        m_builder.setUsesTsJtag();
    std::unique_ptr<Instance> instance(new Instance);
    instance->module = &module;
    instance->tied = &VerilatorTies(m_design.types(), module).withPorts(tiedPorts);
    return instance;
}

void NetlistTree::enter(Hierachy *parent, const QString &name, VerilatorModule &module,
                        const TiedNets &tiedPorts)
{
    if (const VhdlScope *scope = m_design.vhdlScope(module))
        return enterEntity(parent, name, {scope, m_design.vhdlPlaces(module), QString()}, module, tiedPorts);
    std::unique_ptr<Instance> instance = open(module, tiedPorts);
    if (!instance)
        return;
    Hierachy *node = makeNode(parent, name, module.body->builderModule);
    for (const VerilatorNet &net : module.nets) {
        if (!parent && net.isInout)
            m_builder.exclude(node, net.position);
    }
    enterScope(*instance, *module.body, node);
    m_levels.back()->ownInstance = std::move(instance);
}

void NetlistTree::enterScope(Instance &instance, const VerilatorScope &scope, Hierachy *node)
{
    instance.nodes[&scope] = node;
    openLevel(instance, node).scope = &scope;
}

// An array has its elements in declared order, as a bus has its bits.
bool NetlistTree::addScopeChild(Level &level)
{
    if (level.child == level.scope->children.size())
        return false;
    const VerilatorChild &child = level.scope->children[level.child];
    const int count = child.count();
    if (level.element == 0)
        m_builder.expectInstances(count);
    const int i = level.element++;
    if (level.element == count) {
        level.element = 0;
        ++level.child;
    }
    if (level.entity && level.entity->placed.contains(&child))
        return true;
    if (child.generate) {
        enterScope(level.instance, *child.generate,
                   m_builder.addInstance(level.node, child.name, child.generate->builderModule));
        return true;
    }
    QString name = child.name;
    const int fromRight = count - 1 - i;
    if (child.isArray)
        name += QLatin1Char('[') + QString::number(child.index(fromRight)) + QLatin1Char(']');
    enter(level.node, name, *child.module, tiedPorts(level.instance, *level.scope, child, fromRight));
    return true;
}

void NetlistTree::enterEntity(Hierachy *parent, const QString &name, const Block &block,
                              VerilatorModule &module, const TiedNets &tiedPorts)
{
    std::unique_ptr<Instance> instance = open(module, tiedPorts);
    if (!instance)
        return;
    std::unique_ptr<Entity> entity(new Entity{*instance, VhdlBody(module, m_design.vhdlPlaceTable()), {}});
    Hierachy *node = makeVhdlNode(*entity, block, parent, name, module.name);
    // What no block shows comes when the level of the blocks is done.
    enterScope(*instance, *module.body, node);
    m_levels.back()->entity = entity.get();
    enterBlock(*entity, block, node);
    Level &below = *m_levels[m_levels.size() - 2];
    below.ownInstance = std::move(instance);
    below.ownEntity = std::move(entity);
}

void NetlistTree::enterBlock(Entity &entity, const Block &block, Hierachy *node)
{
    Level &level = openLevel(entity.instance, node);
    level.entity = &entity;
    level.block = block;
    level.keys = entity.body.childKeys(*block.scope, block.prefix);
}

int NetlistTree::moduleNumber(const ModuleDecl &decl)
{
    QString key = decl.name + QLatin1String(decl.isScope ? "\n" : "");
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

Hierachy *NetlistTree::makeVhdlNode(const Entity &entity, const Block &block, Hierachy *parent,
                                    const QString &name, const QString &moduleName)
{
    VhdlBody::Signals found = entity.body.declared(*block.scope, block.places, block.prefix, moduleName);
    found.decl.isScope = !block.prefix.isEmpty();
    Hierachy *node = makeNode(parent, name, moduleNumber(found.decl));
    for (size_t i = 0; i < found.nets.size(); ++i) {
        const VhdlBody::Signals::Net &net = found.nets[i];
        if (!parent && net.number >= 0 && entity.instance.module->nets[size_t(net.number)].isInout)
            m_builder.exclude(node, int(i));
        const auto tied = entity.instance.tied->find(net.number);
        if (tied == entity.instance.tied->end())
            continue;
        const NetDecl &decl = found.decl.nets.at(int(i));
        VerilatorNet shape;
        shape.isBus = decl.isBus;
        shape.left = decl.left;
        shape.right = decl.right;
        const TiedBits &bits = tied->second;
        const size_t first = qMin(size_t(net.offset), bits.size());
        const size_t count = qMin(size_t(shape.width()), bits.size() - first);
        exclude(node, int(i), shape, TiedBits(bits.begin() + first, bits.begin() + first + count));
    }
    return node;
}

bool NetlistTree::addBlockChild(Level &level)
{
    if (level.child == level.keys.size())
        return false;
    const Block &block = level.block;
    const QString &key = level.keys[level.child];
    const VhdlScope &child = *block.scope->children[level.child++];
    const VerilatorChild *cell = level.entity->body.instance(key);
    const QString label = block.places ? block.places->spelled(child.label()) : child.label();
    const QString name = label + child.shownName().mid(child.label().size());
    if (!cell) {
        addUntranslated(level, child, name, key + QLatin1Char('_'));
        return true;
    }
    const Instance &instance = level.instance;
    VerilatorModule &module = *cell->module;
    level.entity->placed.insert(cell);
    TiedNets tied = tiedPorts(instance, *instance.module->body, *cell, 0);
    if (!m_design.isGenerated(module) || module.isBlackBox || child.isEmpty()) {
        enter(level.node, name, module, tied);
        return true;
    }
    const VhdlPlaces *places =
        block.places ? m_design.vhdlPlaceTable().ofInstance(*block.places, child.label().toLower()) : nullptr;
    const Block whole = {&child, places ? places : m_design.vhdlPlaces(module), QString()};
    enterEntity(level.node, name, whole, module, tied);
    return true;
}

// A block or a round of a loop, or an instance in an entity that could not be translated.
void NetlistTree::addUntranslated(Level &level, const VhdlScope &child, const QString &name,
                                  const QString &prefix)
{
    const VhdlPlaces *places = level.block.places;
    const QString label = child.label().toLower();
    const QString entity = places ? places->instances.value(label).entity : QString();
    if (child.isEmpty() && entity.isEmpty())
        return;
    Block inner = {&child, places ? places->below(label) : nullptr, prefix};
    QString module = places ? places->spelled(label) : child.label();
    if (!entity.isEmpty()) {
        inner.places = m_design.vhdlPlaceTable().ofInstance(*places, label);
        module = inner.places ? inner.places->name : entity;
    }
    enterBlock(*level.entity, inner, makeVhdlNode(*level.entity, inner, level.node, name, module));
}

// A connection that is as wide as the ports of all elements together is dealt out to them, the rightmost
// element taking the lowest bits; a narrower one goes to each.
TiedNets NetlistTree::tiedPorts(const Instance &instance, const VerilatorScope &scope,
                                const VerilatorChild &child, int fromRight) const
{
    const VerilatorTies ties(m_design.types(), *instance.module);
    return ties.portsOf(child, scope, *instance.tied, fromRight);
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
