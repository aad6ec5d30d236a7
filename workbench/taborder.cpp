#include "workbench/taborder.h"

#include <QWidget>

namespace Workbench {
namespace {

QList<QWidget *> reachedIn(const QWidget *area)
{
    QList<QWidget *> order;
    QWidget *window = area->window();
    for (QWidget *next = window->nextInFocusChain(); next != window; next = next->nextInFocusChain()) {
        // The line of a box goes with the box.
        if ((next->focusPolicy() & Qt::TabFocus) && !next->focusProxy() &&
            (next == area || area->isAncestorOf(next)))
            order << next;
    }
    return order;
}

} // namespace

void putTabOrder(const QWidget *window, const QList<QWidget *> &areas)
{
    QWidget *last = nullptr;
    for (const QWidget *area : areas) {
        for (QWidget *widget : area->window() == window ? reachedIn(area) : QList<QWidget *>()) {
            if (last)
                QWidget::setTabOrder(last, widget);
            last = widget;
        }
    }
}

} // namespace Workbench
