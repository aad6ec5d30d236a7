#include "check/designjudgement.h"

#include <QCoreApplication>

#include "elaboration/elaboration.h"
#include "model/netlist/rtlnetlist.h"

namespace RTLJEX {
namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("RTLJEX::DesignReading", text);
}

DesignFault fault(const QString &title, const QString &text)
{
    DesignFault fault;
    fault.title = title;
    fault.text = text;
    return fault;
}

} // namespace

DesignFault judgeFiles(const QStringList &files)
{
    return files.isEmpty() ? fault(tr("Error"), tr("Design files are not exist.")) : DesignFault();
}

DesignFault judgeModules(const QString &top, const QUARRY::ModuleList &found)
{
    if (found.anyError()) {
        DesignFault errors = fault(tr("Design files contain some errors."), QString());
        errors.details = found.messages;
        return errors;
    }
    const DesignFault noModule =
        fault(tr("Design files contain some errors"), tr("Get no module from design."));
    if (found.modules.isEmpty() && top.isEmpty())
        return noModule;
    if (found.modules.isEmpty())
        return fault(tr("Invalid Top Module"),
                     tr("No module named \"") + top + tr("\", please reset top module."));
    if (found.topModules.size() == 1)
        return DesignFault();
    return top.isEmpty() ? fault(tr("Multiple Top Module"), tr("Multiple top, please set top module."))
                         : noModule;
}

DesignFault judgeNetlist(const QString &top, const QUARRY::RtlNetlist *netlist)
{
    if (!netlist)
        return DesignFault();
    const QString received = netlist->topHierarchy ? netlist->topHierarchy->instanceName : QString();
    if (!top.isEmpty() && received != top)
        return fault(tr("Error"),
                     tr("Get module \"%1\" failed, just received default module \"%2\".").arg(top, received));
    if (netlist->usesTsJtag)
        return fault(tr("Error"), tr("TS_JTAG used in design conflicts with ZUB."));
    return DesignFault();
}

} // namespace RTLJEX
