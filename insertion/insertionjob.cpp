#include "insertion/insertionjob.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include "elaboration/tools/confinement.h"
#include "elaboration/tools/elaborator.h"
#include "elaboration/tools/toollimits.h"
#include "insertion/analyzer.h"
#include "insertion/attaching.h"
#include "insertion/insertiontexts.h"
#include "insertion/netlistproof.h"
#include "insertion/rtlildesign.h"
#include "insertion/tapping.h"
#include "insertion/yosyscalls.h"
#include "model/netlist/rtlnetlist.h"

using namespace QUARRY;

namespace Insertion {
namespace {

const int provingSeconds = 120;
const qint64 maxTextBytes = qint64(1) << 30;

// "/a/b.sv:12: ERROR: syntax error, unexpected TOK_ID" or "ERROR: Module `\x' referenced ..."
QRegularExpressionMatch yosysError(const QByteArray &errors)
{
    static const QRegularExpression error("^(?:(?<file>[^\\n:]+):(?<line>\\d+): )?ERROR: (?<text>[^\\n]+)$",
                                          QRegularExpression::MultilineOption);
    return error.match(QString::fromUtf8(errors));
}

// "Warning: Wire soc.\unset is used but has no driver."
QStringList problemsIn(const QByteArray &check)
{
    QStringList problems;
    for (const QByteArray &line : check.split('\n')) {
        if (line.startsWith("Warning: "))
            problems << QString::fromUtf8(line.mid(9));
    }
    return problems;
}

// "4'hz", "3'b1zz"
int openConstants(const QByteArray &verilog)
{
    int count = 0;
    for (int at = verilog.indexOf('\''); at >= 0; at = verilog.indexOf('\'', at + 1)) {
        int end = at + 2;
        while (end < verilog.size() && verilog.at(end) != 'z' && strchr("0123456789abcdefx", verilog.at(end)))
            ++end;
        count += end < verilog.size() && verilog.at(end) == 'z';
    }
    return count;
}

} // namespace

InsertionJob::InsertionJob(const DesignInput &input, const RTLJEX::Configuration &configuration,
                           const RtlNetlist &netlist, const InsertionOptions &options)
    : AnalyzerJob(input, configuration, options.cores, netlist),
      m_options(options),
      m_surgery(new Surgery),
      m_report(new InsertionReport)
{
}

InsertionJob::~InsertionJob()
{
    m_runner.reset(); // the tools end before their folder goes
}

QStringList InsertionJob::fileNames()
{
    return {"cores.v", "design.v", "bind.sv", "probe.v", "map.json", "proof.json", "report.txt"};
}

QByteArray InsertionJob::prefix() const
{
    return m_surgery->prefix;
}

QString InsertionJob::scratchPath() const
{
    return m_elaboration ? m_elaboration->scratch->path() : QString();
}

void InsertionJob::begin()
{
    elaborate(m_input);
}

void InsertionJob::takeElaboration(std::unique_ptr<Elaboration> design)
{
    m_elaboration = std::move(design);
    if (!m_elaboration->usable)
        return fail(Failed, m_elaboration->lists.errors());
    m_yosys.reset(new YosysCalls(m_input, *m_elaboration));
    if (!m_yosys->fault().isEmpty())
        return fail(Failed, {m_yosys->fault()});
    read();
}

void InsertionJob::read()
{
    const QString fault = confinementFault();
    if (!fault.isEmpty())
        return giveCoresOnly(tr("it may call foreign functions of the sources, and %1.").arg(fault));
    m_runner->tellStage(tr("Reading the design with Yosys"));
    m_runner->run(m_yosys->reading(m_options.forSimulation),
                  [this](const ToolResult &result) { judgeReading(result); });
}

void InsertionJob::judgeReading(const ToolResult &result)
{
    if (result.outcome != ToolResult::Finished)
        return fail(Failed, {result.message});
    if (result.exitCode == 0)
        return tap();
    const QRegularExpressionMatch error = yosysError(result.errors);
    const QString file = m_yosys->realFile(error.captured("file"));
    if (!file.isEmpty() && m_yosys->leaveToIncludes(file))
        return read();
    const QString place = file.isEmpty() ? QString() : file + ':' + error.captured("line") + ": ";
    giveCoresOnly(place + (error.hasMatch() ? error.captured("text")
                                            : tr("Yosys gave no design.") + lastLine(result.errors)));
}

void InsertionJob::giveCoresOnly(const QString &reason)
{
    m_messages << tr("WARNING: Yosys cannot read the design: %1").arg(reason);
    m_messages << tr(
        "WARNING: There is therefore no design.v. For simulations, bind.sv and probe.v attach the "
        "analyzer to the untouched sources.");
    m_files.insert("cores.v", m_analyzer->coresText());
    addTexts();
    end(CoresOnly);
}

void InsertionJob::tap()
{
    RtlilDesign design;
    QString error;
    if (!design.open(m_yosys->readFile(), &error))
        return fail(Failed, {error});
    const QStringList refused = m_analyzer->taps().resolve(design, m_elaboration->readOptions.blackBoxes);
    if (!refused.isEmpty())
        return fail(Refused, refused);
    if (design.module("\\jex_cores") || design.module("\\jex_capture"))
        return fail(Refused, {tr("A module of the design has the name of one of the analyzer's.")});
    m_surgery->prefix = freePrefix(design);
    m_surgery->coresModule = "jex_cores";
    m_surgery->inputs = m_analyzer->controlInputs();
    m_surgery->outputs = m_analyzer->controlOutputs();
    if (!design.write(m_yosys->originalFile(), &error) ||
        !design.writeVerilog(m_yosys->writtenFile(), &error))
        return fail(Failed, {error});
    insertTaps(design, m_analyzer->taps().taps(), *m_surgery);
    if (!design.write(m_yosys->tappedFile(), &error))
        return fail(Failed, {error});
    if (!m_elaboration->scratch->write(QFileInfo(m_yosys->coresFile()).fileName(), m_analyzer->coresText()))
        return fail(Failed, {tr("A temporary file could not be written. Make room on the disk.")});
    m_runner->tellStage(tr("Putting the analyzer into the design"));
    m_runner->run(m_yosys->tapping(), [this](const ToolResult &result) {
        if (!result.isGood())
            return fail(Failed, {result.outcome == ToolResult::Finished
                                     ? tr("Yosys does not take the design with the analyzer.") +
                                           lastLine(result.errors)
                                     : result.message});
        takeTapped();
    });
}

void InsertionJob::takeTapped()
{
    m_runner->tellStage(tr("Comparing the netlists"));
    if (!compare())
        return;
    prove([this] { count(true, [this] { count(false, [this] { finishDesign(); }); }); });
}

bool InsertionJob::compare()
{
    FlatNetlist original, tapped;
    QString error;
    if (!original.read(m_yosys->flatOriginalFile(), &error) ||
        !tapped.read(m_yosys->flatTappedFile(), &error)) {
        fail(Failed, {error});
        return false;
    }
    Added added;
    added.prefix = m_surgery->prefix;
    added.coresType = '\\' + m_surgery->coresModule;
    for (int i = 0; i < m_analyzer->taps().taps().size(); ++i)
        added.coresInputs.insert("\\tap_" + QByteArray::number(i));
    for (const QByteArray &name : m_surgery->inputs)
        added.coresInputs.insert('\\' + name);
    NetlistProof proof(original, tapped, added);
    m_report->differences = proof.run();
    m_report->cells = proof.cellCount();
    m_report->nets = proof.netCount();
    m_report->memories = original.memories().size();
    m_report->noteTaps(*m_analyzer, original);
    m_report->noteFamily(*m_analyzer, m_options.family);
    QByteArray before, after;
    if (!take(m_yosys->checkFile(true), &before) || !take(m_yosys->checkFile(false), &after))
        return false;
    m_report->problemsBefore = problemsIn(before);
    m_report->noteProblems(problemsIn(after));
    if (!take(m_yosys->writtenFile(), &before) || !take(m_yosys->designFile(), &after))
        return false;
    // The flattened texts do not tell an open bit from an unknown one.
    if (openConstants(before) != openConstants(after))
        m_report->differences << "Open bits (z) of the original are not open any more.";
    if (m_report->differences.isEmpty())
        return true;
    fail(Refused,
         QStringList(
             tr("The design with the analyzer is not proven to be the original with nothing but taps, so "
                "nothing is written.")) +
             m_report->differences);
    return false;
}

void InsertionJob::prove(const Step &then)
{
    if (!m_options.prove)
        return then();
    m_runner->tellStage(tr("Proving equivalence"));
    const int seconds = qMin(provingSeconds, toolTimeLimit());
    m_runner->run(m_yosys->proving(m_surgery->prefix, seconds),
                  [this, then, seconds](const ToolResult &result) {
                      m_report->noteEquivalence(result, seconds);
                      then();
                  });
}

void InsertionJob::count(bool isOriginal, const Step &then)
{
    if (m_options.family.isEmpty())
        return then();
    m_runner->tellStage(isOriginal ? tr("Synthesizing the original")
                                   : tr("Synthesizing the design with the analyzer"));
    m_runner->run(m_yosys->counting(m_options.family, isOriginal), [=](const ToolResult &result) {
        QByteArray counted;
        if (!result.isGood())
            m_report->warnings << "WARNING: The design " + QString(isOriginal ? "without" : "with") +
                                      " the analyzer was not synthesized for " + m_options.family + '.' +
                                      (result.outcome == ToolResult::Finished
                                           ? lastLine(result.errors)
                                           : QLatin1Char(' ') + result.message);
        else if (!take(m_yosys->countFile(), &counted))
            return;
        m_report->noteCounts(counted, isOriginal);
        then();
    });
}

void InsertionJob::finishDesign()
{
    QByteArray design;
    if (!take(m_yosys->designFile(), &design))
        return;
    m_files.insert("cores.v", m_analyzer->coresText());
    m_files.insert("design.v", design + m_analyzer->coresText());
    m_files.insert("proof.json", proofText(*m_report));
    addTexts();
    end(Done);
}

void InsertionJob::addTexts()
{
    const QString top = m_elaboration->readOptions.top;
    m_files.insert("bind.sv", bindText(*m_analyzer, top));
    m_files.insert("probe.v", probeText(*m_analyzer, m_options.instance));
    m_files.insert("map.json", mapText(*m_analyzer, *m_surgery, top));
    m_files.insert("report.txt", reportText(*m_report, *m_analyzer, m_options, m_files.contains("design.v")));
    m_messages += m_report->warnings;
}

bool InsertionJob::take(const QString &path, QByteArray *bytes)
{
    QFile file(path);
    if (isPlainFile(path) && file.open(QIODevice::ReadOnly) && file.size() <= maxTextBytes) {
        *bytes = file.readAll();
        return true;
    }
    fail(Failed, {tr("Yosys did not write what it was asked for, or too much of it.")});
    return false;
}

} // namespace Insertion
