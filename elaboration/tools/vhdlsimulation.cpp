#include "elaboration/tools/vhdlpart.h"

#include <QCoreApplication>
#include <QRegExp>

#include "elaboration/reading/ghdltree.h"
#include "elaboration/tools/confinement.h"
#include "elaboration/tools/scratchdir.h"

// How the first moment of a VHDL entity is simulated, for its signals.
namespace QUARRY {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(QUARRY::VhdlSimulation)
};

const int manyInstances = 500;

} // namespace

// The translation has lost declared ranges, generate scopes, members of records and unused signals; the first
// moment of a simulation has them all. Without it, for whatever reason, the translation is shown as it is.
void VhdlPart::recordScopes(const Wanted &wanted, const std::function<void()> &then)
{
    const auto record = [=] { simulate(wanted, then); };
    if (!m_analysis.mentionsForeign() || m_isForeignJudged)
        return record();
    m_isForeignJudged = true;
    judgeForeign(m_analysis.byLibrary(), record);
}

bool VhdlPart::mayStart() const
{
    return m_mayRun && (!m_analysis.mentionsForeign() || m_isForeignJudged) && confinementFault().isEmpty();
}

// A foreign subprogram or architecture is code from a library of the system, which a simulator calls with
// whatever the source says. The word in the text may be any; the syntax tree tells where it is a name. What
// GHDL reads at once is all in one library, so that what uses another one goes wrong: each has its own run.
void VhdlPart::judgeForeign(QList<VhdlBatch> batches, const std::function<void()> &then)
{
    if (batches.isEmpty())
        return then();
    const VhdlBatch batch = batches.takeFirst();
    ToolCall reading =
        m_analysis.call(QStringList() << QLatin1String("-s") << QLatin1String("-ds") << batch.files,
                        batch.library, m_scratch.path());
    reading.outputFile = m_scratch.file(QLatin1String("vhdl.log"));
    reading.errorFile = m_scratch.file(QLatin1String("vhdl.tree"));
    reading.seconds = 30;
    m_runner.run(reading, [=](const ToolResult &result) {
        QString place;
        if (result.isGood() && !findGhdlName("foreign", reading.errorFile, place))
            return judgeForeign(batches, then);
        forbidRun(place.isEmpty() ? QString() : realPlace(place));
        then();
    });
}

void VhdlPart::forbidRun(const QString &place)
{
    m_mayRun = false;
    m_messages.append(
        Texts::tr("WARNING: %1The attribute foreign can run code from outside the design. The VHDL is "
                  "therefore not started, and its signals are shown as GHDL translates "
                  "them.")
            .arg(place));
}

// "/path/a.vhd:12: " of GHDL's "link3.vhd:12:5"
QString VhdlPart::realPlace(const QString &place) const
{
    ToolMessage message;
    message.file = place.section(QLatin1Char(':'), 0, -3);
    return realFile(message, m_names, m_scratch.path()) + QLatin1Char(':') +
           place.section(QLatin1Char(':'), -2, -2) + QLatin1String(": ");
}

// What GHDL does not take for a generic, as VHDL writes it: bits, but when it translates, and an empty text.
QMap<QString, QByteArray> VhdlPart::defaultsOf(const Wanted &wanted) const
{
    const QRegExp bits(QLatin1String("[01UXZWLH-]+"));
    QMap<QString, QByteArray> defaults;
    for (const QPair<QString, QString> &generic : m_analysis.genericsOf(wanted.entity)) {
        for (const QString &given : wanted.generics) {
            const QString value = given.section(QLatin1Char('='), 1);
            const bool isNotTaken = isVhdlVector(generic.second)
                                        ? bits.exactMatch(value)
                                        : generic.second == QLatin1String("string") && value.isEmpty();
            if (isNotTaken && given.section(QLatin1Char('='), 0, 0).toLower() == generic.first)
                defaults.insert(generic.first, '"' + value.toLatin1() + '"');
        }
    }
    return defaults;
}

// Hands over the folder of libraries in which those are the entity's default values; the usual one when there
// are none.
void VhdlPart::prepareFolder(const Wanted &wanted, const QString &usual,
                             const std::function<void(const QString &, const ToolResult &)> &then)
{
    const QMap<QString, QByteArray> defaults = defaultsOf(wanted);
    if (defaults.isEmpty())
        return then(usual, ToolResult());
    const QString folder = m_scratch.file(QLatin1String("defaults") + QString::number(m_folders++));
    m_analysis.repeatWith(wanted.entity, defaults, folder,
                          [=](const ToolResult &result) { then(folder, result); });
}

void VhdlPart::simulate(const Wanted &wanted, const std::function<void()> &then)
{
    if (!m_waveform.isEmpty() || !mayStart())
        return then();
    prepareFolder(wanted, m_scratch.path(), [=](const QString &folder, const ToolResult &result) {
        if (result.isGood())
            startSimulation(wanted, folder);
        then();
    });
}

void VhdlPart::startSimulation(const Wanted &wanted, const QString &folder)
{
    // The wave file knows all types, and takes time that grows with the square of the instances.
    const int instances = m_analysis.mentionsLoops() ? m_verilog.instanceCount() : m_analysis.instanceCount();
    const bool isWave = m_analysis.mentionsComposites() || instances < manyInstances;
    m_waveform = m_scratch.file(QString::fromLatin1("scopes") + QString::number(m_simulations++) +
                                QLatin1String(isWave ? ".ghw" : ".vcd"));
    m_waveformOf = wanted.module.isEmpty() ? wanted.entity : wanted.module;
    QStringList arguments = QStringList() << QLatin1String("--elab-run") << wanted.entity;
    const QMap<QString, QByteArray> defaults = defaultsOf(wanted);
    for (const QString &generic : wanted.generics) {
        if (!defaults.contains(generic.section(QLatin1Char('='), 0, 0).toLower()))
            arguments << QLatin1String("-g") + generic;
    }
    arguments << QLatin1String("--stop-time=0ns") << QLatin1String("--stop-delta=0")
              << QLatin1String(isWave ? "--wave=" : "--vcd=") + m_waveform;
    ToolCall simulation = m_analysis.call(arguments, m_analysis.libraryOf(wanted.entity), folder);
    simulation.subject =
        Texts::tr("the first moment of VHDL entity %1").arg(m_analysis.entities().value(wanted.entity));
    simulation.outputFile = m_scratch.file(QLatin1String("simulation.log"));
    simulation.seconds = 30;
    simulation.runsSources = true;
    m_runner.startBeside(simulation);
}

void VhdlPart::awaitScopes(const std::function<void()> &then)
{
    if (m_waveform.isEmpty())
        return then();
    m_runner.awaitBeside([=](const ToolResult &result) {
        m_isStarted = result.isGood();
        if (result.outcome == ToolResult::Finished)
            m_waveforms.insert(m_waveformOf, m_waveform);
        else if (result.outcome == ToolResult::Stopped)
            m_messages.append(
                QString(result.message).replace(QLatin1String("ERROR"), QLatin1String("WARNING")));
        m_waveform.clear();
        then();
    });
}

} // namespace QUARRY
