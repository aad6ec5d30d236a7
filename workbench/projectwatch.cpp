#include "workbench/projectwatch.h"

#include <QFileInfo>

namespace Workbench {

static const int coalescingTime = 500; // ms

ProjectWatch::ProjectWatch(QObject *parent) : QObject(parent)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(coalescingTime);
    const auto note = [this] {
        if (!m_timer.isActive())
            m_timer.start();
    };
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, note);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, note);
    connect(&m_timer, &QTimer::timeout, this, &ProjectWatch::tell);
}

void ProjectWatch::follow(const QString &path)
{
    if (path == m_path)
        return;
    const QStringList watched = m_watcher.files() + m_watcher.directories();
    if (!watched.isEmpty())
        m_watcher.removePaths(watched);
    m_timer.stop();
    m_path = path;
    watch();
}

void ProjectWatch::tell()
{
    watch();
    Q_EMIT stirred();
}

// A file that was replaced or removed is not watched any more; its folder tells when there is one again.
void ProjectWatch::watch()
{
    if (m_path.isEmpty())
        return;
    const QString folder = QFileInfo(m_path).absolutePath();
    if (!m_watcher.files().contains(m_path) && QFileInfo::exists(m_path))
        m_watcher.addPath(m_path);
    if (!m_watcher.directories().contains(folder) && QFileInfo::exists(folder))
        m_watcher.addPath(folder);
}

} // namespace Workbench
