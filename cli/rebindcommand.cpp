#include "check/rebinding.h"
#include "cli/arguments.h"
#include "cli/design.h"
#include "cli/findings.h"

namespace Cli {
namespace {

struct Outcome : RTLJEX::Rebinding
{
    bool isWritten = false;
};

Outcome rename(const QString &file, const RTLJEX::Renaming &renaming, const QUARRY::RtlNetlist &netlist,
               RTLJEX::Configuration &configuration)
{
    Outcome outcome = {RTLJEX::rebind(renaming, netlist, configuration)};
    if (outcome.changes.isEmpty())
        outcome.refusal = "No signal of \"" + file + "\" has a name that begins so.";
    return outcome;
}

void print(const QString &file, const Outcome &outcome, Output &out)
{
    for (const auto &change : outcome.changes)
        out.line(change.first + " -> " + change.second);
    if (!outcome.changes.isEmpty())
        printFindings(file, outcome.findings, out);
}

Json outcomeJson(const QString &file, const RTLJEX::Configuration &configuration, const Outcome &outcome)
{
    Json json = findingsJson(file, configuration, outcome.findings);
    json["renamed"] = Json::array();
    for (const auto &change : outcome.changes)
        json["renamed"].push_back(
            {{"from", QUtil::toUtf8(change.first)}, {"to", QUtil::toUtf8(change.second)}});
    json["written"] = outcome.isWritten;
    return json;
}

ExitCode rebindFile(const QString &file, const RTLJEX::Renaming &renaming, const QUARRY::RtlNetlist &netlist,
                    const Arguments &arguments, Output &out)
{
    RTLJEX::Configuration configuration;
    QString error;
    if (!arguments.open(file, configuration))
        return CouldNotRun;
    Outcome outcome = rename(file, renaming, netlist, configuration);
    if (outcome.refusal.isEmpty() && !arguments.parser.isSet("dry-run"))
        outcome.isWritten = configuration.rewrite(file, &error);
    if (arguments.json())
        printJson(outcomeJson(file, configuration, outcome), out);
    else
        print(file, outcome, out);
    if (!outcome.refusal.isEmpty())
        return arguments.fail(outcome.refusal + " Nothing was changed.", Findings);
    if (!error.isEmpty())
        return arguments.fail(error);
    return outcome.findings.isEmpty() ? Fine : Findings;
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
    arguments.parser.addPositionalArgument("FILE", "The configuration; " + hdlFiles());
    arguments.parser.addOptions({
        {"from", "The beginning of the stored names, \"top/u0\".", "PREFIX"},
        {"to", "What takes its place.", "PREFIX"},
        {"dry-run", "Print what would happen, and write nothing."},
    });
    arguments.addDesign();
    arguments.addJson();
    CommandLine::DesignOptions options;
    RTLJEX::Renaming renaming;
    QString error;
    if (!arguments.read(words, out))
        return arguments.result();
    if (!arguments.parser.isSet("from") || !arguments.parser.isSet("to"))
        return arguments.refuse("Say --from and --to.");
    if (!renaming.set(arguments.parser.value("from"), arguments.parser.value("to"), &error))
        return arguments.refuse(error);
    if (!arguments.readDesign(arguments.files(), options))
        return arguments.result();
    const QString file = arguments.takeConfigurations(options).value(0);
    if (file.isEmpty())
        return arguments.result();
    Design design;
    if (!design.open(options) || !design.elaborate())
        return CouldNotRun;
    return rebindFile(file, renaming, *design.netlist(), arguments, out);
}

} // namespace Cli
