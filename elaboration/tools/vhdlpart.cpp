#include "elaboration/tools/vhdlpart.h"

#include <QFile>
#include <QFileInfo>
#include <QRegExp>

#include "elaboration/reading/elaborationprogress.h"
#include "elaboration/tools/designinput.h"
#include "elaboration/tools/safenames.h"
#include "elaboration/tools/scratchdir.h"
#include "elaboration/tools/sourceorder.h"
#include "elaboration/tools/toolmessages.h"
#include "host/designmanager.h"

namespace QUARRY {
namespace {

// "instance "u2" of component "vmod" is not bound"
QSet<QString> unboundComponents(const QByteArray &messages)
{
    QSet<QString> components;
    const QString text = QString::fromUtf8(messages);
    QRegExp unbound(QLatin1String("of component \"([^\"]+)\" is not bound"));
    for (int at = unbound.indexIn(text); at >= 0; at = unbound.indexIn(text, at + 1))
        components.insert(unbound.cap(1).toLower());
    return components;
}

QString unknownLibrary(const QByteArray &messages)
{
    QRegExp library(QLatin1String("cannot find resource library \"(\\w+)\""));
    return library.indexIn(QString::fromUtf8(messages)) < 0 ? QString() : library.cap(1);
}

QStringList pinNames(const QList<DumpPin> &pins)
{
    QStringList names;
    for (const DumpPin &pin : pins)
        names.append(pin.name.isEmpty() ? QLatin1String("GENERIC") + QString::number(pin.position)
                                        : pin.name);
    return names;
}

QString spelledModule(const QString &name, const DesignDump &dump)
{
    for (const DumpModule &module : dump.modules) {
        if (module.name.compare(name, Qt::CaseInsensitive) == 0)
            return module.name;
    }
    return QString();
}

QStringList portsOf(const QString &name, const DesignDump &dump)
{
    for (const DumpModule &module : dump.modules) {
        if (module.name == name)
            return module.ports + module.parameters;
    }
    return QStringList();
}

} // namespace

VhdlPart::VhdlPart(const DesignInput &input, const ScratchDir &scratch, SafeNames &names)
    : m_input(input), m_scratch(scratch), m_names(names)
{
    for (const DesignSource &source : input.files) {
        if (source.type == TE::VhdlFile)
            m_files.append(source.path);
    }
}

ToolCall VhdlPart::call(const QStringList &arguments) const
{
    ToolCall call;
    call.name = QLatin1String("GHDL");
    call.variable = QLatin1String("JEX_GHDL");
    // "ghdl" itself is a shell script that looks for these.
    call.program =
        findTool("JEX_GHDL", QStringList() << QLatin1String("ghdl-mcode") << QLatin1String("ghdl-llvm")
                                           << QLatin1String("ghdl-gcc") << QLatin1String("ghdl"));
    call.workingDir = m_scratch.path();
    call.arguments = arguments;
    call.arguments.insert(1, QLatin1String("--std=08"));
    call.arguments.insert(2, QLatin1String("-frelaxed"));
    call.arguments.insert(3, QLatin1String("-fsynopsys"));
    call.arguments.insert(4, QLatin1String("--workdir=") + m_scratch.path());
    if (!m_library.isEmpty())
        call.arguments.insert(5, QLatin1String("--work=") + m_library);
    return call;
}

bool VhdlPart::prepare(ElaborationProgress *progress)
{
    if (progress)
        progress->stage(QLatin1String("Reading ") + QString::number(m_files.size()) +
                        QLatin1String(m_files.size() == 1 ? " VHDL file" : " VHDL files"));
    scanSources();
    // The project's own order first: it costs nothing when it is right.
    if (!analyze(false, progress)) {
        m_files = orderedByUse(m_files, VhdlSource);
        if (m_cancelled || !analyze(true, progress))
            return false;
    }
    startTree();
    QStringList wanted = roots();
    if (!m_input.top.isEmpty()) {
        const QString top = m_input.top.toLower();
        wanted = m_entities.contains(top) ? QStringList(top) : QStringList();
    }
    const bool isOptional = wanted.size() > 1 || m_files.size() != m_input.files.size();
    for (const QString &entity : wanted) {
        if (!translate(entity, isOptional && m_input.top.isEmpty(), progress))
            return false;
    }
    return true;
}

QString VhdlPart::handedOver(const QString &file) const
{
    return m_names.file(file, QFileInfo(file).suffix().prepend(QLatin1Char('.')));
}

QMap<QString, QString> VhdlPart::fileNames() const
{
    QMap<QString, QString> names;
    for (const QString &file : m_files)
        if (handedOver(file) != file)
            names.insert(handedOver(file), file);
    return names;
}

bool VhdlPart::analyze(bool reportErrors, ElaborationProgress *progress)
{
    QStringList arguments(QLatin1String("-a"));
    for (const QString &file : m_files)
        arguments << handedOver(file);
    ToolResult result = runTool(call(arguments), progress);
    const QString unknown = m_library.isEmpty() ? unknownLibrary(result.errors) : QString();
    if (!unknown.isEmpty()) {
        m_library = unknown;
        result = runTool(call(arguments), progress);
    }
    if (result.outcome == ToolResult::Finished && result.exitCode == 0)
        return true;
    m_cancelled = result.outcome == ToolResult::Cancelled;
    if (reportErrors && !m_cancelled)
        report(result, false);
    return false;
}

void VhdlPart::scanSources()
{
    for (const QString &file : m_files) {
        const VhdlNames names = vhdlNames(file);
        for (const QString &entity : names.entities) {
            if (!m_entities.contains(entity.toLower()))
                m_entityOrder.append(entity.toLower());
            m_entities.insert(entity.toLower(), entity);
        }
        m_used += names.instantiated;
    }
}

QStringList VhdlPart::roots() const
{
    QStringList entities;
    for (const QString &entity : m_entityOrder) {
        if (!m_used.contains(entity))
            entities.append(entity);
    }
    return entities;
}

bool VhdlPart::translate(const QString &entity, bool isOptional, ElaborationProgress *progress)
{
    if (m_modules.contains(entity) || m_refused.contains(entity))
        return true;
    if (progress)
        progress->stage(QLatin1String("Translating VHDL entity ") + m_entities.value(entity));
    ToolCall synthesis = call(QStringList() << QLatin1String("--synth") << QLatin1String("--latches")
                                            << QLatin1String("--out=verilog") << entity);
    synthesis.outputFile = m_scratch.file(QLatin1String("entity.v"));
    const ToolResult result = runTool(synthesis, progress);
    QFile output(synthesis.outputFile);
    QString module;
    if (result.outcome == ToolResult::Finished && result.exitCode == 0 && output.open(QIODevice::ReadOnly))
        module = m_verilog.add(output.readAll(), m_entities, unboundComponents(result.errors));
    if (!module.isEmpty()) {
        m_modules.insert(entity, module);
        recordScopes(entity, progress);
        return !m_cancelled;
    }
    m_cancelled = result.outcome == ToolResult::Cancelled;
    if (m_cancelled)
        return false;
    m_refused.insert(entity);
    m_untranslated.append(m_entities.value(entity));
    isOptional = isOptional && result.outcome == ToolResult::Finished;
    report(result, isOptional);
    return isOptional;
}

// Neither the translation nor a waveform says where anything is declared. Without the tree, for whatever
// reason, the nets have no place. GHDL writes it slowly, and nothing but the end of the work needs it.
void VhdlPart::startTree()
{
    QStringList arguments = QStringList() << QLatin1String("-s") << QLatin1String("-ds");
    for (const QString &file : m_files)
        arguments << handedOver(file);
    ToolCall reading = call(arguments);
    reading.outputFile = m_scratch.file(QLatin1String("vhdl.log"));
    reading.errorFile = treeFile();
    reading.seconds = 30;
    m_tree.reset(new ToolRun(reading));
}

QString VhdlPart::treeFile() const
{
    return m_scratch.file(QLatin1String("vhdl.tree"));
}

bool VhdlPart::finishTree(ElaborationProgress *progress) const
{
    return !m_tree || m_tree->wait(progress).outcome != ToolResult::Cancelled;
}

// The translation has lost declared ranges, generate scopes and unused signals; the first moment of a
// simulation has them all. Without it, for whatever reason, the translation is shown as it is.
void VhdlPart::recordScopes(const QString &entity, ElaborationProgress *progress)
{
    const QString file = m_scratch.file(QString::fromLatin1("scopes") + QString::number(m_waveforms.size()) +
                                        QLatin1String(".vcd"));
    ToolCall simulation =
        call(QStringList() << QLatin1String("--elab-run") << entity << QLatin1String("--stop-time=0ns")
                           << QLatin1String("--stop-delta=0") << QLatin1String("--vcd=") + file);
    simulation.outputFile = m_scratch.file(QLatin1String("simulation.log"));
    simulation.seconds = 30;
    const ToolResult result = runTool(simulation, progress);
    m_cancelled = result.outcome == ToolResult::Cancelled;
    if (result.outcome == ToolResult::Finished)
        m_waveforms.insert(entity, file);
}

bool VhdlPart::adapt(const DesignDump &dump, const QStringList &missing, ElaborationProgress *progress)
{
    bool changed = false;
    for (const DumpCell &cell : dump.cells) {
        if (cell.resolved || missing.contains(cell.target))
            changed = adaptCell(dump, cell, progress) || changed;
    }
    // Entities that only Verilog instantiates, under another spelling, are not shown a second time.
    for (const QString &entity : m_entityOrder) {
        const QString module = m_modules.value(entity);
        bool isUsed = module.isEmpty() || m_verilog.isInstantiated(module) || entity == m_input.top.toLower();
        bool hasAlias = false;
        for (const DumpCell &cell : dump.cells) {
            isUsed = isUsed || cell.target == module;
            hasAlias = hasAlias || (cell.target != module && cell.target.toLower() == entity &&
                                    m_verilog.contains(cell.target));
        }
        if (!isUsed && hasAlias)
            m_verilog.remove(module);
    }
    return changed;
}

bool VhdlPart::adaptCell(const DesignDump &dump, const DumpCell &cell, ElaborationProgress *progress)
{
    const bool ownerIsVhdl = m_verilog.contains(dump.modules.at(cell.owner).name);
    if (!ownerIsVhdl)
        return presentEntity(cell, progress);
    if (m_verilog.contains(cell.target))
        return false;
    const QString module = spelledModule(cell.target, dump);
    return !module.isEmpty() && m_verilog.renameInstances(cell.target, module, portsOf(module, dump));
}

bool VhdlPart::presentEntity(const DumpCell &cell, ElaborationProgress *progress)
{
    const QString entity = cell.target.toLower();
    if (!m_entities.contains(entity) || (cell.resolved && !m_verilog.contains(cell.target)))
        return false;
    const bool isNew = !m_modules.contains(entity);
    if (!translate(entity, true, progress))
        return false;
    if (!m_modules.contains(entity)) {
        if (!m_boxed.contains(entity))
            m_messages.append(QLatin1String("WARNING: VHDL entity ") + m_entities.value(entity) +
                              QLatin1String(", which Verilog instantiates, cannot be translated with the "
                                            "default values of its generics. It is shown as a black box."));
        m_boxed.insert(entity);
        return false;
    }
    const QStringList generics = pinNames(cell.parameters);
    const bool changed =
        m_verilog.present(m_verilog.contains(cell.target) ? cell.target : m_modules.value(entity),
                          cell.target, pinNames(cell.ports), generics);
    if (changed && !generics.isEmpty())
        m_messages.append(
            QLatin1String("WARNING: The generics that Verilog sets on VHDL entity ") +
            m_entities.value(entity) + QLatin1String(" (") + generics.join(QLatin1String(", ")) +
            QLatin1String(") have no effect here: the entity is shown with its default values."));
    return changed || isNew;
}

void VhdlPart::report(const ToolResult &result, bool errorsAreWarnings)
{
    if (result.outcome != ToolResult::Finished) {
        m_messages.append(result.message);
        return;
    }
    bool anyError = false;
    for (ToolMessage message : parseGhdlMessages(result.errors)) {
        if (message.severity == ToolMessage::Warning)
            continue;
        anyError = true;
        if (errorsAreWarnings)
            message.severity = ToolMessage::Warning;
        m_messages.append(messageText(message, m_names, m_scratch.path()));
    }
    if (anyError)
        return;
    const bool isBug = result.errors.contains("GHDL Bug occurred");
    m_messages.append(QLatin1String(errorsAreWarnings ? "WARNING: " : "ERROR: ") + QLatin1String("GHDL ") +
                      (isBug ? QString::fromLatin1("crashed")
                             : QLatin1String("ended with code ") + QString::number(result.exitCode)) +
                      QLatin1String(" and gave no design. Look for the VHDL source that causes it by leaving "
                                    "files out, or check that ") +
                      call(QStringList(QString())).program + QLatin1String(" is GHDL 2 or later."));
}

QStringList VhdlPart::takeMessages()
{
    const QStringList messages = m_messages;
    m_messages.clear();
    return messages;
}

} // namespace QUARRY
