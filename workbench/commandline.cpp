#include "workbench/commandline.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QSet>

#include "host/designmanager.h"
#include "host/filelist.h"
#include "host/project.h"
#include "model/jex/devicetable.h"

namespace Workbench {
namespace {

void declareOptions(QCommandLineParser &parser)
{
    parser.setApplicationDescription(
        "Edits the configuration of embedded logic analyzers in an FPGA design.\n\n"
        "FILE is a project (.jexprj), a configuration to open (.zub) or a design source. Design sources "
        "without\n"
        "a project make a project of their own, which can be saved later.");
    parser.addPositionalArgument("FILE", "Project, configurations and design sources.", "[FILE...]");
    QCommandLineOption define("D", "Define the macro NAME, or NAME=VALUE.", "NAME");
    QCommandLineOption include("I", "Search this folder for included files.", "FOLDER");
    define.setFlags(QCommandLineOption::ShortOptionStyle);
    include.setFlags(QCommandLineOption::ShortOptionStyle);
    parser.addOptions({
        {"f", "Take sources and options from a list; its paths are relative to the current folder.", "LIST"},
        {"F", "The same; its paths are relative to the folder of the list.", "LIST"},
        include,
        define,
        {"y", "Search this folder for modules that no source defines.", "FOLDER"},
        {"top", "The top module of the design.", "MODULE"},
        {"device", "The device, by its part number or name.", "DEVICE"},
        {"plugin", "The editor's library, in place of the one beside this program.", "PATH"},
        {"report", "Open everything, print what was found and end: with 0 when nothing went wrong."},
        {"shot", "Write a picture of the window and end.", "PNG"},
        {{"h", "help"}, "Show this text and end."},
        {{"v", "version"}, "Show the version and end."},
    });
}

// Each kind of file goes where it belongs.
bool sortFiles(const QStringList &files, StartOptions &options, QString &errorMessage)
{
    for (const QString &file : files) {
        const QString suffix = QFileInfo(file).suffix().toLower();
        if (!QFileInfo::exists(file)) {
            errorMessage = "There is no file \"" + file + "\".";
            return false;
        }
        if (suffix == "zub") {
            options.editorFiles << file;
        } else if (suffix != Core::projectFileSuffix()) {
            options.sources << file;
        } else if (options.projectFile.isEmpty()) {
            options.projectFile = file;
        } else {
            errorMessage =
                "Only one project can be open: \"" + options.projectFile + "\" or \"" + file + "\".";
            return false;
        }
    }
    return true;
}

QStringList absolutePaths(const QStringList &paths)
{
    QStringList result;
    for (const QString &path : paths)
        result << QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    return result;
}

void addSources(const StartOptions &options, Core::ProjectData &data)
{
    QSet<QString> known;
    for (const Core::SourceFile &file : qAsConst(data.files))
        known.insert(file.path);
    for (const QString &path : absolutePaths(options.sources + options.editorFiles)) {
        if (known.contains(path))
            continue;
        Core::SourceFile file;
        file.path = path;
        file.type = TE::fileTypeFromName(path);
        data.files << file;
        known.insert(path);
    }
}

bool setDevice(const QString &name, Core::ProjectData &data, QStringList &messages)
{
    for (const DEV::DeviceArg &device : JEX_TOOL::knownDevices()) {
        if (device.partNumber.compare(name, Qt::CaseInsensitive) == 0 ||
            device.device.compare(name, Qt::CaseInsensitive) == 0) {
            data.device = device;
            return true;
        }
    }
    messages << "The device \"" + name + "\" is not known. Project > Device shows those that are.";
    return false;
}

} // namespace

bool parseCommandLine(const QStringList &arguments, StartOptions &options, QString &errorMessage)
{
    QCommandLineParser parser;
    declareOptions(parser);
    if (!parser.parse(arguments)) {
        errorMessage = parser.errorText();
        return false;
    }
    options.help = parser.isSet("help");
    options.version = parser.isSet("version");
    options.fileLists = parser.values("f");
    options.ownFileLists = parser.values("F");
    options.includePaths = parser.values("I");
    options.libraryPaths = parser.values("y");
    options.defines = parser.values("D");
    options.top = parser.value("top");
    options.device = parser.value("device");
    options.plugin = parser.value("plugin");
    options.shot = parser.value("shot");
    options.report = parser.isSet("report");
    return sortFiles(parser.positionalArguments(), options, errorMessage);
}

QString helpText()
{
    QCommandLineParser parser;
    declareOptions(parser);
    return parser.helpText();
}

bool namesProject(const StartOptions &options)
{
    return !options.projectFile.isEmpty() || !options.sources.isEmpty() || !options.fileLists.isEmpty() ||
           !options.ownFileLists.isEmpty();
}

bool fillProject(const StartOptions &options, Core::Project &project, QStringList &messages)
{
    QString error;
    if (!options.projectFile.isEmpty() && !project.load(options.projectFile, &error)) {
        messages << error;
        return false;
    }
    Core::ProjectData data = project.data();
    addSources(options, data);
    bool good = true;
    for (const QString &list : options.fileLists)
        good = Core::readFileList(list, QDir::currentPath(), data, messages) && good;
    for (const QString &list : options.ownFileLists)
        good = Core::readFileList(list, QFileInfo(list).absolutePath(), data, messages) && good;
    data.includePaths += absolutePaths(options.includePaths);
    data.libraryPaths += absolutePaths(options.libraryPaths);
    data.defines += options.defines;
    if (!options.top.isEmpty())
        data.topModule = options.top;
    if (!options.device.isEmpty())
        good = setDevice(options.device, data, messages) && good;
    project.setData(data);
    return good;
}

} // namespace Workbench
