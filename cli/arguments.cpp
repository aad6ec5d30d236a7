#include "cli/arguments.h"

#include <QFileInfo>
#include <QRegExp>

#include <algorithm>
#include <iterator>

#include "check/nearestnames.h"
#include "host/designmanager.h"
#include "host/project.h"

namespace Cli {

namespace {

bool isProjectFile(const QString &path)
{
    return QFileInfo(path).suffix().toLower() == Core::projectFileSuffix();
}

bool isOfDesign(const QString &path)
{
    return TE::isDesignFileType(TE::fileTypeFromName(path));
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
    parser.addOption({{"p", "project"}, "The project file (.jexprj) of the design.", "PROJECT"});
    CommandLine::declareDesignOptions(parser);
}

bool Arguments::read(const QStringList &words, Output &out)
{
    if (!parser.parse(QStringList(m_command) + words)) {
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
    say("jex " + m_command + ": " + sentence + " See jex " + m_command + " --help.");
    return WrongUse;
}

bool Arguments::accept(const CommandLine::DesignOptions &options)
{
    DEV::DeviceArg device;
    QStringList projects = parser.values("project");
    if (!options.device.isEmpty() && !CommandLine::findDevice(options.device, device)) {
        m_result =
            refuse("The device \"" + options.device + "\" is not known; jex devices lists those that are.");
        return false;
    }
    if (!options.toolMemory.isEmpty() && options.toolMemory.toUInt() == 0) {
        m_result = refuse("The memory of a tool is a number of MB, not \"" + options.toolMemory + "\".");
        return false;
    }
    for (const QString &project : qAsConst(projects)) {
        if (!isProjectFile(project)) {
            m_result = refuse("The project \"" + project + "\" is not a .jexprj file.");
            return false;
        }
    }
    const QStringList words = files();
    std::copy_if(words.begin(), words.end(), std::back_inserter(projects), isProjectFile);
    if (projects.size() > 1)
        m_result =
            refuse("There can be one project: \"" + projects.first() + "\" or \"" + projects.at(1) + "\".");
    return projects.size() < 2;
}

bool Arguments::readDesign(const QStringList &files, CommandLine::DesignOptions &options)
{
    QString error;
    QStringList all = files;
    CommandLine::readDesignOptions(parser, options);
    if (!accept(options))
        return false;
    if (parser.isSet("project"))
        all.prepend(parser.value("project"));
    if (!CommandLine::addFiles(all, options, error)) {
        say("jex " + m_command + ": " + error);
        m_result = CouldNotRun;
        return false;
    }
    const auto odd = std::find_if_not(options.sources.begin(), options.sources.end(), isOfDesign);
    if (odd != options.sources.end())
        m_result = refuse("\"" + *odd + "\" is no HDL file. A list of sources follows -f.");
    return odd == options.sources.end();
}

} // namespace Cli
