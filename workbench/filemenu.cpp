#include "workbench/filemenu.h"

#include <QDir>
#include <QFileInfo>
#include <QMenu>

#include "host/ifileeditor.h"
#include "host/iview.h"
#include "host/viewmanager.h"
#include "workbench/recentlist.h"
#include "workbench/workspace.h"

namespace Workbench {
namespace {

// Opens what `open` opens, and forgets what is gone. Names may hold what a menu takes for a mnemonic.
template <class Open>
void fillRecent(QMenu *menu, RecentList list, const Open &open)
{
    menu->clear();
    for (const QString &path : list.paths()) {
        QAction *action = menu->addAction(QDir::toNativeSeparators(path).replace('&', "&&"));
        QObject::connect(action, &QAction::triggered, menu, [list, path, open]() mutable {
            if (!open(path) && !QFileInfo::exists(path))
                list.remove(path);
        });
    }
    if (menu->isEmpty())
        menu->addAction(FileMenu::tr("(none)"))->setEnabled(false);
}

} // namespace

FileMenu::FileMenu(QMenu *menu, Workspace *workspace, QSettings *settings)
    : QObject(menu), m_menu(menu), m_workspace(workspace), m_settings(settings)
{
    connect(Core::ViewManager::instance(), &Core::ViewManager::viewActiveted, this, &FileMenu::noteView);
}

QAction *FileMenu::addAction(const QString &text, const QKeySequence &key, const char *name,
                             const std::function<void(Core::IView *)> &deed)
{
    QAction *action = m_menu->addAction(text);
    action->setObjectName(name);
    action->setShortcut(key);
    action->setEnabled(false);
    connect(action, &QAction::triggered, this, [deed] {
        if (Core::IView *view = Core::ViewManager::instance()->currentView())
            deed(view);
    });
    return action;
}

void FileMenu::addSaving()
{
    m_fileActions << addAction(tr("Save &As..."), QKeySequence(), "saveAs",
                               [this](Core::IView *view) { m_workspace->saveViewAs(view); });
    m_viewActions << addAction(tr("Sa&ve All"), QKeySequence("Ctrl+Alt+S"), "saveAll",
                               [this](Core::IView *) { m_workspace->saveAll(); });
}

void FileMenu::addChecking()
{
    m_fileActions << addAction(tr("Chec&k"), QKeySequence("F7"), "check",
                               [this](Core::IView *view) { m_workspace->checkView(view); });
    m_viewActions << addAction(tr("Re&load"), QKeySequence::Refresh, "reload",
                               [this](Core::IView *view) { m_workspace->reloadViewNow(view); });
}

void FileMenu::addClosing()
{
    m_viewActions << addAction(tr("Clos&e All"), QKeySequence("Ctrl+Shift+W"), "closeAll",
                               [](Core::IView *) { Core::ViewManager::instance()->closeAllViews(); });
}

void FileMenu::addRecent()
{
    QMenu *files = m_menu->addMenu(tr("Recent &Files"));
    connect(files, &QMenu::aboutToShow, this, [this, files] { fillFiles(files); });
    QMenu *projects = m_menu->addMenu(tr("&Recent Projects"));
    connect(projects, &QMenu::aboutToShow, this, [this, projects] { fillProjects(projects); });
}

void FileMenu::noteView(Core::IView *view)
{
    for (QAction *action : qAsConst(m_viewActions))
        action->setEnabled(view);
    for (QAction *action : qAsConst(m_fileActions))
        action->setEnabled(dynamic_cast<Core::IFileEditor *>(view));
    const QString path = view ? view->editedFile().path : QString();
    if (!path.isEmpty())
        recentFiles(m_settings).add(path);
}

void FileMenu::fillFiles(QMenu *menu)
{
    fillRecent(menu, recentFiles(m_settings),
               [workspace = m_workspace](const QString &path) { return workspace->openFile(path); });
}

void FileMenu::fillProjects(QMenu *menu)
{
    fillRecent(menu, recentProjects(m_settings),
               [workspace = m_workspace](const QString &path) { return workspace->openProject(path); });
}

} // namespace Workbench
