#pragma once

#include <QDialog>

#include "workbench/recoverystore.h"

class QTreeWidget;

namespace Workbench {

// What differs between the file, as it is now, and the state that is kept of it: at most that many lines, in
// the words of jex diff.
QString differenceText(const KeptState &state, int lines);

// The states that another workbench left behind, in a list with boxes. Whoever closes it decides later.
class RecoveryDialog : public QDialog
{
    Q_OBJECT

public:
    explicit RecoveryDialog(const QList<KeptState> &states, QWidget *parent);

    enum Answer { Later, Recover, Discard };
    Answer answer() const { return m_answer; }
    QList<KeptState> chosen() const; // those that the answer is about

private:
    QWidget *createButtons();
    QList<KeptState> ticked() const;
    void end(Answer answer);

    const QList<KeptState> m_states;
    QTreeWidget *m_list;
    Answer m_answer = Later;
};

} // namespace Workbench
