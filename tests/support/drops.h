#pragma once

#include <QtTest>
#include <QtWidgets>

// Drops the data as a mouse would that comes with it. Gives what was done with it; nothing where it is not
// taken.
inline Qt::DropAction dropOn(QWidget *widget, const QMimeData &data, const QPoint &position = QPoint(5, 5))
{
    QDragEnterEvent enter(position, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &enter);
    QDropEvent drop(position, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    if (enter.isAccepted())
        QCoreApplication::sendEvent(widget, &drop);
    return drop.isAccepted() ? drop.dropAction() : Qt::IgnoreAction;
}

inline Qt::DropAction dropOn(QWidget *widget, const QString &text, const QPoint &position = QPoint(5, 5))
{
    QMimeData data;
    data.setText(text);
    return dropOn(widget, data, position);
}
