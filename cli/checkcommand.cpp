#include "cli/arguments.h"
#include "cli/design.h"
#include "cli/findings.h"

namespace Cli {
namespace {

// Each file is judged, whatever is wrong with the others.
ExitCode checkFiles(const QStringList &files, const QUARRY::RtlNetlist &netlist, const Arguments &arguments,
                    Output &out)
{
    ExitCode result = Fine;
    Json all = Json::array();
    for (const QString &file : files) {
        RTLJEX::Configuration configuration;
        if (!arguments.open(file, configuration)) {
            result = CouldNotRun;
            continue;
        }
        RTLJEX::FileFindings findings = configuration.judge(netlist);
        if (configuration.cores().isEmpty())
            findings.errors << "There are no cores, so nothing is captured";
        if (!findings.isEmpty() && result == Fine)
            result = Findings;
        if (arguments.json())
            all.push_back(findingsJson(file, configuration, findings));
        else
            printFindings(file, findings, out);
    }
    if (arguments.json())
        printJson(Json{{"files", all}}, out);
    return result;
}

} // namespace

ExitCode check(const QStringList &words, Output &out)
{
    Arguments arguments(
        "check", "FILE... DESIGN",
        "Checks configurations (.zub) as the editor does when it saves, and looks up each clock, trigger "
        "and\n"
        "capture signal in the design: what the design does not have as it is stored is listed, with the\n"
        "nearest names that exist. DESIGN is a project, or HDL files and the options below; "
        "without\n"
        "any, the only project in the folder of the configuration.");
    arguments.parser.addPositionalArgument("FILE", "Configurations; " + hdlFiles());
    arguments.addDesign();
    arguments.addJson();
    CommandLine::DesignOptions options;
    if (!arguments.read(words, out) || !arguments.readDesign(arguments.files(), options))
        return arguments.result();
    const QStringList files = arguments.takeConfigurations(options, options.editorFiles.size());
    if (files.isEmpty())
        return arguments.result();
    Design design;
    if (!design.open(options) || !design.elaborate())
        return CouldNotRun;
    return checkFiles(files, *design.netlist(), arguments, out);
}

} // namespace Cli
