#include "views/filewatch.h"

#include <QFileInfo>
#include <QStringList>
#include <QTimer>
#include <QTimerEvent>

namespace RTLJEX {

static const int coalescingTime = 500; // ms
static const int lookInterval = 300;   // ms between two looks for a file that is gone

void FileWatcher::stop(const QString &fileName)
{
    if (files().contains(fileName))
        removePath(fileName);
}

void FileWatcher::renew(const QString &fileName)
{
    stop(fileName);
    if (QFileInfo(fileName).exists())
        addPath(fileName);
}

void FileWatcher::await(const QString &fileName)
{
    renew(fileName);
    if (files().contains(fileName))
        return;
    m_missing = fileName;
    m_look.start(lookInterval, this);
}

void FileWatcher::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_look.timerId())
        return QFileSystemWatcher::timerEvent(event);
    if (!QFileInfo(m_missing).exists())
        return;
    m_look.stop();
    if (files().contains(m_missing))
        return;
    renew(m_missing);
    Q_EMIT fileReturned(m_missing);
}

WatchPause::WatchPause(FileWatcher *watcher, const QString &fileName)
    : m_watcher(watcher), m_fileName(fileName)
{
    m_watcher->stop(m_fileName);
}

WatchPause::~WatchPause()
{
    m_watcher->renew(m_fileName);
}

void scheduleReloadCheck(bool *pending, QObject *editor)
{
    if (*pending)
        return;
    *pending = true;
    QTimer::singleShot(coalescingTime, editor, SLOT(checkForReload()));
}

} // namespace RTLJEX
