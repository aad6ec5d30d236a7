#pragma once

#include <QString>
#include <QStringList>

class QCommandLineParser;
namespace Core {
class Project;
}

// What the command lines of the project's programs have in common.
namespace CommandLine {

// The design that a program is asked to work on. Paths as typed, relative to the current folder.
struct DesignOptions
{
    QString projectFile;
    QStringList sources;      // HDL files, folders of them, and everything else that joins the project
    QStringList editorFiles;  // ".zub" files
    QStringList fileLists;    // -f: relative to the current folder
    QStringList ownFileLists; // -F: relative to the list's folder
    QStringList includePaths;
    QStringList libraryPaths;
    QStringList libraryFiles;
    QStringList librarySuffixes;
    QStringList defines;
    QStringList undefines;
    QStringList parameters;
    QString library; // of the VHDL files that name none themselves
    bool systemVerilog = false;
    QString top;
    QString device;     // part number or device name
    QString toolMemory; // MB that a tool may take; empty: see QUARRY::toolMemoryLimit()
};

// -f -F -I -D -U -G -y -v --libext --work --sv --top --device --tool-memory: for the parser, and from it once
// it has parsed what plainWords() made of the words. That puts the spellings of simulators, "+incdir+a+b", in
// terms of these.
QStringList plainWords(const QStringList &words);
void declareDesignOptions(QCommandLineParser &parser);
void readDesignOptions(const QCommandLineParser &parser, DesignOptions &options);

// The project in the folder of a file, when there is just one; else empty.
QString projectBeside(const QString &path);

// Puts each file, by its suffix, where it belongs; a stream (see regularfile.h) is a configuration, a folder
// stands for its sources. False, with a sentence for each that is not there and for a second project. A
// configuration without a design brings the project beside it.
bool addFiles(const QStringList &files, DesignOptions &options, QStringList &messages);

// Whether the options name anything that needs a project.
bool namesProject(const DesignOptions &options);

// Fills a project from its file and from everything else that the options name; what only the options
// name does not count as a change to be saved. False, with sentences, when something is not there.
bool fillProject(const DesignOptions &options, Core::Project &project, QStringList &messages);

} // namespace CommandLine
