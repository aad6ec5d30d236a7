#pragma once

#include <QStringList>

class QSettings;

namespace Workbench {

// The projects opened last, the latest first, at most ten. `settings` may be null: nothing is remembered.
QStringList recentProjects(const QSettings *settings);
void addRecentProject(QSettings *settings, const QString &path);
void removeRecentProject(QSettings *settings, const QString &path);

} // namespace Workbench
