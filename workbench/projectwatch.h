#pragma once

#include <QTimer>

#include "host/filewatcher.h"

namespace Workbench {

// Tells when the project file may have changed on the disk, half a second after the first sign of it, so that
// a burst of changes is told once.
class ProjectWatch : public QObject
{
    Q_OBJECT

public:
    explicit ProjectWatch(QObject *parent);

    void follow(const QString &path); // empty: none

Q_SIGNALS:
    void stirred();

private:
    void tell();

    QUtil::FileWatcher m_watcher;
    QTimer m_timer;
    QString m_path;
};

} // namespace Workbench
