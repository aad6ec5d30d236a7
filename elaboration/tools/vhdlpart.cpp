#include "elaboration/tools/vhdlpart.h"

#include <QFile>
#include <QFileInfo>
#include <QRegExp>

#include "elaboration/reading/ghdltree.h"
#include "elaboration/tools/confinement.h"
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

VhdlPart::VhdlPart(const DesignInput &input, const ScratchDir &scratch, SafeNames &names, ToolRunner &runner)
    : m_input(input), m_scratch(scratch), m_names(names), m_runner(runner)
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
    call.writableFolder = m_scratch.path();
    call.subject = QLatin1String("the VHDL sources");
    call.arguments = arguments;
    call.arguments.insert(1, QLatin1String("--std=08"));
    call.arguments.insert(2, QLatin1String("-frelaxed"));
    call.arguments.insert(3, QLatin1String("-fsynopsys"));
    call.arguments.insert(4, QLatin1String("--workdir=") + m_scratch.path());
    if (!m_library.isEmpty())
        call.arguments.insert(5, QLatin1String("--work=") + m_library);
    return call;
}

void VhdlPart::prepare(const std::function<void(bool)> &then)
{
    m_runner.tellStage(QLatin1String("Reading ") + QString::number(m_files.size()) +
                       QLatin1String(m_files.size() == 1 ? " VHDL file" : " VHDL files"));
    scanSources();
    // The project's own order first: it costs nothing when it is right.
    analyze([=](const ToolResult &first) {
        if (first.isGood())
            return translateRoots(then);
        m_files = orderedByUse(m_files, VhdlSource);
        analyze([=](const ToolResult &second) {
            if (second.isGood())
                return translateRoots(then);
            report(second, false);
            then(false);
        });
    });
}

void VhdlPart::translateRoots(const std::function<void(bool)> &then)
{
    startTree();
    QStringList wanted = roots();
    if (!m_input.top.isEmpty()) {
        const QString top = m_input.top.toLower();
        wanted = m_entities.contains(top) ? QStringList(top) : QStringList();
    }
    const bool areOptional = wanted.size() > 1 || m_files.size() != m_input.files.size();
    translate(wanted, areOptional && m_input.top.isEmpty(), then);
}

QString VhdlPart::handedOver(const QString &file) const
{
    return m_names.file(file, QFileInfo(file).suffix().prepend(QLatin1Char('.')));
}

QMap<QString, QString> VhdlPart::fileNames() const
{
    QMap<QString, QString> names;
    for (const QString &file : m_files) {
        if (handedOver(file) != file)
            names.insert(handedOver(file), file);
    }
    return names;
}

void VhdlPart::analyze(const ToolRunner::Then &then)
{
    QStringList arguments(QLatin1String("-a"));
    for (const QString &file : m_files)
        arguments << handedOver(file);
    m_runner.run(call(arguments), [=](const ToolResult &result) {
        const QString unknown = m_library.isEmpty() ? unknownLibrary(result.errors) : QString();
        if (unknown.isEmpty())
            return then(result);
        m_library = unknown;
        m_runner.run(call(arguments), then);
    });
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
        m_mentionsForeign = m_mentionsForeign || names.mentionsForeign;
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

void VhdlPart::translate(QStringList entities, bool areOptional, const std::function<void(bool)> &then)
{
    while (!entities.isEmpty() &&
           (m_modules.contains(entities.first()) || m_refused.contains(entities.first())))
        entities.removeFirst();
    if (entities.isEmpty())
        return then(true);
    const QString entity = entities.takeFirst();
    m_runner.tellStage(QLatin1String("Translating VHDL entity ") + m_entities.value(entity));
    ToolCall synthesis = call(QStringList() << QLatin1String("--synth") << QLatin1String("--latches")
                                            << QLatin1String("--out=verilog") << entity);
    synthesis.evaluatesSources = true;
    synthesis.subject = QLatin1String("VHDL entity ") + m_entities.value(entity);
    synthesis.outputFile = m_scratch.file(QLatin1String("entity.v"));
    m_runner.run(synthesis, [=](const ToolResult &result) {
        if (!takeTranslation(entity, result, areOptional))
            return then(false);
        const auto others = [=] { translate(entities, areOptional, then); };
        if (m_modules.contains(entity))
            recordScopes(entity, others);
        else
            others();
    });
}

// False when the design cannot be used without it.
bool VhdlPart::takeTranslation(const QString &entity, const ToolResult &result, bool isOptional)
{
    QFile output(m_scratch.file(QLatin1String("entity.v")));
    QString module;
    if (result.isGood() && output.open(QIODevice::ReadOnly))
        module = m_verilog.add(output.readAll(), m_entities, unboundComponents(result.errors));
    if (!module.isEmpty()) {
        m_modules.insert(entity, module);
        return true;
    }
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
    m_tree = m_runner.startBeside(reading);
}

QString VhdlPart::treeFile() const
{
    return m_scratch.file(QLatin1String("vhdl.tree"));
}

void VhdlPart::finishTree(const std::function<void()> &then) const
{
    if (m_tree)
        m_runner.await(m_tree, [=](const ToolResult &) { then(); });
    else
        then();
}

// The translation has lost declared ranges, generate scopes and unused signals; the first moment of a
// simulation has them all. Without it, for whatever reason, the translation is shown as it is.
void VhdlPart::recordScopes(const QString &entity, const std::function<void()> &then)
{
    if (!m_mentionsForeign)
        return simulate(entity, then);
    finishTree([=] {
        judgeForeign();
        simulate(entity, then);
    });
}

// A foreign subprogram or architecture is code from a library of the system, which a simulator calls with
// whatever the source says. The word in the text may be any; the tree tells where it is a name.
void VhdlPart::judgeForeign()
{
    m_mentionsForeign = false;
    QString place;
    m_mayRun = m_tree->result().isGood() && !findGhdlName("foreign", treeFile(), place);
    if (m_mayRun)
        return;
    place = place.isEmpty() ? QString() : realPlace(place);
    m_messages.append(QLatin1String("WARNING: ") + place +
                      QLatin1String("The attribute foreign can run code from outside the design. The VHDL is "
                                    "therefore not started, and its signals are shown as GHDL translates "
                                    "them."));
}

// "/path/a.vhd:12: " of GHDL's "link3.vhd:12:5"
QString VhdlPart::realPlace(const QString &place) const
{
    ToolMessage message;
    message.file = place.section(QLatin1Char(':'), 0, -3);
    return realFile(message, m_names, m_scratch.path()) + QLatin1Char(':') +
           place.section(QLatin1Char(':'), -2, -2) + QLatin1String(": ");
}

void VhdlPart::simulate(const QString &entity, const std::function<void()> &then)
{
    if (!m_mayRun || !confinementFault().isEmpty())
        return then();
    const QString file = m_scratch.file(QString::fromLatin1("scopes") + QString::number(m_waveforms.size()) +
                                        QLatin1String(".vcd"));
    ToolCall simulation =
        call(QStringList() << QLatin1String("--elab-run") << entity << QLatin1String("--stop-time=0ns")
                           << QLatin1String("--stop-delta=0") << QLatin1String("--vcd=") + file);
    simulation.subject = QLatin1String("the first moment of VHDL entity ") + m_entities.value(entity);
    simulation.outputFile = m_scratch.file(QLatin1String("simulation.log"));
    simulation.seconds = 30;
    simulation.runsSources = true;
    m_runner.run(simulation, [=](const ToolResult &result) {
        if (result.outcome == ToolResult::Finished)
            m_waveforms.insert(entity, file);
        else if (result.outcome == ToolResult::Stopped)
            m_messages.append(
                QString(result.message).replace(QLatin1String("ERROR"), QLatin1String("WARNING")));
        then();
    });
}

void VhdlPart::adapt(const DesignDump &dump, const QStringList &missing,
                     const std::function<void(bool)> &then)
{
    QList<DumpCell> cells;
    QStringList wanted;
    for (const DumpCell &cell : dump.cells) {
        if (cell.resolved && !missing.contains(cell.target))
            continue;
        cells.append(cell);
        if (!isVhdl(dump, cell) && mayPresent(cell))
            wanted.append(cell.target.toLower());
    }
    const int known = m_modules.size();
    translate(wanted, true, [=](bool) {
        bool changed = m_modules.size() > known;
        for (const DumpCell &cell : cells)
            changed = adaptCell(dump, cell) || changed;
        dropUnusedSpellings(dump);
        then(changed);
    });
}

// Entities that only Verilog instantiates, under another spelling, are not shown a second time.
void VhdlPart::dropUnusedSpellings(const DesignDump &dump)
{
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
}

bool VhdlPart::isVhdl(const DesignDump &dump, const DumpCell &cell) const
{
    return m_verilog.contains(dump.modules.at(cell.owner).name);
}

bool VhdlPart::adaptCell(const DesignDump &dump, const DumpCell &cell)
{
    if (!isVhdl(dump, cell))
        return mayPresent(cell) && presentEntity(cell);
    if (m_verilog.contains(cell.target))
        return false;
    const QString module = spelledModule(cell.target, dump);
    return !module.isEmpty() && m_verilog.renameInstances(cell.target, module, portsOf(module, dump));
}

bool VhdlPart::mayPresent(const DumpCell &cell) const
{
    return m_entities.contains(cell.target.toLower()) && (!cell.resolved || m_verilog.contains(cell.target));
}

bool VhdlPart::presentEntity(const DumpCell &cell)
{
    const QString entity = cell.target.toLower();
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
    return changed;
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
                      call(QStringList(QString())).program + QLatin1String(" is GHDL 2 or later.") +
                      lastLine(result.errors));
}

QStringList VhdlPart::takeMessages()
{
    const QStringList messages = m_messages;
    m_messages.clear();
    return messages;
}

} // namespace QUARRY
