#pragma once

#include <QString>

namespace TE {

// The host's numbers of file types.
enum FileType {
    UnknownFile = 0,
    ConfigFile = 1, // ".zub" and everything else that is not design source
    VerilogFile = 2,
    SystemVerilogFile = 3,
    VhdlFile = 4
};

// A language of design sources. Project file, menus, filters, projects of other tools and the tools that read
// Verilog walk the table, so that a new language is a row (and its tool).
struct SourceType
{
    FileType type;
    const char *name;          // in project files and in menus
    const char *suffixes;      // headers included
    const char *headers;       // suffixes of what others include
    const char *edamName;      // what "file_type" in projects of EDAM begins with
    const char *verilogSuffix; // by which tools tell what Verilog it is; null: none, it needs another tool
};

inline constexpr SourceType sourceTypes[] = {
    {VerilogFile, "Verilog", "v vh vlg", "vh", "verilogSource", ".v"},
    {SystemVerilogFile, "SystemVerilog", "sv svh", "svh", "systemVerilogSource", ".sv"},
    {VhdlFile, "VHDL", "vhd vhdl", "", "vhdlSource", nullptr},
};

const SourceType *sourceType(int type); // null when it is none of design sources

inline bool isDesignFileType(int type)
{
    return sourceType(type) != nullptr;
}

// The type that a suffix stands for, in either case.
FileType fileTypeFromName(const QString &path);
bool isHeaderName(const QString &path);
// What a tool that reads Verilog takes a source for, ".v" or ".sv"; null when it is none. A file of no known
// language is Verilog to them.
const char *verilogSuffix(int type);
QString sourcePatterns(); // "*.v *.vh", for a file dialog

} // namespace TE
