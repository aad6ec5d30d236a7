#include "check/designjudgement.h"

#include <QCoreApplication>

#include "elaboration/elaboration.h"
#include "model/netlist/rtlnetlist.h"

namespace RTLJEX {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(RTLJEX::DesignJudgement)
};

DesignFault fault(const QString &title, const QString &text)
{
    DesignFault fault;
    fault.title = title;
    fault.text = text;
    return fault;
}

} // namespace

QString DesignFault::sentence() const
{
    return details.isEmpty() ? title + QLatin1String(": ") + text : title;
}

DesignFault judgeFiles(const QStringList &files)
{
    return files.isEmpty() ? fault(Texts::tr("Error"), Texts::tr("Design files are not exist."))
                           : DesignFault();
}

DesignFault judgeModules(const QString &top, const QUARRY::ModuleList &found)
{
    if (found.anyError()) {
        DesignFault errors = fault(Texts::tr("Design files contain some errors."), QString());
        errors.details = found.messages;
        return errors;
    }
    const DesignFault noModule =
        fault(Texts::tr("Design files contain some errors"), Texts::tr("Get no module from design."));
    if (found.modules.isEmpty() && top.isEmpty())
        return noModule;
    if (found.modules.isEmpty())
        return fault(Texts::tr("Invalid Top Module"),
                     Texts::tr("No module named \"%1\", please reset top module.").arg(top));
    if (found.topModules.size() == 1)
        return DesignFault();
    return top.isEmpty()
               ? fault(Texts::tr("Multiple Top Module"), Texts::tr("Multiple top, please set top module."))
               : noModule;
}

DesignFault judgeNetlist(const QString &top, const QUARRY::RtlNetlist *netlist)
{
    if (!netlist)
        return DesignFault();
    const QString received = netlist->topHierarchy ? netlist->topHierarchy->instanceName : QString();
    if (!top.isEmpty() && received != top)
        return fault(
            Texts::tr("Error"),
            Texts::tr("Get module \"%1\" failed, just received default module \"%2\".").arg(top, received));
    if (netlist->usesTsJtag)
        return fault(Texts::tr("Error"), Texts::tr("TS_JTAG used in design conflicts with ZUB."));
    return DesignFault();
}

} // namespace RTLJEX
