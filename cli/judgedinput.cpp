#include "cli/judgedinput.h"

#include "cli/findings.h"

namespace Cli {

bool JudgedInput::open(Arguments &arguments, CommandLine::DesignOptions options, ExitCode *result)
{
    file = arguments.takeConfigurations(options).value(0);
    *result = file.isEmpty() ? arguments.result() : CouldNotRun;
    return !file.isEmpty() && design.open(options) && arguments.open(file, configuration);
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
