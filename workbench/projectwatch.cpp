#include "workbench/projectwatch.h"

namespace Workbench {

static const int coalescingTime = 500; // ms

ProjectWatch::ProjectWatch(QObject *parent) : QObject(parent), m_watcher(nullptr)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(coalescingTime);
    const auto note = [this] {
        if (!m_timer.isActive())
            m_timer.start();
    };
    connect(&m_watcher, &QUtil::FileWatcher::fileChanged, this, note);
    connect(&m_watcher, &QUtil::FileWatcher::fileReturned, this, note);
    connect(&m_timer, &QTimer::timeout, this, &ProjectWatch::tell);
}

void ProjectWatch::follow(const QString &path)
{
    if (path == m_path)
        return;
    m_watcher.forget(m_path);
    m_timer.stop();
    m_path = path;
    if (!m_path.isEmpty())
        m_watcher.await(m_path);
}

void ProjectWatch::tell()
{
    m_watcher.await(m_path);
    Q_EMIT stirred();
}

} // namespace Workbench
