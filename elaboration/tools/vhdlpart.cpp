#include "elaboration/tools/vhdlpart.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QRegExp>

#include "elaboration/tools/designinput.h"
#include "elaboration/tools/ghdlmessages.h"
#include "elaboration/tools/scratchdir.h"

namespace QUARRY {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(QUARRY::VhdlPart)
};

const char crashed[] = "GHDL Bug occurred";

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

// The line of the first error with a place.
QByteArray firstError(const QByteArray &messages)
{
    for (const QByteArray &line : messages.split('\n')) {
        const QList<ToolMessage> found = parseGhdlMessages(line);
        if (!found.isEmpty() && found.first().severity == ToolMessage::Error && !found.first().file.isEmpty())
            return line;
    }
    return QByteArray();
}

} // namespace

VhdlPart::VhdlPart(const DesignInput &input, const ScratchDir &scratch, SafeNames &names,
                   SourceCopies &copies, ToolRunner &runner)
    : m_input(input),
      m_scratch(scratch),
      m_names(names),
      m_runner(runner),
      m_analysis(input, scratch, names, copies, runner),
      m_synthesisFolder(scratch.path())
{
}

void VhdlPart::prepare(const Then &then)
{
    m_runner.tellStage(Texts::tr("Reading the VHDL files"));
    m_analysis.run([=](const ToolResult &result) {
        QStringList messages = m_analysis.takeMessages();
        const bool isGood = result.isGood() && isAnythingLeft();
        for (QString &message : messages) {
            if (!isGood)
                message.replace(0, 7, QLatin1String("ERROR")); // "WARNING"
        }
        m_messages += messages;
        if (isGood) {
            m_analysis.forgetMissing();
            return translateRoots(then);
        }
        if (result.isGood())
            return then(false);
        m_didToolFail = result.outcome != ToolResult::Finished;
        report(result, false, m_messages);
        then(false);
    });
}

// False when all that could be a top module is lost.
bool VhdlPart::isAnythingLeft()
{
    const bool anyVerilog = m_analysis.fileCount() != m_input.files.size();
    if (anyVerilog && !hasEntity(m_input.top))
        return true;
    const QStringList tops = m_input.top.isEmpty() ? roots() : QStringList(m_input.top.toLower());
    for (const QString &top : tops) {
        if (!m_analysis.lost().contains(top))
            return true;
    }
    return tops.isEmpty();
}

void VhdlPart::translateRoots(const Then &then)
{
    const QHash<QString, QString> &entities = m_analysis.entities();
    QStringList names = roots();
    bool areOptional = names.size() > 1 || m_analysis.fileCount() != m_input.files.size();
    if (!m_input.top.isEmpty()) {
        const QString top = m_input.top.toLower();
        names = entities.contains(top) ? QStringList(top) : QStringList();
        areOptional = false;
    }
    QList<Wanted> wanted;
    for (const QString &name : names) {
        const bool isTop = names.size() == 1 && m_input.files.size() == m_analysis.fileCount();
        wanted.append(
            {name, isTop || !m_input.top.isEmpty() ? m_input.parameters : QStringList(), QString()});
    }
    translate(wanted, areOptional, then);
}

QStringList VhdlPart::roots() const
{
    QStringList entities;
    for (const QString &entity : m_analysis.entityOrder()) {
        if (!m_analysis.used().contains(entity))
            entities.append(entity);
    }
    return entities;
}

void VhdlPart::translate(QList<Wanted> wanted, bool areOptional, const Then &then)
{
    while (!wanted.isEmpty() && wanted.first().module.isEmpty() &&
           (m_modules.contains(wanted.first().entity) || m_refused.contains(wanted.first().entity)))
        wanted.removeFirst();
    if (wanted.isEmpty())
        return then(true);
    const Wanted next = wanted.takeFirst();
    const auto others = [=] { translate(wanted, areOptional, then); };
    awaitScopes([=] {
        m_runner.tellStage(
            Texts::tr("Translating VHDL entity %1").arg(m_analysis.entities().value(next.entity)));
        m_isStarted = false;
        // What it is to write is known at once where the sources say how much there is.
        if (mayStart() && defaultsOf(next).isEmpty() &&
            (m_analysis.mentionsComposites() || !m_analysis.mentionsLoops()))
            startSimulation(next, m_scratch.path());
        translateOne(next, areOptional, [=](bool isUsable) {
            if (!isUsable || m_verilog.lastModule().isEmpty()) {
                m_runner.stopBeside();
                m_waveform.clear();
                return isUsable ? others() : then(false);
            }
            recordScopes(next, [=] {
                // Without a body it must have started.
                if (areOptional || !m_hollow.contains(next.entity))
                    return others();
                awaitScopes([=] {
                    if (m_isStarted)
                        return others();
                    blame(next.entity);
                    then(false);
                });
            });
        });
    });
}

ToolCall VhdlPart::synthesis(const Wanted &wanted, const QString &folder) const
{
    QStringList arguments = QStringList() << QLatin1String("--synth") << QLatin1String("--latches")
                                          << QLatin1String("--out=verilog");
    for (const QString &generic : wanted.generics) {
        if (!generic.endsWith(QLatin1Char('='))) // an empty text is the default value in that folder
            arguments << QLatin1String("-g") + generic;
    }
    ToolCall call = m_analysis.call(arguments << wanted.entity, m_analysis.libraryOf(wanted.entity), folder);
    call.evaluatesSources = true;
    call.subject = Texts::tr("VHDL entity %1").arg(m_analysis.entities().value(wanted.entity));
    call.outputFile = m_scratch.file(QLatin1String("entity.v"));
    return call;
}

// Then false when the design cannot be used without it.
void VhdlPart::translateOne(const Wanted &wanted, bool isOptional, const Then &then)
{
    const bool anyEmptyText = !wanted.generics.filter(QRegExp(QLatin1String("=$"))).isEmpty();
    const auto takeResult = [=](const ToolResult &result) {
        GhdlNames names = m_analysis.names();
        names.components = unboundComponents(result.errors);
        names.hollow += m_hollow;
        QFile output(m_scratch.file(QLatin1String("entity.v")));
        const bool isRead = result.isGood() && output.open(QIODevice::ReadOnly);
        m_verilog.start(isRead ? output.readAll() : QByteArray(), names, wanted.module);
        m_runner.work([this] { return m_verilog.takeSome(); },
                      [=] { takeTranslation(wanted, result, isOptional, then); });
    };
    if (!anyEmptyText)
        return m_runner.run(synthesis(wanted, m_synthesisFolder), takeResult);
    prepareFolder(wanted, m_synthesisFolder, [=](const QString &folder, const ToolResult &result) {
        if (result.isGood())
            m_runner.run(synthesis(wanted, folder), takeResult);
        else
            takeResult(result);
    });
}

void VhdlPart::takeTranslation(const Wanted &wanted, const ToolResult &result, bool isOptional,
                               const Then &then)
{
    const QString module = m_verilog.lastModule();
    if (module.isEmpty()) {
        if (!hollowOut(wanted, result, isOptional, then))
            refuse(wanted, result, isOptional, then);
        return;
    }
    if (wanted.module.isEmpty())
        m_modules.insert(wanted.entity, module);
    then(true);
}

void VhdlPart::refuse(const Wanted &wanted, const ToolResult &result, bool isOptional, const Then &then)
{
    m_didToolFail = result.outcome != ToolResult::Finished;
    const bool goesOn = isOptional && !m_didToolFail;
    if (wanted.module.isEmpty()) {
        m_refused.insert(wanted.entity);
        m_untranslated.append(m_analysis.entities().value(wanted.entity));
    }
    report(result, goesOn, goesOn && wanted.module.isEmpty() ? m_refusals[wanted.entity] : m_messages);
    then(goesOn);
}

bool VhdlPart::hollowOut(const Wanted &wanted, const ToolResult &result, bool isOptional, const Then &then)
{
    if (result.outcome != ToolResult::Finished || result.exitCode == 0)
        return false;
    QSet<QString> guilty;
    if (!isToBlame(result, guilty))
        return false;
    if (!guilty.isEmpty()) {
        translateWithout(guilty, wanted, isOptional, then);
        return true;
    }
    // It names no entity: the innermost one that fails so alone is to blame.
    const bool isCrash = result.errors.contains(crashed);
    const QByteArray words = isCrash ? QByteArray(crashed) : firstError(result.errors);
    if (words.isEmpty())
        return false;
    findCulprit(m_analysis.below(wanted.entity), words, [=](const QString &entity) {
        if (entity.isEmpty())
            return refuse(wanted, result, isOptional, then);
        QStringList &blamed = m_blamed[entity];
        if (isCrash)
            blamed.append(
                Texts::tr("WARNING: GHDL crashed on VHDL entity %1 and cannot translate what is in it.")
                    .arg(m_analysis.entities().value(entity)));
        else
            report(result, true, blamed);
        m_messages += blamed;
        translateWithout(QSet<QString>() << entity, wanted, isOptional, then);
    });
    return true;
}

// The entities whose architectures the tool's words name, with their places; false when it blames something
// else, which nothing here can mend.
bool VhdlPart::isToBlame(const ToolResult &result, QSet<QString> &found)
{
    const QRegExp place(QLatin1String(".*[ (]?([^ (:]+):(\\d+):(\\d+)[:)].*"));
    bool isElsewhere = false;
    for (const QByteArray &raw : result.errors.split('\n')) {
        const QString line = QString::fromUtf8(raw);
        const QRegExp at(place);
        if (line.contains(QLatin1String(":warning:")) || line.contains(QLatin1String(":note:")) ||
            line.startsWith(QLatin1Char(' ')) || !at.exactMatch(line))
            continue;
        ToolMessage message;
        message.severity = ToolMessage::Warning;
        message.file = at.cap(1);
        message.line = at.cap(2).toInt();
        message.text = line.section(at.cap(3) + QLatin1String(": "), 1);
        message.text = message.text.isEmpty() ? line : message.text;
        message = m_analysis.placed(message);
        message.text.replace(at.cap(1), message.file);
        const VhdlUnit *unit = m_analysis.unitAt(message.file, message.line);
        if (!unit)
            continue;
        if (unit->kind != VhdlUnit::Architecture || m_hollow.contains(unit->entity)) {
            isElsewhere = isElsewhere || unit->kind == VhdlUnit::Entity;
            continue;
        }
        found.insert(unit->entity);
        m_messages.append(messageText(message, m_names, m_scratch.path()));
        m_blamed[unit->entity].append(m_messages.last());
    }
    return !found.isEmpty() || !isElsewhere;
}

// Nothing is known of a top module that can neither be translated nor started.
void VhdlPart::blame(const QString &entity)
{
    for (QString &message : m_messages) {
        if (m_blamed.value(entity).contains(message))
            message.replace(0, 7, QLatin1String("ERROR")); // "WARNING"
    }
}

void VhdlPart::findCulprit(QStringList candidates, const QByteArray &words,
                           const std::function<void(const QString &)> &then)
{
    while (!candidates.isEmpty() && m_hollow.contains(candidates.first()))
        candidates.removeFirst();
    if (candidates.isEmpty())
        return then(QString());
    const QString entity = candidates.takeFirst();
    m_runner.run(synthesis({entity, QStringList(), QString()}, m_synthesisFolder),
                 [=](const ToolResult &result) {
                     const bool isIt = result.errors.contains(words);
                     if (isIt || result.outcome != ToolResult::Finished)
                         return then(isIt ? entity : QString());
                     findCulprit(candidates, words, then);
                 });
}

void VhdlPart::translateWithout(const QSet<QString> &entities, const Wanted &wanted, bool isOptional,
                                const Then &then)
{
    m_hollow += entities;
    const auto retry = [=](const ToolResult &result) {
        if (result.isGood())
            translateOne(wanted, isOptional, then);
        else
            refuse(wanted, result, isOptional, then);
    };
    // The libraries as they are stay what is simulated.
    const QString folder = m_scratch.file(QLatin1String("synthesis"));
    if (m_synthesisFolder == folder)
        return m_analysis.hollowOut(entities, folder, retry);
    m_synthesisFolder = folder;
    m_analysis.repeat(folder, [=](const ToolResult &result) {
        if (result.isGood())
            m_analysis.hollowOut(entities, folder, retry);
        else
            retry(result);
    });
}

void VhdlPart::describe(ReadOptions &options) const
{
    options.moduleNames = m_verilog.moduleNames();
    const QString top = moduleOf(m_input.top);
    if (!top.isEmpty())
        options.moduleNames.insert(top, m_input.top);
    options.vhdlScopes = m_waveforms;
    options.choices = m_choices;
    options.fileNames = m_analysis.fileNames();
    for (const VhdlBatch &batch : m_analysis.byLibrary()) {
        for (const QString &file : batch.files)
            options.vhdlSources.append({batch.library, file});
    }
    options.vhdlLibraries = m_verilog.libraries();
    for (auto root = m_modules.begin(); root != m_modules.end(); ++root)
        options.vhdlLibraries.insert(root.value(), m_analysis.libraryOf(root.key()));
}

void VhdlPart::report(const ToolResult &result, bool errorsAreWarnings, QStringList &messages) const
{
    if (result.outcome != ToolResult::Finished) {
        messages.append(result.message);
        return;
    }
    bool anyError = false;
    for (ToolMessage message : parseGhdlMessages(result.errors)) {
        if (message.severity == ToolMessage::Warning)
            continue;
        anyError = true;
        if (errorsAreWarnings)
            message.severity = ToolMessage::Warning;
        messages.append(messageText(message, m_names, m_scratch.path()));
    }
    if (anyError)
        return;
    const bool isBug = result.errors.contains(crashed);
    messages.append(QLatin1String(errorsAreWarnings ? "WARNING: " : "ERROR: ") +
                    (isBug ? Texts::tr("GHDL crashed and gave no design.")
                           : Texts::tr("GHDL ended with code %1 and gave no design.").arg(result.exitCode)) +
                    QLatin1Char(' ') +
                    Texts::tr("Look for the VHDL source that causes it by leaving files out, or check that "
                              "%1 is GHDL 2 or later.")
                        .arg(m_analysis.call(QStringList(QString()), QString()).program) +
                    lastLine(result.errors));
}

QStringList VhdlPart::refusals() const
{
    QStringList words;
    for (const QString &entity : m_untranslated)
        words += m_refusals.value(entity.toLower());
    return words;
}

QStringList VhdlPart::takeMessages()
{
    const QStringList messages = m_messages;
    m_messages.clear();
    return messages;
}

} // namespace QUARRY
