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

void ToolRunner::goOn()
{
    const Then then = m_then;
    const ToolResult result = m_current->result();
    m_current.reset();
    then(result);
}

void ToolRunner::startBeside(const QList<ToolCall> &calls)
{
    m_waiting = calls;
    goOnBeside();
}

void ToolRunner::awaitBeside(const Then &then)
{
    m_besideThen = then;
    if (!m_beside)
        QMetaObject::invokeMethod(this, "goOnBeside", Qt::QueuedConnection);
}

void ToolRunner::goOnBeside()
{
    if (m_beside && m_besideResult.isGood())
        m_besideResult = m_beside->result();
    m_beside.reset();
    if (m_besideResult.outcome != ToolResult::Finished)
        m_waiting.clear();
    if (!m_waiting.isEmpty()) {
        m_beside = startOf(m_waiting.takeFirst(), "goOnBeside");
        return;
    }
    const Then then = m_besideThen;
    m_besideThen = Then();
    if (then)
        then(m_besideResult);
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
