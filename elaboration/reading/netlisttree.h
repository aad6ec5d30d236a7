#pragma once

#include "elaboration/reading/verilatormodule.h"
#include <QCoreApplication>
#include <QHash>

namespace QUARRY {

class VerilatorDesign;
struct VhdlScope;

// Walks the instance tree of a design from the top down and gives it to the builder, a node at a time.
class NetlistTree
{
    Q_DECLARE_TR_FUNCTIONS(QUARRY::NetlistTree)

public:
    NetlistTree(VerilatorDesign &design, NetlistBuilder &builder);
    ~NetlistTree();

    void start(VerilatorModule &top, const QString &name);
    bool addNode(); // at most one; false when the tree is complete, or when error() says why there is none
    const QString &error() const { return m_error; }

private:
    struct Instance;
    struct Entity;
    struct Block;
    struct Level;

    // Adds a node for the instance and opens it, so that its children come next.
    void enter(Hierachy *parent, const QString &name, VerilatorModule &module, const TiedNets &tiedPorts);
    void enterEntity(Hierachy *parent, const QString &name, const Block &block, VerilatorModule &module,
                     const TiedNets &tiedPorts);
    void enterScope(Instance &instance, const VerilatorScope &scope, Hierachy *node);
    void enterBlock(Entity &entity, const Block &block, Hierachy *node);
    Level &openLevel(Instance &instance, Hierachy *node);
    void closeLevel();

    // The next child of the level; false when it has no more.
    bool addChild(Level &level);
    bool addScopeChild(Level &level);
    bool addBlockChild(Level &level);
    void addUntranslated(Level &level, const VhdlScope &child, const QString &name, const QString &prefix);

    std::unique_ptr<Instance> open(VerilatorModule &module, const TiedNets &tiedPorts);
    int moduleNumber(const ModuleDecl &decl);
    Hierachy *makeNode(Hierachy *parent, const QString &name, int module);
    Hierachy *makeVhdlNode(const Entity &entity, const Block &block, Hierachy *parent, const QString &name,
                           const QString &moduleName);
    TiedNets tiedPorts(const Instance &instance, const VerilatorScope &scope, const VerilatorChild &child,
                       int fromRight) const;
    void exclude(Hierachy *node, int position, const VerilatorNet &shape, const TiedBits &bits);
    void exclude(const Instance &instance);

    VerilatorDesign &m_design;
    NetlistBuilder &m_builder;
    std::vector<std::unique_ptr<Level>> m_levels; // from the top down
    QHash<QString, int> m_vhdlModules;            // by what they declare: rounds of a loop are mostly alike
    QString m_error;
};

} // namespace QUARRY
