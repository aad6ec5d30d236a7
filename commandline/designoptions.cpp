#include "commandline/designoptions.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QSet>

#include "elaboration/tools/toollimits.h"
#include "host/designmanager.h"
#include "host/filelist.h"
#include "host/project.h"
#include "host/regularfile.h"
#include "model/jex/devicetable.h"

namespace CommandLine {
namespace {

QStringList absolutePaths(const QStringList &paths)
{
    QStringList result;
    for (const QString &path : paths)
        result << QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    return result;
}

void addSources(const DesignOptions &options, Core::ProjectData &data)
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

// False, with a sentence for each that is not there.
bool areFolders(const QStringList &paths, QStringList &messages)
{
    bool good = true;
    for (const QString &path : paths) {
        if (QFileInfo(path).isDir())
            continue;
        messages << "There is no folder \"" + path + "\".";
        good = false;
    }
    return good;
}

QString missingFile(const QString &file)
{
    if (QFileInfo(file).isDir())
        return "\"" + file + "\" is not a file: name its sources, or a list with -f.";
    const QString odd = QUtil::irregularReason(file);
    return odd.isEmpty() ? "There is no file \"" + file + "\"."
                         : "\"" + file + "\" cannot be read: " + odd + '.';
}

} // namespace

void declareDesignOptions(QCommandLineParser &parser)
{
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
        {"tool-memory", "What each tool that reads the design may take; half of what is free unless given.",
         "MB"},
    });
}

void readDesignOptions(const QCommandLineParser &parser, DesignOptions &options)
{
    options.fileLists = parser.values("f");
    options.ownFileLists = parser.values("F");
    options.includePaths = parser.values("I");
    options.libraryPaths = parser.values("y");
    options.defines = parser.values("D");
    options.top = parser.value("top");
    options.device = parser.value("device");
    options.toolMemory = parser.value("tool-memory");
}

QString projectBeside(const QString &path)
{
    const QDir folder = QFileInfo(path).absoluteDir();
    const QStringList projects =
        folder.entryList({QString("*.") + Core::projectFileSuffix()}, QDir::Files | QDir::Readable);
    return projects.size() == 1 ? folder.filePath(projects.first()) : QString();
}

bool addFiles(const QStringList &files, DesignOptions &options, QString &errorMessage)
{
    for (const QString &file : files) {
        const QString suffix = QFileInfo(file).suffix().toLower();
        const bool isStream = QUtil::isStreamName(file);
        if (!isStream && !QFileInfo(file).isFile()) {
            errorMessage = missingFile(file);
            return false;
        }
        if (isStream || suffix == "zub") {
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
    if (!namesProject(options) && !options.editorFiles.isEmpty())
        options.projectFile = projectBeside(options.editorFiles.first());
    return true;
}

bool findDevice(const QString &name, DEV::DeviceArg &device)
{
    for (const DEV::DeviceArg &known : JEX_TOOL::knownDevices()) {
        if (known.partNumber.compare(name, Qt::CaseInsensitive) == 0 ||
            known.device.compare(name, Qt::CaseInsensitive) == 0) {
            device = known;
            return true;
        }
    }
    return false;
}

bool namesProject(const DesignOptions &options)
{
    return !options.projectFile.isEmpty() || !options.sources.isEmpty() || !options.fileLists.isEmpty() ||
           !options.ownFileLists.isEmpty();
}

bool fillProject(const DesignOptions &options, Core::Project &project, QStringList &messages)
{
    QString error;
    if (!options.projectFile.isEmpty() && !project.load(options.projectFile, &error)) {
        messages << error;
        return false;
    }
    Core::ProjectData data = project.data();
    addSources(options, data);
    bool good = areFolders(options.includePaths + options.libraryPaths, messages);
    for (const QString &list : options.fileLists)
        good = Core::readFileList(list, QDir::currentPath(), data, messages) && good;
    for (const QString &list : options.ownFileLists)
        good = Core::readFileList(list, QFileInfo(list).absolutePath(), data, messages) && good;
    data.includePaths += absolutePaths(options.includePaths);
    data.libraryPaths += absolutePaths(options.libraryPaths);
    data.defines += options.defines;
    if (!options.top.isEmpty())
        data.topModule = options.top;
    if (!options.device.isEmpty() && !findDevice(options.device, data.device)) {
        messages << "The device \"" + options.device +
                        "\" is not known. Project > Device shows those that are.";
        good = false;
    }
    if (!options.toolMemory.isEmpty()) {
        const qint64 megabytes = options.toolMemory.toUInt();
        if (megabytes == 0)
            messages << "The memory of a tool is a number of MB, not \"" + options.toolMemory + "\".";
        good = good && megabytes > 0;
        QUARRY::setToolMemoryLimit(megabytes << 20);
    }
    project.setData(data);
    return good;
}

} // namespace CommandLine
