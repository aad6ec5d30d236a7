#pragma once

#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QPointer>

#include "host/iview.h"
#include "workbench/history.h"

class QAction;
class QKeyEvent;
class QMenu;

namespace Workbench {

class EditSource;

// Undo and redo for every view that can hand its state over (host/isnapshot.h), in the Edit menu: one history
// a view, from its opening to its end or to the next reading of its file. A state is fetched when the edit is
// over: from the event loop, or before the user's next key or button.
class EditMenu : public QObject
{
    Q_OBJECT

public:
    EditMenu(QMenu *menu, QObject *parent);

    QAction *undoAction() const { return m_undo; }
    QAction *redoAction() const { return m_redo; }
    const History *historyOf(const Core::IView *view) const; // null when it has none

private:
    // What is still to be fetched from a view.
    struct Followed
    {
        History history;
        bool isEdited = false;
        bool isStored = false;
        bool isReloaded = false;
    };

    bool eventFilter(QObject *watched, QEvent *event) override;
    bool leavesToUs(QObject *box, const QKeyEvent *event) const;
    void follow(Core::IView *view);
    void drop(QObject *view);
    void noteChange(Core::IView *view, Core::StateChange change);
    void fetchAll();
    void fetch(Core::IView *view);
    void move(QByteArray (History::*step)(), QByteArray (History::*back)());
    void update();

    QAction *m_undo;
    QAction *m_redo;
    EditSource *m_source;
    QHash<QObject *, Followed> m_followed; // by view
    QPointer<const QWidget> m_typedInto;   // by the last step
    QElapsedTimer m_sinceTyping;
};

} // namespace Workbench
