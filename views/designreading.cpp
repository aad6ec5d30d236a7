#include "views/designreading.h"

#include <QPointer>
#include <QScopedPointer>

#include "elaboration/catchrtl.h"
#include "elaboration/elaboration.h"
#include "host/absolutepath.h"
#include "host/designmanager.h"
#include "host/eventmanager.h"
#include "host/modal.h"
#include "model/netlist/rtlnetlist.h"
#include "views/editorview.h"
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
    QMap<QString, QVariant> data;
    data.insert(QLatin1String("text"), fault.sentence());
    QUtil::EventManager::instance()->post(QLatin1String(DesignRefusedTopic), data);
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

DesignReading readDesign(EditorView *editor, QUARRY::RtlNetlist **netlist)
{
    const QPointer<QWidget> alive(editor);
    QMap<QString, QVariant> info = TE::TaskEngine::instance()->designManager()->getSourceFileInfo();
    if (!accept(judgeFiles(sourcePaths(info)), editor))
        return DesignRefused;
    const QString top = info.value("Top").toString();
    QUARRY::ModuleList found;
    editor->getRtlModules(info, found.topModules, found.modules, found.messages);
    if (!alive || QUARRY::wasCatchingCancelled())
        return DesignCancelled;
    if (!accept(judgeModules(top, found), editor))
        return DesignRefused;
    QScopedPointer<QUARRY::RtlNetlist> fresh(editor->updateRtlNetlist());
    if (!alive || QUARRY::wasCatchingCancelled())
        return DesignCancelled;
    if (!accept(judgeNetlist(top, fresh.data()), editor))
        return DesignRefused;
    *netlist = fresh.take();
    return DesignRead;
}

bool catchDesignModules(QMap<QString, QVariant> &info, QStringList &topModules, QStringList &modules,
                        QStringList &messages)
{
    return QUARRY::catchRtlModules(topModules, modules, messages, info, nullptr);
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
        path = QUtil::absoluteIn(manager->workingDir(), path);
    return paths;
}

} // namespace RTLJEX
