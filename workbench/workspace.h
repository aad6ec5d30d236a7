#pragma once

#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>
#include <memory>

#include "host/iview.h"
#include "host/project.h"

class QWidget;

namespace Workbench {

// The project that is open, and the opening and closing of it and of files. Asks the user where something
// would be lost, and tells what went wrong in a box and as a message.
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

    bool saveProject();  // asks where to, for a project that has no file yet
    bool closeProject(); // with all views; false when the user keeps one of them or the project

    // A file for a project that the user chooses, with its suffix; empty when he does not.
    QString chooseProjectFile(const QString &title, const QString &folder) const;

    // A project is opened as such, other files in the editor that a plug-in announced. Without a project,
    // the one that lies beside the file is opened first.
    bool openFile(const QString &path);
    bool canEdit(const QString &path) const;

Q_SIGNALS:
    void projectReplaced(); // another one, or none
    void projectChanged();  // its contents, its file or its modified mark
    void message(const QString &text, bool isError);
    void findingTold(Core::IView *view, const Core::Finding &finding);

private:
    bool fail(const QString &text);
    bool mayCloseProject();
    void tellDesignMessages();
    void followFindings(Core::IView *view);
    void tellFindings(Core::IView *view);

    QWidget *m_window;
    std::unique_ptr<Core::Project> m_project;
    QSet<QString> m_toldMessages; // of the design, so that the next file does not repeat them
};

} // namespace Workbench
