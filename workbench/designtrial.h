#pragma once

#include <QObject>
#include <QString>

#include "host/eventmanager.h"

class QAction;
class QSettings;

namespace Workbench {

class DesignNetlist;

// While editors offer to read a changed design again, tries whether it can be read, so that the user learns
// of an error in a source before an editor stumbles over it, or goes on without what is in the source.
class DesignTrial : public QObject, public QUtil::IEventHandler
{
    Q_OBJECT

public:
    // `settings`, not owned, keeps whether it is done; may be null.
    DesignTrial(DesignNetlist *design, QSettings *settings, QObject *parent);
    ~DesignTrial() override;

    QAction *action() const { return m_action; } // checked: it is done
    void handleIEvent(const QUtil::IEvent *event) override;

Q_SIGNALS:
    void message(const QString &text, bool isError, const QString &source);
    void status(const QString &text); // for the status bar; empty: nothing to say

private:
    void want(bool wanted);
    QString fault() const;
    void tell();

    DesignNetlist *m_design;
    QAction *m_action;
    QString m_told; // the fault that was told last
    bool m_isWanted = false;
};

} // namespace Workbench
