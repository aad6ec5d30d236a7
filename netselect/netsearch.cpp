#include "netselect/netsearch.h"

#include "model/quarry/rtlnetlist.h"

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

void addOwnMatches(ModuleForWidget &node, const QUARRY::Hierachy *module, SearchOptions &options)
{
    for (QUARRY::RtlNet *net : module->nets)
        if (checkNetForHierarchy(net, options))
            node.nets.append(net);
    for (QUARRY::RtlNetBus *bus : module->buses)
        if (checkNetForHierarchy(bus, options))
            node.buses.append(bus);
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
    const QUARRY::Hierachy *module = options.searchInModule ? options.module : netlist->topHierarchy;
    const bool wholeSubtree = options.searchInModule && options.includeSubentries;
    QList<QUARRY::RtlNet *> candidateNets;
    QList<QUARRY::RtlNetBus *> candidateBuses;
    if (module) {
        candidateNets = wholeSubtree ? module->singleNetsIncludeSub() : module->nets;
        candidateBuses = wholeSubtree ? module->netbusesIncludeSub() : module->buses;
    }
    if (options.pattern.isEmpty()) {
        nets = candidateNets;
        buses = candidateBuses;
        return;
    }
    for (QUARRY::RtlNet *net : candidateNets)
        if (checkNetForHierarchy(net, options))
            nets.append(net);
    for (QUARRY::RtlNetBus *bus : candidateBuses)
        if (checkNetForHierarchy(bus, options))
            buses.append(bus);
}

void createModuleForWidget(ModuleForWidget &parent, QUARRY::Hierachy *module, SearchOptions &options)
{
    if (!module)
        return;
    ModuleForWidget node;
    node.name = displayName(module);
    addOwnMatches(node, module, options);
    for (QUARRY::Hierachy *child : module->children)
        createModuleForWidget(node, child, options);
    if (!node.nets.isEmpty() || !node.buses.isEmpty() || !node.subModules.isEmpty())
        parent.subModules.append(node);
}

ModuleForWidget searchNetsHierarchy(SearchOptions options)
{
    ModuleForWidget result;
    if (!options.module)
        return result;
    result.name = displayName(options.module);
    if (!options.searchInModule)
        return result;
    addOwnMatches(result, options.module, options);
    if (options.includeSubentries)
        for (QUARRY::Hierachy *child : options.module->children)
            createModuleForWidget(result, child, options);
    return result;
}

} // namespace RTLJEX
