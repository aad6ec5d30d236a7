#include "workbench/startoptions.h"

#include <QCommandLineParser>

#include "host/filetypes.h"

namespace Workbench {
namespace {

void declareOptions(QCommandLineParser &parser)
{
    parser.setApplicationDescription(
        "Edits the configuration of embedded logic analyzers in an FPGA design.\n\n"
        // The completions take the suffixes from this paragraph.
        "FILE is a project (.jexprj, vhdl_ls.toml, .eda.yml), a configuration to open (.zub), a design\n"
        "source (" +
        TE::sourcePatterns().remove('*') +
        ") or a folder of sources.\n"
        "Design sources without a project make a project of their own, which can be saved later.");
    parser.addPositionalArgument("FILE", "Project, configurations and design sources.", "[FILE...]");
    CommandLine::declareDesignOptions(parser);
    parser.addOptions({
        {"log", "Write down in this file what is done, for when something goes wrong.", "FILE"},
        {"plugin", "The editor's library, in place of the one beside this program.", "PATH"},
        {"report", "Open everything, print what was found and end: with 0 when nothing went wrong."},
        {"shot", "Write a picture of the window and end.", "PNG"},
        {"verbose", "Print what the editor notes for its developers."},
        {{"h", "help"}, "Show this text and end."},
        {"version", "Show the version and end."},
    });
}

} // namespace

bool parseCommandLine(const QStringList &arguments, StartOptions &options, QStringList &messages)
{
    QCommandLineParser parser;
    declareOptions(parser);
    if (!parser.parse(CommandLine::plainWords(arguments))) {
        messages << parser.errorText();
        return false;
    }
    CommandLine::readDesignOptions(parser, options);
    options.help = parser.isSet("help");
    options.version = parser.isSet("version");
    options.plugin = parser.value("plugin");
    options.log = parser.value("log");
    options.shot = parser.value("shot");
    options.report = parser.isSet("report");
    options.verbose = parser.isSet("verbose");
    return CommandLine::addFiles(parser.positionalArguments(), options, messages);
}

QString helpText()
{
    QCommandLineParser parser;
    declareOptions(parser);
    return parser.helpText();
}

} // namespace Workbench
