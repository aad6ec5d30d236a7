#include "elaboration/tools/toolrunner.h"

namespace QUARRY {

void ToolRunner::run(const ToolCall &call, const Then &then)
{
    m_then = then;
    m_current = startOf(call, "goOn");
}

std::unique_ptr<ToolRun> ToolRunner::startOf(const ToolCall &call, const char *slot)
{
    std::unique_ptr<ToolRun> tool(new ToolRun(call));
    if (tool->isOver())
        QMetaObject::invokeMethod(this, slot, Qt::QueuedConnection);
    else
        connect(tool.get(), SIGNAL(over()), (QByteArray("1") + slot + "()").constData(),
                Qt::QueuedConnection);
    return tool;
}

ToolResult ToolRunner::resultOf(std::unique_ptr<ToolRun> &tool)
{
    const ToolResult result = tool->result();
    tool.reset();
    if (result.outcome == ToolResult::NoRoom && m_fullDisk.isEmpty())
        m_fullDisk = result.message;
    return result;
}

void ToolRunner::goOn()
{
    const Then then = m_then;
    const ToolResult result = resultOf(m_current);
    then(result);
}

void ToolRunner::startBeside(const ToolCall &call)
{
    m_besideThen = Then();
    m_beside = startOf(call, "goOnBeside");
}

void ToolRunner::awaitBeside(const Then &then)
{
    m_besideThen = then;
    QMetaObject::invokeMethod(this, "goOnBeside", Qt::QueuedConnection);
}

// When the tool is over, and when it is awaited: whichever comes last.
void ToolRunner::goOnBeside()
{
    if (!m_beside || !m_beside->isOver() || !m_besideThen)
        return;
    const Then then = m_besideThen;
    const ToolResult result = resultOf(m_beside);
    m_besideThen = Then();
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
