#pragma once

#include <QMainWindow>

class QLabel;
class QMenu;
class QSettings;
class QStackedWidget;

namespace Core {
class IView;
struct Finding;
} // namespace Core

namespace Workbench {

class MessagePane;
class ProjectBanner;
class ProjectTree;
class RunMenu;
class Workspace;

// The window: project tree and message pane around the tabs of the views, menus and status bar.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    // `settings`, not owned, keeps geometry and recent projects; null: nothing is remembered.
    explicit MainWindow(QSettings *settings, QWidget *parent = nullptr);
    ~MainWindow() override;

    Workspace *workspace() const;
    RunMenu *runMenu() const { return m_runMenu; }
    void addMessage(const QString &text, bool isError);
    void addFinding(Core::IView *view, const Core::Finding &finding); // a double click on it shows its place

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    QAction *addAction(QMenu *menu, const QString &text, const QKeySequence &shortcut,
                       void (MainWindow::*slot)());
    void createFileMenu();
    void createProjectMenu();
    void createOtherMenus();
    void createDocks();
    void connectTree();
    void connectBanner();
    void restoreLayout();

    void onNewFile();
    void onOpen();
    void onCloseView();
    void onNewProject();
    void onOpenProject();
    void onSaveProject();
    void onSaveProjectAs();
    void onCloseProject();
    void onAddFiles();
    void onRemoveFiles();
    void onOptions();
    void onDevice();
    void onToolMemory();
    void onGuide();
    void onAbout();

    void openFromTree(const QString &path);
    void openNewFiles(const QStringList &before);
    void removeFiles(const QStringList &paths);
    void askForLibrary(const QStringList &paths, const QString &library);
    void updateProject();
    void onProjectReplaced();
    void updateState();
    QStringList projectFiles() const;
    QString startFolder() const;

    QSettings *m_settings;
    Workspace *m_workspace;
    ProjectBanner *m_banner;
    QStackedWidget *m_center; // a hint, or the tabs
    QLabel *m_hint;
    ProjectTree *m_tree;
    MessagePane *m_messages;
    QLabel *m_topLabel;
    QLabel *m_deviceLabel;
    RunMenu *m_runMenu = nullptr; // the menu's
    QAction *m_closeAction = nullptr;
    QAction *m_removeAction = nullptr;
    QList<QAction *> m_projectActions; // enabled while a project is open
};

} // namespace Workbench
