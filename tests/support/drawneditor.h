#pragma once

#include <QtWidgets>

// What an editor shows, as lines of text.

inline void drawRows(const QAbstractItemModel *model, const QModelIndex &parent, QString indent,
                     QStringList &lines)
{
    for (int row = 0; row < model->rowCount(parent); ++row) {
        QStringList cells;
        for (int column = 0; column < model->columnCount(parent); ++column) {
            const QModelIndex cell = model->index(row, column, parent);
            cells << cell.data().toString() + (cell.data(Qt::CheckStateRole).toInt() ? "x" : "");
        }
        lines << indent + cells.join(" ; ");
        drawRows(model, model->index(row, 0, parent), indent + "  ", lines);
    }
}

// By the page itself, whichever is in view.
inline bool isOnPage(const QWidget *widget)
{
    for (; widget && !widget->parentWidget()->inherits("QStackedWidget"); widget = widget->parentWidget()) {
        if (widget->isHidden() || widget->inherits("QHeaderView") || widget->inherits("QTabBar"))
            return false;
    }
    return true;
}

inline void drawWidget(QWidget *widget, bool all, QStringList &lines)
{
    const QString name = widget->objectName() + ": ";
    // Parts of other widgets have no names; some come and go.
    const bool isWhole = !widget->objectName().isEmpty() && !widget->objectName().startsWith("qt_");
    if (!isWhole || !(isOnPage(widget) || (all && !qobject_cast<QLabel *>(widget))))
        return;
    const QMetaProperty value = widget->metaObject()->userProperty(); // text, number or mark
    if (value.isValid() && !qobject_cast<QAbstractItemView *>(widget))
        lines << name + value.read(widget).toString();
    else if (const auto *label = qobject_cast<QLabel *>(widget))
        lines << name + label->text();
    else if (const auto *list = qobject_cast<QListWidget *>(widget)) {
        for (int row = 0; row < list->count(); ++row) {
            const bool isGrey = list->item(row)->foreground() == QBrush(Qt::gray); // such are not saved
            if (all || !isGrey)
                lines << name + list->item(row)->text() + (isGrey ? " (grey)" : "");
        }
    } else if (const auto *items = qobject_cast<QAbstractItemView *>(widget))
        drawRows(items->model(), QModelIndex(), name, lines);
}

// All that an editor shows of its cores, but for what is hidden on its page and not saved, unless `all` is
// wanted. Which page is in view changes the order of the widgets, so each page's go by their names.
inline QStringList drawn(const QWidget *view, bool all = false)
{
    QStringList lines;
    const auto *pages = view->findChild<QStackedWidget *>("stackedWidget");
    for (int i = 0; i < pages->count(); ++i) {
        lines << "page " + QString::number(i);
        QList<QWidget *> widgets = pages->widget(i)->findChildren<QWidget *>();
        std::stable_sort(widgets.begin(), widgets.end(), [](const QWidget *left, const QWidget *right) {
            return left->objectName() < right->objectName();
        });
        for (QWidget *widget : widgets) {
            if (widget->window() == view->window()) // no dialog that is going
                drawWidget(widget, all, lines);
        }
    }
    return lines;
}
