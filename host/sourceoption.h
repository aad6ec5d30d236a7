#pragma once

#include <QString>
#include <QStringList>

namespace Core {

// One of the words that simulators take beside the names of sources, in any of its spellings. File lists and
// command lines read them by this one table.
struct SourceOption
{
    // What the word says of a design.
    enum Meaning {
        FileList,    // paths in it are relative to where the word stands
        OwnFileList, // to the folder of that list
        IncludePath,
        LibraryPath,
        LibraryFile,
        LibrarySuffix,
        Define,
        Undefine,
        Parameter,
        Library, // of the VHDL files behind it
        Top,
        SystemVerilog,
        PassedOver // known to take the next word, and of no meaning for a design
    };
    Meaning meaning = PassedOver;
    QStringList values;     // that the word itself holds, as "+incdir+a+b" does
    bool takesNext = false; // the next word is the value
};

// False for a word that is none of them; it may be an option all the same.
bool readSourceOption(const QString &word, SourceOption &option);

} // namespace Core
