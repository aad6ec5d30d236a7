#include "elaboration/elaboration.h"

#include <QEventLoop>

#include "elaboration/readingjob.h"
#include "host/designmanager.h"
#include "model/netlist/rtlnetlist.h"

namespace QUARRY {
namespace {

void waitFor(ReadingJob &job)
{
    QEventLoop loop;
    QObject::connect(&job, SIGNAL(finished()), &loop, SLOT(quit()));
    job.start();
    if (!job.isFinished())
        loop.exec(QEventLoop::ExcludeUserInputEvents);
}

} // namespace

DesignInput designInputFromInfo(const QMap<QString, QVariant> &info)
{
    DesignInput input;
    for (const QVariant &entry : info.value(QLatin1String("Files")).toList()) {
        const QMap<QString, QVariant> file = entry.toMap();
        DesignSource source;
        source.path = file.value(QLatin1String("Path")).toString();
        source.type = file.value(QLatin1String("Type")).toInt();
        if (!TE::isDesignFileType(source.type))
            source.type = TE::fileTypeFromName(source.path);
        source.library = file.value(QLatin1String("Library")).toString();
        source.onlyWhenUsed = file.value(QLatin1String("OnlyWhenUsed")).toBool();
        input.files.append(source);
    }
    for (const DesignText &known : designTexts)
        input.*known.text = info.value(QLatin1String(known.name)).toString();
    for (const DesignList &known : designLists)
        input.*known.list = info.value(QLatin1String(known.name)).toStringList();
    return input;
}

DesignInput projectInput()
{
    return designInputFromInfo(TE::TaskEngine::instance()->designManager()->getSourceFileInfo());
}

ModuleList listModules(const DesignInput &input)
{
    ReadingJob job(input, ReadingJob::Modules);
    waitFor(job);
    return job.modules();
}

RtlNetlist *buildNetlist(const DesignInput &input, QStringList &messages)
{
    ReadingJob job(input, ReadingJob::Netlist);
    waitFor(job);
    messages += job.modules().messages + job.netlistMessages();
    return job.takeNetlist();
}

} // namespace QUARRY
