#include "workbench/report.h"

#include <QDir>
#include <QFileInfo>
#include <memory>

#include "host/designmanager.h"
#include "host/project.h"
#include "model/jex/jexfile.h"
#include "model/quarry/elaboration.h"
#include "model/quarry/rtlnetlist.h"
#include "views/configcheck.h"

namespace Workbench {
namespace {

struct Counts
{
    int instances = 0;
    int nets = 0;
    int buses = 0;
    int busBits = 0;
};

// Scopes that the design wrote are nodes too, but have no module of their own.
void count(const QUARRY::Hierachy *node, Counts &counts)
{
    counts.instances += !node->moduleName.isEmpty();
    counts.nets += node->nets.size();
    counts.buses += node->buses.size();
    for (const QUARRY::RtlNetBus *bus : node->buses)
        counts.busBits += bus->members.size();
    for (const QUARRY::Hierachy *child : node->children)
        count(child, counts);
}

void reportConfiguration(const QString &path, const QUARRY::RtlNetlist *netlist, QStringList &lines)
{
    const QString name = QFileInfo(path).fileName();
    if (JEX::jexModeFromJexConfigFile(path) != JEX::LiteMode) {
        lines << name + ": not a Lite configuration";
        return;
    }
    bool ok = false;
    QString error;
    const QList<JEX::AOCore_Lite *> cores = JEX::readJEXConfigFromXml_Lite(path, &ok, &error);
    if (!ok) {
        lines << name + ": " + error;
        return;
    }
    int signalCount = 0;
    for (const JEX::AOCore_Lite *core : cores)
        signalCount += core->captureSignals.size();
    lines << name + QString(": Lite, cores: %1, capture signals: %2").arg(cores.size()).arg(signalCount);
    const bool good = RTLJEX::checkLiteCores(cores, netlist, &error);
    lines << name + ": check " + (good ? "passed" : "found:\n" + error);
    qDeleteAll(cores);
}

QUARRY::DesignInput currentDesign()
{
    return QUARRY::designInputFromInfo(TE::TaskEngine::instance()->designManager()->getSourceFileInfo());
}

} // namespace

QStringList designMessages()
{
    QStringList messages = QUARRY::listModules(currentDesign(), nullptr).messages;
    messages.removeDuplicates();
    return messages;
}

QString designReport(const QStringList &configurations)
{
    QStringList lines;
    const Core::Project *project = Core::ProjectManager::currentProject();
    if (!project)
        return "No project is open.";
    lines << "Project: " + (project->name().isEmpty() ? QString("unnamed") : project->name());
    const QUARRY::DesignInput input = currentDesign();
    lines << QString("Design files: %1").arg(input.files.size());
    const QUARRY::ModuleList modules = QUARRY::listModules(input, nullptr);
    QStringList messages = modules.messages;
    lines << QString("Modules: %1").arg(modules.modules.size());
    lines << "Top: " + modules.topModules.join(", ");
    const std::unique_ptr<QUARRY::RtlNetlist> netlist(QUARRY::buildNetlist(input, messages, nullptr));
    if (netlist && netlist->topHierarchy) {
        Counts counts;
        count(netlist->topHierarchy, counts);
        lines << QString("Instances: %1").arg(counts.instances);
        lines << QString("Nets: %1 single, %2 buses with %3 bits")
                     .arg(counts.nets)
                     .arg(counts.buses)
                     .arg(counts.busBits);
    } else {
        lines << "No netlist.";
    }
    messages.removeDuplicates();
    lines += messages;
    for (const QString &path : configurations)
        reportConfiguration(path, netlist.get(), lines);
    return lines.join('\n');
}

} // namespace Workbench
