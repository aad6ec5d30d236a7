#include "host/actionmanager.h"

#include <QAction>
#include <QCoreApplication>

#include "host/viewmanager.h"

namespace Core {

ActionManager::ActionManager()
{
    connect(ViewManager::instance(), SIGNAL(contextsChanged(QStringList)), this, SLOT(refresh()));
}

// Lives as long as the process: its actions stand in menus that may go late.
ActionManager *ActionManager::instance()
{
    static ActionManager *manager = new ActionManager;
    return manager;
}

QAction *ActionManager::command(const QString &actionId, const QString &defaultText)
{
    Command &command = m_commands[actionId];
    if (!command.action) {
        command.action = new QAction(this);
        command.action->setObjectName(actionId);
        connect(command.action, SIGNAL(triggered()), this, SLOT(onCommandTriggered()));
    }
    if (!defaultText.isEmpty())
        command.defaultText = defaultText;
    QAction *action = command.action;
    refresh();
    return action;
}

void ActionManager::registerAction(QAction *action, const QString &actionId, const QString &context)
{
    ActionManager *manager = instance();
    Registration registration;
    registration.action = action;
    registration.actionId = actionId;
    registration.context = context;
    manager->m_registrations.append(registration);
    connect(action, SIGNAL(changed()), manager, SLOT(refresh()));
    connect(action, SIGNAL(destroyed()), manager, SLOT(refresh()));
    manager->refresh();
}

QAction *ActionManager::activeAction(const QString &actionId) const
{
    const QStringList contexts = ViewManager::instance()->activeContexts();
    for (const Registration &registration : m_registrations) {
        if (registration.action && registration.actionId == actionId &&
            contexts.contains(registration.context))
            return registration.action;
    }
    return nullptr;
}

void ActionManager::refresh()
{
    for (int i = m_registrations.size() - 1; i >= 0; --i) {
        if (!m_registrations.at(i).action)
            m_registrations.removeAt(i);
    }
    for (QMap<QString, Command>::const_iterator it = m_commands.constBegin(); it != m_commands.constEnd();
         ++it) {
        QAction *shown = it->action;
        const QAction *active = activeAction(it.key());
        shown->setText(active ? active->text() : it->defaultText);
        shown->setToolTip(active ? active->toolTip() : QString());
        shown->setEnabled(active && active->isEnabled());
    }
}

void ActionManager::setGate(const QString &actionId, const Gate &gate)
{
    command(actionId);
    m_commands[actionId].gate = gate;
}

void ActionManager::onCommandTriggered()
{
    const QString actionId = sender()->objectName();
    const Gate gate = m_commands.value(actionId).gate;
    if (!activeAction(actionId) || (gate && !gate()))
        return;
    if (QAction *active = activeAction(actionId))
        active->trigger();
}

} // namespace Core
