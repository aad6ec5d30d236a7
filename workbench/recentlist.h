#pragma once

#include <QStringList>

class QSettings;

namespace Workbench {

// Paths that were used last, the latest first, at most ten, under a key of the settings.
class RecentList
{
public:
    // `settings`, not owned, may be null: nothing is remembered.
    RecentList(QSettings *settings, const QString &key) : m_settings(settings), m_key(key) {}

    QStringList paths() const;
    void add(const QString &path);
    void remove(const QString &path);

private:
    QSettings *m_settings;
    QString m_key;
};

RecentList recentProjects(QSettings *settings);
RecentList recentFiles(QSettings *settings);

} // namespace Workbench
