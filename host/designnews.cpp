#include "host/designnews.h"

#include <QTimer>

namespace TE {
namespace {

const char *const designTopics[] = {"TE.File.Add",         "TE.File.Remove",   "TE.File.Change.Enable",
                                    "TE.File.Change.Type", "TE.File.Modified", "TE.Option.Change"};

} // namespace

void subscribeDesignEvents(QUtil::IEventHandler *handler)
{
    for (const char *topic : designTopics)
        QUtil::EventManager::instance()->subscribe(handler, QLatin1String(topic));
}

void unsubscribeDesignEvents(QUtil::IEventHandler *handler)
{
    for (const char *topic : designTopics)
        QUtil::EventManager::instance()->unsubscribe(handler, QLatin1String(topic));
}

DesignNews::DesignNews()
{
    subscribeDesignEvents(this);
}

DesignNews::~DesignNews()
{
}

void DesignNews::handleIEvent(const QUtil::IEvent *event)
{
    const QPair<QString, QMap<QString, QVariant>> told(event->topic(), event->data());
    if (!m_noted.contains(told))
        m_noted.append(told);
}

void DesignNews::end()
{
    unsubscribeDesignEvents(this);
    QTimer::singleShot(0, this, SLOT(post()));
}

void DesignNews::post()
{
    for (const QPair<QString, QMap<QString, QVariant>> &told : m_noted)
        QUtil::EventManager::instance()->post(told.first, told.second);
    deleteLater();
}

} // namespace TE
