#include "elaboration/tools/toolrunner.h"

namespace QUARRY {

void ToolRunner::run(const ToolCall &call, const Then &then)
{
    m_current.reset(new ToolRun(call));
    await(m_current.get(), then);
}

ToolRun *ToolRunner::startBeside(const ToolCall &call)
{
    m_beside.emplace_back(new ToolRun(call));
    return m_beside.back().get();
}

void ToolRunner::await(ToolRun *tool, const Then &then)
{
    m_awaited = tool;
    m_then = then;
    if (tool->isOver())
        QMetaObject::invokeMethod(this, "goOn", Qt::QueuedConnection);
    else
        connect(tool, SIGNAL(over()), SLOT(goOn()), Qt::QueuedConnection);
}

void ToolRunner::goOn()
{
    const Then then = m_then;
    const ToolResult result = m_awaited->result();
    m_current.reset();
    then(result);
}

void ToolRunner::work(const std::function<bool()> &piece, const std::function<void()> &then)
{
    m_piece = piece;
    m_afterwards = then;
    QMetaObject::invokeMethod(this, "doPiece", Qt::QueuedConnection);
}

void ToolRunner::doPiece()
{
    if (m_piece()) {
        QMetaObject::invokeMethod(this, "doPiece", Qt::QueuedConnection);
        return;
    }
    const std::function<void()> then = m_afterwards;
    then();
}

} // namespace QUARRY
