#include "workbench/recentprojects.h"

#include <QSettings>

namespace Workbench {
namespace {

const char *const key = "recentProjects";
const int limit = 10;

} // namespace

QStringList recentProjects(const QSettings *settings)
{
    return settings ? settings->value(key).toStringList() : QStringList();
}

void addRecentProject(QSettings *settings, const QString &path)
{
    QStringList paths = recentProjects(settings);
    paths.removeAll(path);
    paths.prepend(path);
    if (settings)
        settings->setValue(key, QStringList(paths.mid(0, limit)));
}

void removeRecentProject(QSettings *settings, const QString &path)
{
    QStringList paths = recentProjects(settings);
    paths.removeAll(path);
    if (settings)
        settings->setValue(key, paths);
}

} // namespace Workbench
