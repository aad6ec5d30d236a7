#pragma once

#include <QObject>
#include <QStringList>

#include "host/eventmanager.h"

namespace Core {
class IView;
struct Finding;
} // namespace Core

namespace Workbench {

class MessagePane;
class Workspace;
struct Message;

// Keeps the message pane true: what the views find, what the tools said of the design, why it could not be
// used, and which files could not be written. Each message leads to its place, and what is not so any more
// stands for the past.
class Messenger : public QObject, public QUtil::IEventHandler
{
    Q_OBJECT

public:
    Messenger(Workspace *workspace, MessagePane *pane); // neither owned
    ~Messenger() override;

    void handleIEvent(const QUtil::IEvent *event) override;

private:
    void forgetDesign();
    void tellDesign(const QStringList &messages);
    void tellRefusal(const QString &text);
    void tellNotWritten(const QString &path, const QString &error);
    void tellSaved(const QString &path);
    void tellFindings(Core::IView *view, const QList<Core::Finding> &findings);
    void endView(Core::IView *view);
    Message messageOf(Core::IView *view, const Core::Finding &finding);
    void replace(Core::IView *view, const Core::Finding &finding, const QString &name, bool alike);

    Workspace *m_workspace;
    MessagePane *m_pane;
    QStringList m_topModules; // of the design that was read last
};

} // namespace Workbench
