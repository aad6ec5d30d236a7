#include "insertion/yosyscalls.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

#include "elaboration/tools/elaborator.h"
#include "elaboration/tools/sourceorder.h"
#include "elaboration/tools/verilatorrun.h"
#include "host/absolutepath.h"
#include "host/designmanager.h"

using namespace QUARRY;

namespace Insertion {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Insertion::YosysCalls)
};

// What means only itself in a script.
bool isPlain(const QString &text, const char *others)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [others](QChar c) {
        return c < QChar(128) && (c.isLetterOrNumber() || c == '_' || strchr(others, c.toLatin1()));
    });
}

// A number as Verilog or everybody writes it, or a text in quotes.
bool isPlainValue(const QString &value)
{
    const bool isText = value.size() > 1 && value.startsWith('"') && value.endsWith('"');
    return isText ? value.size() == 2 || isPlain(value.mid(1, value.size() - 2), " .,:+-/()[]")
                  : isPlain(value, "'.-");
}

bool isDefine(const QString &define)
{
    return !define.contains(QRegularExpression("[\\x00-\\x1f`]"));
}

QStringList libraryFiles(const DesignInput &input, const QStringList &filesRead)
{
    QStringList files;
    for (const QString &file : filesRead) {
        for (const QString &folder : input.libraryPaths) {
            const QString absolute = QUtil::absoluteIn(input.workingDir, folder);
            if (QFileInfo(file).absolutePath() == absolute && !files.contains(file))
                files << file;
        }
    }
    return files;
}

} // namespace

YosysCalls::YosysCalls(const DesignInput &input, const Elaboration &elaboration)
    : m_input(input),
      m_elaboration(elaboration),
      m_scratch(*elaboration.scratch),
      m_names(m_scratch),
      m_top(elaboration.readOptions.top)
{
    for (bool isLibrary : {false, true}) {
        for (const DesignSource &source : input.files) {
            if (TE::verilogSuffix(source.type) && source.onlyWhenUsed == isLibrary)
                m_files << source.path;
        }
    }
    for (const QString &file : libraryFiles(input, elaboration.filesRead)) {
        if (!m_files.contains(file))
            m_files << file;
    }
    m_files = orderedByUse(m_files, VerilogSource);
    const QString generated = elaboration.readOptions.moduleNames.key(m_top);
    if (!generated.isEmpty())
        m_top = generated; // GHDL made it of a VHDL entity
    if (!isPlain(m_top, "$"))
        m_fault = Texts::tr("The top module has the name \"%1\", which cannot be told to Yosys.").arg(m_top);
    for (const QString &define : input.defines + input.undefines) {
        if (!isDefine(define))
            m_fault = Texts::tr("The macro \"%1\" of the project cannot be told to Yosys.").arg(define);
    }
    topParameters();
}

QString YosysCalls::file(const char *name) const
{
    return m_scratch.file(QString("insertion-") + name);
}

ToolCall YosysCalls::call(const char *name, const QString &script, const QString &subject) const
{
    ToolCall call;
    call.name = "Yosys";
    call.variable = "JEX_YOSYS";
    call.program = findTool("JEX_YOSYS", {"yosys"});
    call.workingDir = QFileInfo(m_input.workingDir).isDir() ? m_input.workingDir : m_scratch.path();
    call.writableFolder = file("made");
    QDir().mkpath(call.writableFolder);
    call.subject = subject;
    call.arguments << "-q"
                   << "-s" << file(name);
    m_scratch.write(QFileInfo(file(name)).fileName(), script.toUtf8());
    return call;
}

// A function of the sources that a constant calls may be foreign code, which Yosys runs: that is never done
// outside of the sandbox, and it can write to its standard output alone.
ToolCall YosysCalls::reading(bool forSimulation)
{
    ToolCall reading = call("read.ys", readingScript(forSimulation), Texts::tr("the design"));
    reading.runsSources = true;
    reading.writableFolder.clear();
    reading.outputFile = readFile();
    return reading;
}

QString YosysCalls::topParameters()
{
    QString script;
    for (const QString &parameter : m_input.parameters) {
        const QString name = parameter.section('=', 0, 0), value = parameter.section('=', 1);
        if (!isPlain(name, "$") || !isPlainValue(value))
            m_fault =
                Texts::tr("The parameter \"%1\" of the top module cannot be told to Yosys.").arg(parameter);
        else
            script += " -set " + name + ' ' + value;
    }
    const bool isVhdl = m_elaboration.readOptions.moduleNames.contains(m_top);
    return script.isEmpty() || isVhdl ? QString() : "chparam" + script + ' ' + m_top + '\n';
}

QString YosysCalls::readingScript(bool forSimulation)
{
    QString folders;
    QStringList includePaths = m_input.includePaths;
    for (const QString &path : includePaths << ".")
        folders += " -I " + m_names.folder(QUtil::absoluteIn(m_input.workingDir, path));
    QByteArray defines;
    for (const QString &define : m_input.defines)
        defines += ("`define " + define.section('=', 0, 0) + ' ' + define.section('=', 1) + '\n').toUtf8();
    for (const QString &name : m_input.undefines)
        defines += ("`undef " + name + '\n').toUtf8();
    m_scratch.write("insertion-defines.v", defines);
    QString script = "read_verilog " + file("defines.v") + '\n';
    const bool allSystem = verilogLanguage(m_input.verilogStandard).startsWith("1800");
    QSet<QString> systemFiles, libraries;
    for (const DesignSource &source : m_input.files) {
        if (TE::verilogSuffix(source.type) == QLatin1String(".sv"))
            systemFiles.insert(source.path);
        if (source.onlyWhenUsed)
            libraries.insert(source.path);
    }
    for (const QString &path : m_files) {
        const bool isSystem = allSystem || systemFiles.contains(path) || path.endsWith(".sv");
        const QString name = m_names.file(path, isSystem ? ".sv" : ".v");
        // What the design defines itself it does not take from a library.
        script += QString("read_verilog -defer") + (isSystem ? " -sv" : "") +
                  (libraries.contains(path) ? " -nooverwrite" : "") + folders + ' ' + name + '\n';
    }
    for (const QString &made : m_elaboration.readOptions.generated.keys())
        script += QString("read_verilog -defer ") + (made.endsWith(".sv") ? "-sv " : "") + made + '\n';
    if (!m_elaboration.readOptions.blackBoxes.isEmpty())
        script += "read_verilog -sv -lib " + m_scratch.file("blackboxes.sv") + '\n';
    return script + topParameters() + "hierarchy -check -top " + m_top + '\n' +
           (forSimulation ? "proc -ifx\n" : "proc\n") + "tribuf\nuniquify\nhierarchy -top " + m_top +
           "\nwrite_rtlil\nwrite_verilog -norename\n";
}

bool YosysCalls::leaveToIncludes(const QString &file)
{
    return includedNames(m_files).contains(QFileInfo(file).fileName()) && m_files.removeAll(file) > 0;
}

// For Yosys one cell without insides.
QString YosysCalls::cores() const
{
    return "read_verilog -lib " + coresFile() + '\n';
}

// What is written in Verilog is proven, so both netlists are read back from it.
ToolCall YosysCalls::tapping()
{
    const auto readBack = [this](const QString &from, const QString &to) {
        return "design -reset\nread_verilog " + from + '\n' + cores() + "hierarchy -top " + m_top +
               "\nproc\nsetattr -mod -unset keep_hierarchy\nsetattr -unset "
               "keep_hierarchy\nflatten\nwrite_rtlil " +
               to + '\n';
    };
    const auto check = [this](bool isOriginal) {
        return "hierarchy -check -top " + m_top + "\ntee -q -o " + checkFile(isOriginal) + " check\n";
    };
    QString script = "read_rtlil " + originalFile() + '\n' + check(true);
    script += "design -reset\nread_rtlil " + tappedFile() + '\n' + cores() + check(false);
    script += "write_verilog -norename " + designFile() + '\n';
    script += readBack(writtenFile(), flatOriginalFile());
    script += readBack(designFile(), flatTappedFile());
    return call("tap.ys", script, Texts::tr("the design with the analyzer"));
}

// Yosys has no rules for flip-flops that are reset at any time, so these become others. Memories have to be
// the same as they stand.
ToolCall YosysCalls::proving(const QByteArray &prefix, int seconds)
{
    const auto prepared = [&](const QString &from, const QString &name) {
        return "read_verilog " + from + '\n' + cores() + "hierarchy -top " + m_top +
               "\nproc\nflatten\ndelete t:jex_cores\ndelete -port w:" + prefix +
               "_ctl_*\nmemory -nomap\nasync2sync\nrename -top " + name + "\ndesign -stash " + name + '\n';
    };
    const QString script =
        prepared(writtenFile(), "gold") + prepared(designFile(), "gate") +
        "design -copy-from gold -as gold gold\ndesign -copy-from gate -as gate gate\n"
        "equiv_make gold gate equiv\nhierarchy -top equiv\nequiv_struct -icells\nequiv_simple -undef\n"
        "equiv_induct -undef\nequiv_status -assert\n";
    ToolCall proving =
        call("prove.ys", script, Texts::tr("the question whether both designs are equivalent"));
    proving.seconds = seconds;
    return proving;
}

QStringList YosysCalls::families()
{
    return {"ice40", "ecp5", "xilinx", "generic"};
}

ToolCall YosysCalls::counting(const QString &family, bool isOriginal)
{
    const QString synthesis = family == "generic" ? QString("synth") : "synth_" + family;
    const QString top = isOriginal ? writtenFile() : designFile();
    const QString script = "read_verilog " + top + ' ' + coresFile() + '\n' + synthesis + " -flatten -top " +
                           m_top + "\ntee -q -o " + countFile() + " stat -json\n";
    return call(isOriginal ? "count-original.ys" : "count.ys", script, Texts::tr("the design"));
}

} // namespace Insertion
