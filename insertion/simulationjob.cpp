#include "insertion/simulationjob.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include "elaboration/tools/confinement.h"
#include "elaboration/tools/safenames.h"
#include "elaboration/tools/scratchdir.h"
#include "elaboration/tools/sourceorder.h"
#include "elaboration/tools/sourcetext.h"
#include "host/absolutepath.h"
#include "host/atomicfile.h"
#include "host/designmanager.h"
#include "host/regularfile.h"
#include "insertion/analyzer.h"
#include "insertion/attaching.h"
#include "insertion/benchreading.h"
#include "insertion/harness.h"
#include "insertion/insertionjob.h"
#include "insertion/viewerfiles.h"
#include "insertion/waveform.h"
#include "model/netlist/rtlnetlist.h"

using namespace QUARRY;

namespace Insertion {
namespace {

const int maxLinks = 2000;
const int maxShownLines = 20;

// By which the simulators tell the language.
QString suffixOf(const QString &file)
{
    return file.endsWith(".sv") ? ".sv" : ".v";
}

QStringList lastLines(const QByteArray &words)
{
    const QStringList lines = QString::fromUtf8(words).split('\n', Qt::SkipEmptyParts);
    return lines.mid(qMax(0, lines.size() - maxShownLines));
}

RTLJEX::CoreOptions coreOptions(const SimulationOptions &options)
{
    RTLJEX::CoreOptions cores;
    cores.triggerByAny = options.triggerByAny;
    cores.startsArmed = true;
    return cores;
}

} // namespace

SimulationJob::SimulationJob(const DesignInput &input, const RTLJEX::Configuration &configuration,
                             const RtlNetlist &netlist, const SimulationOptions &options)
    : AnalyzerJob(input, configuration, coreOptions(options), netlist),
      m_configuration(configuration),
      m_netlist(netlist),
      m_options(options),
      m_scratch(new ScratchDir),
      m_names(new SafeNames(*m_scratch)),
      m_top(netlist.topHierarchy->moduleName)
{
}

SimulationJob::~SimulationJob()
{
    m_runner.reset(); // the tools end before their folder goes
}

QString SimulationJob::scratchPath() const
{
    return m_scratch->path();
}

void SimulationJob::drop()
{
    AnalyzerJob::drop();
    m_bench.reset();
    if (m_insertion) {
        m_insertion->disconnect(this);
        m_insertion->cancel();
    }
}

void SimulationJob::begin()
{
    const QString fault = confinementFault();
    if (!fault.isEmpty())
        return fail(Failed, {tr("The test bench is not run, since %1.").arg(fault)});
    const QString missing = missingFor(m_options.simulator);
    if (!missing.isEmpty())
        return fail(Failed, {missing});
    m_bench.reset(new BenchReading(m_input, m_options.bench, m_top, m_options.instance));
    connect(m_bench.get(), SIGNAL(stageChanged(QString)), SIGNAL(stageChanged(QString)));
    connect(m_bench.get(), SIGNAL(finished()), SLOT(takeBench()), Qt::QueuedConnection);
    m_bench->start();
}

void SimulationJob::takeBench()
{
    if (isFinished())
        return;
    if (!m_bench->errors().isEmpty())
        return fail(Failed, m_bench->errors());
    prepare();
}

// What is declared in VHDL, or in a scope without a name, is not reached from outside.
bool SimulationJob::needsNetlist() const
{
    static const QRegularExpression unnamed("\\bgenblk\\d");
    bool needs = m_options.byNetlist;
    for (const DesignSource &source : m_input.files)
        needs = needs || !TE::verilogSuffix(source.type);
    for (const Tap &tap : m_analyzer->taps().taps())
        needs = needs || unnamed.match(verilogPath(tap)).hasMatch();
    return needs;
}

const Analyzer &SimulationJob::analyzer() const
{
    return m_insertion ? m_insertion->analyzer() : *m_analyzer;
}

void SimulationJob::prepare()
{
    if (!needsNetlist())
        return compile();
    InsertionOptions options;
    options.cores = coreOptions(m_options);
    options.forSimulation = true;
    m_input.parameters = m_bench->instance().parameters;
    m_insertion.reset(new InsertionJob(m_input, m_configuration, m_netlist, options));
    connect(m_insertion.get(), SIGNAL(stageChanged(QString)), SIGNAL(stageChanged(QString)));
    connect(m_insertion.get(), SIGNAL(finished()), SLOT(takeNetlist()), Qt::QueuedConnection);
    m_insertion->start();
}

void SimulationJob::takeNetlist()
{
    if (isFinished())
        return;
    m_messages += m_insertion->messages();
    if (m_insertion->outcome() == InsertionJob::Done)
        return compile();
    end(m_insertion->outcome() == InsertionJob::Failed ? Failed : Refused);
}

// Relative names in sources start at the project, or at the bench.
QStringList SimulationJob::includeFolders()
{
    QStringList folders;
    for (const QString &path : m_input.includePaths + QStringList("."))
        folders << m_names->folder(QUtil::absoluteIn(m_input.workingDir, path));
    for (const QString &bench : m_options.bench)
        folders << m_names->folder(QFileInfo(bench).absolutePath());
    return folders;
}

void SimulationJob::addSources(SimulatedSources &sources)
{
    for (const QString &define : m_input.defines) {
        if (!m_input.undefines.contains(define.section('=', 0, 0)))
            sources.defines << define;
    }
    for (const QString &folder : m_input.libraryPaths)
        sources.libraryFolders << m_names->folder(QUtil::absoluteIn(m_input.workingDir, folder));
    const QStringList usual{".v", ".sv"};
    sources.librarySuffixes = m_input.librarySuffixes.isEmpty() ? usual : m_input.librarySuffixes;
    // Icarus Verilog takes no second definition of a module, so of the libraries only what is used is read.
    QStringList files, libraries;
    for (const DesignSource &source : m_input.files)
        (source.onlyWhenUsed ? libraries : files) << source.path;
    const QSet<QString> used = SourceNeeds(m_options.bench + files + libraries).filesFor(m_bench->top());
    for (const QString &library : libraries) {
        if (used.contains(library))
            files << library;
    }
    const QSet<QString> included = includedNames(files + m_options.bench);
    for (const QString &file : orderedByUse(files, VerilogSource)) {
        if (!included.contains(QFileInfo(file).fileName()) || !TE::isHeaderName(file))
            sources.files << m_names->file(file, suffixOf(file));
    }
}

// The bench sets parameters that the netlist was made with and does not have any more.
QByteArray SimulationJob::simulatedDesign() const
{
    QByteArray text = m_insertion->files().value("design.v");
    if (!m_bench->instance().parameters.isEmpty())
        text.replace("\nmodule " + m_top.toUtf8() + '(',
                     "\nmodule " + m_top.toUtf8() + " #(parameter " +
                         m_bench->instance().parameters.join(", parameter ").toUtf8() + ") (");
    return "`timescale 1ns / 1ps\n" + text;
}

void SimulationJob::compile()
{
    const bool isByNetlist = m_insertion != nullptr;
    HarnessPlace place;
    place.simulator = m_options.simulator;
    place.benchTop = m_bench->top();
    place.instance = m_bench->instance().path;
    place.folder = m_scratch->path();
    place.records = m_options.records;
    SimulatedSources sources;
    sources.benchTop = m_bench->top();
    sources.folder = m_scratch->path();
    sources.workingDir = m_scratch->file("run");
    sources.includeFolders = includeFolders();
    if (isByNetlist) {
        place.prefix = m_insertion->prefix();
        sources.files << m_scratch->file("design.v");
    } else {
        addSources(sources);
        sources.files << m_scratch->file("cores.v");
    }
    for (const QString &bench : m_options.bench)
        sources.files << m_names->file(bench, suffixOf(bench));
    sources.files << m_scratch->file("harness.sv");
    const bool isWritten =
        QDir().mkpath(m_scratch->file("run")) &&
        m_scratch->write("harness.sv", harnessText(analyzer(), place, m_windows)) &&
        (isByNetlist ? m_scratch->write("design.v", simulatedDesign())
                     : m_scratch->write("cores.v", "`timescale 1ns / 1ps\n" + m_analyzer->coresText()));
    if (!isWritten)
        return fail(Failed, {tr("A temporary file could not be written. Make room on the disk.")});
    linkProject();
    m_steps = simulationSteps(m_options.simulator, sources);
    runNext();
}

void SimulationJob::runNext()
{
    const SimulationStep step = m_steps.takeFirst();
    m_runner->tellStage(step.stage);
    m_runner->run(step.call, [this, step](const ToolResult &result) {
        if (m_steps.isEmpty())
            return judge(result);
        if (result.isGood())
            return runNext();
        fail(Failed, result.outcome == ToolResult::Finished
                         ? QStringList(step.refusal) + lastLines(result.errors)
                         : QStringList(result.message));
    });
}

// The bench reads files by names that are relative to the folder in which it is usually started.
void SimulationJob::linkProject() const
{
    const QDir project(m_input.workingDir);
    const QStringList entries = project.entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    for (const QString &entry : entries.mid(0, maxLinks))
        QFile::link(project.filePath(entry), m_scratch->file("run/" + entry));
}

void SimulationJob::judge(const ToolResult &result)
{
    m_words = result.output + result.errors;
    if (result.outcome == ToolResult::Died && m_options.simulator == Simulator::Verilator)
        return fail(Failed,
                    {tr("The test bench failed: it said $stop or $fatal, or met a fault of its own.")});
    if (!result.isGood())
        return fail(Failed, result.outcome == ToolResult::Finished
                                ? QStringList(tr("The test bench failed with code %1.").arg(result.exitCode))
                                : QStringList(result.message));
    if (!collect())
        return;
    if (m_options.records) {
        if (!take("raw.txt", &m_record))
            return;
        m_record.prepend(recordHead(analyzer()));
    }
    bool anyWindow = false, anySilent = false;
    for (const RTLJEX::CapturedCore &core : m_captured) {
        anyWindow = anyWindow || !core.windows.isEmpty();
        anySilent = anySilent || core.windows.isEmpty();
    }
    if (anyWindow)
        m_waveform = waveformText(analyzer(), m_captured);
    end(anySilent ? Silent : Done);
}

bool SimulationJob::write(const QString &waveform, const QString &record, QString *error) const
{
    QList<QUtil::NewFile> files;
    if (!m_waveform.isEmpty()) {
        const QFileInfo info(waveform);
        files << QUtil::NewFile{waveform, m_waveform};
        const QMap<QString, QByteArray> beside =
            viewerFiles(info.fileName(), analyzer(), m_captured, m_netlist);
        for (auto file = beside.begin(); file != beside.end(); ++file) {
            const QString path = info.dir().filePath(file.key());
            if (isOurViewerFile(path))
                files << QUtil::NewFile{path, file.value()};
        }
    }
    if (!m_record.isEmpty())
        files << QUtil::NewFile{record, m_record};
    return QUtil::writeFilesAtomically(files, error);
}

// Of what the cores wrote. False when the job is over, or goes on: a core that did not fill all of its
// windows is read in a second run, as soon as it has those that it will have.
bool SimulationJob::collect()
{
    QByteArray text;
    if (!take("end.txt", &text))
        return false;
    const QMap<int, CoreEnd> ends = readEnds(text);
    const bool isSecond = !m_windows.isEmpty();
    m_captured.clear();
    for (const Analyzer::Core &core : analyzer().cores()) {
        const int number = core.core.number;
        const CoreEnd end = ends.value(number);
        // By Verilator all are read at the end.
        if (!isSecond && m_options.simulator == Simulator::Icarus && end.windows > 0 &&
            end.windows < core.module.layout.windows)
            m_windows.insert(number, end.windows);
    }
    if (!isSecond && !m_windows.isEmpty()) {
        compile();
        return false;
    }
    for (const Analyzer::Core &core : analyzer().cores()) {
        const int number = core.core.number;
        const CoreEnd end = ends.value(number);
        RTLJEX::CapturedCore captured;
        QString error;
        if (end.windows == 0) {
            tellSilence(analyzer(), m_captured.size(), end.seen);
        } else if (!take("core_" + QString::number(number) + ".txt", &text)) {
            return false;
        } else if (!RTLJEX::readCapture(withWindows(text, m_windows.value(number, end.windows)),
                                        core.module.layout, &captured, &error)) {
            fail(Failed, {tr("Core %1: %2").arg(QString::number(number), error)});
            return false;
        }
        if (end.windows > 0 && end.windows < core.module.layout.windows)
            m_messages << tr("WARNING: Core %1 filled %2 of its %3 windows.")
                              .arg(number)
                              .arg(end.windows)
                              .arg(core.module.layout.windows);
        m_captured << captured;
    }
    return true;
}

void SimulationJob::tellSilence(const Analyzer &analyzer, int core, quint32 seen)
{
    const RTLJEX::AnyCore &any = analyzer.cores().at(core).core;
    const QString number = QString::number(any.number);
    if (!any.standard) {
        m_messages << tr("Core %1 did not fill its window: its sample clock %2 had too few edges.")
                          .arg(number, *any.clock);
        return;
    }
    m_messages << tr("Core %1 did not trigger, or not with enough samples behind its trigger.").arg(number);
    for (const JEX::MatchUnit *unit : any.standard->enabledMatchUnits()) {
        const bool hasMatched = seen & 1u << unit->unitNumber;
        m_messages << (hasMatched ? tr("Core %1: M%2 matched.") : tr("Core %1: M%2 never matched."))
                          .arg(number, QString::number(unit->unitNumber));
    }
    for (int i = 0; i < any.standard->expressions.size(); ++i) {
        const bool hasHeld = seen & 1u << (16 + i);
        m_messages << (hasHeld ? tr("Core %1: expression %2, %3, held.")
                               : tr("Core %1: expression %2, %3, never held."))
                          .arg(number, QString::number(i + 1), any.standard->expressions.at(i));
    }
}

bool SimulationJob::take(const QString &name, QByteArray *bytes)
{
    QString reason;
    bytes->clear();
    if (QUtil::readRegularFile(m_scratch->file(name), 1024 * QUtil::MiB, bytes, &reason))
        return true;
    fail(Failed, {tr("What the simulation wrote cannot be read (%1): %2.").arg(name, reason)});
    return false;
}

} // namespace Insertion
