#include "workbench/workspace.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>
#include <QWidget>

#include "commandline/designoptions.h"
#include "elaboration/elaboration.h"
#include "host/designmanager.h"
#include "host/editorregistry.h"
#include "host/iview.h"
#include "host/modal.h"
#include "host/viewmanager.h"
#include "workbench/report.h"

namespace Workbench {

Workspace::Workspace(QWidget *window) : QObject(window), m_window(window)
{
    connect(Core::ViewManager::instance(), &Core::ViewManager::viewActiveted, this,
            &Workspace::followFindings);
}

// A view is told of once it is there to be shown, and later when it says so; never in the middle of what it
// does, and not after its end.
void Workspace::followFindings(Core::IView *view)
{
    const char *const isFollowed = "findingsFollowed";
    if (!view || view->property(isFollowed).toBool())
        return;
    view->setProperty(isFollowed, true);
    const auto tell = [workspace = QPointer<Workspace>(this), view] {
        if (workspace)
            workspace->tellFindings(view);
    };
    connect(view, &Core::IView::findingsChanged, view, tell, Qt::QueuedConnection);
    QMetaObject::invokeMethod(view, tell, Qt::QueuedConnection);
}

void Workspace::tellFindings(Core::IView *view)
{
    const char *const hasFindings = "hasFindings";
    const QList<Core::Finding> findings = view->findings();
    for (const Core::Finding &finding : findings)
        Q_EMIT findingTold(view, finding);
    if (findings.isEmpty() && view->property(hasFindings).toBool())
        Q_EMIT message(view->shortTitle() + ": The design has all signals again.", false);
    view->setProperty(hasFindings, !findings.isEmpty());
}

Workspace::~Workspace()
{
    for (Core::IView *view : Core::ViewManager::instance()->views())
        view->parentWidget()->close();
}

Core::Project *Workspace::project() const
{
    return m_project.get();
}

bool Workspace::fail(const QString &text)
{
    Q_EMIT message(text, true);
    QUtil::messageBox(m_window, QMessageBox::Critical, "Error", text);
    return false;
}

bool Workspace::createProject(const QString &path)
{
    if (!closeProject())
        return false;
    auto project = std::make_unique<Core::Project>();
    QString error;
    if (!project->saveAs(path, &error))
        return fail(error);
    return useProject(std::move(project));
}

bool Workspace::openProject(const QString &path)
{
    auto project = std::make_unique<Core::Project>();
    QString error;
    if (!project->load(path, &error))
        return fail(error);
    return useProject(std::move(project));
}

bool Workspace::useProject(std::unique_ptr<Core::Project> project)
{
    if (!closeProject())
        return false;
    m_project = std::move(project);
    connect(m_project.get(), &Core::Project::changed, this, &Workspace::projectChanged);
    Core::ProjectManager::setCurrentProject(m_project.get());
    Q_EMIT projectReplaced();
    if (!m_project->filePath().isEmpty())
        Q_EMIT message("Opened the project " + QDir::toNativeSeparators(m_project->filePath()) + ".", false);
    for (const Core::SourceFile &file : m_project->data().files) {
        if (!QFileInfo::exists(file.path))
            Q_EMIT message("The project's file " + QDir::toNativeSeparators(file.path) + " is missing.",
                           true);
    }
    return true;
}

bool Workspace::saveProject()
{
    if (!m_project)
        return true;
    QString error;
    if (!m_project->filePath().isEmpty())
        return m_project->save(&error) || fail(error);
    const QString path = chooseProjectFile("Save Project", m_project->workingDir());
    return !path.isEmpty() && (m_project->saveAs(path, &error) || fail(error));
}

QString Workspace::chooseProjectFile(const QString &title, const QString &folder) const
{
    const QString suffix = QString(".") + Core::projectFileSuffix();
    QString path = QFileDialog::getSaveFileName(m_window, title, folder, "Projects (*" + suffix + ")");
    if (path.isEmpty() || path.endsWith(suffix))
        return path;
    // The dialog asked about the name that was typed.
    path += suffix;
    const bool free = !QFileInfo::exists(path);
    const QString question = QDir::toNativeSeparators(path) + " exists already.\nReplace it?";
    const bool replace =
        free || QUtil::messageBox(m_window, QMessageBox::Question, title, question,
                                  QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
    return replace ? path : QString();
}

bool Workspace::mayCloseProject()
{
    if (!m_project || !m_project->isModified())
        return true;
    const QString name = m_project->name().isEmpty() ? "this project" : "\"" + m_project->name() + "\"";
    const auto answer =
        QUtil::messageBox(m_window, QMessageBox::Question, "Save Project",
                          "The project has changes that are not saved.\nSave the changes to " + name + "?",
                          QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    if (answer == QMessageBox::Save)
        return saveProject();
    return answer == QMessageBox::Discard;
}

bool Workspace::closeProject()
{
    // The views go last: one who stays after all still has them.
    if (!mayCloseProject() || !Core::ViewManager::instance()->closeAllViews())
        return false;
    if (!m_project)
        return true;
    Core::ProjectManager::setCurrentProject(nullptr);
    m_project.reset();
    Q_EMIT projectReplaced();
    return true;
}

bool Workspace::canEdit(const QString &path) const
{
    return Core::EditorRegistry::editorFor(path) != nullptr;
}

bool Workspace::openFile(const QString &path)
{
    const QString shown = QDir::toNativeSeparators(path);
    if (QFileInfo(path).suffix().toLower() == Core::projectFileSuffix())
        return openProject(path);
    if (!QFileInfo::exists(path))
        return fail("There is no file " + shown + ".");
    if (!canEdit(path))
        return fail("There is no editor for " + shown + ".");
    const QString project = m_project ? QString() : CommandLine::projectBeside(path);
    if (!project.isEmpty())
        openProject(project);
    const bool opened = Core::EditorRegistry::editorFor(path)(
        path, TE::TaskEngine::instance()->designManager()->currentDevice());
    Q_EMIT message((opened ? "Opened " : "Could not open ") + shown + ".", !opened);
    if (opened)
        tellDesignMessages();
    return opened;
}

void Workspace::tellDesignMessages()
{
    const QStringList messages = designMessages();
    for (const QString &text : messages) {
        if (!m_toldMessages.contains(text))
            Q_EMIT message(text, QUARRY::isError(text));
    }
    m_toldMessages = messages.toSet();
}

} // namespace Workbench
