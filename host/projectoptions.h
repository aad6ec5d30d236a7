#pragma once

#include "host/project.h"

namespace Core {

// An option of a project, and where it stands: in the record (exactly one of text and list is set), for
// Project::setOption(), in the project file and in the dialog of the workbench.
struct ProjectOption
{
    const char *name; // for hosts and plug-ins
    const char *key;  // in the project file
    QString ProjectData::*text;
    QStringList ProjectData::*list;
    bool isFolders = false;      // relative to the project
    bool isOptional = false;     // came later: the key stands only where it says something
    const char *title = nullptr; // to be translated, as the hint
    const char *hint = nullptr;
};

// In the order of the project file.
constexpr ProjectOption projectOptions[] = {
    {"TopModule", "topModule", &ProjectData::topModule, nullptr},
    {"IncludePath", "includePaths", nullptr, &ProjectData::includePaths, true, false,
     QT_TRANSLATE_NOOP("Core::ProjectOption", "Include Paths"),
     QT_TRANSLATE_NOOP("Core::ProjectOption", "Folders for included files")},
    {"LibraryPath", "libraryPaths", nullptr, &ProjectData::libraryPaths, true, false,
     QT_TRANSLATE_NOOP("Core::ProjectOption", "Library Paths"),
     QT_TRANSLATE_NOOP("Core::ProjectOption",
                       "Folders that are searched for modules that no file of the project defines")},
    {"LibrarySuffix", "librarySuffixes", nullptr, &ProjectData::librarySuffixes, false, true,
     QT_TRANSLATE_NOOP("Core::ProjectOption", "Library Suffixes"),
     QT_TRANSLATE_NOOP("Core::ProjectOption",
                       "What the names of the files in library paths end with, as .v")},
    {"Defines", "defines", nullptr, &ProjectData::defines, false, false,
     QT_TRANSLATE_NOOP("Core::ProjectOption", "Defines"),
     QT_TRANSLATE_NOOP("Core::ProjectOption", "Macros, NAME or NAME=VALUE")},
    {"Undefines", "undefines", nullptr, &ProjectData::undefines, false, true,
     QT_TRANSLATE_NOOP("Core::ProjectOption", "Undefines"),
     QT_TRANSLATE_NOOP("Core::ProjectOption",
                       "Macros that the design shall not see, though the reading of it defines them")},
    {"Parameters", "parameters", nullptr, &ProjectData::parameters, false, true,
     QT_TRANSLATE_NOOP("Core::ProjectOption", "Parameters"),
     QT_TRANSLATE_NOOP("Core::ProjectOption", "Parameters or generics of the top module, NAME=VALUE")},
    {"Verilog_Standard", "verilogStandard", &ProjectData::verilogStandard, nullptr},
    {"Synthesize_tool", "synthesisTool", &ProjectData::synthesisTool, nullptr},
};

} // namespace Core
