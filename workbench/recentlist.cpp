#include "workbench/recentlist.h"

#include <QSettings>

namespace Workbench {
namespace {

const int limit = 10;

} // namespace

QStringList RecentList::paths() const
{
    return m_settings ? m_settings->value(m_key).toStringList() : QStringList();
}

void RecentList::add(const QString &path)
{
    QStringList all = paths();
    if (!m_settings || all.value(0) == path)
        return;
    all.removeAll(path);
    all.prepend(path);
    m_settings->setValue(m_key, QStringList(all.mid(0, limit)));
}

void RecentList::remove(const QString &path)
{
    QStringList all = paths();
    if (m_settings && all.removeAll(path) > 0)
        m_settings->setValue(m_key, all);
}

RecentList recentProjects(QSettings *settings)
{
    return {settings, "recentProjects"};
}

RecentList recentFiles(QSettings *settings)
{
    return {settings, "recentFiles"};
}

} // namespace Workbench
