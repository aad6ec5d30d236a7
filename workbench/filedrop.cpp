#include "workbench/filedrop.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

#include "host/foreignproject.h"
#include "workbench/workspace.h"

namespace Workbench {
namespace {

QStringList localFiles(const QMimeData *data)
{
    QStringList paths;
    for (const QUrl &url : data->urls()) {
        if (url.isLocalFile())
            paths << url.toLocalFile();
    }
    return paths;
}

} // namespace

// Lists and boxes of the window would take the files for names of signals or for text.
FileDrop::FileDrop(QWidget *window, Workspace *workspace)
    : QObject(window), m_window(window), m_workspace(workspace)
{
    window->setAcceptDrops(true);
    qApp->installEventFilter(this);
}

// A project goes first: it is what the others are opened in.
void FileDrop::take(const QStringList &paths)
{
    QStringList others;
    for (const QString &path : paths) {
        if (Core::isProjectName(path))
            m_workspace->openProject(path);
        else
            others << path;
    }
    for (const QString &path : qAsConst(others)) {
        if (!m_workspace->project() || m_workspace->canEdit(path))
            m_workspace->openFile(path);
        else
            m_workspace->project()->addFile(path);
    }
}

// The drop is done with before anything is asked: its source waits for it.
bool FileDrop::eventFilter(QObject *watched, QEvent *event)
{
    const bool isDrag = event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove ||
                        event->type() == QEvent::Drop;
    if (!isDrag || !watched->isWidgetType() || static_cast<QWidget *>(watched)->window() != m_window)
        return QObject::eventFilter(watched, event);
    auto *drop = static_cast<QDropEvent *>(event);
    const QStringList paths = localFiles(drop->mimeData());
    if (paths.isEmpty())
        return QObject::eventFilter(watched, event);
    drop->setDropAction(Qt::CopyAction);
    drop->accept();
    if (event->type() == QEvent::Drop)
        QMetaObject::invokeMethod(
            this, [this, paths] { take(paths); }, Qt::QueuedConnection);
    return true;
}

} // namespace Workbench
