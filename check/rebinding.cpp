#include "check/rebinding.h"

#include <QCoreApplication>
#include <QSet>

namespace RTLJEX {
namespace {

// New names that the design does not have as they are now stored.
QStringList unbound(const Rebinding &made)
{
    QSet<QString> renamed;
    for (const auto &change : made.changes)
        renamed.insert(change.second);
    QStringList names;
    for (const StaleSignal &signal : made.findings.stale) {
        if (renamed.contains(signal.name) || renamed.contains(signal.group))
            names << signal.name;
    }
    names.removeDuplicates();
    return names;
}

Rebinding judged(const Renaming::Changes &changes, const QStringList &brokenBefore,
                 const QUARRY::RtlNetlist &netlist, const Configuration &configuration)
{
    Rebinding made;
    made.changes = changes;
    made.findings = configuration.judge(netlist);
    const QStringList lost = unbound(made);
    const QStringList broken = brokenRows(configuration);
    QStringList added = broken;
    for (const QString &sentence : brokenBefore)
        added.removeOne(sentence);
    if (!lost.isEmpty())
        made.refusal = QCoreApplication::translate("RTLJEX::Rebinding", "The design does not have %1 so.")
                           .arg(lost.join(QLatin1String(", ")));
    else if (broken.size() > brokenBefore.size())
        made.refusal = added.first();
    return made;
}

} // namespace

Rebinding rebind(const Renaming &renaming, const QUARRY::RtlNetlist &netlist, Configuration &configuration)
{
    const QStringList broken = brokenRows(configuration);
    return judged(renaming.apply(configuration), broken, netlist, configuration);
}

Rebinding rebindAt(const QList<StaleSignal> &stale, const Renaming &renaming,
                   const QUARRY::RtlNetlist &netlist, Configuration &configuration)
{
    const QStringList broken = brokenRows(configuration);
    return judged(renaming.applyTo(stale, configuration), broken, netlist, configuration);
}

} // namespace RTLJEX
