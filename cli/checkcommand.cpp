#include "cli/arguments.h"
#include "cli/design.h"
#include "cli/findings.h"

namespace Cli {
namespace {

// Each file is judged, whatever is wrong with the others.
ExitCode checkFiles(const QStringList &files, const QUARRY::RtlNetlist &netlist, bool asJson, Output &out)
{
    ExitCode result = Fine;
    Json all = Json::array();
    for (const QString &file : files) {
        RTLJEX::Configuration configuration;
        QString error;
        if (!configuration.read(file, &error)) {
            say("jex check: " + error);
            result = CouldNotRun;
            continue;
        }
        RTLJEX::FileFindings findings = configuration.judge(netlist);
        if (configuration.cores().isEmpty())
            findings.errors << "There are no cores, so nothing is captured";
        if (!findings.isEmpty() && result == Fine)
            result = Findings;
        if (asJson)
            all.push_back(findingsJson(file, configuration, findings));
        else
            printFindings(file, findings, out);
    }
    if (asJson)
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
    if (options.editorFiles.isEmpty())
        return arguments.refuse("Name a configuration (.zub).");
    if (!CommandLine::namesProject(options))
        return arguments.refuse("Name the design, with --project or by its HDL files.");
    const QStringList files = options.editorFiles;
    options.editorFiles.clear();
    Design design;
    if (!design.open(options) || !design.elaborate())
        return CouldNotRun;
    return checkFiles(files, *design.netlist(), arguments.json(), out);
}

} // namespace Cli
