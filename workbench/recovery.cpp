#include "workbench/recovery.h"

#include <QAction>
#include <QDir>
#include <QLocale>
#include <QPointer>

#include "check/snapshot.h"
#include "host/isnapshot.h"
#include "host/modal.h"
#include "host/project.h"
#include "host/regularfile.h"
#include "host/viewmanager.h"
#include "workbench/question.h"
#include "workbench/recoverydialog.h"
#include "workbench/workspace.h"

namespace Workbench {
namespace {

const int soon = 3000;    // ms between an edit and its copy
const int always = 60000; // ms

Core::ISnapshot *snapshotOf(Core::IView *view)
{
    return dynamic_cast<Core::ISnapshot *>(view);
}

QString shown(const QString &path)
{
    return QDir::toNativeSeparators(path);
}

// What is said of a file that was closed, until it is back.
QString messageSource(const KeptState &state)
{
    return "kept " + state.file;
}

} // namespace

Recovery::Recovery(const QString &folder, Workspace *workspace, QWidget *window)
    : QObject(window),
      m_store(folder),
      m_workspace(workspace),
      m_window(window),
      m_draft(new QAction(tr("Close as &Draft"), this))
{
    m_draft->setObjectName("closeAsDraft");
    m_draft->setStatusTip(
        tr("Close the file without saving it, and offer what it holds now when it is opened again"));
    m_soon.setSingleShot(true);
    m_soon.setInterval(soon);
    m_always.start(always);
    connect(&m_soon, &QTimer::timeout, this, &Recovery::keepEdited);
    connect(&m_always, &QTimer::timeout, this, &Recovery::keepEdited);
    connect(m_draft, &QAction::triggered, this, &Recovery::closeAsDraft);
    Core::ViewManager *views = Core::ViewManager::instance();
    connect(views, &Core::ViewManager::viewActiveted, this, &Recovery::follow);
    connect(views, &Core::ViewManager::viewClosed, this, &Recovery::noteEnd);
    connect(workspace, &Workspace::savedAs, this, &Recovery::noteFile);
    updateAction();
}

void Recovery::follow(Core::IView *view)
{
    updateAction();
    if (!snapshotOf(view) || m_files.contains(view))
        return;
    m_files.insert(view, view->editedFile().path);
    connect(view, &Core::IView::stateChanged, this,
            [this, view](Core::StateChange change) { noteChange(view, change); });
    if (!m_isRecovering)
        QTimer::singleShot(0, view, [this, view] { offerDraft(view); });
    connect(view, &QObject::destroyed, this, [this, view] { forget(view); });
}

void Recovery::noteChange(Core::IView *view, Core::StateChange change)
{
    if (change == Core::StateAtRisk)
        m_atRisk[view] = stateOf(view, KeptFor::UnreadableDesign);
    else if (change == Core::StateAbandoned)
        abandon(view);
    else
        m_edited.insert(view);
    // Not put off by the next edit, so that none waits longer.
    if (!m_edited.isEmpty() && !m_soon.isActive())
        m_soon.start();
    QTimer::singleShot(0, this, &Recovery::updateAction);
}

// What is kept under the old name was saved, to another file.
void Recovery::noteFile(Core::IView *view)
{
    if (!m_files.contains(view))
        return;
    m_store.drop(m_files.value(view));
    m_files.insert(view, view->editedFile().path);
}

void Recovery::noteEnd(Core::IView *view)
{
    if (!m_files.contains(view))
        return;
    const QString file = m_files.value(view);
    view->disconnect(this); // it lives on for a while, and its boxes may end their edits yet
    forget(view);
    if (!m_isFrozen)
        m_store.drop(file);
}

// Also of one that died without having been closed, whose copy stays.
void Recovery::forget(Core::IView *view)
{
    m_edited.remove(view);
    m_atRisk.remove(view);
    m_files.remove(view);
}

void Recovery::keepEdited()
{
    for (Core::IView *view : m_edited.values())
        keep(view);
    m_edited.clear();
}

void Recovery::keep(Core::IView *view)
{
    if (m_isFrozen)
        return;
    if (snapshotOf(view)->isSnapshotSaved())
        m_store.drop(m_files.value(view));
    else
        store(stateOf(view, KeptFor::Crash));
}

bool Recovery::store(const KeptState &state)
{
    QString error;
    if (state.snapshot.isEmpty())
        return false;
    if (m_store.keep(state, &error))
        return true;
    if (!m_hasFailed)
        Q_EMIT message(error, true);
    m_hasFailed = true;
    return false;
}

KeptState Recovery::stateOf(Core::IView *view, KeptFor reason) const
{
    KeptState state;
    state.file = m_files.value(view);
    state.project = m_workspace->project() ? m_workspace->project()->filePath() : QString();
    state.reason = reason;
    state.time = QDateTime::currentDateTime();
    if (!snapshotOf(view)->isSnapshotSaved())
        state.snapshot = snapshotOf(view)->snapshot();
    return state;
}

// It closes itself; what it showed before it read the design is what the user had.
void Recovery::abandon(Core::IView *view)
{
    const KeptState state = m_atRisk.take(view);
    if (state.snapshot.isEmpty())
        return;
    m_waiting << state;
    Q_EMIT message(tr("%1 was closed, since the design cannot be read. What was edited is kept, and comes "
                      "back with the file.")
                       .arg(shown(state.file)),
                   true, messageSource(state));
    // Behind its end, at which the copy of an open file is dropped.
    QTimer::singleShot(0, this, [this, state] {
        store(state);
        Q_EMIT waitingChanged();
    });
}

void Recovery::keepNow()
{
    for (auto view = m_files.constBegin(); view != m_files.constEnd(); ++view)
        keep(view.key());
}

void Recovery::keepForNextStart()
{
    keepNow();
    m_isFrozen = true;
}

// The view is not asked: what it would ask about is in the draft.
void Recovery::closeAsDraft()
{
    Core::IView *view = Core::ViewManager::instance()->currentView();
    if (!m_files.contains(view))
        return;
    view->editedFile(); // ends an edit that is under way
    const KeptState state = stateOf(view, KeptFor::Draft);
    if (!store(state))
        return;
    view->parentWidget()->close();
    Q_EMIT message(
        tr("Closed %1 as a draft, which is offered when it is opened again.").arg(shown(state.file)), false);
}

void Recovery::offerDraft(Core::IView *view)
{
    KeptState draft;
    if (!m_store.findDraft(m_files.value(view), &draft))
        return;
    const QPointer<Core::IView> alive(view);
    const int answer =
        askUser(m_window, tr("Draft"),
                tr("A draft of '%1' of %2 is kept:\n\n%3\n\nDo you want to go on with it?")
                    .arg(shown(draft.file), QLocale().toString(draft.time, QLocale::ShortFormat),
                         differenceText(draft, 10)),
                {tr("&Open the Draft"), tr("&Discard the Draft"), tr("Not &Now")});
    if (answer == 2 || !alive)
        return;
    if (answer == 1 || snapshotOf(view)->restoreSnapshot(draft.snapshot))
        m_store.discard(draft);
    else
        Q_EMIT message(tr("The draft of %1 is damaged. It is left where it is: %2")
                           .arg(shown(draft.file), shown(draft.place)),
                       true);
}

void Recovery::offer()
{
    const QList<KeptState> states = m_store.left();
    if (states.isEmpty())
        return;
    QUtil::Modal<RecoveryDialog> dialog(new RecoveryDialog(states, m_window));
    dialog->exec();
    if (!dialog.data())
        return; // nor is there a window any more
    for (const KeptState &state : dialog->chosen()) {
        if (dialog->answer() == RecoveryDialog::Discard || recover(state))
            m_store.discard(state);
    }
}

bool Recovery::recover(const KeptState &state)
{
    m_isRecovering = true;
    if (!state.project.isEmpty() && !m_workspace->project() && QFile::exists(state.project))
        m_workspace->openProject(state.project);
    const bool isShown = m_workspace->openFile(state.file) && showState(state);
    m_isRecovering = false;
    if (!isShown)
        Q_EMIT message(tr("What was edited of %1 could not be brought back. It is kept, and offered again at "
                          "the next start.")
                           .arg(shown(state.file)),
                       true, messageSource(state));
    return isShown;
}

// Into the view that was opened for it, if that is in front, and kept at once under its new owner.
bool Recovery::showState(const KeptState &state)
{
    Core::IView *view = Core::ViewManager::instance()->currentView();
    const bool isOurs = m_files.contains(view) && QUtil::isSameFile(m_files.value(view), state.file);
    if (!isOurs || !snapshotOf(view)->restoreSnapshot(state.snapshot))
        return false;
    keep(view);
    Q_EMIT message(tr("Brought back what was edited of %1. It is not saved yet.").arg(shown(state.file)),
                   false, messageSource(state));
    return true;
}

void Recovery::recoverWaiting()
{
    const QList<KeptState> states = m_waiting;
    m_waiting.clear();
    for (const KeptState &state : states) {
        m_store.drop(state.file);
        if (!recover(state)) {
            m_waiting << state;
            store(state);
        }
    }
    Q_EMIT waitingChanged();
}

void Recovery::updateAction()
{
    Core::IView *view = Core::ViewManager::instance()->currentView();
    m_draft->setEnabled(m_files.contains(view) && !snapshotOf(view)->isSnapshotSaved());
}

} // namespace Workbench
