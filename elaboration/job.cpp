#include "elaboration/job.h"

#include "elaboration/tools/elaborator.h"

namespace QUARRY {

Job::Job() = default;

Job::~Job() = default;

void Job::elaborate(const DesignInput &input)
{
    m_elaborator.reset(new Elaborator(input));
    // Queued, so that who hears of it may cancel or delete the job.
    connect(m_elaborator.get(), SIGNAL(stageChanged(QString)), SIGNAL(stageChanged(QString)),
            Qt::QueuedConnection);
    connect(m_elaborator.get(), SIGNAL(finished()), SLOT(endElaborator()), Qt::QueuedConnection);
    m_elaborator->start();
}

void Job::endElaborator()
{
    if (!m_elaborator)
        return;
    std::unique_ptr<Elaboration> design = m_elaborator->takeResult();
    m_elaborator.reset();
    takeElaboration(std::move(design));
}

void Job::takeElaboration(std::unique_ptr<Elaboration>)
{
}

void Job::drop()
{
}

void Job::cancel()
{
    if (m_isFinished)
        return;
    m_isCancelled = true;
    m_elaborator.reset();
    drop();
    finish();
}

void Job::finish()
{
    m_isFinished = true;
    Q_EMIT finished();
}

} // namespace QUARRY
