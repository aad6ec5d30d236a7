#include "workbench/rowmenu.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QPointer>

#include "host/iview.h"
#include "host/viewmanager.h"
#include "workbench/rowfinder.h"

namespace Workbench {
namespace {

// The list moves its rows itself, by its keys.
void press(int key)
{
    QWidget *list = QApplication::focusWidget();
    if (list && list->inherits("RTLJEX::signalTreeWidget"))
        QCoreApplication::postEvent(list, new QKeyEvent(QEvent::KeyPress, key, Qt::AltModifier));
}

} // namespace

RowMenu::RowMenu(QMenu *menu, RowFinder *finder) : QObject(menu)
{
    QList<QAction *> finding;
    const auto addFinding = [&](const QString &text, const QKeySequence &key, void (RowFinder::*slot)()) {
        QAction *action = menu->addAction(text);
        action->setShortcut(key);
        action->setEnabled(false);
        connect(action, &QAction::triggered, finder, slot);
        finding << action;
    };
    menu->addSeparator();
    addFinding(tr("&Find..."), QKeySequence::Find, &RowFinder::ask);
    addFinding(tr("Find &Next"), QKeySequence::FindNext, &RowFinder::next);
    addFinding(tr("Find Pre&vious"), QKeySequence::FindPrevious, &RowFinder::previous);
    menu->addSeparator();
    QAction *up = menu->addAction(tr("&Move Rows Up"), this, [] { press(Qt::Key_Up); });
    QAction *down = menu->addAction(tr("Move Rows D&own"), this, [] { press(Qt::Key_Down); });
    up->setShortcut(Qt::ALT + Qt::Key_Up);
    down->setShortcut(Qt::ALT + Qt::Key_Down);
    for (QAction *action : {up, down})
        action->setShortcutContext(Qt::WidgetShortcut); // for the eye
    connect(menu, &QMenu::aboutToShow, this, [up, down] {
        const QWidget *list = QApplication::focusWidget();
        for (QAction *action : {up, down})
            action->setEnabled(list && list->inherits("RTLJEX::signalTreeWidget"));
    });
    // A view that finds in its own way has the keys to itself.
    connect(Core::ViewManager::instance(), &Core::ViewManager::viewActiveted, this,
            [finding, finder](const Core::IView *view) {
                for (QAction *action : finding)
                    action->setEnabled(RowFinder::canFindIn(view));
                if (!RowFinder::canFindIn(view))
                    finder->hide();
            });
}

} // namespace Workbench
