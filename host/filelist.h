#pragma once

#include <QString>
#include <QStringList>

#include "host/project.h"

namespace Core {

// Reads a list of sources in the form that simulators take with -f and adds what it names to a project:
//   file.v "with blanks.sv" $DIR/x.v a\ b.v   sources; a name that is listed twice counts once
//   dir                                the sources in a folder and below it
//   +incdir+a+b  -Idir                 include folders
//   +define+X=1+Y  -DX=1  -UX          macros; \" is a quote that belongs to a value
//   -GN=1  -pvalue+N=1                 parameters of the top module
//   -y dir  -v file  +libext+.v        library folders and their suffixes, library files
//   -work LIB                          library of the VHDL files behind it, to the end of the list
//   -f list  -F list                   another list; -F: its paths are relative to that list's folder
//   -top NAME  --top-module NAME       top module
//   -sv  -sverilog                     Verilog files are SystemVerilog
//   // # and /* */                     comments, at the start of a word
// and what sourceoption.cpp has beside them. The list itself may be a stream that the command line names, as
// "-". Paths are relative to `folder`, and where nothing is there, to the folder of the list itself; those of
// other systems may have backslashes. False, with `data` untouched, when something named is not there or not
// understood at all; `messages` gets a sentence with file and line for each such fault, and for options that
// were passed over.
bool readFileList(const QString &listPath, const QString &folder, ProjectData &data, QStringList &messages);

} // namespace Core
