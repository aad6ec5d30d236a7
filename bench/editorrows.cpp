#include "bench/bench.h"
#include "bench/context.h"

#include <QCoreApplication>
#include <QFile>

#include "host/project.h"
#include "model/jex/jexfile.h"
#include "views/jexstandardinserterview.h"

namespace {

const int signalCount = 1000;

// A design with that many nets below its top, a fifth of them bits of buses.
bool writeDesign(const QString &path)
{
    QByteArray text = "module top(input clk);\n";
    for (int i = 0; i < signalCount * 4 / 5; ++i)
        text += "  reg net_with_a_name_of_usual_length_" + QByteArray::number(i) + ";\n";
    for (int i = 0; i < signalCount / 5; ++i)
        text += "  reg [7:0] bus_with_a_name_of_usual_length_" + QByteArray::number(i) + ";\n";
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text + "endmodule\n") > 0;
}

JEX::SignalItem item(const QString &name, int type)
{
    JEX::SignalItem item;
    item.name = QStringLiteral("top/") + name;
    item.type = type;
    return item;
}

// Nothing for the check to find.
void fill(JEX::AoCore *core)
{
    core->sampleClock = QStringLiteral("top/clk");
    core->triggerPorts.first()->signalItems << item(QStringLiteral("clk"), 0);
    JEX::MatchUnit *unit = core->matchUnits.first();
    unit->enabled = true;
    unit->triggerPort = core->triggerPorts.first();
    unit->value = QStringLiteral("1");
    core->expressions << QStringLiteral("M0");
    for (int i = 0; i < signalCount * 4 / 5; ++i)
        core->captureSignals << item(QStringLiteral("net_with_a_name_of_usual_length_%1").arg(i), 0);
    for (int i = 0; i < signalCount / 5; ++i) {
        const QString name = QStringLiteral("bus_with_a_name_of_usual_length_%1[").arg(i);
        core->captureSignals << item(name + QStringLiteral("7:0]"), 1);
        for (int bit = 7; bit >= 0; --bit)
            core->captureSignals.last().members << item(name + QString::number(bit) + QLatin1Char(']'), 1);
    }
    core->enabledCaptureSignals = core->captureSignals;
}

bool writeConfiguration(const QString &path)
{
    QList<JEX::AoCore *> cores;
    for (int i = 0; i < JEX::CoreLimit; ++i) {
        cores << new JEX::AoCore(i);
        fill(cores.last());
    }
    const bool written = JEX::writeJEXConfigToXml(cores, path);
    qDeleteAll(cores);
    return written;
}

void printWait(const char *work, double figure, double goal)
{
    print({QLatin1String(work), figure, 0, goal, QStringLiteral("ms")});
}

} // namespace

// What a user waits for in an editor of 16 cores with 1,000 capture signals each. The goals are what people
// take for at once; the first and the last have a process to start.
void measureEditor(Context &context)
{
    const QString source = context.dir.filePath(QStringLiteral("editor.v"));
    const QString path = context.dir.filePath(QStringLiteral("editor.zub"));
    if (!writeDesign(source) || !writeConfiguration(path))
        qFatal("the editor's files cannot be written");
    Core::Project project;
    Core::ProjectManager::setCurrentProject(&project);
    project.addFile(source);

    RTLJEX::JexStandardInserterView view(nullptr);
    view.resize(1280, 800);
    view.show();
    bool done = true;
    const double opening = fastest(1, [&] {
        done = view.open(path, QString(), nullptr);
        QCoreApplication::processEvents();
    });
    const double switching = fastest(3, [&] {
        for (int i = 0; i < JEX::CoreLimit; ++i) {
            view.changeAoWidget(i);
            QCoreApplication::processEvents();
        }
    });
    const double saving = fastest(3, [&] { done = done && view.save(); });
    const double file = fastest(3, [&] { done = done && view.reloadJexFile(); });
    const double design = fastest(3, [&] { done = done && view.readRtlNetlist(); });
    Core::ProjectManager::setCurrentProject(nullptr);
    if (!done)
        qFatal("the editor did not do what is measured");
    printWait("open an editor of 16 cores, 1,000 capture signals each", opening, 1000);
    printWait("  show the page of another core", switching / JEX::CoreLimit, 100);
    printWait("  save", saving, 500);
    printWait("  reload the file", file, 500);
    printWait("  reload the design", design, 1000);
    measureUndo(view);
}
