#pragma once

#include <QMainWindow>

class QLabel;
class QMenu;
class QSettings;
class QStackedWidget;

namespace Workbench {

class DesignNetlist;
class MessagePane;
class NetlistPane;
class ProjectBanner;
class ProjectTree;
class Recovery;
class RowFinder;
class RunMenu;
class SignalTransfer;
class SourceOpener;
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
    // For a window with somebody at it: what is edited is kept in the folder for the case of a crash, and
    // changed designs are tried in the background.
    void attend(const QString &recoveryFolder);
    Recovery *recovery() const { return m_recovery; } // null before
    RunMenu *runMenu() const { return m_runMenu; }
    void addMessage(const QString &text, bool isError);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    QAction *addAction(QMenu *menu, const QString &text, const QKeySequence &shortcut,
                       void (MainWindow::*slot)());
    void createFileMenu();
    void createEditMenu(RowFinder *finder);
    void createProjectMenu();
    void createOtherMenus();
    void createDocks();
    void orderTabs();
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
    DesignNetlist *m_design;
    NetlistPane *m_netlist;
    SignalTransfer *m_transfer;
    SourceOpener *m_sources;
    QLabel *m_topLabel;
    QLabel *m_deviceLabel;
    Recovery *m_recovery = nullptr;
    RunMenu *m_runMenu = nullptr; // the menu's
    QMenu *m_fileMenu = nullptr;
    QMenu *m_projectMenu = nullptr;
    QAction *m_closeAction = nullptr;
    QAction *m_removeAction = nullptr;
    QList<QAction *> m_projectActions; // enabled while a project is open
};

} // namespace Workbench
