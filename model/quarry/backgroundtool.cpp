#include "model/quarry/backgroundtool.h"

namespace QUARRY {

BackgroundTool::BackgroundTool(const ToolCall &call) : m_call(call)
{
    start();
}

BackgroundTool::~BackgroundTool()
{
    m_isStopped = true;
    wait();
}

void BackgroundTool::run()
{
    runTool(m_call, this);
}

// What runs in the foreground says what is going on.
void BackgroundTool::stage(const QString &)
{
}

bool BackgroundTool::waitForEnd(ElaborationProgress *progress)
{
    const unsigned long pollMs = 20;
    while (!wait(pollMs))
        if (progress && progress->cancelled())
            return false;
    return true;
}

} // namespace QUARRY
