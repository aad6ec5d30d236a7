#include "workbench/report.h"

#include <QDir>
#include <QFileInfo>
#include <memory>

#include "check/configuration.h"
#include "elaboration/elaboration.h"
#include "host/project.h"
#include "model/netlist/rtlmodule.h"
#include "model/netlist/rtlnetlist.h"

namespace Workbench {
namespace {

struct Counts
{
    int instances = 0;
    int nets = 0;
    int buses = 0;
    int busBits = 0;
};

// Scopes that the design wrote are nodes too, but no instances.
void count(const QUARRY::Hierachy *node, Counts &counts)
{
    counts.instances += !node->declarations().isScope();
    counts.nets += node->nets.size();
    counts.buses += node->buses.size();
    for (const QUARRY::RtlNetBus *bus : node->buses)
        counts.busBits += bus->members.size();
    for (const QUARRY::Hierachy *child : node->children)
        count(child, counts);
}

void reportConfiguration(const QString &path, const QUARRY::RtlNetlist *netlist, DesignReport &report)
{
    const QString name = QFileInfo(path).fileName() + ": ";
    RTLJEX::Configuration configuration;
    QString error;
    bool ok = configuration.read(path, &error);
    if (ok) {
        const QList<RTLJEX::AnyCore> cores = configuration.cores();
        int signalCount = 0;
        for (const RTLJEX::AnyCore &core : cores)
            signalCount += core.signalRows->size();
        report.lines << name + configuration.modeName() +
                            QString(", cores: %1, capture signals: %2").arg(cores.size()).arg(signalCount);
        ok = configuration.check(netlist, &error);
        report.lines << name + "check " + (ok ? "passed" : "found:\n" + error);
    } else {
        report.lines << name + error;
    }
    report.good = report.good && ok;
}

} // namespace

DesignReport designReport(const QStringList &configurations)
{
    const Core::Project *project = Core::ProjectManager::currentProject();
    if (!project)
        return {{"No project is open."}, false};
    const QUARRY::DesignInput input = QUARRY::projectInput();
    const QUARRY::ModuleList modules = QUARRY::listModules(input);
    QStringList messages = modules.messages;
    const std::unique_ptr<QUARRY::RtlNetlist> netlist(QUARRY::buildNetlist(input, messages));
    messages.removeDuplicates();
    DesignReport report;
    report.lines << "Project: " + (project->name().isEmpty() ? QString("unnamed") : project->name())
                 << QString("Design files: %1").arg(input.files.size())
                 << QString("Modules: %1").arg(modules.modules.size())
                 << "Top: " + modules.topModules.join(", ");
    if (netlist && netlist->topHierarchy) {
        Counts counts;
        count(netlist->topHierarchy, counts);
        report.lines << QString("Instances: %1").arg(counts.instances)
                     << QString("Nets: %1 single, %2 buses with %3 bits")
                            .arg(counts.nets)
                            .arg(counts.buses)
                            .arg(counts.busBits);
    } else {
        report.lines << "No netlist.";
        report.good = false;
    }
    report.lines += messages;
    for (const QString &path : configurations)
        reportConfiguration(path, netlist.get(), report);
    return report;
}

} // namespace Workbench
