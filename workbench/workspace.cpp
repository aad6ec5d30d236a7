#include "workbench/workspace.h"

#include <QAction>
#include <QDateTime>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>
#include <QWidget>

#include <algorithm>

#include "commandline/designoptions.h"
#include "host/actionmanager.h"
#include "host/backupfile.h"
#include "host/designmanager.h"
#include "host/editorregistry.h"
#include "host/foreignproject.h"
#include "host/modal.h"
#include "host/regularfile.h"
#include "host/viewmanager.h"
#include "model/jex/jexfile.h"
#include "workbench/projectwatch.h"
#include "workbench/question.h"
#include "workbench/statetexts.h"

namespace Workbench {

namespace {

const char *const saveCommand = "Core.Action.Save";

// The name under which a view has this file open, which may have several; else the name itself.
QString nameInUse(const QString &path)
{
    for (const Core::IView *view : Core::ViewManager::instance()->views()) {
        const QString open = view->editedFile().path;
        if (QUtil::isSameFile(open, path))
            return open;
    }
    return path;
}

} // namespace

Workspace::Workspace(QWidget *window)
    : QObject(window), m_window(window), m_watch(new ProjectWatch(this)), m_guard(window)
{
    Core::ViewManager *views = Core::ViewManager::instance();
    connect(views, &Core::ViewManager::viewActiveted, this, &Workspace::followView);
    connect(m_watch, &ProjectWatch::stirred, this, &Workspace::lookAtProjectFile);
    connect(this, &Workspace::projectChanged, this, &Workspace::followProject);
    connect(this, &Workspace::projectReplaced, this, &Workspace::followProject);
    connect(this, &Workspace::projectReplaced, this, &Workspace::lookAtProjectFile);
    views->setCloseGate([this](Core::IView *view) { return mayCloseView(view); });
    Core::ActionManager::instance()->setGate(saveCommand, [this] { return maySaveView(); });
}

// A view is told of once it is there to be shown, and later when it says so; never in the middle of what it
// does, and not after its end.
void Workspace::followView(Core::IView *view)
{
    const char *const isFollowed = "isFollowed";
    if (!view || view->property(isFollowed).toBool())
        return;
    view->setProperty(isFollowed, true);
    const auto tell = [workspace = QPointer<Workspace>(this), view] {
        if (workspace && Core::ViewManager::instance()->views().contains(view))
            workspace->tellFindings(view);
    };
    connect(view, &Core::IView::findingsChanged, view, tell, Qt::QueuedConnection);
    connect(view, &Core::IView::fileSaved, this, [this, view] { Q_EMIT fileSaved(view->editedFile().path); });
    QMetaObject::invokeMethod(view, tell, Qt::QueuedConnection);
}

void Workspace::tellFindings(Core::IView *view)
{
    const char *const hadStale = "hadStale";
    const QList<Core::Finding> findings = view->findings();
    const bool hasStale = std::any_of(findings.begin(), findings.end(), [](const Core::Finding &finding) {
        return finding.kind == Core::Finding::Stale;
    });
    Q_EMIT findingsTold(view, findings);
    if (!hasStale && view->property(hadStale).toBool())
        Q_EMIT message(tr("%1: The design has all signals again.").arg(nameOf(view)), false);
    view->setProperty(hadStale, hasStale);
}

Workspace::~Workspace()
{
    Core::ActionManager::instance()->setGate(saveCommand, {});
    Core::ViewManager::instance()->setCloseGate({});
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
    QUtil::messageBox(m_window, QMessageBox::Critical, tr("Error"), text);
    return false;
}

bool Workspace::createProject(const QString &path)
{
    if (!closeProject())
        return false;
    auto project = std::make_unique<Core::Project>();
    QString error;
    if (!mayReplace(path))
        return false;
    if (!project->saveAs(path, &error))
        return fail(error);
    return useProject(std::move(project));
}

bool Workspace::openProject(const QString &path)
{
    auto project = std::make_unique<Core::Project>();
    QString error;
    if (!settleBackup(path))
        return false;
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
        Q_EMIT message(tr("Opened the project %1.").arg(QDir::toNativeSeparators(m_project->filePath())),
                       false);
    else if (!m_project->foreignPath().isEmpty())
        Q_EMIT message(tr("Read the project %1. Save Project As makes one of the workbench's own of it.")
                           .arg(QDir::toNativeSeparators(m_project->foreignPath())),
                       false);
    for (const QString &note : m_project->notes())
        Q_EMIT message(note, false);
    for (const Core::SourceFile &file : m_project->data().files) {
        if (!QFileInfo::exists(file.path))
            Q_EMIT message(tr("The project's file %1 is missing.").arg(QDir::toNativeSeparators(file.path)),
                           true);
    }
    Q_EMIT projectOpened();
    return true;
}

bool Workspace::saveProject()
{
    if (!m_project)
        return true;
    QString error;
    if (!m_project->filePath().isEmpty()) {
        const SaveGuard::Answer answer =
            m_guard.ask({m_project->filePath(), true, m_project->fileMark()}, SaveGuard::Saving);
        if (answer == SaveGuard::Otherwise)
            reloadProject();
        if (answer == SaveGuard::Otherwise || answer == SaveGuard::Cancel)
            return false;
        return m_project->save(&error) ? noteSaved() : fail(error);
    }
    return saveProjectAs();
}

bool Workspace::saveProjectAs()
{
    QString error;
    const QString path =
        m_project ? chooseProjectFile(tr("Save Project"), m_project->workingDir()) : QString();
    return !path.isEmpty() && mayReplace(path) &&
           (m_project->saveAs(path, &error) ? noteSaved() : fail(error));
}

bool Workspace::noteSaved()
{
    Q_EMIT message(tr("Saved the project %1.").arg(QDir::toNativeSeparators(m_project->filePath())), false);
    return true;
}

// By what the user chose to replace; whether it changed is no question then.
bool Workspace::mayReplace(const QString &path)
{
    return m_guard.ask({path, true, QUtil::FileMark::of(path)}, SaveGuard::Saving) != SaveGuard::Cancel;
}

bool Workspace::reloadProject()
{
    QString error;
    if (!m_project)
        return false;
    if (!m_project->reload(&error))
        return fail(error);
    Q_EMIT message(tr("Read the project %1 again.").arg(QDir::toNativeSeparators(m_project->filePath())),
                   false);
    lookAtProjectFile();
    return true;
}

void Workspace::keepProject()
{
    m_kept = QUtil::FileMark::of(m_project ? m_project->filePath() : QString());
    if (m_project && m_kept.isNull())
        m_project->noteRemoval();
    lookAtProjectFile();
}

void Workspace::followProject()
{
    m_watch->follow(m_project ? m_project->filePath() : QString());
}

void Workspace::lookAtProjectFile()
{
    const QString path = m_project ? m_project->filePath() : QString();
    const QUtil::FileMark now = QUtil::FileMark::of(path);
    ProjectFile state = ProjectFile::Same;
    if (!path.isEmpty() && now != m_project->fileMark() && now != m_kept)
        state = now.isNull() ? ProjectFile::Removed : ProjectFile::Changed;
    Q_EMIT projectFileChanged(state);
}

QString Workspace::chooseProjectFile(const QString &title, const QString &folder) const
{
    return chooseFile(title, folder, QString(".") + Core::projectFileSuffix(), tr("Projects"));
}

QString Workspace::chooseFile(const QString &title, const QString &start, const QString &suffix,
                              const QString &kind) const
{
    QString path = QFileDialog::getSaveFileName(m_window, title, start, kind + " (*" + suffix + ")");
    if (path.isEmpty() || path.endsWith(suffix))
        return path;
    // The dialog asked about the name that was typed.
    path += suffix;
    const bool free = !QFileInfo::exists(path);
    const QString question = tr("%1 exists already.\nReplace it?").arg(QDir::toNativeSeparators(path));
    const bool replace =
        free || QUtil::messageBox(m_window, QMessageBox::Question, title, question,
                                  QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
    return replace ? path : QString();
}

bool Workspace::mayCloseProject()
{
    if (!m_project || !m_project->isModified())
        return true;
    const QString question =
        m_project->name().isEmpty()
            ? tr("The project has changes that are not saved.\nSave the changes to this project?")
            : tr("The project has changes that are not saved.\nSave the changes to \"%1\"?")
                  .arg(m_project->name());
    const auto answer =
        QUtil::messageBox(m_window, QMessageBox::Question, tr("Save Project"), question,
                          QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    if (answer == QMessageBox::Save)
        return saveProject();
    return answer == QMessageBox::Discard;
}

bool Workspace::closeProject()
{
    if (!mayCloseProject())
        return false;
    Q_EMIT closingProject();
    // The views go last: one who stays after all still has them.
    if (!Core::ViewManager::instance()->closeAllViews())
        return false;
    if (!m_project)
        return true;
    Core::ProjectManager::setCurrentProject(nullptr);
    m_project.reset();
    Q_EMIT projectReplaced();
    return true;
}

bool Workspace::maySaveView()
{
    const QPointer<Core::IView> view = Core::ViewManager::instance()->currentView();
    const SaveGuard::Answer answer =
        view ? m_guard.ask(view->editedFile(), SaveGuard::Saving) : SaveGuard::NothingToAsk;
    if (answer == SaveGuard::Otherwise && view)
        reloadView(view);
    return answer == SaveGuard::NothingToAsk || answer == SaveGuard::Write;
}

void Workspace::reloadView(Core::IView *view)
{
    const QString path = QDir::toNativeSeparators(view->editedFile().path);
    if (view->reloadFile())
        Q_EMIT message(tr("Read %1 again.").arg(path), false);
    else
        fail(tr("%1 could not be read again. The editor keeps what it has.").arg(path));
}

// The editor asks whether to save when it closes, and then it saves at once.
bool Workspace::mayCloseView(Core::IView *view)
{
    const QPointer<Core::IView> alive = view;
    const Core::EditedFile file = view->editedFile();
    const SaveGuard::Answer answer =
        file.isModified ? m_guard.ask(file, SaveGuard::Closing) : SaveGuard::NothingToAsk;
    if (answer == SaveGuard::Write && alive)
        return saveView(view);
    if (answer == SaveGuard::Otherwise && alive)
        view->parentWidget()->close();
    return answer == SaveGuard::NothingToAsk;
}

bool Workspace::settleBackup(const QString &path)
{
    const QString backup = QUtil::pendingBackup(path);
    if (backup.isEmpty())
        return true;
    const int answer = askUser(m_window, tr("Backup"),
                               tr("The last save of the file '%1' did not end, and it may be damaged. What "
                                  "it held before is kept in '%2' of %3.")
                                   .arg(QDir::toNativeSeparators(path), QDir::toNativeSeparators(backup),
                                        QFileInfo(backup).lastModified().toString()),
                               {tr("&Restore"), tr("&Discard the Backup"), tr("Cancel")});
    QString error;
    if (answer == 1)
        QUtil::discardBackup(path);
    return answer == 1 || (answer == 0 && (QUtil::restoreBackup(path, &error) || fail(error)));
}

bool Workspace::canEdit(const QString &path) const
{
    return Core::EditorRegistry::editorFor(path) != nullptr;
}

bool Workspace::openFile(const QString &path)
{
    const QString shown = QDir::toNativeSeparators(path);
    if (Core::isProjectName(path))
        return openProject(path);
    const QString odd = QUtil::irregularReason(path);
    if (!odd.isEmpty())
        return fail(tr("Can not open %1: %2.").arg(shown, odd));
    if (!QFileInfo::exists(path))
        return fail(tr("There is no file %1.").arg(shown));
    if (!canEdit(path))
        return fail(tr("There is no editor for %1.").arg(shown));
    if (!settleBackup(path))
        return false;
    const QString project = m_project ? QString() : CommandLine::projectBeside(path);
    if (!project.isEmpty())
        openProject(project);
    const bool opened = Core::EditorRegistry::editorFor(path)(
        nameInUse(path), TE::TaskEngine::instance()->designManager()->currentDevice());
    Q_EMIT message((opened ? tr("Opened %1.") : tr("Could not open %1.")).arg(shown), !opened);
    m_refusedFile = opened ? QString() : path;
    if (!opened)
        tellFault(path);
    return opened;
}

// The editor says that a file is none of its own, the reader why.
void Workspace::tellFault(const QString &path)
{
    QString error;
    if (JEX::jexModeFromJexConfigFile(path) == JEX::InvalidMode)
        qDeleteAll(JEX::readJEXConfigFromXml_Lite(path, nullptr, &error));
    if (!error.isEmpty())
        Q_EMIT message(error, true);
}

void Workspace::setTop(const QString &module)
{
    if (!m_project)
        return;
    m_project->setOption("TopModule", module);
    Q_EMIT message(tr("The top module is %1.").arg(module), false);
    if (!m_refusedFile.isEmpty())
        openFile(m_refusedFile);
}

} // namespace Workbench
