#pragma once

#include "elaboration/reading/verilatormodule.h"
#include "elaboration/reading/vhdlbody.h"

#include <QSet>

namespace QUARRY {

class ElaborationProgress;
class VerilatorDesign;

// Walks the instance tree of a design from the top down and gives it to the builder.
class NetlistTree
{
public:
    NetlistTree(VerilatorDesign &design, NetlistBuilder &builder, ElaborationProgress *progress);

    // False when it was cancelled, or when error() says why there is no tree.
    bool build(VerilatorModule &top, const QString &name);
    const QString &error() const { return m_error; }

private:
    // An instance that is being filled.
    struct Instance
    {
        VerilatorModule *module;
        TiedNets ownTies; // of this instance, when its ports are tied
        const TiedNets *tied;
        std::unordered_map<const VerilatorScope *, Hierachy *> nodes;
    };
    // A VHDL entity that is being filled.
    struct Entity
    {
        const Instance &instance;
        VhdlBody body;
        QSet<const VerilatorChild *> placed; // instances that a VHDL scope showed
    };
    // The entity itself, a block of it or a round of a loop.
    struct Block
    {
        const VhdlScope &scope;
        const VhdlPlaces *places; // null: unknown
        QString prefix;           // see VhdlBody
    };

    bool open(Instance &instance, VerilatorModule &module, TiedNets tiedPorts);
    int moduleNumber(const ModuleDecl &decl);
    Hierachy *addNode(Hierachy *parent, const QString &name, int module);
    bool add(Hierachy *parent, const QString &name, VerilatorModule &module, TiedNets tiedPorts);
    bool addChildren(Instance &instance, const VerilatorScope &scope, Hierachy *node);
    bool addInstances(const Instance &instance, const VerilatorScope &scope, const VerilatorChild &child,
                      Hierachy *parent);
    bool addEntity(Hierachy *parent, const QString &name, const Block &block, VerilatorModule &module,
                   TiedNets tiedPorts);
    Hierachy *addVhdlScope(const Entity &entity, const Block &block, Hierachy *parent, const QString &name,
                           const QString &moduleName);
    bool addVhdlChildren(Entity &entity, const Block &block, Hierachy *node);
    TiedNets tiedPorts(const Instance &instance, const VerilatorScope &scope, const VerilatorChild &child,
                       const VerilatorModule &module, int fromRight, int count) const;
    void exclude(Hierachy *node, int position, const VerilatorNet &shape, const TiedBits &bits);
    void exclude(const Instance &instance);
    bool cancelled();

    VerilatorDesign &m_design;
    NetlistBuilder &m_builder;
    ElaborationProgress *m_progress;
    QHash<QString, int> m_vhdlModules; // by what they declare: rounds of a loop are mostly alike
    QString m_error;
    int m_instances = 0;
};

} // namespace QUARRY
