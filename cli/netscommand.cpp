#include <QDir>
#include <QFileInfo>
#include <QRegExp>

#include <algorithm>

#include "cli/arguments.h"
#include "cli/design.h"
#include "cli/netlisting.h"
#include "host/designmanager.h"
#include "host/foreignproject.h"
#include "netselect/netsearch.h"

namespace Cli {
namespace {

bool isDesignFile(const QString &word)
{
    return Core::isProjectName(word) || TE::isDesignFileType(TE::fileTypeFromName(word));
}

// HDL files stand among the words as the pattern does; what is no file of a design is the pattern. A folder
// is one where nothing else names a design: instances are often called as folders are.
bool splitWords(Arguments &arguments, QStringList &files, RTLJEX::SearchOptions &search)
{
    const QStringList words = arguments.files();
    const QCommandLineParser &parser = arguments.parser;
    const bool mayBeFolder = !parser.isSet("project") && !parser.isSet("f") && !parser.isSet("F") &&
                             std::none_of(words.begin(), words.end(), isDesignFile);
    bool hasPattern = false;
    for (const QString &word : words) {
        if (isDesignFile(word) || (mayBeFolder && QFileInfo(word).isDir())) {
            files << word;
        } else if (hasPattern) {
            arguments.refuse("There can be one pattern: \"" + search.pattern + "\" or \"" + word + "\".");
            return false;
        } else {
            search.pattern = word;
            hasPattern = true;
        }
    }
    return true;
}

bool readSearch(Arguments &arguments, RTLJEX::SearchOptions &search)
{
    const QCommandLineParser &parser = arguments.parser;
    const bool isWildcard = parser.isSet("wildcard");
    search.caseSensitivity = parser.isSet("case") ? Qt::CaseSensitive : Qt::CaseInsensitive;
    search.usePatternSyntax = isWildcard || parser.isSet("regex");
    search.patternSyntax = isWildcard ? QRegExp::WildcardUnix : QRegExp::RegExp;
    if (isWildcard && parser.isSet("regex")) {
        arguments.refuse("A pattern is either a wildcard or a regular expression.");
        return false;
    }
    const QRegExp expression(search.pattern, search.caseSensitivity, search.patternSyntax);
    if (search.usePatternSyntax && !expression.isValid()) {
        arguments.refuse("The pattern \"" + search.pattern + "\" is wrong: " + expression.errorString() +
                         '.');
        return false;
    }
    return true;
}

QUARRY::Hierachy *findInstance(QUARRY::Hierachy *node, const QString &path)
{
    if (node->fullPathName() == path)
        return node;
    if (!path.startsWith(node->fullPathName() + '/'))
        return nullptr;
    for (QUARRY::Hierachy *child : node->children) {
        if (QUARRY::Hierachy *found = findInstance(child, path))
            return found;
    }
    return nullptr;
}

bool hasNets(const RTLJEX::ModuleForWidget &module)
{
    return !module.nets.isEmpty() || !module.buses.isEmpty() || !module.subModules.isEmpty();
}

bool printFound(const RTLJEX::SearchOptions &search, QUARRY::RtlNetlist *netlist, bool asTree, bool asJson,
                Output &out)
{
    NetListing listing(asJson ? NetListing::JsonLines : NetListing::Lines, QDir::currentPath(), out);
    bool found = false;
    if (asTree) {
        const RTLJEX::ModuleForWidget root = RTLJEX::searchNetsHierarchy(search);
        found = hasNets(root);
        if (found || asJson)
            listing.printTree(root);
    } else {
        found = listing.printMatches(netlist, search);
    }
    if (asJson)
        out.write("\n", 1);
    return found;
}

} // namespace

ExitCode nets(const QStringList &words, Output &out)
{
    Arguments arguments(
        "nets", "[PATTERN] [DESIGN]",
        "Searches nets and buses by their full names, as the editor does, in the editor's order. Prints "
        "name,\n"
        "width, place in the source and \"excluded\" for what must not be probed, with tabs between. "
        "PATTERN\n"
        "is a part of the name in any case of letters unless an option says otherwise; without one all are\n"
        "listed. DESIGN is a project, or HDL files and the options below; without any, the only project in "
        "the\n"
        "folder. 1 when nothing was found.");
    arguments.parser.addPositionalArgument("PATTERN", "What to look for; " + hdlFiles());
    arguments.parser.addOptions({
        {"wildcard",
         "PATTERN is the whole name with * ? and [sets]; \\[ and \\] are the brackets themselves."},
        {"regex", "PATTERN is a regular expression for the whole name."},
        {"case", "Tell upper from lower case."},
        {"in", "Search the nets of this instance only, \"top/u0\".", "INSTANCE"},
        {"recursive", "With --in: those of the instances below it, too."},
        {"tree", "Print a tree of modules."},
    });
    arguments.addDesign();
    arguments.addJson();
    CommandLine::DesignOptions options;
    RTLJEX::SearchOptions search;
    QStringList files;
    if (!arguments.read(words, out))
        return arguments.result();
    if (!splitWords(arguments, files, search) || !readSearch(arguments, search))
        return WrongUse;
    if (!arguments.readDesign(files, options))
        return arguments.result();
    if (!CommandLine::namesProject(options))
        options.projectFile = CommandLine::projectBeside(QDir::current().filePath("any"));
    if (!CommandLine::namesProject(options))
        return arguments.refuse("Name the design, with --project or by its HDL files.");
    const QString instance = arguments.parser.value("in");
    const bool isWhole = !arguments.parser.isSet("in");
    Design design;
    if (!design.open(options) || !design.elaborate())
        return CouldNotRun;
    QUARRY::Hierachy *top = design.netlist()->topHierarchy;
    search.searchInModule = true;
    search.module = isWhole ? top : findInstance(top, instance);
    search.includeSubentries = isWhole || arguments.parser.isSet("recursive");
    if (!search.module)
        return arguments.fail("The design has no instance \"" + instance +
                              "\"; jex nets --tree shows those that it has.");
    if (printFound(search, design.netlist(), arguments.parser.isSet("tree"), arguments.json(), out))
        return Fine;
    return arguments.fail(search.pattern.isEmpty() ? QString("There are no nets.")
                                                   : "No net matches \"" + search.pattern + "\".",
                          Findings);
}

} // namespace Cli
