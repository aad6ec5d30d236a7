#include "workbench/history.h"

namespace Workbench {
namespace {

const int leastSteps = 100;
const qint64 mostBytes = 32 << 20; // beyond those

} // namespace

void History::restart(const QByteArray &state)
{
    *this = History();
    m_present = m_shown = state;
}

void History::take(const QByteArray &state, const QString &name, Kind kind, bool continues)
{
    if (state == m_present || state == m_shown)
        return;
    const bool isReturn = kind == Typing && isPassedOver(state);
    if (!isReturn) {
        while (canRedo())
            remove(m_steps.size() - 1);
        if (continues && canUndo())
            setDelta(m_done - 1, ByteDelta(m_steps.at(m_done - 1).delta.backward(m_present), state));
        else
            append(name, state);
    }
    m_present = m_shown = state;
}

// By a step back or forth.
bool History::isPassedOver(const QByteArray &state)
{
    if (canUndo() && m_steps.at(m_done - 1).delta.backward(m_present) == state)
        --m_done;
    else if (canRedo() && m_steps.at(m_done).delta.forward(m_present) == state)
        ++m_done;
    else
        return false;
    return true;
}

void History::append(const QString &name, const QByteArray &state)
{
    m_steps.append(Step());
    m_steps.last().name = name;
    setDelta(m_done++, ByteDelta(m_present, state));
    while (m_steps.size() > leastSteps && m_bytes > mostBytes)
        remove(0);
}

void History::remove(int step)
{
    m_bytes -= m_steps.takeAt(step).delta.size();
    m_done -= step < m_done ? 1 : 0;
}

void History::setDelta(int step, const ByteDelta &delta)
{
    m_bytes += delta.size() - m_steps.at(step).delta.size();
    m_steps[step].delta = delta;
}

void History::settle(const QByteArray &state)
{
    if (state == m_present)
        return;
    if (canUndo())
        setDelta(m_done - 1, ByteDelta(m_steps.at(m_done - 1).delta.backward(m_present), state));
    if (canRedo())
        setDelta(m_done, ByteDelta(state, m_steps.at(m_done).delta.forward(m_present)));
    m_present = m_shown = state;
}

QByteArray History::undo()
{
    m_present = m_steps.at(--m_done).delta.backward(m_present);
    return m_shown = m_present;
}

QByteArray History::redo()
{
    m_present = m_steps.at(m_done++).delta.forward(m_present);
    return m_shown = m_present;
}

} // namespace Workbench
