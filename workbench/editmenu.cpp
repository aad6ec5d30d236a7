#include "workbench/editmenu.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>

#include "host/isnapshot.h"
#include "host/viewmanager.h"
#include "workbench/editsource.h"

namespace Workbench {
namespace {

const int burstPause = 2000; // ms, after which typing is another step
const int longestName = 48;  // a name of a net may be part of it

Core::ISnapshot *stateOf(Core::IView *view)
{
    return dynamic_cast<Core::ISnapshot *>(view);
}

QAction *newAction(QMenu *menu, const QKeySequence &key)
{
    QAction *action = menu->addAction(QString());
    action->setShortcut(key);
    return action;
}

void show(QAction *action, const QString &text, bool isPossible)
{
    action->setText(text);
    action->setEnabled(isPossible);
}

} // namespace

EditMenu::EditMenu(QMenu *menu, QObject *parent)
    : QObject(parent),
      m_undo(newAction(menu, QKeySequence("Ctrl+Z"))),
      m_redo(newAction(menu, QKeySequence("Ctrl+Shift+Z"))),
      m_source(new EditSource(this))
{
    Core::ViewManager *views = Core::ViewManager::instance();
    connect(views, &Core::ViewManager::viewActiveted, this, &EditMenu::follow);
    connect(views, &Core::ViewManager::viewClosed, this, &EditMenu::drop);
    connect(m_source, &EditSource::aboutToUse, this, &EditMenu::fetchAll);
    connect(m_undo, &QAction::triggered, this, [this] { move(&History::undo, &History::redo); });
    connect(m_redo, &QAction::triggered, this, [this] { move(&History::redo, &History::undo); });
    qApp->installEventFilter(this);
    update();
}

const History *EditMenu::historyOf(const Core::IView *view) const
{
    const auto found = m_followed.constFind(const_cast<Core::IView *>(view));
    return found == m_followed.constEnd() ? nullptr : &found->history;
}

// A text box keeps the keys of undo to itself even when it has nothing to take back.
bool EditMenu::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::ShortcutOverride || !leavesToUs(watched, static_cast<QKeyEvent *>(event)))
        return false;
    event->ignore();
    return true;
}

bool EditMenu::leavesToUs(QObject *box, const QKeyEvent *event) const
{
    const QLineEdit *line = lineOf(box);
    const QWidget *view = Core::ViewManager::instance()->currentView();
    if (!line || !view || !view->isAncestorOf(line))
        return false;
    const bool isUndo = event->matches(QKeySequence::Undo) && !line->isUndoAvailable();
    return isUndo || (event->matches(QKeySequence::Redo) && !line->isRedoAvailable());
}

void EditMenu::follow(Core::IView *view)
{
    if (stateOf(view) && !m_followed.contains(view)) {
        m_followed[view].history.restart(stateOf(view)->snapshot());
        connect(view, &Core::IView::stateChanged, this,
                [this, view](Core::StateChange change) { noteChange(view, change); });
        connect(view, &QObject::destroyed, this, &EditMenu::drop);
    }
    m_typedInto = nullptr;
    update();
}

void EditMenu::drop(QObject *view)
{
    view->disconnect(this);
    m_followed.remove(view);
    update();
}

void EditMenu::noteChange(Core::IView *view, Core::StateChange change)
{
    if (change == Core::StateAtRisk)
        return fetchAll(); // what was edited is no part of the step that comes
    Followed &followed = m_followed[view];
    const bool isFirst = !followed.isEdited && !followed.isStored && !followed.isReloaded;
    followed.isEdited |= change == Core::StateEdited;
    followed.isStored |= change == Core::StateStored;
    followed.isReloaded |= change == Core::StateReloaded;
    if (isFirst)
        QMetaObject::invokeMethod(
            this, [this] { fetchAll(); }, Qt::QueuedConnection);
}

void EditMenu::fetchAll()
{
    for (QObject *view : m_followed.keys())
        fetch(static_cast<Core::IView *>(view));
}

void EditMenu::fetch(Core::IView *view)
{
    Followed &followed = m_followed[view];
    if (!followed.isEdited && !followed.isStored && !followed.isReloaded)
        return;
    const QByteArray state = stateOf(view)->snapshot();
    const QWidget *typedInto = m_source->typedInto();
    const bool isTyped = typedInto && view->isAncestorOf(typedInto);
    if (followed.isReloaded) {
        followed.history.restart(state);
    } else if (followed.isEdited) {
        const bool continues = isTyped && typedInto == m_typedInto && m_sinceTyping.isValid() &&
                               m_sinceTyping.elapsed() < burstPause;
        followed.history.take(state, m_source->name(), isTyped ? History::Typing : History::Edit, continues);
    } else {
        followed.history.settle(state);
    }
    m_typedInto = isTyped && !followed.isStored ? typedInto : nullptr;
    m_sinceTyping.start();
    followed.isEdited = followed.isStored = followed.isReloaded = false;
    update();
}

// An edit that is under way counts, and is what is undone.
void EditMenu::move(QByteArray (History::*step)(), QByteArray (History::*back)())
{
    const QPointer<Core::IView> view = Core::ViewManager::instance()->currentView();
    if (!view || !m_followed.contains(view))
        return;
    view->editedFile();
    if (!view)
        return;
    fetch(view);
    History &history = m_followed[view].history;
    if (step == &History::undo ? !history.canUndo() : !history.canRedo())
        return;
    const bool isShown = stateOf(view)->restoreSnapshot((history.*step)());
    if (isShown)
        history.noteShown(stateOf(view)->snapshot());
    else
        (history.*back)();
    m_followed[view].isEdited = false; // by this alone
    m_typedInto = nullptr;
    update();
}

void EditMenu::update()
{
    const History *history = historyOf(Core::ViewManager::instance()->currentView());
    const auto shown = [](QString name) {
        if (name.size() > longestName)
            name = name.left(longestName - 3) + "...";
        return name.replace('&', "&&");
    };
    const bool canUndo = history && history->canUndo();
    const bool canRedo = history && history->canRedo();
    show(m_undo, canUndo ? tr("&Undo %1").arg(shown(history->undoName())) : tr("&Undo"), canUndo);
    show(m_redo, canRedo ? tr("&Redo %1").arg(shown(history->redoName())) : tr("&Redo"), canRedo);
}

} // namespace Workbench
