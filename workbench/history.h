#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include "workbench/bytedelta.h"

namespace Workbench {

// The states that one view went through, as bytes: which one it has, and how to get to those before and
// after. Keeps the differences, of at least the last 100 steps and of more as long as they are small. Knows
// of no view.
class History
{
public:
    void restart(const QByteArray &state); // without any step

    enum Kind {
        Edit,  // a step of its own
        Typing // in a text or number box: one that leads back or forth again is none, since the box has an
               // undo, too
    };
    // Another state, by an edit. `continues`: it belongs to the last step. Steps that were undone are gone
    // then.
    void take(const QByteArray &state, const QString &name, Kind kind = Edit, bool continues = false);
    // The present state is this one, by no edit: a save dropped something.
    void settle(const QByteArray &state);

    bool canUndo() const { return m_done > 0; }
    bool canRedo() const { return m_done < m_steps.size(); }
    QString undoName() const { return canUndo() ? m_steps.at(m_done - 1).name : QString(); }
    QString redoName() const { return canRedo() ? m_steps.at(m_done).name : QString(); }
    // Goes there, and gives the state; for who can.
    QByteArray undo();
    QByteArray redo();
    // The view cannot show the state that it was sent to as it is, and shows this one: it is no edit.
    void noteShown(const QByteArray &state) { m_shown = state; }

    const QByteArray &present() const { return m_present; }
    int doneCount() const { return m_done; } // of the steps, those that are not undone
    int stepCount() const { return m_steps.size(); }
    qint64 stepBytes() const { return m_bytes; }

private:
    struct Step
    {
        QString name;
        ByteDelta delta;
    };

    bool isPassedOver(const QByteArray &state);
    void setDelta(int step, const ByteDelta &delta);
    void append(const QString &name, const QByteArray &state);
    void remove(int step);

    QList<Step> m_steps;
    int m_done = 0; // of the steps
    QByteArray m_present;
    QByteArray m_shown;
    qint64 m_bytes = 0; // of all steps
};

} // namespace Workbench
