#include "cli/arguments.h"

#include <QFileInfo>
#include <QRegExp>

#include <algorithm>
#include <iterator>

#include "check/configuration.h"
#include "check/nearestnames.h"
#include "commandline/devicename.h"
#include "host/designmanager.h"
#include "host/foreignproject.h"

namespace Cli {

namespace {

bool isOfDesign(const QString &path)
{
    return TE::isDesignFileType(TE::fileTypeFromName(path)) || QFileInfo(path).isDir();
}

} // namespace

QString nearWord(const QString &word, const QStringList &known)
{
    const int limit = (word.size() + 1) / 3;
    QString nearest;
    int least = limit + 1;
    for (const QString &candidate : known) {
        const int distance = RTLJEX::editDistance(word, candidate, limit);
        if (distance < least)
            nearest = " Did you mean " + candidate + '?';
        least = qMin(least, distance);
    }
    return nearest;
}

QString oneOf(const QStringList &words)
{
    const QStringList first = words.mid(0, words.size() - 1);
    return (first.isEmpty() ? QString() : first.join(", ") + " or ") + words.value(words.size() - 1);
}

QString hdlFiles()
{
    return "HDL files of the design (" + TE::sourcePatterns().remove('*') + ").";
}

Arguments::Arguments(const char *command, const char *form, const char *description)
    : m_command(command), m_form(form)
{
    parser.setApplicationDescription(description);
    parser.addOption({{"h", "help"}, "Show this text and end."});
}

void Arguments::addJson()
{
    parser.addOption({"json", "Print JSON."});
}

void Arguments::addDesign()
{
    parser.addOption(
        {{"p", "project"}, "The project file of the design: .jexprj, vhdl_ls.toml or .eda.yml.", "PROJECT"});
    CommandLine::declareDesignOptions(parser);
    m_hasDesign = true;
}

bool Arguments::read(const QStringList &words, Output &out)
{
    if (!parser.parse(QStringList(m_command) + (m_hasDesign ? CommandLine::plainWords(words) : words))) {
        m_result = refuse(parser.errorText() + nearOption());
        return false;
    }
    if (!parser.isSet("help"))
        return true;
    // The toolkit begins with a usage line of its own.
    const QString text = parser.helpText();
    out.line(("Usage: jex " + m_command + ' ' + m_form).trimmed());
    out.text(text.mid(text.indexOf('\n') + 1));
    return false;
}

// The parser tells its options by their help only.
QString Arguments::nearOption() const
{
    QStringList known;
    QRegExp option("--[a-z-]+");
    const QString help = parser.helpText();
    for (int at = 0; (at = option.indexIn(help, at)) >= 0; at += option.matchedLength())
        known << option.cap();
    return nearWord("--" + parser.unknownOptionNames().value(0), known);
}

ExitCode Arguments::refuse(const QString &sentence) const
{
    return fail(sentence + " See jex " + m_command + " --help.", WrongUse);
}

ExitCode Arguments::fail(const QString &sentence, ExitCode code) const
{
    say("jex " + m_command + ": " + sentence);
    return code;
}

bool Arguments::accept(const CommandLine::DesignOptions &options)
{
    DEV::DeviceArg device;
    QStringList projects = parser.values("project");
    if (!options.device.isEmpty() && !CommandLine::findDevice(options.device, device)) {
        m_result =
            refuse("The device \"" + options.device + "\" is not known; jex devices lists those that are." +
                   CommandLine::deviceHint(options.device));
        return false;
    }
    if (!options.toolMemory.isEmpty() && options.toolMemory.toUInt() == 0) {
        m_result = refuse("The memory of a tool is a number of MB, not \"" + options.toolMemory + "\".");
        return false;
    }
    for (const QString &project : qAsConst(projects)) {
        if (!Core::isProjectName(project)) {
            m_result = refuse("The project \"" + project +
                              "\" is not a .jexprj file, nor a vhdl_ls.toml or .eda.yml.");
            return false;
        }
    }
    const QStringList words = files();
    std::copy_if(words.begin(), words.end(), std::back_inserter(projects), Core::isProjectName);
    if (projects.size() > 1)
        m_result =
            refuse("There can be one project: \"" + projects.first() + "\" or \"" + projects.at(1) + "\".");
    return projects.size() < 2;
}

bool Arguments::readDesign(const QStringList &files, CommandLine::DesignOptions &options)
{
    QStringList faults;
    QStringList all = files;
    CommandLine::readDesignOptions(parser, options);
    if (!accept(options))
        return false;
    if (parser.isSet("project"))
        all.prepend(parser.value("project"));
    if (!CommandLine::addFiles(all, options, faults)) {
        for (const QString &fault : qAsConst(faults))
            fail(fault);
        m_result = CouldNotRun;
        return false;
    }
    const auto odd = std::find_if_not(options.sources.begin(), options.sources.end(), isOfDesign);
    if (odd != options.sources.end())
        m_result = refuse("\"" + *odd + "\" is no HDL file. A list of sources follows -f.");
    return odd == options.sources.end();
}

QStringList Arguments::takeConfigurations(CommandLine::DesignOptions &options, int most)
{
    QStringList files;
    if (options.editorFiles.isEmpty() || options.editorFiles.size() > most)
        m_result = refuse(QString("Name %1 configuration (.zub).").arg(most == 1 ? "one" : "a"));
    else if (!CommandLine::namesProject(options))
        m_result = refuse("Name the design, with --project or by its HDL files.");
    else
        files.swap(options.editorFiles);
    return files;
}

bool Arguments::open(const QString &file, RTLJEX::Configuration &configuration) const
{
    QString error;
    if (configuration.read(file, &error))
        return true;
    fail(error);
    return false;
}

} // namespace Cli
