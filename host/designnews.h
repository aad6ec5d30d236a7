#pragma once

#include <QList>
#include <QMap>
#include <QObject>
#include <QPair>
#include <QString>
#include <QVariant>

#include "host/eventmanager.h"

namespace TE {

// To the events that make what was read of a design out of date; what each of them tells is said in
// designmanager.h.
void subscribeDesignEvents(QUtil::IEventHandler *handler);
void unsubscribeDesignEvents(QUtil::IEventHandler *handler);

// Notes the events about the design while one is read, and posts each of them again when that has ended: who
// waits for a design pays no heed to them, although what is read may be without what they tell of. Make one
// by new; it deletes itself after end().
class DesignNews : public QObject, public QUtil::IEventHandler
{
    Q_OBJECT

public:
    DesignNews();
    void end(); // what was noted is posted from the event loop
    void handleIEvent(const QUtil::IEvent *event) override;

private Q_SLOTS:
    void post();

private:
    ~DesignNews() override;

    QList<QPair<QString, QMap<QString, QVariant>>> m_noted;
};

} // namespace TE
