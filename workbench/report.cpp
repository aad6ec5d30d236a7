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

template <class Core>
using Read = QList<Core *>(const QString &path, bool *ok, QString *errorMessage);
template <class Core>
using Check = bool(const QList<Core *> &cores, const QUARRY::RtlNetlist *netlist, QString *errors);

// What follows the name of the file.
template <class Core>
QStringList configurationLines(const QString &mode, Read<Core> read, Check<Core> check, const QString &path,
                               const QUARRY::RtlNetlist *netlist)
{
    bool ok = false;
    QString error;
    const QList<Core *> cores = read(path, &ok, &error);
    if (!ok)
        return {error};
    int signalCount = 0;
    for (const Core *core : cores)
        signalCount += core->captureSignals.size();
    const bool good = check(cores, netlist, &error);
    const QString contents =
        QString("%1, cores: %2, capture signals: %3").arg(mode).arg(cores.size()).arg(signalCount);
    qDeleteAll(cores);
    return {contents, "check " + (good ? "passed" : "found:\n" + error)};
}

QStringList configurationLines(const QString &path, const QUARRY::RtlNetlist *netlist)
{
    switch (JEX::jexModeFromJexConfigFile(path)) {
    case JEX::StandardMode:
        return configurationLines("Standard", JEX::readJEXConfigFromXml, RTLJEX::checkStandardCores, path,
                                  netlist);
    case JEX::LiteMode:
        return configurationLines("Lite", JEX::readJEXConfigFromXml_Lite, RTLJEX::checkLiteCores, path,
                                  netlist);
    default:
        return {"neither a Standard nor a Lite configuration"};
    }
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
        for (const QString &line : configurationLines(path, netlist.get()))
            lines << QFileInfo(path).fileName() + ": " + line;
    return lines.join('\n');
}

} // namespace Workbench
