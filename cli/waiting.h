#pragma once

#include <QEventLoop>

#include "commandline/endsignals.h"
#include "elaboration/job.h"

namespace Cli {

// Starts the job and waits for its end. The tools run in a group of processes of their own, which an
// interrupt at the terminal does not reach; it cancels the job.
inline void runUntilInterrupted(QUARRY::Job &job)
{
    const CommandLine::EndSignals ends;
    QEventLoop loop;
    QObject::connect(&ends, &CommandLine::EndSignals::endAsked, &job, &QUARRY::Job::cancel);
    QObject::connect(&job, &QUARRY::Job::finished, &loop, &QEventLoop::quit);
    job.start();
    if (!job.isFinished())
        loop.exec();
}

} // namespace Cli
