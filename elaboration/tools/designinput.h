#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <iterator>

namespace QUARRY {

// The sources of one design and how to read them. Plain values; paths absolute.
struct DesignSource
{
    QString path;
    int type = 0;              // TE::FileType
    QString library;           // of VHDL; empty: the one under whose name its units are used, else "work"
    bool onlyWhenUsed = false; // a library file: its unused modules are no candidates for the top
};

struct DesignInput
{
    QList<DesignSource> files;
    QStringList disabledFiles; // of the project, but no part of the design: named where a module is missing
    QString top;               // empty: the one module that no other instantiates
    QStringList includePaths;
    QStringList libraryPaths;
    QStringList librarySuffixes; // of the files in library folders, with the dot; empty: the usual ones
    QStringList defines;         // NAME or NAME=VALUE
    QStringList undefines;       // NAME
    QStringList parameters;      // NAME=VALUE, parameters or generics of the top module
    QString verilogStandard;
    QString workingDir;
};

// What it holds beside the files, by the names under which the host hands them over. Taking them from the
// host and telling whether two designs are read in the same way walk the tables.
struct DesignText
{
    const char *name;
    QString DesignInput::*text;
};
inline constexpr DesignText designTexts[] = {
    {"Top", &DesignInput::top},
    {"Verilog_Standard", &DesignInput::verilogStandard},
    {"WorkingDir", &DesignInput::workingDir},
};

struct DesignList
{
    const char *name;
    QStringList DesignInput::*list;
};
inline constexpr DesignList designLists[] = {
    {"DisabledFiles", &DesignInput::disabledFiles},
    {"IncludePath", &DesignInput::includePaths},
    {"LibraryPath", &DesignInput::libraryPaths},
    {"LibrarySuffix", &DesignInput::librarySuffixes},
    {"Defines", &DesignInput::defines},
    {"Undefines", &DesignInput::undefines},
    {"Parameters", &DesignInput::parameters},
};

// A message that means that the design cannot be used.
inline bool isError(const QString &message)
{
    return message.startsWith(QLatin1String("ERROR"));
}

// What a run found. Messages in the order of the tools, each with file and line where it has them.
struct ModuleList
{
    QStringList topModules; // the modules that no other instantiates, or the one that `top` names
    QStringList modules;
    QStringList messages;

    bool anyError() const { return std::any_of(messages.begin(), messages.end(), isError); }
    QStringList errors() const
    {
        QStringList errors;
        std::copy_if(messages.begin(), messages.end(), std::back_inserter(errors), isError);
        return errors;
    }
};

} // namespace QUARRY
