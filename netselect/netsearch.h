#pragma once

#include <QList>
#include <QRegExp>
#include <QString>

#include <functional>

namespace QUARRY {
class Hierachy;
class RtlNet;
class RtlNetBus;
class RtlNetlist;
} // namespace QUARRY

namespace RTLJEX {

// One search request.
struct SearchOptions
{
    QString pattern; // as typed, not trimmed
    Qt::CaseSensitivity caseSensitivity = Qt::CaseInsensitive;
    bool usePatternSyntax = false;                                // false: substring
    QRegExp::PatternSyntax patternSyntax = QRegExp::WildcardUnix; // only with usePatternSyntax
    bool searchInModule = false;
    QUARRY::Hierachy *module = nullptr;
    bool includeSubentries = false;
};

// One module of a hierarchical result. Pointers into the netlist, not owned.
struct ModuleForWidget
{
    QString name;
    QList<QUARRY::RtlNet *> nets;
    QList<QUARRY::RtlNetBus *> buses;
    QList<ModuleForWidget> subModules;
};

// Flat search. An empty pattern replaces the two lists by the candidates, any other appends what matches.
void searchNets(QUARRY::RtlNetlist *netlist, SearchOptions options, QList<QUARRY::RtlNet *> &nets,
                QList<QUARRY::RtlNetBus *> &buses);

// The same, instance by instance, for a result that need not be kept: visit(nets, buses) is told what each
// instance has, which may be nothing.
typedef std::function<void(const QList<QUARRY::RtlNet *> &, const QList<QUARRY::RtlNetBus *> &)> NetVisit;
void visitNets(QUARRY::RtlNetlist *netlist, const SearchOptions &options, const NetVisit &visit);

// Hierarchical search, rooted at the module of the options; branches without a match are left out, the
// root never is.
ModuleForWidget searchNetsHierarchy(SearchOptions options);
void createModuleForWidget(ModuleForWidget &parent, QUARRY::Hierachy *module, SearchOptions &options);

// The match test: always on the full name.
bool checkNetForHierarchy(QUARRY::RtlNet *net, SearchOptions &options);
bool checkNetForHierarchy(QUARRY::RtlNetBus *bus, SearchOptions &options);

} // namespace RTLJEX
