#pragma once

#include <QString>
#include <QStringList>

namespace Core {
class Project;
}

namespace Workbench {

// What the program was asked to do. Paths as typed, relative to the current folder.
struct StartOptions
{
    QString projectFile;
    QStringList sources;      // HDL files and everything else that becomes part of the project
    QStringList editorFiles;  // ".zub" files, opened once the project is there
    QStringList fileLists;    // -f: relative to the current folder
    QStringList ownFileLists; // -F: relative to the list's folder
    QStringList includePaths;
    QStringList libraryPaths;
    QStringList defines;
    QString top;
    QString device; // part number or device name
    QString plugin;
    QString shot;        // where a picture of the window goes
    bool report = false; // print what was found and end
    bool help = false;
    bool version = false;
};

// False with a sentence when the words make no sense.
bool parseCommandLine(const QStringList &arguments, StartOptions &options, QString &errorMessage);
QString helpText();

// Whether the options name anything that needs a project.
bool namesProject(const StartOptions &options);

// Fills a project from its file and from everything else that the options name; what only the options
// name does not count as a change to be saved. False, with sentences, when something is not there.
bool fillProject(const StartOptions &options, Core::Project &project, QStringList &messages);

} // namespace Workbench
