#include "netselect/netsearch.h"

#include "model/netlist/rtlnetlist.h"
#include "netselect/nodematcher.h"

namespace RTLJEX {

namespace {

bool matches(const QString &fullName, const SearchOptions &options)
{
    if (options.pattern.isEmpty())
        return true;
    if (!options.usePatternSyntax)
        return fullName.contains(options.pattern, options.caseSensitivity);
    return QRegExp(options.pattern, options.caseSensitivity, options.patternSyntax).exactMatch(fullName);
}

QString displayName(const QUARRY::Hierachy *module)
{
    return module->parent ? module->moduleName + QLatin1Char(':') + module->instanceName
                          : module->instanceName;
}

// Finds the matches of one search, node by node.
class Search
{
public:
    explicit Search(const SearchOptions &options) : m_takesAll(options.pattern.isEmpty()), m_matcher(options)
    {
    }

    void addOwn(const QUARRY::Hierachy *module, QList<QUARRY::RtlNet *> &nets,
                QList<QUARRY::RtlNetBus *> &buses)
    {
        if (m_takesAll) {
            nets += module->nets;
            buses += module->buses;
        } else {
            m_matcher.addMatches(module, nets, buses);
        }
    }

    void addSubtree(const QUARRY::Hierachy *module, QList<QUARRY::RtlNet *> &nets,
                    QList<QUARRY::RtlNetBus *> &buses)
    {
        addOwn(module, nets, buses);
        for (const QUARRY::Hierachy *child : module->children)
            addSubtree(child, nets, buses);
    }

    void visitOwn(const QUARRY::Hierachy *module, const NetVisit &visit)
    {
        QList<QUARRY::RtlNet *> nets;
        QList<QUARRY::RtlNetBus *> buses;
        addOwn(module, nets, buses);
        visit(nets, buses);
    }

    void visitSubtree(const QUARRY::Hierachy *module, const NetVisit &visit)
    {
        visitOwn(module, visit);
        for (const QUARRY::Hierachy *child : module->children)
            visitSubtree(child, visit);
    }

    void addNode(ModuleForWidget &parent, const QUARRY::Hierachy *module)
    {
        parent.subModules.append(ModuleForWidget());
        ModuleForWidget &node = parent.subModules.last();
        node.name = displayName(module);
        addOwn(module, node.nets, node.buses);
        for (const QUARRY::Hierachy *child : module->children)
            addNode(node, child);
        if (node.nets.isEmpty() && node.buses.isEmpty() && node.subModules.isEmpty())
            parent.subModules.removeLast();
    }

private:
    bool m_takesAll;
    NodeMatcher m_matcher;
};

const QUARRY::Hierachy *startOf(const QUARRY::RtlNetlist *netlist, const SearchOptions &options)
{
    return options.searchInModule ? options.module : netlist->topHierarchy;
}

bool includesBelow(const SearchOptions &options)
{
    return options.searchInModule && options.includeSubentries;
}

} // namespace

bool checkNetForHierarchy(QUARRY::RtlNet *net, SearchOptions &options)
{
    return matches(net->fullPathName(), options);
}

bool checkNetForHierarchy(QUARRY::RtlNetBus *bus, SearchOptions &options)
{
    return matches(bus->fullBusName(), options);
}

void searchNets(QUARRY::RtlNetlist *netlist, SearchOptions options, QList<QUARRY::RtlNet *> &nets,
                QList<QUARRY::RtlNetBus *> &buses)
{
    if (!netlist)
        return;
    const QUARRY::Hierachy *module = startOf(netlist, options);
    if (options.pattern.isEmpty()) {
        nets.clear();
        buses.clear();
    }
    if (!module)
        return;
    Search search(options);
    if (includesBelow(options))
        search.addSubtree(module, nets, buses);
    else
        search.addOwn(module, nets, buses);
}

void visitNets(QUARRY::RtlNetlist *netlist, const SearchOptions &options, const NetVisit &visit)
{
    const QUARRY::Hierachy *module = netlist ? startOf(netlist, options) : nullptr;
    if (!module)
        return;
    Search search(options);
    if (includesBelow(options))
        search.visitSubtree(module, visit);
    else
        search.visitOwn(module, visit);
}

void createModuleForWidget(ModuleForWidget &parent, QUARRY::Hierachy *module, SearchOptions &options)
{
    if (module)
        Search(options).addNode(parent, module);
}

ModuleForWidget searchNetsHierarchy(SearchOptions options)
{
    ModuleForWidget result;
    if (!options.module)
        return result;
    result.name = displayName(options.module);
    if (!options.searchInModule)
        return result;
    Search search(options);
    search.addOwn(options.module, result.nets, result.buses);
    if (options.includeSubentries) {
        for (const QUARRY::Hierachy *child : options.module->children)
            search.addNode(result, child);
    }
    return result;
}

} // namespace RTLJEX
