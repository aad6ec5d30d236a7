#include <QDockWidget>
#include <QLayout>
#include <QMenuBar>
#include <QTabBar>
#include <QWhatsThis>

#include "host/actionmanager.h"
#include "workbench/declarationcommand.h"
#include "workbench/duplicatecore.h"
#include "workbench/editmenu.h"
#include "workbench/filemenu.h"
#include "workbench/guidewindow.h"
#include "workbench/icons.h"
#include "workbench/mainwindow.h"
#include "workbench/messagepane.h"
#include "workbench/netlistpane.h"
#include "workbench/projecttree.h"
#include "workbench/rowmenu.h"
#include "workbench/runmenu.h"
#include "workbench/signaltransfer.h"
#include "workbench/sourceopener.h"
#include "workbench/taborder.h"

namespace Workbench {

// The menus of the window, and the docks around its tabs.

QAction *MainWindow::addAction(QMenu *menu, const QString &text, const QKeySequence &shortcut,
                               void (MainWindow::*slot)())
{
    QAction *action = menu->addAction(text);
    action->setShortcut(shortcut);
    connect(action, &QAction::triggered, this, slot);
    return action;
}

void MainWindow::createFileMenu()
{
    QMenu *menu = m_fileMenu = menuBar()->addMenu(tr("&File"));
    addAction(menu, tr("&New..."), QKeySequence::New, &MainWindow::onNewFile);
    addAction(menu, tr("&Open..."), QKeySequence::Open, &MainWindow::onOpen);
    menu->addSeparator();
    QAction *save = Core::ActionManager::instance()->command("Core.Action.Save", tr("&Save"));
    save->setShortcut(QKeySequence::Save);
    menu->addAction(save);
    auto *files = new FileMenu(menu, m_workspace, m_settings);
    files->addSaving();
    menu->addSeparator();
    files->addChecking();
    menu->addSeparator();
    m_closeAction = addAction(menu, tr("&Close"), QKeySequence::Close, &MainWindow::onCloseView);
    files->addClosing();
    menu->addSeparator();
    files->addRecent();
    menu->addSeparator();
    QAction *quit = menu->addAction(tr("&Quit"));
    quit->setShortcut(QKeySequence::Quit);
    connect(quit, &QAction::triggered, this, &QWidget::close);
}

void MainWindow::createEditMenu(RowFinder *finder)
{
    QMenu *menu = menuBar()->addMenu(tr("&Edit"));
    new EditMenu(menu, this);
    menu->addSeparator();
    menu->addAction(m_transfer->copyAction());
    menu->addAction(m_transfer->pasteAction());
    menu->addSeparator();
    new DuplicateCore(menu, this);
    menu->addSeparator();
    new RowMenu(menu, finder);
}

void MainWindow::createProjectMenu()
{
    QMenu *menu = m_projectMenu = menuBar()->addMenu(tr("&Project"));
    addAction(menu, tr("&New Project..."), QKeySequence("Ctrl+Shift+N"), &MainWindow::onNewProject);
    addAction(menu, tr("&Open Project..."), QKeySequence("Ctrl+Shift+O"), &MainWindow::onOpenProject);
    QAction *save =
        addAction(menu, tr("&Save Project"), QKeySequence("Ctrl+Shift+S"), &MainWindow::onSaveProject);
    QAction *saveAs =
        addAction(menu, tr("Save Project &As..."), QKeySequence(), &MainWindow::onSaveProjectAs);
    QAction *close = addAction(menu, tr("&Close Project"), QKeySequence(), &MainWindow::onCloseProject);
    menu->addSeparator();
    QAction *add = addAction(menu, tr("Add &Files..."), QKeySequence(), &MainWindow::onAddFiles);
    m_removeAction = addAction(menu, tr("&Remove Files"), QKeySequence(), &MainWindow::onRemoveFiles);
    menu->addSeparator();
    QAction *options = addAction(menu, tr("O&ptions..."), QKeySequence("Ctrl+,"), &MainWindow::onOptions);
    QAction *device = addAction(menu, tr("&Device..."), QKeySequence(), &MainWindow::onDevice);
    menu->addSeparator();
    addAction(menu, tr("&Tool Memory..."), QKeySequence(), &MainWindow::onToolMemory);
    connect(menu->addAction(tr("Source Co&mmand...")), &QAction::triggered, m_sources,
            &SourceOpener::askCommand);
    m_projectActions = {save, saveAs, close, add, options, device};
}

void MainWindow::createOtherMenus()
{
    m_runMenu = new RunMenu(menuBar()->addMenu(tr("&Run")), m_settings, this);
    connect(m_runMenu, &RunMenu::message, this, &MainWindow::addMessage);
    QMenu *view = menuBar()->addMenu(tr("&View"));
    for (QDockWidget *dock : findChildren<QDockWidget *>(QString(), Qt::FindDirectChildrenOnly))
        view->addAction(dock->toggleViewAction());
    view->addSeparator();
    new DeclarationCommand(view, this, m_sources); // the window's
    QMenu *help = menuBar()->addMenu(tr("&Help"));
    QAction *guide = addAction(help, tr("&Guide"), Qt::Key_F1, &MainWindow::onGuide);
    guide->setShortcutContext(Qt::WidgetShortcut); // for the eye: the guide hears the key in every window
    help->addAction(QWhatsThis::createAction(this));
    help->addSeparator();
    addAction(help, tr("&About"), QKeySequence(), &MainWindow::onAbout);
    new GuideKey(this);
    setIcons(this, menuBar());
}

void MainWindow::createDocks()
{
    struct
    {
        const char *name;
        QString title;
        QWidget *widget;
        Qt::DockWidgetArea area;
        int size;
    } const docks[] = {{"projectDock", tr("Project"), m_tree, Qt::LeftDockWidgetArea, 280},
                       {"netlistDock", tr("Netlist"), m_netlist, Qt::LeftDockWidgetArea, 280},
                       {"messageDock", tr("Messages"), m_messages, Qt::BottomDockWidgetArea, 140}};
    for (const auto &entry : docks) {
        auto *dock = new QDockWidget(entry.title, this);
        dock->setObjectName(entry.name);
        dock->setWidget(entry.widget);
        // Behind another tab it is out of the window, where Tab would lead all the same.
        connect(dock, &QDockWidget::visibilityChanged, entry.widget, &QWidget::setEnabled);
        addDockWidget(entry.area, dock);
        const bool left = entry.area == Qt::LeftDockWidgetArea;
        resizeDocks({dock}, {entry.size}, left ? Qt::Horizontal : Qt::Vertical);
    }
    setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    auto *netlist = findChild<QDockWidget *>("netlistDock");
    connect(netlist, &QDockWidget::visibilityChanged, m_netlist, &NetlistPane::setShown);
    tabifyDockWidget(findChild<QDockWidget *>("projectDock"), netlist);
    findChild<QDockWidget *>("projectDock")->raise();
    // The bar of their tabs is there when the window is laid out.
    QMetaObject::invokeMethod(this, &MainWindow::orderTabs, Qt::QueuedConnection);
}

// As the eye goes: down the docks at the left, down the middle, then the messages.
void MainWindow::orderTabs()
{
    QList<QWidget *> areas{m_tree, m_netlist};
    for (QTabBar *bar : findChildren<QTabBar *>(QString(), Qt::FindDirectChildrenOnly))
        areas << bar;
    const QLayout *middle = centralWidget()->layout();
    for (int i = 0; i < middle->count(); ++i)
        areas << middle->itemAt(i)->widget();
    putTabOrder(this, areas << m_messages);
}

} // namespace Workbench
