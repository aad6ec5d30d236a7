#include "workbench/messenger.h"

#include <QDir>
#include <QPointer>

#include "check/designjudgement.h"
#include "elaboration/catchrtl.h"
#include "elaboration/elaboration.h"
#include "host/inetplaces.h"
#include "host/iview.h"
#include "host/viewmanager.h"
#include "model/jex/jexfile.h"
#include "workbench/messagemodel.h"
#include "workbench/messagepane.h"
#include "workbench/statetexts.h"
#include "workbench/workspace.h"

namespace Workbench {
namespace {

const char *const designSource = "design";
const char *const refusalSource = "refusal";
const char *const topics[] = {QUARRY::DesignMessagesTopic, RTLJEX::DesignRefusedTopic, JEX::NotWrittenTopic};

QString unwrittenSource(const QString &path)
{
    return "unwritten " + path;
}

QString sourceOf(const Core::IView *view)
{
    return "view " + QString::number(quintptr(view));
}

} // namespace

Messenger::Messenger(Workspace *workspace, MessagePane *pane)
    : QObject(pane), m_workspace(workspace), m_pane(pane)
{
    for (const char *topic : topics)
        QUtil::EventManager::instance()->subscribe(this, topic);
    connect(workspace, &Workspace::fileSaved, this, &Messenger::tellSaved);
    connect(workspace, &Workspace::findingsTold, this, &Messenger::tellFindings);
    connect(workspace, &Workspace::projectReplaced, this, &Messenger::forgetDesign);
    connect(Core::ViewManager::instance(), &Core::ViewManager::viewClosed, this, &Messenger::endView);
}

Messenger::~Messenger()
{
    for (const char *topic : topics)
        QUtil::EventManager::instance()->unsubscribe(this, topic);
}

void Messenger::handleIEvent(const QUtil::IEvent *event)
{
    const QMap<QString, QVariant> data = event->data();
    if (event->topic() == RTLJEX::DesignRefusedTopic)
        return tellRefusal(data.value("text").toString());
    if (event->topic() == JEX::NotWrittenTopic)
        return tellNotWritten(data.value("file").toString(), data.value("error").toString());
    m_topModules = data.value("topModules").toStringList();
    tellDesign(data.value("messages").toStringList());
}

void Messenger::forgetDesign()
{
    m_topModules.clear();
    tellDesign(QStringList());
}

void Messenger::tellDesign(const QStringList &messages)
{
    QStringList once = messages;
    once.removeDuplicates();
    QList<Message> current;
    for (const QString &text : qAsConst(once))
        current << taggedMessage(text);
    m_pane->model()->setCurrent(refusalSource, QList<Message>());
    m_pane->model()->setCurrent(designSource, current);
}

void Messenger::tellRefusal(const QString &text)
{
    QList<Message> current = {Message()};
    current.first().kind = Message::Error;
    current.first().text = text;
    for (const QString &top : m_topModules.size() > 1 ? m_topModules : QStringList()) {
        Message candidate;
        candidate.text = tr("Candidate for the top module: %1. A double click takes it.").arg(top);
        candidate.follow = [workspace = QPointer<Workspace>(m_workspace), top] {
            if (workspace)
                workspace->setTop(top);
        };
        current << candidate;
    }
    m_pane->model()->setCurrent(refusalSource, current);
}

void Messenger::tellNotWritten(const QString &path, const QString &error)
{
    Message message;
    message.kind = Message::Error;
    message.text = error;
    m_pane->model()->setCurrent(unwrittenSource(path), {message});
}

void Messenger::tellSaved(const QString &path)
{
    m_pane->model()->setCurrent(unwrittenSource(path), {});
    m_pane->addMessage(tr("Saved %1.").arg(QDir::toNativeSeparators(path)), false);
}

void Messenger::tellFindings(Core::IView *view, const QList<Core::Finding> &findings)
{
    QList<Message> current;
    for (const Core::Finding &finding : findings)
        current << messageOf(view, finding);
    m_pane->model()->setCurrent(sourceOf(view), current);
}

void Messenger::endView(Core::IView *view)
{
    m_pane->model()->setCurrent(sourceOf(view), QList<Message>());
}

Message Messenger::messageOf(Core::IView *view, const Core::Finding &finding)
{
    const QPointer<Core::IView> alive(view);
    Message message;
    message.kind = finding.kind == Core::Finding::Refusal ? Message::Error : Message::Warning;
    message.text = nameOf(view) + ": " + finding.text;
    message.follow = [alive, finding] {
        if (!alive)
            return;
        Core::ViewManager::instance()->showView(alive);
        alive->showFinding(finding);
    };
    message.net = finding.net;
    message.placeOfNet = [alive, net = finding.net] {
        const auto *places = dynamic_cast<const Core::INetPlaces *>(alive.data());
        return places ? places->placeOf(net) : Core::NetPlace();
    };
    for (const bool alike : {false, true}) {
        for (const QString &name : finding.replacements) {
            const QString text = alike ? tr("Replace All Alike, as by %1") : tr("Replace by %1");
            message.offers << Message::Offer{text.arg(name), [this, alive, finding, name, alike] {
                                                 if (alive)
                                                     replace(alive, finding, name, alike);
                                             }};
        }
    }
    return message;
}

void Messenger::replace(Core::IView *view, const Core::Finding &finding, const QString &name, bool alike)
{
    QStringList told;
    const QString file = nameOf(view);
    const bool isDone = view->replaceNet(finding, name, alike, &told);
    const QString text = isDone ? tr("%1: Replaced %2") : QStringLiteral("%1: %2");
    m_pane->addMessage(text.arg(file, told.join('\n')), !isDone);
}

} // namespace Workbench
