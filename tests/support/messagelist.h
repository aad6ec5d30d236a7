#pragma once

#include <QtTest>
#include <QtWidgets>

#include "tests/support/modaldriver.h"
#include "workbench/messagemodel.h"

// "E error", "W warning", "N note", what is past in brackets.
inline QStringList messageLines(const Workbench::MessageModel &model)
{
    QStringList lines;
    for (int row = 0; row < model.rowCount(); ++row) {
        const QString line = QString("EWN").at(model.message(row).kind) + ' ' + model.message(row).text;
        lines << (model.isPast(row) ? '(' + line + ')' : line);
    }
    return lines;
}

inline QString messageText(const QWidget &window)
{
    return messageLines(*window.findChild<Workbench::MessageModel *>()).join('\n');
}

// The last row of the message list that has the text; invalid: none is shown.
inline QModelIndex messageRow(const QWidget *pane, const QString &text)
{
    const QListView *list = pane->findChild<QListView *>("messages");
    for (int row = list->model()->rowCount() - 1; row >= 0; --row) {
        const QModelIndex index = list->model()->index(row, 0);
        if (index.data().toString().contains(text))
            return index;
    }
    return QModelIndex();
}

inline void doubleClickMessage(const QWidget *pane, const QString &text)
{
    QListView *list = pane->findChild<QListView *>("messages");
    const QModelIndex index = messageRow(pane, text);
    QVERIFY2(index.isValid(), qPrintable(text));
    doubleClick(list, index);
}
