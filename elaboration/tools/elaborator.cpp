#include "elaboration/tools/elaborator.h"

#include <QFile>
#include <QFileInfo>
#include <QRegExp>
#include <QSet>

#include "elaboration/reading/elaborationprogress.h"
#include "host/designmanager.h"

namespace QUARRY {
namespace {

const int maxRuns = 12; // each repair either changes something or ends the work

// "Cannot find file containing module: 'prim'", "Can't resolve module reference: 'bb$x'"
QString missingModule(const ToolMessage &message)
{
    QRegExp missing(QLatin1String("(?:Cannot find file containing module|Can't resolve module reference): "
                                  "'(.*)'"));
    return missing.exactMatch(message.text) ? missing.cap(1) : QString();
}

bool isUnknownTop(const ToolMessage &message)
{
    return message.text.startsWith(QLatin1String("Specified --top-module"));
}

QList<ToolMessage> ofSeverity(const QList<ToolMessage> &messages, ToolMessage::Severity severity)
{
    QList<ToolMessage> chosen;
    for (const ToolMessage &message : messages) {
        if (message.severity == severity)
            chosen.append(message);
    }
    return chosen;
}

} // namespace

Elaborator::Elaborator(const DesignInput &input, ElaborationProgress *progress)
    : m_input(input),
      m_progress(progress),
      m_names(*m_result->scratch),
      m_verilator(m_input, *m_result->scratch, m_names)
{
}

std::unique_ptr<Elaboration> Elaborator::run()
{
    if (checkSources() && readVhdl() && readDesign() && waitForVhdl())
        finish();
    return std::move(m_result);
}

bool Elaborator::checkSources()
{
    if (!m_result->scratch->isValid())
        addError(
            QLatin1String("No temporary folder could be made. Make room on the disk, or let the variable "
                          "TMPDIR name a folder that can be written."));
    for (const DesignSource &source : m_input.files) {
        const QFileInfo file(source.path);
        if (!file.isFile() || !file.isReadable())
            addError(source.path +
                     QLatin1String(" cannot be read. Remove it from the project or restore it."));
        m_result->filesRead.append(source.path);
    }
    return m_result->lists.messages.isEmpty();
}

bool Elaborator::readVhdl()
{
    bool anyVhdl = false;
    for (const DesignSource &source : m_input.files)
        anyVhdl = anyVhdl || source.type == TE::VhdlFile;
    if (!anyVhdl)
        return true;
    m_vhdl.reset(new VhdlPart(m_input, *m_result->scratch, m_names));
    const bool isUsable = m_vhdl->prepare(m_progress);
    m_result->lists.messages += m_vhdl->takeMessages();
    m_result->lists.cancelled = m_vhdl->cancelled();
    const QString top = m_vhdl->moduleOf(m_input.top);
    if (!top.isEmpty())
        m_verilator.setTop(top);
    return isUsable && makeFiles() == Again;
}

bool Elaborator::readDesign()
{
    if (!m_verilator.hasFiles()) {
        m_topUnknown = true;
        return true;
    }
    for (int i = 0; i < maxRuns; ++i) {
        stage(QLatin1String("Reading ") + QString::number(m_input.files.size()) +
              QLatin1String(m_input.files.size() == 1 ? " source file" : " source files"));
        QFile::remove(m_verilator.xmlFile());
        const Verdict verdict = judge(m_verilator.read(m_progress));
        if (verdict != Again)
            return verdict == Done;
    }
    addError(QLatin1String("The design could not be read: its missing modules could not be replaced."));
    return false;
}

bool Elaborator::waitForVhdl()
{
    m_result->lists.cancelled = m_vhdl && !m_vhdl->finishTree(m_progress);
    return !m_result->lists.cancelled;
}

Elaborator::Verdict Elaborator::judge(const ToolResult &result)
{
    if (result.outcome != ToolResult::Finished) {
        fail(result);
        return Failed;
    }
    const QList<ToolMessage> messages = parseVerilatorMessages(result.errors + '\n' + result.output);
    const QList<ToolMessage> errors = ofSeverity(messages, ToolMessage::Error);
    if (!errors.isEmpty())
        return repair(errors);
    if (result.exitCode != 0 || !readXmlSummary(m_verilator.xmlFile(), m_summary)) {
        addError(QLatin1String("Verilator ended with code ") + QString::number(result.exitCode) +
                 QLatin1String(" and gave no design. Check that ") + m_verilator.program() +
                 QLatin1String(" is Verilator 5."));
        return Failed;
    }
    m_warnings = ofSeverity(messages, ToolMessage::Warning);
    return Done;
}

Elaborator::Verdict Elaborator::repair(const QList<ToolMessage> &errors)
{
    QStringList missing;
    QList<ToolMessage> others;
    for (const ToolMessage &error : errors) {
        const QString name = missingModule(error);
        if (isUnknownTop(error))
            m_topUnknown = true;
        else if (name.isEmpty())
            others.append(error);
        else if (!missing.contains(name))
            missing.append(name);
    }
    QStringList places;
    for (const ToolMessage &error : others)
        places.append(realFile(error, m_names, m_verilator.workingDir()));
    if (m_verilator.leaveToIncludes(places))
        return Again;
    // A wrong order shows in many ways, and asking for the right one costs nothing when it was right.
    if (!others.isEmpty() && !m_packagesOrdered) {
        m_packagesOrdered = true;
        if (m_verilator.orderPackagesFirst())
            return Again;
    }
    if (others.isEmpty())
        return missing.isEmpty() ? Done : provide(missing);
    if (m_boxes.adapt(others))
        return makeFiles();
    // VHDL and Verilog that spell a port differently.
    if (m_vhdl && others.first().code == QLatin1String("PINNOTFOUND") && provide(missing) == Again)
        return Again;
    if (!m_result->lists.cancelled)
        report(others, ToolMessage::Error);
    return Failed;
}

// Finds a definition for modules that have none: a VHDL entity, or else a black box.
Elaborator::Verdict Elaborator::provide(const QStringList &missing)
{
    const ToolResult result = m_verilator.dump(m_progress);
    if (result.outcome != ToolResult::Finished) {
        fail(result);
        return Failed;
    }
    DesignDump dump;
    readDesignDump(m_verilator.treeFile(), dump);
    if (m_vhdl) {
        const bool changed = m_vhdl->adapt(dump, missing, m_progress);
        m_result->lists.messages += m_vhdl->takeMessages();
        m_result->lists.cancelled = m_vhdl->cancelled();
        if (changed)
            return makeFiles();
    }
    const int known = m_boxes.names().size();
    if (!m_result->lists.cancelled)
        m_boxes.collect(dump, missing);
    if (m_boxes.names().size() > known)
        return makeFiles();
    if (!missing.isEmpty() && !m_result->lists.cancelled)
        addError(QLatin1String("These modules have no definition: ") + missing.join(QLatin1String(", ")) +
                 QLatin1String(". Add the files that define them to the project."));
    return Failed;
}

Elaborator::Verdict Elaborator::makeFiles()
{
    const ScratchDir &scratch = *m_result->scratch;
    const QString vhdl = QLatin1String("vhdl.vg");
    const QString boxes = QLatin1String("blackboxes.sv");
    QStringList files;
    bool isWritten = true;
    if (m_vhdl && !m_vhdl->verilog().isEmpty()) {
        isWritten = scratch.write(vhdl, m_vhdl->verilog().sources());
        files << scratch.file(vhdl);
    }
    m_result->readOptions.generated = files.toSet();
    if (!m_boxes.isEmpty()) {
        isWritten = scratch.write(boxes, m_boxes.sources()) && isWritten;
        files << scratch.file(boxes);
    }
    m_verilator.setMadeFiles(files);
    if (isWritten)
        return Again;
    addError(QLatin1String("A temporary file could not be written. Make room on the disk."));
    return Failed;
}

QString Elaborator::userName(const QString &module) const
{
    return m_result->readOptions.moduleNames.value(module, module);
}

void Elaborator::finish()
{
    report(m_warnings, ToolMessage::Warning);
    ReadOptions &options = m_result->readOptions;
    if (m_vhdl) {
        options.moduleNames = m_vhdl->verilog().moduleNames();
        options.vhdlScopes = m_vhdl->waveforms();
        options.vhdlTree = m_vhdl->treeFile();
        options.fileNames = m_vhdl->fileNames();
        const QString top = m_vhdl->moduleOf(m_input.top);
        if (!top.isEmpty())
            options.moduleNames.insert(top, m_input.top);
    }
    QStringList boxes;
    for (const QString &name : m_boxes.names()) {
        if (m_summary.modules.removeAll(name))
            boxes.append(name);
        m_summary.roots.removeAll(name);
        options.blackBoxes.insert(name);
    }
    if (!boxes.isEmpty())
        m_result->lists.messages.append(
            QLatin1String("WARNING: These modules have no definition and are shown "
                          "as black boxes, with nothing inside: ") +
            boxes.join(QLatin1String(", ")));
    listModules();
    options.workingDir = m_verilator.workingDir();
    options.top = m_result->lists.topModules.value(0);
    m_result->usable = m_result->lists.topModules.size() == 1 && !m_topUnknown;
    m_result->xmlFile = m_verilator.xmlFile();
    m_result->foldersLookedIn = m_verilator.folders();
    nameFiles();
}

void Elaborator::listModules()
{
    ModuleList &lists = m_result->lists;
    if (m_topUnknown && !m_input.top.isEmpty())
        return;
    QSet<QString> seen; // one entity can stand behind several modules
    for (const QString &module : m_summary.modules) {
        const QString name = userName(module);
        if (!seen.contains(name))
            lists.modules.append(name);
        seen.insert(name);
    }
    for (const QString &module : m_summary.roots)
        lists.topModules.append(userName(module));
    if (m_vhdl) {
        for (const QString &entity : m_vhdl->untranslated()) {
            lists.modules.append(entity);
            if (!m_vhdl->isBoxed(entity))
                lists.topModules.append(entity);
        }
    }
    if (!m_input.top.isEmpty())
        lists.topModules = QStringList(m_input.top);
}

// Links that stood for files and folders with unusual names become those again.
void Elaborator::nameFiles()
{
    for (const QString &file : m_summary.files) {
        const QString real = m_names.real(file);
        if (real != file)
            m_result->readOptions.fileNames.insert(file, real);
        if (real.startsWith(QLatin1Char('/')) && !real.startsWith(m_result->scratch->path()))
            m_result->filesRead.append(real);
    }
}

void Elaborator::fail(const ToolResult &result)
{
    if (result.outcome == ToolResult::Cancelled)
        m_result->lists.cancelled = true;
    else
        m_result->lists.messages.append(result.message);
}

void Elaborator::report(const QList<ToolMessage> &messages, ToolMessage::Severity severity)
{
    for (ToolMessage message : messages) {
        if (message.severity != severity || message.code == QLatin1String("MULTITOP"))
            continue;
        if (m_result->readOptions.generated.contains(message.file)) {
            message.file.clear();
            message.text.prepend(QLatin1String("In the Verilog that GHDL made of the VHDL sources: "));
        }
        m_result->lists.messages.append(messageText(message, m_names, m_verilator.workingDir()));
    }
}

void Elaborator::addError(const QString &text)
{
    m_result->lists.messages.append(QLatin1String("ERROR: ") + text);
}

void Elaborator::stage(const QString &text)
{
    if (m_progress)
        m_progress->stage(text);
}

} // namespace QUARRY
