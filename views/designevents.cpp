#include "views/designevents.h"

#include "host/designmanager.h"
#include "host/eventmanager.h"
#include "host/projectdata.h"
#include "plugin/jexinserterview.h"

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

QString optionQuestion(const QString &name)
{
    const Core::ProjectOption *option = Core::findOption(name);
    if (!option || !option->is(Core::ReloadTrait))
        return QString();
    return option->text == &Core::ProjectData::topModule ? topModuleQuestion() : designFilesQuestion();
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

QString designFilesQuestion()
{
    return JexInserterView::tr("Design files changed. Do you want to reload?");
}

QString topModuleQuestion()
{
    return JexInserterView::tr("Top module changed. Do you want to reload?");
}

QString designQuestion(const QUtil::IEvent *event)
{
    const QMap<QString, QVariant> data = event->data();
    if (event->topic() == QLatin1String("TE.Option.Change"))
        return optionQuestion(data.value("option").toString());
    return designFilesChanged(event->topic(), data) ? designFilesQuestion() : QString();
}

} // namespace RTLJEX
