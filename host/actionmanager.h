#pragma once

#include <QList>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <QString>
#include <functional>

class QAction;

namespace Core {

// Commands by identifier, such as "Core.Action.Save". The host shows the command's own action in menus
// and tool bars; plug-ins register theirs for a context, and the command mirrors the text, tool tip and
// enabled state of the one whose context is active, and triggers it. Without one the command is
// disabled under its default text.
class ActionManager : public QObject
{
    Q_OBJECT

public:
    static ActionManager *instance();

    // The host's own action for a command, made on first use; for menus and tool bars.
    QAction *command(const QString &actionId, const QString &defaultText = QString());

    // The action is not owned and forgotten when it dies.
    static void registerAction(QAction *action, const QString &actionId, const QString &context);

    // The host's say before the command triggers a plug-in's action; false: it does not. An empty one:
    // always.
    typedef std::function<bool()> Gate;
    void setGate(const QString &actionId, const Gate &gate);

private Q_SLOTS:
    void refresh();
    void onCommandTriggered();

private:
    struct Command
    {
        QAction *action;
        QString defaultText;
        Gate gate;
    };
    struct Registration
    {
        QPointer<QAction> action;
        QString actionId;
        QString context;
    };

    ActionManager();
    QAction *activeAction(const QString &actionId) const;

    QMap<QString, Command> m_commands;
    QList<Registration> m_registrations;
};

} // namespace Core
