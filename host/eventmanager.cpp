#include "host/eventmanager.h"

namespace QUtil {
namespace {

class Event : public IEvent
{
public:
    Event(const QString &topic, const QMap<QString, QVariant> &data) : m_topic(topic), m_data(data) {}
    QString topic() const override { return m_topic; }
    QMap<QString, QVariant> data() const override { return m_data; }

private:
    QString m_topic;
    QMap<QString, QVariant> m_data;
};

} // namespace

IEvent::~IEvent()
{
}
IEventHandler::~IEventHandler()
{
}

EventManager::EventManager() : m_lastNumber(0)
{
}

// Never destroyed: handlers may go late.
EventManager *EventManager::instance()
{
    static EventManager *manager = new EventManager;
    return manager;
}

void EventManager::subscribe(IEventHandler *handler, const QString &topic)
{
    QList<Subscription> &list = m_subscriptions[topic];
    for (const Subscription &known : list) {
        if (known.handler == handler)
            return;
    }
    const Subscription added = {handler, ++m_lastNumber};
    list.append(added);
}

void EventManager::unsubscribe(IEventHandler *handler, const QString &topic)
{
    QList<Subscription> &list = m_subscriptions[topic];
    for (int i = list.size() - 1; i >= 0; --i) {
        if (list.at(i).handler == handler)
            list.removeAt(i);
    }
}

bool EventManager::isSubscribed(const QString &topic, const Subscription &subscription) const
{
    const QList<Subscription> list = m_subscriptions.value(topic);
    for (const Subscription &known : list) {
        if (known.number == subscription.number)
            return true;
    }
    return false;
}

void EventManager::post(const QString &topic, const QMap<QString, QVariant> &data)
{
    const Event event(topic, data);
    const QList<Subscription> subscribed = m_subscriptions.value(topic);
    for (const Subscription &subscription : subscribed) {
        if (isSubscribed(topic, subscription))
            subscription.handler->handleIEvent(&event);
    }
}

} // namespace QUtil
