#include "elaboration/catchrtl.h"

#include <QCoreApplication>
#include <QMessageBox>

#include "elaboration/elaboration.h"
#include "elaboration/elaborationdialog.h"
#include "host/designmanager.h"
#include "host/modal.h"
#include "model/netlist/rtlnetlist.h"

namespace QUARRY {
namespace {

const int modulesDelayMs = 500;

QString tr(const char *text)
{
    return QCoreApplication::translate("QUARRY", text);
}

// Events that are handled meanwhile may ask for a design again; two readings cannot run inside each other.
class OneAtATime
{
public:
    OneAtATime() : m_isFirst(!isReading) { isReading = true; }
    ~OneAtATime()
    {
        if (m_isFirst)
            isReading = false;
    }
    bool isFirst() const { return m_isFirst; }

private:
    static bool isReading;
    const bool m_isFirst;
};

bool OneAtATime::isReading = false;

QString busyMessage()
{
    return tr("ERROR: A design is being read already. Try again when that is done.");
}

void showFailure(const QStringList &messages, QWidget *parent)
{
    QString first;
    for (const QString &message : messages) {
        if (first.isEmpty() && message.startsWith(QLatin1String("ERROR")))
            first = message;
    }
    QUtil::Modal<QMessageBox> box(new QMessageBox(
        QMessageBox::Critical, tr("Error"),
        tr("The design could not be read.") + QLatin1String("\n\n") + first, QMessageBox::Ok, parent));
    box->setTextFormat(Qt::PlainText);
    box->setDetailedText(messages.join(QLatin1String("\n")));
    box->exec();
}

} // namespace

bool catchRtlNetsWithProgressDialog(RtlNetlist **netlist, QStringList &messages, QWidget *parent)
{
    *netlist = nullptr;
    const OneAtATime reading;
    if (!reading.isFirst()) {
        messages.append(busyMessage());
        return false;
    }
    const DesignInput input =
        designInputFromInfo(TE::TaskEngine::instance()->designManager()->getSourceFileInfo());
    const QPointer<QWidget> owner(parent);
    bool isCancelled = false;
    {
        ElaborationDialog dialog(tr("Read Design"), 0, parent);
        *netlist = buildNetlist(input, messages, &dialog);
        isCancelled = dialog.cancelled();
    }
    if (!*netlist && !isCancelled)
        showFailure(messages, owner);
    return *netlist;
}

bool catchRtlModules(QStringList &topModules, QStringList &modules, QStringList &messages,
                     QMap<QString, QVariant> &info, QWidget *parent)
{
    const OneAtATime reading;
    if (!reading.isFirst()) {
        messages.append(busyMessage());
        return false;
    }
    ElaborationDialog dialog(tr("Read Modules"), modulesDelayMs, parent);
    const ModuleList found = listModules(designInputFromInfo(info), &dialog);
    topModules = found.topModules;
    modules = found.modules;
    messages = found.messages;
    if (found.cancelled)
        messages.append(tr("ERROR: Reading the design was cancelled."));
    for (const QString &message : found.messages) {
        if (message.startsWith(QLatin1String("ERROR")))
            return false;
    }
    return !found.cancelled;
}

} // namespace QUARRY
