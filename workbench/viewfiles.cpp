#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QPointer>

#include <algorithm>

#include "host/actionmanager.h"
#include "host/ifileeditor.h"
#include "host/regularfile.h"
#include "host/viewmanager.h"
#include "workbench/question.h"
#include "workbench/workspace.h"

// What a workspace does with the files of views on the user's word.

namespace Workbench {
namespace {

// Also where nothing is yet.
bool isSamePath(const QString &a, const QString &b)
{
    return QFileInfo(a).absoluteFilePath() == QFileInfo(b).absoluteFilePath() || QUtil::isSameFile(a, b);
}

bool holds(const Core::Project *project, const QString &path)
{
    const QList<Core::SourceFile> files = project ? project->data().files : QList<Core::SourceFile>();
    return std::any_of(files.begin(), files.end(),
                       [&path](const Core::SourceFile &file) { return isSamePath(file.path, path); });
}

} // namespace

bool Workspace::saveView(Core::IView *view)
{
    const QPointer<Core::IView> alive = view;
    Core::ViewManager::instance()->showView(view);
    Core::ActionManager::instance()->command("Core.Action.Save")->trigger();
    return alive && !view->editedFile().isModified;
}

bool Workspace::saveAll()
{
    const QPointer<Core::IView> front = Core::ViewManager::instance()->currentView();
    for (Core::IView *view : Core::ViewManager::instance()->views()) {
        if (!Core::ViewManager::instance()->views().contains(view) || !view->editedFile().isModified)
            continue;
        if (!saveView(view))
            return false; // and it is in front, where the user can see what is wrong
    }
    if (front)
        Core::ViewManager::instance()->showView(front);
    return !m_project || !m_project->isModified() || saveProject();
}

bool Workspace::saveViewAs(Core::IView *view)
{
    const QPointer<Core::IView> alive = view;
    auto *editor = dynamic_cast<Core::IFileEditor *>(view);
    const QString old = view->editedFile().path;
    if (!editor)
        return false;
    const QString path = chooseFile(tr("Save As"), old, '.' + QFileInfo(old).suffix(), tr("Configurations"));
    if (path.isEmpty() || !alive)
        return false;
    const QString shown = QDir::toNativeSeparators(path);
    const QString odd = QUtil::irregularReason(path);
    if (!odd.isEmpty())
        return fail(tr("Can not save to %1: %2.").arg(shown, odd));
    for (const Core::IView *other : Core::ViewManager::instance()->views()) {
        if (other != view && isSamePath(other->editedFile().path, path))
            return fail(tr("%1 is open in another tab. Close that first.").arg(shown));
    }
    if (isSamePath(old, path))
        return !view->editedFile().isModified || saveView(view);
    if (!settleBackup(path) || !mayReplace(path) || !alive || !editor->saveFileAs(path))
        return false;
    if (holds(m_project.get(), old))
        m_project->addFile(path);
    Q_EMIT savedAs(view);
    Q_EMIT message(tr("Saved as %1.").arg(shown), false);
    return true;
}

bool Workspace::checkView(Core::IView *view)
{
    const auto *editor = dynamic_cast<Core::IFileEditor *>(view);
    if (!editor)
        return false;
    const QString name = QFileInfo(view->editedFile().path).fileName();
    const int found = editor->checkShown();
    tellFindings(view);
    Q_EMIT message(
        name + ": " +
            (found == 0 ? tr("The check found nothing.") : tr("The check found this, in all: %1").arg(found)),
        false);
    return found == 0;
}

bool Workspace::reloadViewNow(Core::IView *view)
{
    const QPointer<Core::IView> alive = view;
    const Core::EditedFile file = view->editedFile();
    if (file.isModified) {
        const QString text =
            tr("Read %1 again, and lose what was edited here?").arg(QDir::toNativeSeparators(file.path));
        if (askUser(m_window, tr("Reload"), text, {tr("&Reload"), tr("Cancel")}) != 0)
            return false;
    }
    if (alive)
        reloadView(view);
    return alive;
}

} // namespace Workbench
