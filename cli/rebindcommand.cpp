#include "cli/arguments.h"
#include "cli/design.h"
#include "cli/findings.h"
#include "cli/renaming.h"

namespace Cli {
namespace {

ExitCode fail(const QString &sentence, ExitCode code = CouldNotRun)
{
    say("jex rebind: " + sentence);
    return code;
}

// New names that the design does not have as they are now stored.
QStringList unbound(const QList<QPair<QString, QString>> &changes, const FileFindings &findings)
{
    QStringList names;
    for (const RTLJEX::StaleSignal &signal : findings.stale) {
        for (const auto &change : changes) {
            if (signal.name == change.second || signal.group == change.second)
                names << signal.name;
        }
    }
    names.removeDuplicates();
    return names;
}

void print(const QString &file, const QList<QPair<QString, QString>> &changes,
           const Configuration &configuration, const FileFindings &findings, bool asJson, Output &out)
{
    if (!asJson) {
        for (const auto &change : changes)
            out.line(change.first + " -> " + change.second);
        return printFindings(file, findings, out);
    }
    Json json = findingsJson(file, configuration, findings);
    json["renamed"] = Json::array();
    for (const auto &change : changes)
        json["renamed"].push_back({{"from", toStd(change.first)}, {"to", toStd(change.second)}});
    printJson(json, out);
}

ExitCode rebindFile(const QString &file, const Renaming &renaming, const QUARRY::RtlNetlist &netlist,
                    const Arguments &arguments, Output &out)
{
    Configuration configuration;
    QString error;
    if (!configuration.read(file, &error))
        return fail(error);
    const QStringList repeatedBefore = repeatedRows(configuration);
    const QList<QPair<QString, QString>> changes = renaming.apply(configuration);
    if (changes.isEmpty())
        return fail("No signal of \"" + file + "\" has a name that begins so. Nothing was changed.",
                    Findings);
    const FileFindings findings = findingsOf(configuration, netlist);
    print(file, changes, configuration, findings, arguments.json(), out);
    const QStringList lost = unbound(changes, findings);
    if (!lost.isEmpty())
        return fail("The design does not have " + lost.join(", ") + " so. Nothing was changed.", Findings);
    const QStringList repeated = repeatedRows(configuration);
    if (repeated.size() > repeatedBefore.size())
        return fail("A list would hold " + repeated.last() + " twice. Nothing was changed.", Findings);
    if (!arguments.parser.isSet("dry-run") && !configuration.write(file, &error))
        return fail(error);
    return findings.isEmpty() ? Fine : Findings;
}

} // namespace

ExitCode rebind(const QStringList &words, Output &out)
{
    Arguments arguments(
        "rebind", "FILE DESIGN --from PREFIX --to PREFIX",
        "Renames the stored signals of a configuration (.zub) whose full names begin with a path, after the\n"
        "design was changed, and checks the result as jex check does. Only whole components count: top/u0\n"
        "stands for the instance and all below it, top/u0/state for the net or bus and its bits. The file\n"
        "is written when the design has each of the new names.");
    arguments.parser.addPositionalArgument("FILE", "The configuration; HDL files of the design.");
    arguments.parser.addOptions({
        {"from", "The beginning of the stored names, \"top/u0\".", "PREFIX"},
        {"to", "What takes its place.", "PREFIX"},
        {"dry-run", "Print what would happen, and write nothing."},
    });
    arguments.addDesign();
    arguments.addJson();
    CommandLine::DesignOptions options;
    Renaming renaming;
    QString error;
    if (!arguments.read(words, out))
        return arguments.result();
    if (!arguments.parser.isSet("from") || !arguments.parser.isSet("to"))
        return arguments.refuse("Say --from and --to.");
    if (!renaming.set(arguments.parser.value("from"), arguments.parser.value("to"), &error))
        return arguments.refuse(error);
    if (!arguments.readDesign(arguments.files(), options))
        return arguments.result();
    if (options.editorFiles.size() != 1)
        return arguments.refuse("Name one configuration (.zub).");
    if (!CommandLine::namesProject(options))
        return arguments.refuse("Name the design, with --project or by its HDL files.");
    const QString file = options.editorFiles.takeFirst();
    Design design;
    if (!design.open(options) || !design.elaborate())
        return CouldNotRun;
    return rebindFile(file, renaming, *design.netlist(), arguments, out);
}

} // namespace Cli
