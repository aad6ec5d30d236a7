#include "workbench/session.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QSettings>

#include "host/ifileeditor.h"
#include "host/iview.h"
#include "host/viewmanager.h"
#include "workbench/recentlist.h"
#include "workbench/workspace.h"

namespace Workbench {
namespace {

const char *const projectsKey = "sessionProjects";
const char *const filesKey = "/files";
const char *const placesKey = "/places";
const char *const frontKey = "/front";

// A path may hold what the settings take for a group.
QString groupOf(const QString &project)
{
    return "sessions/" + QCryptographicHash::hash(project.toUtf8(), QCryptographicHash::Sha1).toHex();
}

// One more project than there is room for pushes the oldest out.
void useProject(QSettings *settings, const QString &path)
{
    RecentList projects(settings, projectsKey);
    const QStringList before = projects.paths();
    projects.add(path);
    for (const QString &old : before) {
        if (!projects.paths().contains(old))
            settings->remove(groupOf(old));
    }
}

} // namespace

Session::Session(QSettings *settings, Workspace *workspace)
    : QObject(workspace), m_settings(settings), m_workspace(workspace)
{
    if (!settings)
        return;
    connect(workspace, &Workspace::closingProject, this, &Session::save);
    connect(workspace, &Workspace::projectOpened, this, &Session::restore);
}

QString Session::projectPath() const
{
    const Core::Project *project = m_workspace->project();
    if (!project)
        return QString();
    return project->filePath().isEmpty() ? project->foreignPath() : project->filePath();
}

void Session::save()
{
    const QString project = projectPath();
    if (project.isEmpty())
        return;
    const Core::IView *front = Core::ViewManager::instance()->currentView();
    QStringList files, places;
    for (const Core::IView *view : Core::ViewManager::instance()->views()) {
        const QString path = view->editedFile().path;
        const auto *editor = dynamic_cast<const Core::IFileEditor *>(view);
        if (path.isEmpty())
            continue;
        files << path;
        places << (editor ? editor->shownPlace() : QString());
    }
    useProject(m_settings, project);
    const QString group = groupOf(project);
    m_settings->setValue(group + filesKey, files);
    m_settings->setValue(group + placesKey, places);
    m_settings->setValue(group + frontKey, front ? front->editedFile().path : QString());
}

void Session::restore()
{
    const QString project = projectPath();
    const QString group = groupOf(project);
    if (project.isEmpty() || !m_settings->contains(group + filesKey))
        return;
    const QStringList files = m_settings->value(group + filesKey).toStringList();
    const QStringList places = m_settings->value(group + placesKey).toStringList();
    const QString front = m_settings->value(group + frontKey).toString();
    Core::IView *frontView = nullptr;
    for (int i = 0; i < files.size() && projectPath() == project; ++i) {
        if (!QFileInfo::exists(files.at(i)) || !m_workspace->canEdit(files.at(i)) ||
            !m_workspace->openFile(files.at(i)))
            continue;
        Core::IView *view = Core::ViewManager::instance()->currentView();
        if (auto *editor = dynamic_cast<Core::IFileEditor *>(view))
            editor->showPlace(places.value(i));
        if (files.at(i) == front)
            frontView = view;
    }
    if (frontView && Core::ViewManager::instance()->views().contains(frontView))
        Core::ViewManager::instance()->showView(frontView);
}

} // namespace Workbench
