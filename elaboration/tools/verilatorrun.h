#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include "elaboration/tools/toolprocess.h"

namespace QUARRY {

struct DesignInput;
class SafeNames;
class ScratchDir;

// Verilator on the Verilog and SystemVerilog part of one design. Files that other steps make, black boxes
// and VHDL turned into Verilog, are added to the user's own.
class VerilatorRun
{
public:
    VerilatorRun(const DesignInput &input, const ScratchDir &scratch, SafeNames &names);

    void setMadeFiles(const QStringList &files) { m_madeFiles = files; } // .sv, or .vg for Verilog 2005
    // DesignInput::top and its parameters unless set. For a module that stands for it, or none.
    void setTop(const QString &module);
    QString top() const { return m_top; }
    bool isMade(const QString &file) const { return m_madeFiles.contains(file); }
    bool hasFiles() const { return !m_files.isEmpty() || !m_madeFiles.isEmpty(); }
    bool hasOwnFiles() const { return !m_files.isEmpty(); }
    void dropOwnFiles() { m_files.clear(); }
    bool orderPackagesFirst();                                 // false when they were
    void addPackages(const QString &file);                     // that other files need, before these
    void addLibraryFile(const QString &file);                  // whose modules are read when they are used
    void setSystemVerilog(const QString &file, bool isSystem); // what it includes is read alike
    QStringList plainVerilog() const;                          // the files that are read as such
    // Whether the sources see the macros by which they tell this tool from synthesis.
    bool mayDefineToolMacro() const;
    bool definesToolMacro() const { return m_definesToolMacro; }
    void setToolMacro(bool isDefined) { m_definesToolMacro = isDefined; }
    // Lets the tool find no file for that module. False when that is done already.
    bool hideModule(const QString &name);
    bool leaveOut(const QString &file); // false when it is no source
    bool dropParameters(const QStringList &names);
    // A header among the sources that holds only a part of a module cannot be read alone. Of the files, drops
    // those that others include, which so bring them in; false when there are none.
    bool leaveToIncludes(const QStringList &files);

    ToolCall reading() const; // of the whole design; it writes xmlFile()
    ToolCall dumping() const; // reads the sources without linking them; it writes treeFile()

    QString xmlFile() const;
    QString treeFile() const;
    QString workingDir() const { return m_workingDir; }
    QStringList files() const { return m_files + m_libraryFiles; } // the user's own
    QStringList folders() const { return m_folders; }              // where the tool looks for files
    static QString program();

private:
    ToolCall call(const QStringList &extra) const;
    QStringList languageArguments() const;
    QStringList folderArguments() const;
    QStringList macroArguments() const;
    QString handedOver(const QString &file) const;
    static bool isSet(const QStringList &settings, const char *name);

    const DesignInput &m_input;
    const ScratchDir &m_scratch;
    SafeNames &m_names;
    QString m_top;
    QString m_workingDir;
    QStringList m_files; // the user's own, in reading order, real names
    QStringList m_libraryFiles;
    QStringList m_madeFiles;
    QStringList m_folders;
    QStringList m_parameters;
    QStringList m_hidden; // modules
    bool m_definesToolMacro = false;
    QHash<QString, QString> m_suffixes;
};

// Verilator's name for a language standard that users write as "2001", "Verilog 2005", "vlog95" or
// "SystemVerilog-2012"; 1364-2005 for an empty or unknown text.
QString verilogLanguage(const QString &standard);

} // namespace QUARRY
