#include "model/quarry/netlistreader.h"

#include "model/quarry/elaboration.h"
#include "model/quarry/verilatordesign.h"
#include "model/quarry/verilatorties.h"

#include <QCoreApplication>

#include <cstring>

namespace QUARRY {

namespace {

// Walks the instance tree from the top down.
class TreeBuilder
{
public:
    TreeBuilder(VerilatorDesign &design, NetlistBuilder &builder, ElaborationProgress *progress)
        : m_design(design), m_builder(builder), m_progress(progress)
    {
    }

    bool build(VerilatorModule &top, const QString &name);
    const QString &error() const { return m_error; } // empty after a cancelled build

private:
    // An instance that is being filled: its module and the nets that are tied in it.
    struct Instance
    {
        VerilatorModule *module;
        const TiedNets *tied;
        std::unordered_map<const VerilatorScope *, Hierachy *> nodes;
    };

    bool fill(Hierachy *node, VerilatorModule &module, TiedNets tiedPorts);
    bool addChildren(Instance &instance, const VerilatorScope &scope, Hierachy *node);
    bool addInstances(const Instance &instance, const VerilatorScope &scope, const VerilatorChild &child,
                      Hierachy *parent);
    TiedNets tiedPorts(const Instance &instance, const VerilatorScope &scope, const VerilatorChild &child,
                       const VerilatorModule &module, int fromRight, int count) const;
    void exclude(const Instance &instance);
    void excludeInouts(const VerilatorModule &top, Hierachy *node);
    bool cancelled();

    VerilatorDesign &m_design;
    NetlistBuilder &m_builder;
    ElaborationProgress *m_progress;
    QString m_error;
    int m_instances = 0;
};

bool TreeBuilder::build(VerilatorModule &top, const QString &name)
{
    Hierachy *node = m_builder.addTop(name, m_design.body(top).builderModule);
    excludeInouts(top, node);
    return fill(node, top, TiedNets());
}

// The top's own bidirectional pads cannot be read inside the device.
void TreeBuilder::excludeInouts(const VerilatorModule &top, Hierachy *node)
{
    for (const VerilatorNet &net : top.nets)
        if (net.isInout)
            m_builder.exclude(node, net.position);
}

bool TreeBuilder::cancelled()
{
    const int stride = 64;
    return m_progress && ++m_instances % stride == 0 && m_progress->cancelled();
}

bool TreeBuilder::fill(Hierachy *node, VerilatorModule &module, TiedNets tiedPorts)
{
    if (cancelled())
        return false;
    if (module.isOpen) {
        m_error = QCoreApplication::translate("QUARRY", "ERROR: The module %1 contains itself.");
        m_error = m_error.arg(module.name);
        return false;
    }
    // VHDL knows no case, so a component of that name may come in small letters.
    if (module.name.compare(QLatin1String("TS_JTAG"),
                            module.isBlackBox ? Qt::CaseInsensitive : Qt::CaseSensitive) == 0)
        m_builder.setUsesTsJtag();
    const VerilatorScope &body = m_design.body(module);
    Instance instance = {&module, &module.tied, {}};
    if (!tiedPorts.empty()) {
        const VerilatorTies ties(m_design.types(), module);
        if (!module.hasContested)
            module.contested = ties.contested();
        module.hasContested = true;
        for (const auto &known : module.tied)
            tiedPorts.insert(known);
        ties.follow(tiedPorts);
        instance.tied = &tiedPorts;
    }
    module.isOpen = true;
    const bool done = addChildren(instance, body, node);
    module.isOpen = false;
    exclude(instance);
    return done;
}

bool TreeBuilder::addChildren(Instance &instance, const VerilatorScope &scope, Hierachy *node)
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
bool TreeBuilder::addInstances(const Instance &instance, const VerilatorScope &scope,
                               const VerilatorChild &child, Hierachy *parent)
{
    VerilatorModule &module = *m_design.module(child.node.attribute("defName").value());
    const int number = m_design.body(module).builderModule;
    const int count = child.isArray ? qAbs(child.left - child.right) + 1 : 1;
    for (int i = 0; i < count; ++i) {
        QString name = child.name;
        if (child.isArray) {
            const int index = child.left < child.right ? child.left + i : child.left - i;
            name += QLatin1Char('[') + QString::number(index) + QLatin1Char(']');
        }
        Hierachy *node = m_builder.addInstance(parent, name, number);
        if (!fill(node, module, tiedPorts(instance, scope, child, module, count - 1 - i, count)))
            return false;
    }
    return true;
}

// A connection that is as wide as the ports of all elements together is dealt out to them, the rightmost
// element taking the lowest bits; a narrower one goes to each.
TiedNets TreeBuilder::tiedPorts(const Instance &instance, const VerilatorScope &scope,
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

void TreeBuilder::exclude(const Instance &instance)
{
    for (const auto &entry : *instance.tied) {
        const VerilatorNet &net = instance.module->nets[size_t(entry.first)];
        const auto node = instance.nodes.find(net.scope);
        if (node == instance.nodes.end())
            continue;
        for (int i = 0; i < int(entry.second.size()); ++i) {
            if (!entry.second[size_t(i)])
                continue;
            if (net.isBus)
                m_builder.excludeBit(node->second, net.position, net.bit(i));
            else
                m_builder.exclude(node->second, net.position);
        }
    }
}

} // namespace

RtlNetlist *netlistFromVerilatorXml(const QString &xmlFile, const ReadOptions &options, QStringList &messages,
                                    ElaborationProgress *progress)
{
    if (progress)
        progress->stage(QCoreApplication::translate("QUARRY", "Building the netlist"));
    NetlistBuilder builder;
    VerilatorDesign design(options, builder);
    QString error;
    if (!design.load(xmlFile, error)) {
        messages += error;
        return nullptr;
    }
    if (progress && progress->cancelled())
        return nullptr;
    VerilatorModule *top = design.top();
    if (!top) {
        messages += QCoreApplication::translate("QUARRY", "ERROR: The design has no top module.");
        return nullptr;
    }
    TreeBuilder tree(design, builder, progress);
    if (!tree.build(*top, options.top.isEmpty() ? top->name : options.top)) {
        if (!tree.error().isEmpty())
            messages += tree.error();
        return nullptr;
    }
    return builder.take();
}

} // namespace QUARRY
