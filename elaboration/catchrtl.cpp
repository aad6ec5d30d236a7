#include "elaboration/catchrtl.h"

#include <QCoreApplication>
#include <QMessageBox>

#include "elaboration/elaboration.h"
#include "elaboration/jobdialog.h"
#include "elaboration/readingjob.h"
#include "host/designnews.h"
#include "host/eventmanager.h"
#include "host/modal.h"
#include "model/netlist/rtlnetlist.h"

namespace QUARRY {
namespace {

const int modulesDelayMs = 500;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(QUARRY::CatchRtl)
};

bool isReading = false;
bool wasCancelled = false;

// Until the caller is told how it went, boxes included.
class NewsKept
{
public:
    NewsKept() : m_news(new TE::DesignNews) {}
    ~NewsKept() { m_news->end(); }

private:
    NewsKept(const NewsKept &);
    NewsKept &operator=(const NewsKept &);

    TE::DesignNews *m_news;
};

// Runs the job below a dialog. False when another one runs already: events that are handled meanwhile may ask
// for a design again, and two readings cannot run inside each other.
bool runAlone(ReadingJob &job, const QString &title, int delayMs, QWidget *parent)
{
    wasCancelled = isReading;
    if (isReading)
        return false;
    isReading = true;
    JobDialog(title, delayMs, parent).run(job);
    isReading = false;
    wasCancelled = job.isCancelled();
    return true;
}

QString busyMessage()
{
    return Texts::tr("ERROR: A design is being read already. Try again when that is done.");
}

void tellMessages(const ReadingJob &job)
{
    if (job.isCancelled())
        return;
    QMap<QString, QVariant> data;
    data.insert(QLatin1String("messages"), job.modules().messages + job.netlistMessages());
    data.insert(QLatin1String("topModules"), job.modules().topModules);
    QUtil::EventManager::instance()->post(QLatin1String(DesignMessagesTopic), data);
}

void showFailure(const QStringList &messages, QWidget *parent)
{
    const auto found = std::find_if(messages.begin(), messages.end(), isError);
    const QString first = found == messages.end() ? QString() : *found;
    QUtil::Modal<QMessageBox> box(new QMessageBox(
        QMessageBox::Critical, Texts::tr("Error"),
        Texts::tr("The design could not be read.") + QLatin1String("\n\n") + first, QMessageBox::Ok, parent));
    box->setTextFormat(Qt::PlainText);
    box->setDetailedText(messages.join(QLatin1String("\n")));
    box->exec();
}

} // namespace

bool catchRtlNetsWithProgressDialog(RtlNetlist **netlist, QStringList &messages, QWidget *parent)
{
    const NewsKept news;
    *netlist = nullptr;
    ReadingJob job(projectInput(), ReadingJob::Netlist);
    const QPointer<QWidget> owner(parent);
    if (!runAlone(job, Texts::tr("Read Design"), 0, parent)) {
        messages.append(busyMessage());
        return false;
    }
    tellMessages(job);
    messages += job.modules().messages + job.netlistMessages();
    *netlist = job.takeNetlist();
    if (!*netlist && !job.isCancelled())
        showFailure(messages, owner);
    return *netlist;
}

bool catchRtlModules(QStringList &topModules, QStringList &modules, QStringList &messages,
                     QMap<QString, QVariant> &info, QWidget *parent)
{
    const NewsKept news;
    ReadingJob job(designInputFromInfo(info), ReadingJob::Modules);
    if (!runAlone(job, Texts::tr("Read Modules"), modulesDelayMs, parent)) {
        messages.append(busyMessage());
        return false;
    }
    tellMessages(job);
    const ModuleList &found = job.modules();
    topModules = found.topModules;
    modules = found.modules;
    messages = found.messages;
    if (job.isCancelled())
        messages.append(Texts::tr("ERROR: Reading the design was cancelled."));
    return !job.isCancelled() && !found.anyError();
}

bool isCatchingRtl()
{
    return isReading;
}

bool wasCatchingCancelled()
{
    return wasCancelled;
}

} // namespace QUARRY
