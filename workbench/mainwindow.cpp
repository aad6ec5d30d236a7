#include "workbench/mainwindow.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QInputDialog>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QSettings>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include "elaboration/tools/toollimits.h"
#include "host/designmanager.h"
#include "host/filewizard.h"
#include "host/iview.h"
#include "host/modal.h"
#include "host/viewmanager.h"
#include "workbench/designnetlist.h"
#include "workbench/designtrial.h"
#include "workbench/devicedialog.h"
#include "workbench/filedrop.h"
#include "workbench/guidewindow.h"
#include "workbench/icons.h"
#include "workbench/messagepane.h"
#include "workbench/messenger.h"
#include "workbench/netlistpane.h"
#include "workbench/newfiledialog.h"
#include "workbench/optionsdialog.h"
#include "workbench/projectbanner.h"
#include "workbench/projecttree.h"
#include "workbench/recentlist.h"
#include "workbench/recovery.h"
#include "workbench/reopenbanner.h"
#include "workbench/rowfinder.h"
#include "workbench/runmenu.h"
#include "workbench/session.h"
#include "workbench/signaltransfer.h"
#include "workbench/sourceopener.h"
#include "workbench/statetexts.h"
#include "workbench/windowmemory.h"
#include "workbench/workspace.h"

namespace Workbench {
namespace {

const char *const toolMemoryKey = "toolMemory"; // MB

QLabel *newHint()
{
    auto *hint = new QLabel;
    hint->setAlignment(Qt::AlignCenter);
    return hint;
}

} // namespace

MainWindow::MainWindow(QSettings *settings, QWidget *parent)
    : QMainWindow(parent),
      m_settings(settings),
      m_workspace(new Workspace(this)),
      m_banner(new ProjectBanner),
      m_center(new QStackedWidget),
      m_hint(newHint()),
      m_tree(new ProjectTree),
      m_messages(new MessagePane),
      m_design(new DesignNetlist(this)),
      m_netlist(new NetlistPane(m_design, settings)),
      m_transfer(new SignalTransfer(m_netlist, this)),
      m_sources(new SourceOpener(settings, this)),
      m_topLabel(new QLabel),
      m_deviceLabel(new QLabel)
{
    setProperty("helpTopic", "window");
    Core::ViewManager *views = Core::ViewManager::instance();
    m_center->addWidget(m_hint);
    m_center->addWidget(views->tabWidget());
    auto *center = new QWidget;
    auto *layout = new QVBoxLayout(center);
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_banner);
    layout->addWidget(m_center);
    auto *finder = new RowFinder;
    layout->addWidget(finder);
    setCentralWidget(center);
    views->setDialogParent(this);
    for (QLabel *label : {m_topLabel, m_deviceLabel}) {
        label->setTextFormat(Qt::PlainText);
        label->setMargin(4);
        statusBar()->addPermanentWidget(label);
    }
    createDocks();
    createFileMenu();
    createEditMenu(finder);
    createProjectMenu();
    createOtherMenus();
    connectTree();
    connectBanner();
    connect(m_workspace, &Workspace::projectReplaced, this, &MainWindow::onProjectReplaced);
    connect(m_workspace, &Workspace::projectChanged, this, &MainWindow::updateProject);
    connect(m_workspace, &Workspace::message, this, &MainWindow::addMessage);
    connect(m_workspace, &Workspace::projectReplaced, m_design, &DesignNetlist::forget);
    connect(m_transfer, &SignalTransfer::message, this, &MainWindow::addMessage);
    new Messenger(m_workspace, m_messages); // the pane's
    connect(m_messages, &MessagePane::sourceAsked, m_sources, &SourceOpener::open);
    connect(m_sources, &SourceOpener::message, this, &MainWindow::addMessage);
    connect(views, &Core::ViewManager::viewActiveted, this, &MainWindow::updateState);
    connect(m_tree, &QTreeWidget::itemSelectionChanged, this, &MainWindow::updateState);
    connect(views, &Core::ViewManager::viewActiveted, m_tree, &ProjectTree::showView);
    connect(m_workspace, &Workspace::savedAs, m_tree, &ProjectTree::showView);
    // A new view would come after everything else.
    connect(views, &Core::ViewManager::viewActiveted, this, &MainWindow::orderTabs);
    new Session(m_settings, m_workspace);
    new FileDrop(this, m_workspace);
    WindowMemory::use(m_settings);
    resize(1280, 800);
    updateProject();
    restoreLayout();
}

// The views report their end to this window, so they go first.
MainWindow::~MainWindow()
{
    WindowMemory::use(nullptr);
    delete m_workspace;
}

Workspace *MainWindow::workspace() const
{
    return m_workspace;
}

void MainWindow::attend(const QString &recoveryFolder)
{
    m_recovery = new Recovery(recoveryFolder, m_workspace, this);
    connect(m_recovery, &Recovery::message, m_messages, &MessagePane::addMessage);
    QList<QAction *> actions = m_fileMenu->actions();
    m_fileMenu->insertAction(actions.value(actions.indexOf(m_closeAction) + 1), m_recovery->draftAction());
    auto *trial = new DesignTrial(m_design, m_settings, this);
    connect(trial, &DesignTrial::message, m_messages, &MessagePane::addMessage);
    connect(trial, &DesignTrial::status, statusBar(),
            [this](const QString &text) { statusBar()->showMessage(text); });
    m_projectMenu->addAction(trial->action());
    setIcons(this, menuBar());
    auto *layout = static_cast<QVBoxLayout *>(centralWidget()->layout());
    layout->insertWidget(layout->indexOf(m_banner) + 1, new ReopenBanner(m_recovery, m_design));
    orderTabs();
}

void MainWindow::addMessage(const QString &text, bool isError)
{
    m_messages->addMessage(text, isError);
}

void MainWindow::connectTree()
{
    connect(m_tree, &ProjectTree::fileActivated, this, &MainWindow::openFromTree);
    connect(m_tree, &ProjectTree::optionsActivated, this, &MainWindow::onOptions);
    connect(m_tree, &ProjectTree::deviceActivated, this, &MainWindow::onDevice);
    connect(m_tree, &ProjectTree::removeRequested, this, &MainWindow::removeFiles);
    connect(m_tree, &ProjectTree::enableRequested, this, [this](const QStringList &paths, bool enabled) {
        for (const QString &path : paths)
            m_workspace->project()->setFileEnabled(path, enabled);
    });
    connect(m_tree, &ProjectTree::typeRequested, this, [this](const QStringList &paths, int type) {
        for (const QString &path : paths)
            m_workspace->project()->setFileType(path, type);
    });
    connect(m_tree, &ProjectTree::topRequested, m_workspace, &Workspace::setTop);
    connect(m_tree, &ProjectTree::libraryRequested, this, &MainWindow::askForLibrary);
}

void MainWindow::connectBanner()
{
    connect(m_workspace, &Workspace::projectFileChanged, this, [this](ProjectFile state) {
        m_banner->showState(state, m_workspace->project() ? m_workspace->project()->filePath() : QString());
    });
    connect(m_banner, &ProjectBanner::reload, m_workspace, &Workspace::reloadProject);
    connect(m_banner, &ProjectBanner::keepIt, m_workspace, &Workspace::keepProject);
    connect(m_banner, &ProjectBanner::closeIt, m_workspace, &Workspace::closeProject);
}

void MainWindow::restoreLayout()
{
    if (!m_settings)
        return;
    const QSize frame(0, 40); // what a window manager puts around the window, about
    resize(size().boundedTo(QGuiApplication::primaryScreen()->availableSize() - frame));
    QUARRY::setToolMemoryLimit(qint64(m_settings->value(toolMemoryKey).toInt()) << 20);
    restoreGeometry(m_settings->value("geometry").toByteArray());
    // The screen may have been a larger one.
    const QScreen *screen = QGuiApplication::screenAt(geometry().center());
    const QRect room = (screen ? screen : QGuiApplication::primaryScreen())->availableGeometry();
    QRect place(geometry().topLeft(), size().boundedTo(room.size() - frame));
    place.moveBottomRight({qMin(place.right(), room.right()), qMin(place.bottom(), room.bottom())});
    if (!isMaximized() && !isFullScreen() && place != geometry())
        setGeometry(place);
    restoreState(m_settings->value("layout").toByteArray());
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    if (m_recovery && m_recovery->isKeptForNextStart())
        Q_EMIT m_workspace->closingProject(); // nobody can be asked, and nothing gets lost
    else
        event->setAccepted(m_workspace->closeProject());
    if (event->isAccepted() && m_settings) {
        m_settings->setValue("geometry", saveGeometry());
        m_settings->setValue("layout", saveState());
    }
}

QStringList MainWindow::projectFiles() const
{
    QStringList paths;
    if (!m_workspace->project())
        return paths;
    for (const Core::SourceFile &file : m_workspace->project()->data().files)
        paths << file.path;
    return paths;
}

QString MainWindow::startFolder() const
{
    return m_workspace->project() ? m_workspace->project()->workingDir() : QDir::currentPath();
}

void MainWindow::onNewFile()
{
    NewFileDialog dialog(startFolder(), this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QStringList before = projectFiles();
    dialog.factory()->runWizard(this, dialog.folder());
    openNewFiles(before);
}

// A wizard adds what it made to the project; the user expects to see it.
void MainWindow::openNewFiles(const QStringList &before)
{
    for (const QString &path : projectFiles()) {
        if (!before.contains(path) && m_workspace->canEdit(path))
            m_workspace->openFile(path);
    }
}

void MainWindow::onOpen()
{
    const QString path = QFileDialog::getOpenFileName(
        this, tr("Open"), startFolder(),
        tr("Configurations and projects (*.zub *.jexprj *.toml *.eda.yml *.eda.yaml);;All files (*)"));
    if (!path.isEmpty())
        m_workspace->openFile(path);
}

void MainWindow::onCloseView()
{
    if (Core::IView *view = Core::ViewManager::instance()->currentView())
        Core::ViewManager::instance()->closeView(view);
}

void MainWindow::onNewProject()
{
    const QString path = m_workspace->chooseProjectFile(tr("New Project"), startFolder());
    if (!path.isEmpty())
        m_workspace->createProject(path);
}

void MainWindow::onOpenProject()
{
    const QString path = QFileDialog::getOpenFileName(this, tr("Open Project"), startFolder(),
                                                      tr("Projects (*.jexprj *.toml *.eda.yml *.eda.yaml)"));
    if (!path.isEmpty())
        m_workspace->openProject(path);
}

void MainWindow::onSaveProject()
{
    if (m_workspace->saveProject())
        recentProjects(m_settings).add(m_workspace->project()->filePath());
}

void MainWindow::onSaveProjectAs()
{
    if (m_workspace->saveProjectAs())
        recentProjects(m_settings).add(m_workspace->project()->filePath());
}

void MainWindow::onCloseProject()
{
    m_workspace->closeProject();
}

void MainWindow::onAddFiles()
{
    const QStringList paths = QFileDialog::getOpenFileNames(
        this, tr("Add Files"), startFolder(),
        tr("Design files and configurations (%1 *.zub);;All files (*)").arg(TE::sourcePatterns()));
    for (const QString &path : paths)
        m_workspace->project()->addFile(path);
}

void MainWindow::onRemoveFiles()
{
    removeFiles(m_tree->selectedFiles());
}

void MainWindow::removeFiles(const QStringList &paths)
{
    for (const QString &path : paths)
        m_workspace->project()->removeFile(path);
}

void MainWindow::askForLibrary(const QStringList &paths, const QString &library)
{
    bool isChosen = false;
    const QString chosen = QInputDialog::getText(
        this, tr("VHDL Library"), tr("Library of the files; empty: the one under whose name they are used:"),
        QLineEdit::Normal, library, &isChosen);
    for (const QString &path : isChosen ? paths : QStringList())
        m_workspace->project()->setFileLibrary(path, chosen.trimmed());
}

void MainWindow::onOptions()
{
    if (m_workspace->project())
        OptionsDialog(m_workspace->project(), this).exec();
}

void MainWindow::onDevice()
{
    if (!m_workspace->project())
        return;
    DeviceDialog dialog(m_workspace->project()->data().device, this);
    if (dialog.exec() == QDialog::Accepted)
        m_workspace->project()->setDevice(dialog.device());
}

// The user's own choice, for all projects: none of them can make it.
void MainWindow::onToolMemory()
{
    bool isChosen = false;
    const int chosen = QInputDialog::getInt(this, tr("Tool Memory"),
                                            tr("Memory that each tool which reads the design may take, in "
                                               "MB.\nWith 0, half of what is free, at most 8192 MB:"),
                                            m_settings ? m_settings->value(toolMemoryKey).toInt() : 0, 0,
                                            1 << 20, 256, &isChosen);
    if (!isChosen)
        return;
    QUARRY::setToolMemoryLimit(qint64(chosen) << 20);
    if (m_settings)
        m_settings->setValue(toolMemoryKey, chosen);
}

void MainWindow::onGuide()
{
    GuideKey::openFor(focusWidget() ? focusWidget() : this);
}

void MainWindow::onAbout()
{
    QUtil::messageBox(this, QMessageBox::Information, tr("About"),
                      tr("JEX Workbench %1\n\nEdits the configuration of logic analyzers that are built into "
                         "an FPGA design: choose the nets "
                         "to record, say how much is recorded, and save it for the implementation flow.")
                          .arg(QCoreApplication::applicationVersion()));
}

void MainWindow::openFromTree(const QString &path)
{
    if (m_workspace->canEdit(path))
        m_workspace->openFile(path);
    else
        m_sources->open({path, 0});
}

void MainWindow::onProjectReplaced()
{
    const Core::Project *project = m_workspace->project();
    const QString path = !project                        ? QString()
                         : project->filePath().isEmpty() ? project->foreignPath()
                                                         : project->filePath();
    if (!path.isEmpty())
        recentProjects(m_settings).add(path);
    updateProject();
}

void MainWindow::updateProject()
{
    const Core::Project *project = m_workspace->project();
    m_tree->showProject(project);
    const QString name = project && project->name().isEmpty() ? tr("Unnamed project")
                         : project                            ? project->name()
                                                              : QString();
    setWindowTitle(project ? name + "[*] - JEX Workbench" : QString("JEX Workbench"));
    setWindowModified(project && project->isModified());
    const QString top = project ? project->data().topModule : QString();
    const DEV::DeviceArg device = project ? project->data().device : DEV::DeviceArg();
    m_topLabel->setText(!project        ? QString()
                        : top.isEmpty() ? tr("Top: from the sources")
                                        : tr("Top: %1").arg(top));
    m_deviceLabel->setText(project ? deviceText(device) : QString());
    updateState();
}

void MainWindow::updateState()
{
    const bool viewOpen = Core::ViewManager::instance()->currentView() != nullptr;
    m_center->setCurrentIndex(viewOpen ? 1 : 0);
    m_hint->setText(hintText(m_workspace->project()));
    m_closeAction->setEnabled(viewOpen);
    for (QAction *action : qAsConst(m_projectActions))
        action->setEnabled(m_workspace->project() != nullptr);
    m_removeAction->setEnabled(!m_tree->selectedFiles().isEmpty());
    m_runMenu->setEnabled(m_workspace->project() != nullptr);
}

} // namespace Workbench
