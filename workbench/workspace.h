#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <memory>

#include "host/iview.h"
#include "host/project.h"
#include "workbench/projectbanner.h"
#include "workbench/saveguard.h"

class QWidget;

namespace Workbench {

class ProjectWatch;

// The project that is open, and the opening and closing of it and of files. Asks the user where something
// would be lost, before the views save and close as well, and tells what went wrong in a box and as a
// message.
class Workspace : public QObject
{
    Q_OBJECT

public:
    explicit Workspace(QWidget *window);
    ~Workspace() override; // closes everything without asking

    Core::Project *project() const; // null when none is open

    // Each closes the open project first; false when the user keeps it or the new one can not be had.
    bool createProject(const QString &path);
    bool openProject(const QString &path);
    bool useProject(std::unique_ptr<Core::Project> project);

    bool saveProject();   // asks where to, for a project that has no file yet
    bool saveProjectAs(); // asks where to
    bool closeProject();  // with all views; false when the user keeps one of them or the project
    bool reloadProject(); // from its file; the views stay
    void keepProject();   // whatever has become of its file

    // A file for a project that the user chooses, with its suffix; empty when he does not.
    QString chooseProjectFile(const QString &title, const QString &folder) const;

    // Of views. Each asks where something would be lost, and shows the view that it is about.
    bool saveView(Core::IView *view);
    bool saveViewAs(Core::IView *view); // asks where to; only for a view that is a Core::IFileEditor
    bool saveAll();                     // and the project
    bool reloadViewNow(Core::IView *view);
    bool checkView(Core::IView *view); // and tells what was found

    // Asks what is to be done about a save of this file that did not end. False: it is to be left alone.
    bool settleBackup(const QString &path);

    // A project is opened as such, other files in the editor that a plug-in announced. Without a project,
    // the one that lies beside the file is opened first.
    bool openFile(const QString &path);
    // Makes it the project's top module, and opens the file that could not be opened before.
    void setTop(const QString &module);
    bool canEdit(const QString &path) const;

Q_SIGNALS:
    void projectReplaced();                                // another one, or none
    void projectOpened();                                  // and all is told about it
    void closingProject();                                 // its views are still there
    void projectChanged();                                 // its contents, its file or its modified mark
    void projectFileChanged(Workbench::ProjectFile state); // on the disk
    void message(const QString &text, bool isError);
    void fileSaved(const QString &path);                                        // that a view edits
    void savedAs(Core::IView *view);                                            // which edits that file now
    void findingsTold(Core::IView *view, const QList<Core::Finding> &findings); // all that it has now

private:
    bool fail(const QString &text);
    bool noteSaved(); // the project
    QString chooseFile(const QString &title, const QString &start, const QString &suffix,
                       const QString &kind) const;
    bool mayCloseProject();
    bool mayReplace(const QString &path);
    bool maySaveView();
    bool mayCloseView(Core::IView *view);
    void reloadView(Core::IView *view);
    void lookAtProjectFile();
    void followProject();
    void tellFault(const QString &path);
    void followView(Core::IView *view);
    void tellFindings(Core::IView *view);

    QWidget *m_window;
    ProjectWatch *m_watch;
    SaveGuard m_guard;
    QUtil::FileMark m_kept; // what the project file held when the user did not want it
    std::unique_ptr<Core::Project> m_project;
    QString m_refusedFile; // that could not be opened last; empty: it could
};

} // namespace Workbench
