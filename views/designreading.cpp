#include "views/designreading.h"

#include <QCoreApplication>
#include <QDir>
#include <QPointer>
#include <QScopedPointer>

#include "host/designmanager.h"
#include "host/modal.h"
#include "model/quarry/catchrtl.h"
#include "model/quarry/rtlnetlist.h"
#include "views/messagedlg.h"

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

bool hasErrors(const QStringList &messages)
{
    for (const QString &message : messages)
        if (message.startsWith(QLatin1String("ERROR")))
            return true;
    return false;
}

QStringList sourcePaths(const QMap<QString, QVariant> &info)
{
    QStringList paths;
    const QVariantList files = info.value("Files").toList();
    for (const QVariant &file : files)
        paths << file.toMap().value("Path").toString();
    return paths;
}

bool accept(const DesignFault &fault, QWidget *editor)
{
    if (fault.isNull())
        return true;
    if (fault.details.isEmpty()) {
        QUtil::messageBox(editor, QMessageBox::Critical, fault.title, fault.text);
    } else {
        QUtil::Modal<MessageDlg> dialog(new MessageDlg(editor));
        dialog->setWindowTitle(fault.title);
        dialog->setDetailMsg(fault.details);
        dialog->exec();
    }
    return false;
}

} // namespace

DesignFault judgeFiles(const QStringList &files)
{
    return files.isEmpty() ? fault(tr("Error"), tr("Design files are not exist.")) : DesignFault();
}

DesignFault judgeModules(const ModuleFindings &found)
{
    if (hasErrors(found.messages)) {
        DesignFault errors = fault(tr("Design files contain some errors."), QString());
        errors.details = found.messages;
        return errors;
    }
    const DesignFault noModule =
        fault(tr("Design files contain some errors"), tr("Get no module from design."));
    if (found.modules.isEmpty() && found.top.isEmpty())
        return noModule;
    if (found.modules.isEmpty())
        return fault(tr("Invalid Top Module"),
                     tr("No module named \"") + found.top + tr("\", please reset top module."));
    if (found.topModules.size() == 1)
        return DesignFault();
    return found.top.isEmpty() ? fault(tr("Multiple Top Module"), tr("Multiple top, please set top module."))
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

bool readDesign(QWidget *editor, QUARRY::RtlNetlist **netlist)
{
    const QPointer<QWidget> alive(editor);
    QMap<QString, QVariant> info = TE::TaskEngine::instance()->designManager()->getSourceFileInfo();
    if (!accept(judgeFiles(sourcePaths(info)), editor))
        return false;
    ModuleFindings found;
    found.top = info.value("Top").toString();
    catchDesignModules(info, found.topModules, found.modules, found.messages);
    if (!alive || !accept(judgeModules(found), editor))
        return false;
    QScopedPointer<QUARRY::RtlNetlist> fresh(catchDesignNetlist());
    if (!alive || !accept(judgeNetlist(found.top, fresh.data()), editor))
        return false;
    *netlist = fresh.take();
    return true;
}

void catchDesignModules(QMap<QString, QVariant> &info, QStringList &topModules, QStringList &modules,
                        QStringList &messages)
{
    QUARRY::catchRtlModules(topModules, modules, messages, info, nullptr);
}

QUARRY::RtlNetlist *catchDesignNetlist()
{
    QUARRY::RtlNetlist *netlist = nullptr;
    QStringList messages;
    QUARRY::catchRtlNetsWithProgressDialog(&netlist, messages, nullptr);
    return netlist;
}

QStringList projectIncludePaths()
{
    const TE::DesignManager *manager = TE::TaskEngine::instance()->designManager();
    QStringList paths = manager->getOptionValue("IncludePath").toStringList();
    for (QString &path : paths)
        if (QDir::isRelativePath(path))
            path = QDir::cleanPath(manager->workingDir() + "/" + path);
    return paths;
}

} // namespace RTLJEX
