#include "views/designevents.h"

#include "host/designmanager.h"
#include "host/designnews.h"
#include "host/eventmanager.h"

namespace RTLJEX {
namespace {

bool isDesignType(const QVariant &type)
{
    return TE::isDesignFileType(type.toInt());
}

bool isEnabledDesignFile(const QString &path)
{
    const TE::FileInfo info = TE::TaskEngine::instance()->designManager()->getFileInfo(path);
    return info.enabled && isDesignType(info.type);
}

DesignReaction optionReaction(const QString &option)
{
    if (option == QLatin1String("TopModule"))
        return TopModuleChanged;
    if (option == QLatin1String("IncludePath") || option == QLatin1String("Verilog_Standard"))
        return DesignFilesChanged;
    return NoReaction;
}

bool designFilesChanged(const QString &topic, const QMap<QString, QVariant> &data)
{
    if (topic == QLatin1String("TE.File.Add") || topic == QLatin1String("TE.File.Modified"))
        return isEnabledDesignFile(data.value("file").toString());
    if (topic == QLatin1String("TE.File.Remove"))
        return data.value("enable").toBool() && isDesignType(data.value("type"));
    if (topic == QLatin1String("TE.File.Change.Enable"))
        return isDesignType(data.value("type"));
    if (topic == QLatin1String("TE.File.Change.Type"))
        return isDesignType(data.value("type")) || isDesignType(data.value("previous"));
    return false;
}

} // namespace

void subscribeDesignEvents(QUtil::IEventHandler *handler)
{
    for (const char *topic : TE::designTopics)
        QUtil::EventManager::instance()->subscribe(handler, QLatin1String(topic));
}

void unsubscribeDesignEvents(QUtil::IEventHandler *handler)
{
    for (const char *topic : TE::designTopics)
        QUtil::EventManager::instance()->unsubscribe(handler, QLatin1String(topic));
}

DesignReaction designReaction(const QUtil::IEvent *event)
{
    const QMap<QString, QVariant> data = event->data();
    if (event->topic() == QLatin1String("TE.Option.Change"))
        return optionReaction(data.value("option").toString());
    return designFilesChanged(event->topic(), data) ? DesignFilesChanged : NoReaction;
}

} // namespace RTLJEX
