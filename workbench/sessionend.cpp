#include "workbench/sessionend.h"

#include <QApplication>
#include <QEvent>
#include <QSessionManager>
#include <QTimer>

#include "workbench/mainwindow.h"
#include "workbench/recovery.h"

namespace Workbench {

SessionEnd::SessionEnd(MainWindow *window) : QObject(window), m_window(window)
{
    QGuiApplication::setFallbackSessionManagementEnabled(false); // it would ask once more
    connect(qApp, &QGuiApplication::commitDataRequest, this, &SessionEnd::prepare);
    qApp->installEventFilter(this);
}

void SessionEnd::prepare(QSessionManager &manager)
{
    m_window->recovery()->keepNow();
    if (!manager.allowsInteraction())
        return;
    if (!m_window->close())
        return manager.cancel();
    manager.release();
    // The toolkit does not end a program whose last window closes here, and the session may go on after all.
    QTimer::singleShot(0, qApp, &QCoreApplication::quit);
}

// The manager's last word: there is nobody to be asked any more, and no open box may stand against it. The
// toolkit sends the same event when the last window has closed.
bool SessionEnd::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Quit || watched != qApp || !m_window->isVisible())
        return false;
    m_window->recovery()->keepForNextStart();
    m_window->close();
    QCoreApplication::exit();
    return true;
}

} // namespace Workbench
