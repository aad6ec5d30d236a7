#include "insertion/analyzerjob.h"

#include "elaboration/tools/scratchdir.h"
#include "insertion/analyzer.h"

using namespace QUARRY;

namespace Insertion {

AnalyzerJob::AnalyzerJob(const DesignInput &input, const RTLJEX::Configuration &configuration,
                         const RTLJEX::CoreOptions &cores, const RtlNetlist &netlist)
    : m_input(input), m_analyzer(new Analyzer(configuration, cores, netlist)), m_runner(new ToolRunner)
{
    connect(m_runner.get(), &ToolRunner::stageChanged, this, &AnalyzerJob::stageChanged);
}

AnalyzerJob::~AnalyzerJob() = default;

void AnalyzerJob::start()
{
    const auto begin = [this] {
        if (isFinished())
            return;
        if (m_analyzer->faults().isEmpty())
            this->begin();
        else
            fail(Refused, m_analyzer->faults());
    };
    QMetaObject::invokeMethod(this, begin, Qt::QueuedConnection);
}

void AnalyzerJob::drop()
{
    m_runner.reset();
}

void AnalyzerJob::end(Outcome outcome)
{
    if (isFinished())
        return;
    m_outcome = outcome;
    finish();
}

void AnalyzerJob::fail(Outcome outcome, const QStringList &sentences)
{
    const QString full = fullDiskMessage(scratchPath());
    for (const QString &sentence : full.isEmpty() ? sentences : QStringList(full))
        m_messages << (isError(sentence) ? sentence : "ERROR: " + sentence);
    end(outcome);
}

} // namespace Insertion
