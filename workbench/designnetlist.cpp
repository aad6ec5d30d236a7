#include "workbench/designnetlist.h"

#include "elaboration/elaboration.h"
#include "elaboration/readingjob.h"
#include "host/designnews.h"
#include "host/project.h"
#include "model/netlist/rtlnetlist.h"

namespace Workbench {
namespace {

const int quietTime = 400; // ms

} // namespace

DesignNetlist::DesignNetlist(QObject *parent) : QObject(parent)
{
    m_delay.setSingleShot(true);
    m_delay.setInterval(quietTime);
    connect(&m_delay, &QTimer::timeout, this, &DesignNetlist::start);
    TE::subscribeDesignEvents(this);
}

DesignNetlist::~DesignNetlist()
{
    Q_EMIT netlistAboutToGo();
    TE::unsubscribeDesignEvents(this);
}

void DesignNetlist::setWanted(const QObject *who, bool wanted)
{
    if (!wanted)
        m_wanting.remove(who);
    else if (!m_wanting.contains(who)) {
        m_wanting.insert(who);
        if (m_isStale && !m_delay.isActive())
            readAgain();
    }
}

void DesignNetlist::readAgain()
{
    m_isStale = true;
    m_job.reset();
    if (!m_wanting.isEmpty() && Core::ProjectManager::currentProject())
        m_delay.start();
}

void DesignNetlist::forget()
{
    m_delay.stop();
    m_job.reset();
    Q_EMIT netlistAboutToGo();
    m_netlist.reset();
    m_messages.clear();
    setState(Nothing);
    readAgain();
}

void DesignNetlist::handleIEvent(const QUtil::IEvent *)
{
    readAgain();
}

void DesignNetlist::start()
{
    m_job.reset(new QUARRY::ReadingJob(QUARRY::projectInput(), QUARRY::ReadingJob::Netlist));
    connect(m_job.get(), &QUARRY::ReadingJob::finished, this, &DesignNetlist::finish, Qt::QueuedConnection);
    m_isStale = false;
    setState(Reading);
    m_job->start();
}

// From the event loop, since a job is not deleted while it tells that it has finished.
void DesignNetlist::finish()
{
    if (!m_job || !m_job->isFinished())
        return;
    std::unique_ptr<QUARRY::RtlNetlist> fresh(m_job->takeNetlist());
    m_messages = m_job->modules().messages + m_job->netlistMessages();
    const bool isCancelled = m_job->isCancelled();
    m_job.reset();
    if (isCancelled) {
        m_isStale = true;
        return setState(m_netlist ? Ready : Nothing);
    }
    if (!fresh)
        return setState(Unreadable);
    Q_EMIT netlistAboutToGo();
    m_netlist = std::move(fresh);
    setState(Ready);
}

void DesignNetlist::setState(State state)
{
    m_state = state;
    Q_EMIT stateChanged();
}

} // namespace Workbench
