#include "host/designnews.h"

#include <QTimer>

namespace TE {

DesignNews::DesignNews()
{
    for (const char *topic : designTopics)
        QUtil::EventManager::instance()->subscribe(this, QLatin1String(topic));
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
    for (const char *topic : designTopics)
        QUtil::EventManager::instance()->unsubscribe(this, QLatin1String(topic));
    QTimer::singleShot(0, this, SLOT(post()));
}

void DesignNews::post()
{
    for (const QPair<QString, QMap<QString, QVariant>> &told : m_noted)
        QUtil::EventManager::instance()->post(told.first, told.second);
    deleteLater();
}

} // namespace TE
