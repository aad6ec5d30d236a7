#include "commandline/designoptions.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QSet>

#include "commandline/devicename.h"
#include "elaboration/tools/toollimits.h"
#include "host/absolutepath.h"
#include "host/designmanager.h"
#include "host/filelist.h"
#include "host/foreignproject.h"
#include "host/project.h"
#include "host/regularfile.h"
#include "host/sourcefolder.h"
#include "host/sourceoption.h"

namespace CommandLine {
namespace {

QStringList absolutePaths(const QStringList &paths)
{
    QStringList result;
    for (const QString &path : paths)
        result << QUtil::absoluteIn(QDir::currentPath(), path);
    return result;
}

void addFile(const QString &path, bool onlyWhenUsed, QSet<QString> &known, Core::ProjectData &data)
{
    if (known.contains(path))
        return;
    Core::SourceFile file;
    file.path = path;
    file.type = TE::fileTypeFromName(path);
    file.onlyWhenUsed = onlyWhenUsed;
    data.files << file;
    known.insert(path);
}

// False, with a sentence for each folder that cannot stand for its sources.
bool addSources(const DesignOptions &options, Core::ProjectData &data, QStringList &messages)
{
    QSet<QString> known;
    bool good = true;
    int looked = 0;
    for (const Core::SourceFile &file : qAsConst(data.files))
        known.insert(file.path);
    for (const QString &path : absolutePaths(options.sources + options.editorFiles)) {
        Core::FolderSources found;
        QString fault;
        if (!QFileInfo(path).isDir())
            found.files << path;
        else if (!Core::findSources(path, looked, found, fault))
            messages << fault;
        good = good && fault.isEmpty();
        data.includePaths += found.includeFolders;
        for (const QString &file : qAsConst(found.files))
            addFile(file, false, known, data);
    }
    for (const QString &path : absolutePaths(options.libraryFiles))
        addFile(path, true, known, data);
    return good;
}

// What the command line says of all files, wherever they are named.
void applyToAll(const DesignOptions &options, Core::ProjectData &data)
{
    for (Core::SourceFile &file : data.files) {
        if (file.type == TE::VhdlFile && file.library.isEmpty())
            file.library = options.library;
        if (file.type == TE::VerilogFile && options.systemVerilog)
            file.type = TE::SystemVerilogFile;
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
    const QString odd = QUtil::irregularReason(file);
    return odd.isEmpty() ? "There is no file \"" + file + "\"."
                         : "\"" + file + "\" cannot be read: " + odd + '.';
}

// How declareDesignOptions() spells it; empty for what is not for command lines.
QString plainName(Core::SourceOption::Meaning meaning)
{
    switch (meaning) {
    case Core::SourceOption::FileList:
        return "-f";
    case Core::SourceOption::OwnFileList:
        return "-F";
    case Core::SourceOption::IncludePath:
        return "-I";
    case Core::SourceOption::LibraryPath:
        return "-y";
    case Core::SourceOption::LibraryFile:
        return "-v";
    case Core::SourceOption::LibrarySuffix:
        return "--libext";
    case Core::SourceOption::Define:
        return "-D";
    case Core::SourceOption::Undefine:
        return "-U";
    case Core::SourceOption::Parameter:
        return "-G";
    case Core::SourceOption::Library:
        return "--work";
    case Core::SourceOption::Top:
        return "--top";
    case Core::SourceOption::SystemVerilog:
        return "--sv";
    case Core::SourceOption::PassedOver:
        break;
    }
    return QString();
}

QCommandLineOption shortOption(const char *name, const char *description, const char *value)
{
    QCommandLineOption option(name, description, value);
    option.setFlags(QCommandLineOption::ShortOptionStyle);
    return option;
}

} // namespace

QStringList plainWords(const QStringList &words)
{
    QStringList plain;
    for (int i = 0; i < words.size(); ++i) {
        Core::SourceOption option;
        const bool isKnown = Core::readSourceOption(words.at(i), option);
        const QString name = isKnown ? plainName(option.meaning) : QString();
        if (words.at(i) == "--")
            return plain + words.mid(i);
        if (name.isEmpty()) {
            plain << words.at(i);
            continue;
        }
        if (option.values.isEmpty())
            plain << name;
        for (const QString &value : qAsConst(option.values))
            plain << name << value;
        if (option.takesNext && i + 1 < words.size())
            plain << words.at(++i);
    }
    return plain;
}

void declareDesignOptions(QCommandLineParser &parser)
{
    parser.addOptions({
        {"f", "Take sources and options from a list; its paths are relative to the current folder.", "LIST"},
        {"F", "The same; its paths are relative to the folder of the list.", "LIST"},
        shortOption("I", "Search this folder for included files; +incdir+FOLDER, too.", "FOLDER"),
        shortOption("D", "Define the macro NAME, or NAME=VALUE; +define+NAME=VALUE, too.", "NAME"),
        shortOption("U", "Do not define the macro NAME, which the reading of designs defines.", "NAME"),
        shortOption("G", "Set a parameter or generic of the top module, NAME=VALUE.", "NAME"),
        {"y", "Search this folder for modules that no source defines.", "FOLDER"},
        {"v", "A library file: only those modules of it count that the design uses.", "FILE"},
        {"libext", "What the files in -y folders end with; +libext+.v+.sv, too.", "SUFFIX"},
        {"work", "The library of the VHDL files; -work, too.", "LIBRARY"},
        {"sv", "Verilog files are SystemVerilog; -sv, too."},
        {"top", "The top module of the design; --top-module, too.", "MODULE"},
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
    options.libraryFiles = parser.values("v");
    options.librarySuffixes = parser.values("libext");
    options.defines = parser.values("D");
    options.undefines = parser.values("U");
    options.parameters = parser.values("G");
    options.library = parser.value("work");
    options.systemVerilog = parser.isSet("sv");
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

bool addFiles(const QStringList &files, DesignOptions &options, QStringList &messages)
{
    const int before = messages.size();
    for (const QString &file : qAsConst(options.libraryFiles)) {
        if (!QFileInfo(file).isFile())
            messages << missingFile(file);
    }
    for (const QString &file : files) {
        const QString suffix = QFileInfo(file).suffix().toLower();
        const bool isStream = QUtil::isStreamName(file);
        if (!isStream && QFileInfo(file).isDir())
            options.sources << file;
        else if (!isStream && !QFileInfo(file).isFile())
            messages << missingFile(file);
        else if (isStream || suffix == "zub")
            options.editorFiles << file;
        else if (!Core::isProjectName(file))
            options.sources << file;
        else if (options.projectFile.isEmpty())
            options.projectFile = file;
        else
            messages << "Only one project can be open: \"" + options.projectFile + "\" or \"" + file + "\".";
    }
    if (!namesProject(options) && !options.editorFiles.isEmpty())
        options.projectFile = projectBeside(options.editorFiles.first());
    return messages.size() == before;
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
    bool good = addSources(options, data, messages);
    good = areFolders(options.includePaths + options.libraryPaths, messages) && good;
    for (const QString &list : options.fileLists)
        good = Core::readFileList(list, QDir::currentPath(), data, messages) && good;
    for (const QString &list : options.ownFileLists)
        good = Core::readFileList(list, QFileInfo(list).absolutePath(), data, messages) && good;
    data.includePaths += absolutePaths(options.includePaths);
    data.libraryPaths += absolutePaths(options.libraryPaths);
    data.librarySuffixes += options.librarySuffixes;
    data.defines += options.defines;
    data.undefines += options.undefines;
    data.parameters += options.parameters;
    applyToAll(options, data);
    if (!options.top.isEmpty())
        data.topModule = options.top;
    if (!options.device.isEmpty() && !findDevice(options.device, data.device)) {
        messages << "The device \"" + options.device +
                        "\" is not known. Project > Device shows those that are." +
                        deviceHint(options.device);
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
