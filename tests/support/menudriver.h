#pragma once

#include <QtTest>
#include <QtWidgets>

// The one with that text, whose mnemonic does not count: a test has no use for going on without it.
inline QAction *named(const QString &text, const QList<QAction *> &actions)
{
    for (QAction *action : actions) {
        if (action->text().remove('&') == text)
            return action;
    }
    qFatal("no action %s", qPrintable(text));
}

// Plays the user of the menu that `opens` brings up, whether it waits for the menu or not: clicks the entry,
// or leaves. Gives what was offered, disabled entries in brackets; nothing when no menu came up.
inline QStringList useMenu(const std::function<void()> &opens, const QString &entry = QString())
{
    QStringList offered;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        QMenu *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        poll.stop();
        QAction *chosen = nullptr;
        for (QAction *action : menu->actions()) {
            offered << (action->isEnabled() ? action->text() : "(" + action->text() + ")");
            if (offered.last() == entry)
                chosen = action;
        }
        if (chosen)
            QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(chosen).center());
        else
            menu->close();
    });
    poll.start(5);
    opens();
    return QTest::qWaitFor([&poll] { return !poll.isActive(); }) ? offered : QStringList();
}
