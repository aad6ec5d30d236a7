#include "elaboration/tools/verilatorrun.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegExp>

#include "elaboration/tools/designinput.h"
#include "elaboration/tools/safenames.h"
#include "elaboration/tools/scratchdir.h"
#include "elaboration/tools/sourceorder.h"
#include "elaboration/tools/verilatorflags.h"
#include "host/absolutepath.h"
#include "host/designmanager.h"

namespace QUARRY {
namespace {

const char systemVerilog[] = "1800-2017";
const char hiddenFolder[] = "hidden";
const char *const toolMacros[] = {"VERILATOR", "verilator", "verilator3"};

// The data files of a Verilator that was moved lie beside its program.
QString rootSetting(const QString &program)
{
    if (!qgetenv("VERILATOR_ROOT").isEmpty())
        return QString();
    const QFileInfo share(QFileInfo(program).absolutePath() + QLatin1String("/../share/verilator"));
    return share.isDir() ? QLatin1String("VERILATOR_ROOT=") + share.canonicalFilePath() : QString();
}

// NAME=VALUE as the tool takes it: what is no number is a text, in quotes.
QString parameterArgument(const QString &setting)
{
    const QString value = setting.section(QLatin1Char('='), 1);
    const QRegExp number(
        QLatin1String("[-+]?[\\d_]+(\\.\\d+)?([eE][-+]?\\d+)?|\\d*'[sS]?[bBoOdDhH][\\w?]+|\".*\""));
    if (number.exactMatch(value))
        return QLatin1String("-G") + setting;
    return QLatin1String("-G") + setting.section(QLatin1Char('='), 0, 0) + QLatin1String("=\"") + value +
           QLatin1Char('"');
}

} // namespace

QString verilogLanguage(const QString &standard)
{
    const QString text = standard.toLower();
    const bool isSystem = text.contains(QLatin1String("sv")) || text.contains(QLatin1String("system")) ||
                          text.contains(QLatin1String("1800"));
    static const struct
    {
        const char *year;
        const char *plain;
        const char *system;
    } years[] = {{"95", "1364-1995", systemVerilog},    {"2001", "1364-2001", systemVerilog},
                 {"2005", "1364-2005", "1800-2005"},    {"2009", "1800-2009", "1800-2009"},
                 {"2012", "1800-2012", "1800-2012"},    {"2017", systemVerilog, systemVerilog},
                 {"2023", systemVerilog, systemVerilog}};
    for (const auto &year : years) {
        if (text.contains(QLatin1String(year.year)))
            return QLatin1String(isSystem ? year.system : year.plain);
    }
    return QLatin1String(isSystem ? systemVerilog : "1364-2005");
}

VerilatorRun::VerilatorRun(const DesignInput &input, const ScratchDir &scratch, SafeNames &names)
    : m_input(input), m_scratch(scratch), m_names(names), m_top(input.top), m_workingDir(input.workingDir)
{
    for (const DesignSource &source : input.files) {
        const char *suffix = TE::verilogSuffix(source.type);
        if (!suffix)
            continue;
        (source.onlyWhenUsed ? m_libraryFiles : m_files).append(source.path);
        m_suffixes.insert(source.path, QLatin1String(suffix));
    }
    if (!QFileInfo(m_workingDir).isDir())
        m_workingDir = m_files.isEmpty() ? scratch.path() : QFileInfo(m_files.first()).absolutePath();
    for (const QString &folder : input.libraryPaths + input.includePaths)
        m_folders.append(QUtil::absoluteIn(m_workingDir, folder));
    m_folders.append(m_workingDir);
    m_parameters = input.parameters;
}

void VerilatorRun::setTop(const QString &module)
{
    m_top = module;
    m_parameters.clear();
}

bool VerilatorRun::orderPackagesFirst()
{
    const QStringList before = m_files;
    m_files = orderedByUse(m_files, VerilogSource);
    return m_files != before;
}

void VerilatorRun::addPackages(const QString &file)
{
    m_libraryFiles.removeAll(file);
    m_files.prepend(file);
    m_suffixes.insert(file, QLatin1String(".sv"));
}

void VerilatorRun::addLibraryFile(const QString &file)
{
    if (m_suffixes.contains(file))
        return;
    m_libraryFiles.append(file);
    m_suffixes.insert(file, QLatin1String(file.endsWith(QLatin1String(".sv")) ? ".sv" : ".v"));
}

void VerilatorRun::setSystemVerilog(const QString &file, bool isSystem)
{
    if (m_suffixes.contains(file))
        m_suffixes[file] = QLatin1String(isSystem ? ".sv" : ".v");
}

QStringList VerilatorRun::plainVerilog() const
{
    return m_suffixes.keys(QLatin1String(".v"));
}

bool VerilatorRun::mayDefineToolMacro() const
{
    return !isSet(m_input.undefines, toolMacros[0]);
}

// A file of that name, in a folder before all others, which has no module.
bool VerilatorRun::hideModule(const QString &name)
{
    if (m_hidden.contains(name))
        return false;
    m_hidden.append(name);
    QDir().mkpath(m_scratch.file(QLatin1String(hiddenFolder)));
    return m_scratch.write(QLatin1String(hiddenFolder) + QLatin1Char('/') + name, QByteArray());
}

bool VerilatorRun::leaveOut(const QString &file)
{
    m_suffixes.remove(file);
    return m_files.removeAll(file) + m_libraryFiles.removeAll(file) > 0;
}

bool VerilatorRun::dropParameters(const QStringList &names)
{
    const int before = m_parameters.size();
    for (int i = before - 1; i >= 0; --i) {
        if (names.contains(m_parameters.at(i).section(QLatin1Char('='), 0, 0)))
            m_parameters.removeAt(i);
    }
    return m_parameters.size() != before;
}

bool VerilatorRun::leaveToIncludes(const QStringList &files)
{
    const int before = m_files.size();
    const QSet<QString> included = includedNames(m_files);
    for (const QString &file : files) {
        if (included.contains(QFileInfo(file).fileName()) && m_files.removeAll(file))
            m_suffixes.remove(file);
    }
    return m_files.size() != before;
}

QString VerilatorRun::program()
{
    const QString root = QString::fromLocal8Bit(qgetenv("VERILATOR_ROOT"));
    QStringList programs(QLatin1String("verilator_bin"));
    if (!root.isEmpty())
        programs << root + QLatin1String("/bin/verilator_bin");
    return findTool("JEX_VERILATOR", programs);
}

QString VerilatorRun::xmlFile() const
{
    return m_scratch.file(QLatin1String("design.xml"));
}

QString VerilatorRun::treeFile() const
{
    // The second is what there is when an error ended the run before modules were looked up.
    const QString tree = m_scratch.file(QLatin1String("dump/Vdesign_001_cells.tree"));
    return QFileInfo(tree).exists() ? tree : m_scratch.file(QLatin1String("dump/Vdesign_990_final.tree"));
}

QStringList VerilatorRun::languageArguments() const
{
    const QString verilog = verilogLanguage(m_input.verilogStandard);
    const bool anySystem = !m_suffixes.keys(QLatin1String(".sv")).isEmpty();
    return QStringList() << QLatin1String("--default-language")
                         << (anySystem ? QLatin1String(systemVerilog) : verilog)
                         << QLatin1Char('+') + verilog + QLatin1String("ext+v")
                         << QLatin1String("+1800-2017ext+sv") << QLatin1String("+1364-2005ext+vg");
}

// The tool looks for modules and for includes in all folders, in the order in which it is told them.
QStringList VerilatorRun::folderArguments() const
{
    QStringList arguments(QLatin1String("--relative-includes"));
    if (!m_hidden.isEmpty())
        arguments << QLatin1String("-y") << m_scratch.file(QLatin1String(hiddenFolder));
    for (const QString &path : m_input.libraryPaths)
        arguments << QLatin1String("-y") << m_names.folder(QUtil::absoluteIn(m_workingDir, path));
    for (const QString &suffix : m_input.librarySuffixes)
        arguments << QLatin1String("+libext+") + suffix;
    for (const QString &path : m_input.includePaths)
        arguments << QLatin1String("-I") + m_names.folder(QUtil::absoluteIn(m_workingDir, path));
    arguments << QLatin1String("-I") + m_names.folder(m_workingDir);
    for (const QString &folder : m_names.includeFolders())
        arguments << QLatin1String("-I") + folder;
    return arguments;
}

// What sources ask for to learn who reads them says that it is synthesis.
QStringList VerilatorRun::macroArguments() const
{
    QStringList arguments;
    if (!isSet(m_input.defines, "SYNTHESIS"))
        arguments << QLatin1String("-DSYNTHESIS");
    for (const QString &define : m_input.defines)
        arguments << QLatin1String("-D") + define;
    for (const char *macro : toolMacros) {
        if (!m_definesToolMacro && !isSet(m_input.defines, macro))
            arguments << QLatin1String("-U") + QLatin1String(macro);
    }
    for (const QString &name : m_input.undefines)
        arguments << QLatin1String("-U") + name;
    if (!m_top.isEmpty())
        arguments << QLatin1String("--top-module") << m_top;
    if (m_top == m_input.top && !m_files.isEmpty()) { // those of VHDL are obeyed by its tool
        for (const QString &parameter : m_parameters)
            arguments << parameterArgument(parameter);
    }
    return arguments;
}

// NAME or NAME=VALUE
bool VerilatorRun::isSet(const QStringList &settings, const char *name)
{
    for (const QString &setting : settings) {
        if (setting.section(QLatin1Char('='), 0, 0) == QLatin1String(name))
            return true;
    }
    return false;
}

QString VerilatorRun::handedOver(const QString &file) const
{
    return m_names.file(file, m_suffixes.value(file));
}

ToolCall VerilatorRun::call(const QStringList &extra) const
{
    // Before the folders are asked for: names may need more of them.
    QStringList files;
    for (const QString &file : m_files)
        files << handedOver(file);
    files << m_madeFiles;
    for (const QString &file : m_libraryFiles)
        files << QLatin1String("-v") << handedOver(file);

    ToolCall call;
    call.name = QLatin1String("Verilator");
    call.variable = QLatin1String("JEX_VERILATOR");
    call.program = program();
    call.environment = rootSetting(call.program);
    call.workingDir = m_workingDir;
    call.writableFolder = m_scratch.path();
    call.subject = QCoreApplication::translate("QUARRY::VerilatorRun", "the Verilog sources");
    call.arguments = verilatorReadFlags();
    call.arguments << QLatin1String("--prefix") << QLatin1String("Vdesign") << extra << languageArguments()
                   << folderArguments() << macroArguments() << files;
    return call;
}

ToolCall VerilatorRun::reading() const
{
    return call(QStringList() << QLatin1String("--xml-output") << xmlFile() << QLatin1String("--Mdir")
                              << m_scratch.file(QLatin1String("out")));
}

ToolCall VerilatorRun::dumping() const
{
    return call(QStringList() << QLatin1String("--dump-tree") << QLatin1String("--debug-exit-parse")
                              << QLatin1String("--Mdir") << m_scratch.file(QLatin1String("dump")));
}

} // namespace QUARRY
