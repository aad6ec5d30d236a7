#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

#include "host/devicearg.h"

namespace Core {

// One source file of a project. Paths are absolute in memory and relative to the project's folder in
// the project file.
struct SourceFile
{
    QString path;
    int type = 0; // TE::FileType
    bool enabled = true;
    QString library;           // of VHDL; empty: as the sources say
    bool onlyWhenUsed = false; // a library file: modules of it that nothing uses are no part of the design
};

// All that a project file holds. A value: load, edit and save are separate steps.
struct ProjectData
{
    QString name;
    QList<SourceFile> files;     // in the order given; design files and ".zub" files alike
    QString topModule;           // empty: found from the sources
    QStringList includePaths;    // absolute, or relative to the project's folder
    QStringList libraryPaths;    // folders searched for modules that no source defines, same forms
    QStringList librarySuffixes; // of the files in them, with the dot; empty: the usual ones
    QStringList defines;         // NAME or NAME=VALUE
    QStringList undefines;       // macros that the tools define and the design shall not see
    QStringList parameters;      // NAME=VALUE: parameters and generics of the top module
    QString verilogStandard;     // "1364-1995" "1364-2001" "1364-2005" "1800-2005" ... as the elaborator
                                 // takes them; empty: by file type
    QString synthesisTool;
    DEV::DeviceArg device;
};

// What is true of an option, joined by |.
enum OptionTrait {
    FolderTrait = 1,   // a list of folders, relative to the project
    OptionalTrait = 2, // came later: the key stands only where it says something
    ReloadTrait = 4    // an editor offers to read its design again when it changes
};

// An option of a project, and where it stands: in the record (exactly one of text and list is set), for
// Project::setOption(), in the project file and in the dialog of the workbench. Words for people are to be
// translated.
struct ProjectOption
{
    const char *name; // for hosts and plug-ins
    const char *key;  // in the project file
    QString ProjectData::*text;
    QStringList ProjectData::*list;
    int traits;
    const char *title;
    const char *hint = "";    // of a list: what it holds; of a text: what stands for an empty one
    const char *choices = ""; // of a text, which can be typed as well: words with a blank between them

    bool is(OptionTrait trait) const { return (traits & trait) != 0; }
    QVariant valueIn(const ProjectData &data) const
    {
        return text ? QVariant(data.*text) : QVariant(data.*list);
    }
};

// In the order of the project file.
inline constexpr ProjectOption projectOptions[] = {
    {"TopModule", "topModule", &ProjectData::topModule, nullptr, ReloadTrait,
     QT_TRANSLATE_NOOP("Core::ProjectOption", "&Top module:")},
    {"IncludePath", "includePaths", nullptr, &ProjectData::includePaths, FolderTrait | ReloadTrait,
     QT_TRANSLATE_NOOP("Core::ProjectOption", "Include Paths"),
     QT_TRANSLATE_NOOP("Core::ProjectOption", "Folders for included files")},
    {"LibraryPath", "libraryPaths", nullptr, &ProjectData::libraryPaths, FolderTrait,
     QT_TRANSLATE_NOOP("Core::ProjectOption", "Library Paths"),
     QT_TRANSLATE_NOOP("Core::ProjectOption",
                       "Folders that are searched for modules that no file of the project defines")},
    {"LibrarySuffix", "librarySuffixes", nullptr, &ProjectData::librarySuffixes, OptionalTrait,
     QT_TRANSLATE_NOOP("Core::ProjectOption", "Library Suffixes"),
     QT_TRANSLATE_NOOP("Core::ProjectOption",
                       "What the names of the files in library paths end with, as .v")},
    {"Defines", "defines", nullptr, &ProjectData::defines, 0,
     QT_TRANSLATE_NOOP("Core::ProjectOption", "Defines"),
     QT_TRANSLATE_NOOP("Core::ProjectOption", "Macros, NAME or NAME=VALUE")},
    {"Undefines", "undefines", nullptr, &ProjectData::undefines, OptionalTrait,
     QT_TRANSLATE_NOOP("Core::ProjectOption", "Undefines"),
     QT_TRANSLATE_NOOP("Core::ProjectOption",
                       "Macros that the design shall not see, though the reading of it defines them")},
    {"Parameters", "parameters", nullptr, &ProjectData::parameters, OptionalTrait,
     QT_TRANSLATE_NOOP("Core::ProjectOption", "Parameters"),
     QT_TRANSLATE_NOOP("Core::ProjectOption", "Parameters or generics of the top module, NAME=VALUE")},
    {"Verilog_Standard", "verilogStandard", &ProjectData::verilogStandard, nullptr, ReloadTrait,
     QT_TRANSLATE_NOOP("Core::ProjectOption", "&Verilog standard:"),
     QT_TRANSLATE_NOOP("Core::ProjectOption", "By file type"),
     "1364-1995 1364-2001 1364-2005 1800-2005 1800-2009 1800-2012 1800-2017"},
    {"Synthesize_tool", "synthesisTool", &ProjectData::synthesisTool, nullptr, 0,
     QT_TRANSLATE_NOOP("Core::ProjectOption", "&Synthesis tool:"), "", "TarselSynthesis Synplify"},
};

// By its name for hosts; null when there is none.
inline const ProjectOption *findOption(const QString &name)
{
    for (const ProjectOption &option : projectOptions) {
        if (name == QLatin1String(option.name))
            return &option;
    }
    return nullptr;
}

} // namespace Core
