#include "elaboration/readingjob.h"

#include <QSet>
#include <QTimer>

#include "elaboration/lastdesign.h"
#include "elaboration/reading/netlistreader.h"
#include "elaboration/tools/elaborator.h"
#include "model/netlist/rtlnetlist.h"

namespace QUARRY {
namespace {

// What the lists leave to their reader must be said when there is no netlist.
QString missingTop(const ModuleList &lists, const QString &top)
{
    if (lists.modules.isEmpty() && !top.isEmpty())
        return ReadingJob::tr("ERROR: No module named \"%1\" was found. Set another top module.").arg(top);
    if (lists.modules.isEmpty())
        return ReadingJob::tr("ERROR: The sources contain no module.");
    return ReadingJob::tr("ERROR: The design has several top modules (%1). Set one of them.")
        .arg(lists.topModules.join(QLatin1String(", ")));
}

QSet<ReadingJob *> &runningJobs()
{
    static QSet<ReadingJob *> jobs;
    return jobs;
}

} // namespace

ReadingJob::ReadingJob(const DesignInput &input, Goal goal) : m_input(input), m_goal(goal)
{
}

ReadingJob::~ReadingJob()
{
    runningJobs().remove(this);
}

void ReadingJob::cancelAll()
{
    for (ReadingJob *job : runningJobs().values())
        job->cancel();
}

void ReadingJob::start()
{
    runningJobs().insert(this);
    std::unique_ptr<Elaboration> known = takeLastDesign(m_input);
    if (m_goal == Netlist && known)
        return takeElaboration(std::move(known));
    m_start = QDateTime::currentDateTime();
    elaborate(m_input);
}

void ReadingJob::drop()
{
    m_reader.reset();
    m_design.reset();
    m_lists = ModuleList();
}

void ReadingJob::takeElaboration(std::unique_ptr<Elaboration> design)
{
    m_lists = design->lists;
    if (m_goal == Modules) {
        rememberDesign(m_input, std::move(design), m_start);
        return finish();
    }
    if (!design->usable) {
        if (!m_lists.anyError())
            m_netlistMessages += missingTop(m_lists, m_input.top);
        return finish();
    }
    m_design = std::move(design);
    m_reader.reset(new NetlistReader(m_design->xmlFile, m_design->readOptions));
    QTimer::singleShot(0, this, SLOT(readNetlist()));
    Q_EMIT stageChanged(tr("Building the netlist"));
}

void ReadingJob::readNetlist()
{
    if (!m_reader)
        return;
    if (m_reader->readSlice()) {
        QTimer::singleShot(0, this, SLOT(readNetlist()));
        return;
    }
    if (!m_reader->error().isEmpty())
        m_netlistMessages += m_reader->error();
    m_netlist.reset(m_reader->takeNetlist());
    m_reader.reset();
    m_design.reset();
    finish();
}

RtlNetlist *ReadingJob::takeNetlist()
{
    return m_netlist.release();
}

} // namespace QUARRY
