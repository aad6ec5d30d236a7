#include "views/designreading.h"

#include <QDir>
#include <QPointer>
#include <QScopedPointer>

#include "elaboration/catchrtl.h"
#include "elaboration/elaboration.h"
#include "host/designmanager.h"
#include "host/modal.h"
#include "model/netlist/rtlnetlist.h"
#include "views/messagedlg.h"

namespace RTLJEX {
namespace {

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

bool readDesign(QWidget *editor, QUARRY::RtlNetlist **netlist)
{
    const QPointer<QWidget> alive(editor);
    QMap<QString, QVariant> info = TE::TaskEngine::instance()->designManager()->getSourceFileInfo();
    if (!accept(judgeFiles(sourcePaths(info)), editor))
        return false;
    const QString top = info.value("Top").toString();
    QUARRY::ModuleList found;
    catchDesignModules(info, found.topModules, found.modules, found.messages);
    if (!alive || !accept(judgeModules(top, found), editor))
        return false;
    QScopedPointer<QUARRY::RtlNetlist> fresh(catchDesignNetlist());
    if (!alive || !accept(judgeNetlist(top, fresh.data()), editor))
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
    for (QString &path : paths) {
        if (QDir::isRelativePath(path))
            path = QDir::cleanPath(manager->workingDir() + "/" + path);
    }
    return paths;
}

} // namespace RTLJEX
