#include "views/filewatch.h"

#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QStringList>
#include <QTimer>

namespace RTLJEX {

static const int coalescingTime = 500; // ms

void watchFile(QFileSystemWatcher *watcher, const QString &fileName)
{
    if (!watcher->files().contains(fileName) && QFileInfo(fileName).exists())
        watcher->addPath(fileName);
}

void unwatchFile(QFileSystemWatcher *watcher, const QString &fileName)
{
    if (watcher->files().contains(fileName))
        watcher->removePath(fileName);
}

WatchPause::WatchPause(QFileSystemWatcher *watcher, const QString &fileName)
    : m_watcher(watcher), m_fileName(fileName)
{
    unwatchFile(m_watcher, m_fileName);
}

WatchPause::~WatchPause()
{
    watchFile(m_watcher, m_fileName);
}

void scheduleReloadCheck(bool *pending, QObject *editor)
{
    if (*pending)
        return;
    *pending = true;
    QTimer::singleShot(coalescingTime, editor, SLOT(checkForReload()));
}

} // namespace RTLJEX
