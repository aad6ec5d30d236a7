#pragma once

#include <QString>
#include <QStringList>

#include "host/project.h"

namespace Core {

// Reads a list of sources in the form that simulators take with -f and adds what it names to a project:
//   file.v "with blanks.sv" $DIR/x.v a\ b.v   sources; a name that is listed twice counts once
//   +incdir+a+b  -Idir                 include folders
//   +define+X=1+Y  -DX=1               macros
//   -y dir  -v file                    library folder, library file (taken as a source)
//   -f list  -F list                   another list; -F: its paths are relative to that list's folder
//   -top NAME  --top-module NAME       top module
//   -sv  -sverilog                     Verilog files are SystemVerilog
//   +libext+...                        passed over: library folders are searched for all suffixes
//   // # and /* */                     comments, at the start of a word
// The list itself may be a stream that the command line names, as "-". Paths are relative to `folder`, and
// where nothing is there, to the folder of the list itself. False, with `data` untouched, when something
// named is not there or not understood at all; `messages` gets a sentence with file and line for each such
// fault, and for options that were passed over.
bool readFileList(const QString &listPath, const QString &folder, ProjectData &data, QStringList &messages);

} // namespace Core
