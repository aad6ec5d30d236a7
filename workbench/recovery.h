#pragma once

#include <QHash>
#include <QObject>
#include <QSet>
#include <QTimer>

#include "host/iview.h"
#include "workbench/recoverystore.h"

class QAction;
class QWidget;

namespace Workbench {

class Workspace;

// Keeps what the editors show and their files do not hold yet, some seconds after an edit, and brings it
// back: after a crash, after a draft was closed, and after an editor had to close because its design could
// not be read.
class Recovery : public QObject
{
    Q_OBJECT

public:
    Recovery(const QString &folder, Workspace *workspace, QWidget *window);

    QAction *draftAction() const { return m_draft; } // closes the present file as a draft

    void offer();            // what other workbenches left, in a list; nothing happens when there is nothing
    void keepNow();          // before the program ends without having asked
    void keepForNextStart(); // and whatever closes from now on changes nothing of it
    bool isKeptForNextStart() const { return m_isFrozen; }

    bool recover(const KeptState &state); // opens its file and shows the state in it; false when that failed
    QList<KeptState> waiting() const { return m_waiting; } // for their design to be readable
    void recoverWaiting();

Q_SIGNALS:
    void message(const QString &text, bool isError, const QString &source = QString()); // see MessagePane
    void waitingChanged();

private:
    void follow(Core::IView *view);
    void noteChange(Core::IView *view, Core::StateChange change);
    void noteFile(Core::IView *view);
    void noteEnd(Core::IView *view);
    void forget(Core::IView *view);
    void keepEdited();
    void keep(Core::IView *view);
    void abandon(Core::IView *view);
    void closeAsDraft();
    void offerDraft(Core::IView *view);
    void updateAction();
    KeptState stateOf(Core::IView *view, KeptFor reason) const;
    bool store(const KeptState &state);
    bool showState(const KeptState &state);

    RecoveryStore m_store;
    Workspace *m_workspace;
    QWidget *m_window;
    QAction *m_draft;
    QTimer m_soon;
    QTimer m_always;
    QSet<Core::IView *> m_edited;
    QHash<Core::IView *, QString> m_files;    // of those that are followed
    QHash<Core::IView *, KeptState> m_atRisk; // while they read their design
    QList<KeptState> m_waiting;
    bool m_isFrozen = false;
    bool m_isRecovering = false; // a file is opened for a state: its draft is not asked about
    bool m_hasFailed = false;    // which is said once
};

} // namespace Workbench
