#include "workbench/taborder.h"

#include <QList>
#include <QWidget>

namespace Workbench {
namespace {

QList<QWidget *> reachedIn(const QWidget *area)
{
    QList<QWidget *> order;
    QWidget *window = area->window();
    for (QWidget *next = window->nextInFocusChain(); next != window; next = next->nextInFocusChain()) {
        if ((next->focusPolicy() & Qt::TabFocus) && (next == area || area->isAncestorOf(next)))
            order << next;
    }
    return order;
}

} // namespace

void putTabOrder(const QWidget *earlier, const QWidget *later)
{
    const QList<QWidget *> first = reachedIn(earlier);
    QWidget *last = first.isEmpty() ? nullptr : first.last();
    for (QWidget *widget : last ? reachedIn(later) : QList<QWidget *>()) {
        QWidget::setTabOrder(last, widget);
        last = widget;
    }
}

} // namespace Workbench
