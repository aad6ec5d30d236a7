#include "workbench/declarationcommand.h"

#include <QApplication>
#include <QMainWindow>
#include <QMenu>
#include <QStatusBar>

#include "host/inetplaces.h"
#include "workbench/sourceopener.h"
#include "workbench/sourceplace.h"

namespace Workbench {

DeclarationCommand::DeclarationCommand(QMenu *menu, QMainWindow *window, SourceOpener *opener)
    : QObject(window), m_window(window), m_opener(opener)
{
    QAction *action = menu->addAction(tr("Go to &Declaration"));
    action->setShortcut(Qt::Key_F12);
    action->setStatusTip(tr("Show where the signal of the current row is declared"));
    connect(action, &QAction::triggered, this, &DeclarationCommand::go);
    connect(qApp, &QApplication::focusChanged, this,
            [this](const QWidget *, QWidget *now) { noteFocus(now); });
}

void DeclarationCommand::noteFocus(QWidget *widget)
{
    for (QWidget *parent = widget; parent; parent = parent->parentWidget()) {
        if (dynamic_cast<Core::INetPlaces *>(parent)) {
            m_places = parent;
            return;
        }
    }
}

void DeclarationCommand::go()
{
    const int shownFor = 10000; // ms
    const auto *places =
        m_places && m_places->isVisible() ? dynamic_cast<const Core::INetPlaces *>(m_places.data()) : nullptr;
    const QString net = places ? places->focusedNet() : QString();
    const Core::NetPlace place = net.isEmpty() ? Core::NetPlace() : places->placeOf(net);
    if (net.isEmpty())
        m_window->statusBar()->showMessage(
            tr("Choose a signal first: in a capture list, a trigger port or a message."), shownFor);
    else if (!place.isInDesign)
        m_window->statusBar()->showMessage(tr("The design does not have %1.").arg(net), shownFor);
    else if (place.file.isEmpty())
        m_window->statusBar()->showMessage(tr("It is not known where %1 is declared.").arg(net), shownFor);
    else
        m_opener->open({place.file, place.line});
}

} // namespace Workbench
