#include "host/filewatcher.h"

#include <QFileInfo>
#include <QTimerEvent>

namespace QUtil {

static const int lookInterval = 300; // ms between two looks for files that are gone

void FileWatcher::stop(const QString &fileName)
{
    if (files().contains(fileName))
        removePath(fileName);
}

void FileWatcher::renew(const QString &fileName)
{
    stop(fileName);
    if (QFileInfo(fileName).isReadable())
        addPath(fileName);
}

void FileWatcher::await(const QString &fileName)
{
    renew(fileName);
    if (QFileInfo(fileName).isReadable())
        return;
    if (!m_missing.contains(fileName))
        m_missing.append(fileName);
    if (!m_look.isActive())
        m_look.start(lookInterval, this);
}

void FileWatcher::forget(const QString &fileName)
{
    stop(fileName);
    m_missing.removeAll(fileName);
}

void FileWatcher::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_look.timerId())
        return QFileSystemWatcher::timerEvent(event);
    const QStringList missing = m_missing;
    for (const QString &fileName : missing) {
        if (!QFileInfo(fileName).isReadable())
            continue;
        m_missing.removeAll(fileName);
        if (files().contains(fileName))
            continue;
        renew(fileName);
        Q_EMIT fileReturned(fileName);
    }
    if (m_missing.isEmpty())
        m_look.stop();
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

} // namespace QUtil
