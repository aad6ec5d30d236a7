#include "tools/guidescenes.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QDockWidget>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QRegularExpression>
#include <QThread>
#include <QTreeView>

#include "host/iview.h"
#include "host/viewmanager.h"
#include "workbench/icons.h"
#include "workbench/mainwindow.h"
#include "workbench/messagemodel.h"
#include "workbench/messagepane.h"
#include "workbench/netlistpane.h"
#include "workbench/simulatedialog.h"
#include "workbench/workspace.h"

namespace {

using namespace Workbench;

void wait(int milliseconds)
{
    QElapsedTimer time;
    for (time.start(); time.elapsed() < milliseconds; QThread::msleep(5))
        QCoreApplication::processEvents();
}

bool copyFolder(const QString &from, const QString &to)
{
    for (QDirIterator it(from, QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
        const QString file = it.next();
        const QString copy = to + file.mid(from.size());
        if (!QDir().mkpath(QFileInfo(copy).path()) || !QFile::copy(file, copy))
            return false;
    }
    return true;
}

// An edit of the design that nobody told the configurations of.
bool renameState(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite))
        return false;
    const QByteArray text =
        QString(file.readAll()).replace(QRegularExpression("\\bstate\\b"), "phase").toUtf8();
    return file.resize(0) && file.seek(0) && file.write(text) == text.size();
}

void showNetlist(MainWindow &window, const Visitor &visit)
{
    auto *dock = window.findChild<QDockWidget *>("netlistDock");
    dock->raise();
    auto *instances = dock->findChild<QTreeView *>();
    QElapsedTimer time;
    for (time.start(); instances->model()->rowCount() == 0 && time.elapsed() < 60000;)
        wait(20);
    instances->expandAll();
    dock->findChild<QLineEdit *>()->setText("count");
    wait(500); // the search begins when the typing ends
    visit(dock, "netlist");
    window.findChild<QDockWidget *>("projectDock")->raise();
}

} // namespace

QString copyProject(const QString &projectFile, const QString &folder, QString *error)
{
    const QFileInfo original(projectFile);
    if (QDir().mkdir(folder) && copyFolder(original.absolutePath(), folder))
        return folder + '/' + original.fileName();
    *error = "Can not copy the project to " + folder + ", which must not be there before.";
    return QString();
}

bool showGuideScenes(const QString &projectFile, const Visitor &visit, QString *error)
{
    chooseIcons();
    MainWindow window(nullptr);
    const QString folder = QFileInfo(projectFile).absolutePath();
    if (!window.workspace()->openProject(projectFile)) {
        *error = "Can not open " + projectFile + '.';
        return false;
    }
    window.resize(1024, 700);
    window.show();
    showNetlist(window, visit);
    window.workspace()->openFile(folder + "/capture.zub");
    wait(300);
    visit(&window, "window");
    if (!renameState(folder + "/rtl/bus_bridge.sv")) {
        *error = "Can not write the copy of the project.";
        return false;
    }
    delete Core::ViewManager::instance()->currentView()->parentWidget();
    window.findChild<MessagePane *>()->model()->clear();
    window.workspace()->openFile(folder + "/capture.zub");
    wait(300);
    visit(window.findChild<QDockWidget *>("messageDock"), "findings");
    SimulateDialog simulation("capture.vcd", nullptr, &window);
    simulation.addBench({"tb/soc_tb.v"});
    simulation.show();
    visit(&simulation, "simulate");
    return true;
}
