#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <QVariant>

namespace QUtil {

// One thing that happened in the host: a topic such as "TE.File.Add" and its data, valid only during
// the delivery.
class IEvent
{
public:
    virtual ~IEvent();
    virtual QString topic() const = 0;
    virtual QMap<QString, QVariant> data() const = 0;
};

// Who wants to hear of events. A handler unsubscribes before it dies.
class IEventHandler
{
public:
    virtual ~IEventHandler();
    virtual void handleIEvent(const IEvent *event) = 0;
};

// Delivers events by topic, at once and on the GUI thread, in the order of subscription.
// Subscribing and unsubscribing during a delivery is safe: who unsubscribed is not called any more, who
// subscribed hears from the next event on. Subscribing twice to one topic counts once. Handlers are not
// owned.
class EventManager
{
public:
    static EventManager *instance();

    void subscribe(IEventHandler *handler, const QString &topic);
    void unsubscribe(IEventHandler *handler, const QString &topic);

    // Builds an event and delivers it to the topic's subscribers.
    void post(const QString &topic, const QMap<QString, QVariant> &data);

private:
    // Numbered, so that a handler that is subscribed anew while an event is under way is told from the
    // one that was there when it began.
    struct Subscription
    {
        IEventHandler *handler;
        quint64 number;
    };

    EventManager();
    bool isSubscribed(const QString &topic, const Subscription &subscription) const;

    QMap<QString, QList<Subscription>> m_subscriptions;
    quint64 m_lastNumber;
};

} // namespace QUtil
