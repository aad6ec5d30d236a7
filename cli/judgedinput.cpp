#include "cli/judgedinput.h"

#include "cli/findings.h"

namespace Cli {

bool JudgedInput::open(Arguments &arguments, const CommandLine::DesignOptions &named, const char *command,
                       ExitCode *result)
{
    CommandLine::DesignOptions options = named;
    *result = WrongUse;
    if (options.editorFiles.size() != 1) {
        arguments.refuse("Name one configuration (.zub).");
        return false;
    }
    if (!CommandLine::namesProject(options)) {
        arguments.refuse("Name the design, with --project or by its HDL files.");
        return false;
    }
    file = options.editorFiles.takeFirst();
    *result = CouldNotRun;
    QString error;
    if (!design.open(options))
        return false;
    if (configuration.read(file, &error))
        return true;
    say(QString("jex ") + command + ": " + error);
    return false;
}

bool JudgedInput::judge(Output &out, ExitCode *result)
{
    *result = CouldNotRun;
    if (!design.elaborate())
        return false;
    const RTLJEX::FileFindings findings = configuration.judge(*design.netlist());
    if (findings.isEmpty())
        return true;
    printFindings(file, findings, out);
    *result = Findings;
    return false;
}

void addTrigger(Arguments &arguments)
{
    arguments.parser.addOption(
        {"trigger",
         "\"levels\": the expressions of a core follow each other; \"any\": the first that "
         "holds triggers.",
         "HOW"});
}

bool readTrigger(const Arguments &arguments, bool *byAny)
{
    const QString how = arguments.parser.value("trigger");
    *byAny = how == "any";
    if (how.isEmpty() || how == "any" || how == "levels")
        return true;
    arguments.refuse("The expressions trigger by \"levels\" or by \"any\", not by \"" + how + "\".");
    return false;
}

} // namespace Cli
