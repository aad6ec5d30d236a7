// Writes pictures of the editors of a project's configurations, and of their dialogs, banners and wizard
// pages:
//     jexshot PROJECT DIRECTORY
// The main window has its own way: jexworkbench --shot.

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QMap>
#include <QPushButton>
#include <QTabWidget>
#include <QTextStream>
#include <QTreeWidget>
#include <memory>

#include "elaboration/elaboration.h"
#include "host/designmanager.h"
#include "host/editorregistry.h"
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

namespace {

using namespace RTLJEX;

class Camera
{
public:
    explicit Camera(const QString &directory) : m_directory(directory) {}

    // Shows the window, lets it settle and takes its picture.
    void take(QWidget *window, const QString &name)
    {
        window->show();
        QCoreApplication::processEvents();
        const QString file = m_directory.filePath(name + ".png");
        if (window->grab().save(file))
            return;
        QTextStream(stderr) << "Can not write the picture " << file << ".\n";
        m_failed = true;
    }

    bool failed() const { return m_failed; }

private:
    QDir m_directory;
    bool m_failed = false;
};

void shootSearch(Camera &camera, QUARRY::RtlNetlist *netlist)
{
    JexSignalSelectDialog dialog(netlist);
    dialog.show();
    dialog.findChild<QLineEdit *>("lineEditName")->setText("count");
    dialog.findChild<QPushButton *>("pushButtonSearch")->click();
    camera.take(&dialog, "search");
    dialog.findChild<QLineEdit *>("lineEditName")->setText("ready");
    for (const char *box : {"checkBoxAdvancedFilter", "checkBoxIncludeSubentries", "checkBoxHierarchyView"})
        dialog.findChild<QCheckBox *>(box)->setChecked(true);
    dialog.findChild<QPushButton *>("pushButtonSearch")->click();
    dialog.findChild<QTreeWidget *>("treeWidget")->expandAll();
    camera.take(&dialog, "search-hierarchy");
}

// A unit that waits for the last bit of the design's first bus to rise.
void shootMatchUnit(Camera &camera, QUARRY::RtlNetlist *netlist)
{
    const QUARRY::Hierachy *top = netlist ? netlist->topHierarchy : nullptr;
    const QList<QUARRY::RtlNetBus *> buses = top ? top->netbusesIncludeSub() : QList<QUARRY::RtlNetBus *>();
    if (buses.isEmpty())
        return;
    JEX::AoCore core(0);
    JEX::TriggerPort *port = core.getTrigger(0);
    for (const QUARRY::RtlNet *bit : buses.first()->members) {
        port->signalItems.append(JEX::SignalItem());
        port->signalItems.last().name = bit->fullPathName();
    }
    JEX::MatchUnit *unit = core.matchUnit(0);
    unit->triggerPort = port;
    unit->value = QString(port->width() - 1, 'X') + 'R';
    JEX::MatchUnitDialog dialog(unit, false);
    camera.take(&dialog, "match-unit");
}

void shootExpression(Camera &camera)
{
    MuExpressionDialog dialog;
    dialog.setType(true);
    for (const char *button : {"btnM0", "btnAND", "btnLeftBracket", "btnM1", "btnOR", "btnNOT", "btnM9"})
        dialog.findChild<QPushButton *>(button)->click();
    camera.take(&dialog, "expression");
}

// A bus, a bit of it and a single net.
QList<JEX::SignalItem> portSignals()
{
    JEX::SignalItem bus;
    bus.name = "soc/timer0/count[3:0]";
    for (int bit = 3; bit >= 0; --bit) {
        bus.members.append(JEX::SignalItem());
        bus.members.last().name = QString("soc/timer0/count[%1]").arg(bit);
    }
    JEX::SignalItem single;
    single.name = "soc/uart0/tx_ready";
    return {bus, bus.members.first(), single};
}

void shootTriggerPorts(Camera &camera, QUARRY::RtlNetlist *netlist)
{
    JEX::AoCore core(0);
    core.getTrigger(0)->signalItems = portSignals();
    core.getTrigger(2)->signalItems = portSignals().mid(2);
    TriggerPortDialog port(core.getTrigger(0), netlist);
    port.findChild<QTreeWidget *>("treeWidget")->expandAll();
    camera.take(&port, "trigger-port");
    TriggerSingalSelectDialog select(core.triggerPorts);
    for (int box : {0, 2})
        select.findChildren<QCheckBox *>().at(box)->setChecked(true);
    camera.take(&select, "add-from-trigger");
}

void shootWizard(Camera &camera, const QString &directory)
{
    JexWizard wizard(directory, nullptr);
    wizard.show();
    for (const char *page : {"wizard-mode", "wizard-file", "wizard-summary"}) {
        camera.take(&wizard, page);
        wizard.next();
    }
}

// As wide as the strips are above an editor.
void shootBanner(Camera &camera, ReloadBanner::CheckType type, const char *name)
{
    ReloadBanner banner(type, "capture.zub", nullptr);
    banner.resize(900, banner.heightForWidth(900));
    camera.take(&banner, name);
}

void shootMessages(Camera &camera)
{
    MessageDlg messages(nullptr);
    messages.setWindowTitle("Design files contain some errors.");
    messages.setDetailMsg(QStringList() << "ERROR: rtl/timer.v:12: syntax error, unexpected '='");
    camera.take(&messages, "messages");
}

// Every tab of the first core in each configuration of the project.
void shootEditors(Camera &camera, const Core::Project &project)
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
            camera.take(window, QString("editor-%1-%2").arg(QFileInfo(file.path).baseName()).arg(i));
        }
    }
    delete window;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    QTextStream err(stderr);
    if (arguments.size() != 3) {
        err << "Usage: jexshot PROJECT DIRECTORY\n";
        return 2;
    }
    Core::Project project;
    QString error;
    if (!project.load(arguments.at(1), &error)) {
        err << error << '\n';
        return 1;
    }
    Core::ProjectManager::setCurrentProject(&project);
    QStringList messages;
    const std::unique_ptr<QUARRY::RtlNetlist> netlist(QUARRY::buildNetlist(
        QUARRY::designInputFromInfo(TE::TaskEngine::instance()->designManager()->getSourceFileInfo()),
        messages));
    Camera camera(arguments.at(2));
    shootEditors(camera, project);
    shootSearch(camera, netlist.get());
    shootMatchUnit(camera, netlist.get());
    shootExpression(camera);
    shootTriggerPorts(camera, netlist.get());
    shootWizard(camera, arguments.at(2));
    shootBanner(camera, ReloadBanner::Changed, "banner-changed");
    shootBanner(camera, ReloadBanner::Removed, "banner-removed");
    shootMessages(camera);
    Core::ProjectManager::setCurrentProject(nullptr);
    return camera.failed() ? 1 : 0;
}
