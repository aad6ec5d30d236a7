#pragma once

#include <QObject>
#include <QSet>
#include <QStringList>
#include <QTimer>
#include <memory>

#include "host/eventmanager.h"

namespace QUARRY {
class ReadingJob;
class RtlNetlist;
} // namespace QUARRY

namespace Workbench {

// The netlist of the open project as the workbench itself reads it, in the background, while somebody wants
// it. It is read anew when sources or options have changed; one reading at a time, which the next change
// ends. The editors read their own.
class DesignNetlist : public QObject, public QUtil::IEventHandler
{
    Q_OBJECT

public:
    explicit DesignNetlist(QObject *parent = nullptr);
    ~DesignNetlist() override;

    enum State { Nothing, Reading, Ready, Unreadable };
    State state() const { return m_state; }
    // Of the last reading that succeeded, so that it may be older than the sources. Null: there is none.
    QUARRY::RtlNetlist *netlist() const { return m_netlist.get(); }
    QStringList messages() const { return m_messages; } // why the design is not readable

    bool isStale() const { return m_isStale; }       // the sources have changed since
    void setWanted(const QObject *who, bool wanted); // by anybody is enough
    void readAgain();
    void forget(); // the project has gone, or another one came

    void handleIEvent(const QUtil::IEvent *event) override;

Q_SIGNALS:
    void netlistAboutToGo(); // what points into it must be let go
    void stateChanged();

private:
    void start();
    void finish();
    void setState(State state);

    QTimer m_delay; // several changes in a row are one
    std::unique_ptr<QUARRY::ReadingJob> m_job;
    std::unique_ptr<QUARRY::RtlNetlist> m_netlist;
    QStringList m_messages;
    State m_state = Nothing;
    QSet<const QObject *> m_wanting;
    bool m_isStale = true;
};

} // namespace Workbench
