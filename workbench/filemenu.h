#pragma once

#include <QObject>

#include <functional>

class QAction;
class QMenu;
class QSettings;
namespace Core {
class IView;
}

namespace Workbench {

class Workspace;

// The entries of the File menu about the files in the tabs, and those that were open before.
class FileMenu : public QObject
{
    Q_OBJECT

public:
    // None of them owned; `settings` may be null.
    FileMenu(QMenu *menu, Workspace *workspace, QSettings *settings);

    // Each at the end of the menu as it is then.
    void addSaving();
    void addChecking();
    void addClosing();
    void addRecent();

private:
    // For the view in front.
    QAction *addAction(const QString &text, const QKeySequence &key, const char *name,
                       const std::function<void(Core::IView *)> &deed);
    void noteView(Core::IView *view);
    void fillFiles(QMenu *menu);
    void fillProjects(QMenu *menu);

    QMenu *m_menu;
    Workspace *m_workspace;
    QSettings *m_settings;
    QList<QAction *> m_viewActions; // enabled while a view is open
    QList<QAction *> m_fileActions; // while one is that is a Core::IFileEditor
};

} // namespace Workbench
