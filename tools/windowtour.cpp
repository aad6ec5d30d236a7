#include "tools/windowtour.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QDockWidget>
#include <QFileInfo>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeWidget>
#include <algorithm>
#include <memory>

#include "elaboration/elaboration.h"
#include "host/designmanager.h"
#include "host/editorregistry.h"
#include "host/filewizard.h"
#include "host/isnapshot.h"
#include "host/iview.h"
#include "host/project.h"
#include "host/viewmanager.h"
#include "model/jex/core.h"
#include "model/jex/matchunitdialog.h"
#include "model/netlist/rtlnetlist.h"
#include "netselect/jexsignalselectdialog.h"
#include "plugin/jexviewmanager.h"
#include "plugin/jexwizard.h"
#include "trigger/muexpressiondialog.h"
#include "trigger/triggerportdialog.h"
#include "trigger/triggersingalselectdialog.h"
#include "views/messagedlg.h"
#include "views/reloadbanner.h"
#include "workbench/devicedialog.h"
#include "workbench/findbar.h"
#include "workbench/guidewindow.h"
#include "workbench/icons.h"
#include "workbench/mainwindow.h"
#include "workbench/newfiledialog.h"
#include "workbench/optionsdialog.h"
#include "workbench/projectbanner.h"
#include "workbench/recoverydialog.h"
#include "workbench/rowfinder.h"
#include "workbench/simulatedialog.h"
#include "workbench/sourceplace.h"
#include "workbench/sourceview.h"
#include "workbench/workspace.h"

namespace {

using namespace RTLJEX;

// Lets the window settle first.
void show(const Visitor &visit, QWidget *window, const QString &name)
{
    window->show();
    QCoreApplication::processEvents();
    visit(window, name);
}

void visitSearch(const Visitor &visit, QUARRY::RtlNetlist *netlist)
{
    JexSignalSelectDialog dialog(netlist);
    dialog.show();
    dialog.findChild<QLineEdit *>("lineEditName")->setText("bus_");
    dialog.findChild<QPushButton *>("pushButtonSearch")->click();
    show(visit, &dialog, "search");
    dialog.findChild<QLineEdit *>("lineEditName")->setText("ready");
    for (const char *box : {"checkBoxAdvancedFilter", "checkBoxIncludeSubentries", "checkBoxHierarchyView"})
        dialog.findChild<QCheckBox *>(box)->setChecked(true);
    dialog.findChild<QPushButton *>("pushButtonSearch")->click();
    dialog.findChild<QTreeWidget *>("treeWidget")->expandAll();
    show(visit, &dialog, "search-hierarchy");
}

// A unit that waits for the last bit of the first bus that can be probed to rise.
void visitMatchUnit(const Visitor &visit, QUARRY::RtlNetlist *netlist)
{
    const QUARRY::Hierachy *top = netlist ? netlist->topHierarchy : nullptr;
    const QList<QUARRY::RtlNetBus *> buses = top ? top->netbusesIncludeSub() : QList<QUARRY::RtlNetBus *>();
    const auto bus =
        std::find_if(buses.begin(), buses.end(), [](const QUARRY::RtlNetBus *bus) { return !bus->excluded; });
    if (bus == buses.end())
        return;
    JEX::AoCore core(0);
    JEX::TriggerPort *port = core.getTrigger(0);
    for (const QUARRY::RtlNet *bit : (*bus)->members) {
        port->signalItems.append(JEX::SignalItem());
        port->signalItems.last().name = bit->fullPathName();
    }
    JEX::MatchUnit *unit = core.matchUnit(0);
    unit->triggerPort = port;
    unit->value = QString(port->width() - 1, 'X') + 'R';
    JEX::MatchUnitDialog dialog(unit, false);
    show(visit, &dialog, "match-unit");
}

void visitExpression(const Visitor &visit)
{
    MuExpressionDialog dialog;
    dialog.setType(true);
    for (const char *button :
         {"btnM0", "btnAND", "btnLeftBracket", "btnM1", "btnOR", "btnNOT", "btnM9", "btnRightBracket"})
        dialog.findChild<QPushButton *>(button)->click();
    show(visit, &dialog, "expression");
}

// A bus, a bit of it and a single net.
QList<JEX::SignalItem> portSignals()
{
    JEX::SignalItem bus;
    bus.name = "soc/u_timer/count[3:0]";
    for (int bit = 3; bit >= 0; --bit) {
        bus.members.append(JEX::SignalItem());
        bus.members.last().name = QString("soc/u_timer/count[%1]").arg(bit);
    }
    JEX::SignalItem single;
    single.name = "soc/u_uart/tx_ready";
    return {bus, bus.members.first(), single};
}

void visitTriggerPorts(const Visitor &visit, QUARRY::RtlNetlist *netlist)
{
    JEX::AoCore core(0);
    core.getTrigger(0)->signalItems = portSignals();
    core.getTrigger(2)->signalItems = portSignals().mid(2);
    TriggerPortDialog port(core.getTrigger(0), netlist);
    port.findChild<QTreeWidget *>("treeWidget")->expandAll();
    show(visit, &port, "trigger-port");
    TriggerSingalSelectDialog select(core.triggerPorts);
    for (int box : {0, 2})
        select.findChildren<QCheckBox *>().at(box)->setChecked(true);
    show(visit, &select, "add-from-trigger");
}

void visitWizard(const Visitor &visit, const QString &directory)
{
    JexWizard wizard(directory, nullptr);
    wizard.show();
    for (const char *page : {"wizard-mode", "wizard-file", "wizard-summary"}) {
        show(visit, &wizard, page);
        wizard.next();
    }
}

// As wide as the strips are above an editor.
void visitBanner(const Visitor &visit, ReloadBanner::CheckType type, const char *name)
{
    ReloadBanner banner(type, "capture.zub", nullptr);
    banner.resize(900, banner.heightForWidth(900));
    show(visit, &banner, name);
}

void visitMessages(const Visitor &visit)
{
    MessageDlg messages(nullptr);
    messages.setWindowTitle("Design files contain some errors.");
    messages.setDetailMsg(QStringList() << "ERROR: rtl/timer.v:12: syntax error, unexpected '='");
    show(visit, &messages, "messages");
}

// Every tab of the first core in each configuration of the project.
void visitEditors(const Visitor &visit, const Core::Project &project)
{
    JexViewManager::instance()->initialize();
    QTabWidget *window = Core::ViewManager::instance()->tabWidget();
    window->resize(1280, 800);
    window->show();
    for (const Core::SourceFile &file : project.data().files) {
        const Core::EditorRegistry::Opener open = Core::EditorRegistry::editorFor(file.path);
        if (!open || !open(file.path, TE::TaskEngine::instance()->designManager()->currentDevice()))
            continue;
        const Core::IView *view = Core::ViewManager::instance()->currentView();
        QTabWidget *page = nullptr;
        for (QTabWidget *candidate : view->findChildren<QTabWidget *>())
            page = candidate->isVisible() ? candidate : page;
        for (int i = 0; i < page->count(); ++i) {
            page->setCurrentIndex(i);
            show(visit, window, QString("editor-%1-%2").arg(QFileInfo(file.path).baseName()).arg(i));
        }
    }
    delete window;
}

// The editor that is open, as it would be after a crash.
void visitRecovery(const Visitor &visit, QWidget *window)
{
    Core::IView *view = Core::ViewManager::instance()->currentView();
    const auto *source = dynamic_cast<Core::ISnapshot *>(view);
    if (!source)
        return;
    Workbench::KeptState state;
    state.file = view->editedFile().path;
    state.time = QDateTime::currentDateTime();
    state.snapshot = source->snapshot();
    Workbench::RecoveryDialog dialog({state}, window);
    show(visit, &dialog, "recovery");
}

// The parts of the window that are there at times only.
void visitParts(const Visitor &visit, Workbench::MainWindow *window)
{
    Core::IView *editor = Core::ViewManager::instance()->currentView();
    auto *finder = window->findChild<Workbench::RowFinder *>();
    finder->ask();
    show(visit, finder, "editor-find");
    finder->hide();
    auto *banner = window->findChild<Workbench::ProjectBanner *>();
    banner->showState(Workbench::ProjectFile::Changed, "soc.jexprj");
    show(visit, banner, "banner-project-changed");
    banner->showState(Workbench::ProjectFile::Removed, "soc.jexprj");
    show(visit, banner, "banner-project-removed");
    banner->showState(Workbench::ProjectFile::Same, QString());
    auto *netlist = window->findChild<QDockWidget *>("netlistDock");
    netlist->raise();
    show(visit, netlist->widget(), "netlist");
    window->findChild<QDockWidget *>("projectDock")->raise();
    Workbench::SourceView::open({window->workspace()->project()->data().files.first().path, 3});
    window->findChild<Workbench::FindBar *>()->ask();
    show(visit, window->findChild<Workbench::SourceView *>(), "editor-source");
    Core::ViewManager::instance()->showView(editor);
}

// Without a project, and with this one and its configurations.
void visitWorkbench(const Visitor &visit, const QString &projectFile)
{
    Workbench::chooseIcons();
    Workbench::MainWindow window(nullptr);
    show(visit, &window, "workbench-empty");
    if (!window.workspace()->openProject(projectFile))
        return;
    for (const Core::SourceFile &file : window.workspace()->project()->data().files) {
        if (window.workspace()->canEdit(file.path))
            window.workspace()->openFile(file.path);
    }
    show(visit, &window, "workbench");
    for (const QAction *entry : window.menuBar()->actions()) {
        show(visit, entry->menu(), "menu-" + entry->text().remove('&').toLower());
        entry->menu()->hide();
    }
    visitParts(visit, &window);
    Core::FileWizardRegistry::createFactories();
    Workbench::NewFileDialog newFile(window.workspace()->project()->workingDir(), &window);
    show(visit, &newFile, "new-file");
    Core::FileWizardRegistry::clear();
    Workbench::OptionsDialog options(window.workspace()->project(), &window);
    show(visit, &options, "options");
    Workbench::DeviceDialog device(window.workspace()->project()->data().device, &window);
    show(visit, &device, "device");
    Workbench::SimulateDialog simulate(window.workspace()->project()->workingDir() + "/capture.vcd", nullptr,
                                       &window);
    simulate.addBench({window.workspace()->project()->workingDir() + "/tb/soc_tb.v"});
    show(visit, &simulate, "simulate");
    visitRecovery(visit, &window);
    Workbench::GuideWindow guide(&window);
    guide.setAttribute(Qt::WA_DeleteOnClose, false);
    guide.showTopic("capture");
    show(visit, &guide, "guide");
}

} // namespace

bool tourWindows(const QString &projectFile, const QString &folder, const Visitor &visit, QString *error)
{
    Core::Project project;
    if (!project.load(projectFile, error))
        return false;
    Core::ProjectManager::setCurrentProject(&project);
    QStringList messages;
    const std::unique_ptr<QUARRY::RtlNetlist> netlist(QUARRY::buildNetlist(QUARRY::projectInput(), messages));
    visitEditors(visit, project);
    visitSearch(visit, netlist.get());
    visitMatchUnit(visit, netlist.get());
    visitExpression(visit);
    visitTriggerPorts(visit, netlist.get());
    visitWizard(visit, folder);
    visitBanner(visit, ReloadBanner::Changed, "banner-changed");
    visitBanner(visit, ReloadBanner::Removed, "banner-removed");
    visitMessages(visit);
    Core::ProjectManager::setCurrentProject(nullptr);
    visitWorkbench(visit, QFileInfo(projectFile).absoluteFilePath());
    return true;
}
