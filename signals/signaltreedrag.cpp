// The mouse in a signal tree: buttons, and rows dragged to another place in it; and the same by keys.

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QSet>

#include "signals/rowedit.h"
#include "signals/roworder.h"
#include "signals/signalrows.h"
#include "signals/signaltreewidget.h"

namespace RTLJEX {

namespace {

// Carries nothing: the rows are those that are selected in the tree. No other view takes it.
const char signalRowsType[] = "application/x-jex-signal-rows";

QPixmap dragPicture(const QString &text, const QWidget *widget)
{
    const QFontMetrics metrics = widget->fontMetrics();
    const QString shown = metrics.elidedText(text, Qt::ElideLeft, widget->width());
    const QRect frame = metrics.boundingRect(shown).adjusted(-6, -3, 6, 3);
    QPixmap picture(frame.size());
    picture.fill(widget->palette().color(QPalette::Highlight));
    QPainter painter(&picture);
    painter.setFont(widget->font());
    painter.setPen(widget->palette().color(QPalette::HighlightedText));
    painter.drawText(picture.rect(), Qt::AlignCenter, shown);
    return picture;
}

} // namespace

// A right-button press leaves the selection as it is, so that the menu is about all selected rows.
void signalTreeWidget::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton) {
        QTreeWidget::mousePressEvent(event);
    } else if (event->button() == Qt::RightButton && contextMenuEnabled) {
        event->accept();
        showMenu(event->globalPos());
    } else {
        event->ignore();
    }
}

void signalTreeWidget::mouseMoveEvent(QMouseEvent *event)
{
    QTreeWidget::mouseMoveEvent(event);
}

QStringList signalTreeWidget::mimeTypes() const
{
    return QStringList(QLatin1String(signalRowsType));
}

QList<int> signalTreeWidget::movableRows() const
{
    QSet<const QTreeWidgetItem *> chosen;
    for (const QTreeWidgetItem *row : selectedItems())
        chosen.insert(row);
    QList<int> result;
    for (int i = 0; i < topLevelItemCount(); ++i) {
        if (chosen.contains(topLevelItem(i)) && recordOf(topLevelItem(i)).capEnable)
            result.append(i);
    }
    return result;
}

// The base class would delete the selected rows after a move, which the drop has put into place already.
void signalTreeWidget::startDrag(Qt::DropActions)
{
    const QList<int> rows = movableRows();
    if (rows.isEmpty())
        return;
    QString text = topLevelItem(rows.first())->text(0);
    if (rows.size() > 1)
        text += QLatin1String(" + ") + QString::number(rows.size() - 1);
    QMimeData *data = new QMimeData;
    data->setData(QLatin1String(signalRowsType), QByteArray("rows"));
    QDrag *drag = new QDrag(this);
    drag->setMimeData(data);
    drag->setPixmap(dragPicture(text, this));
    drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::MoveAction);
}

// Every place is accepted for the eye; whether rows may go there is judged when they are dropped.
void signalTreeWidget::dragMoveEvent(QDragMoveEvent *event)
{
    QTreeWidget::dragMoveEvent(event);
    event->accept();
}

void signalTreeWidget::dropEvent(QDropEvent *event)
{
    const bool foreign = event->source() && event->source() != this;
    const Qt::DropAction action = foreign ? Qt::IgnoreAction : dropAt(event->pos());
    event->setDropAction(action);
    event->setAccepted(action != Qt::IgnoreAction);
    stopAutoScroll();
    setState(NoState);
    viewport()->update();
    if (action != Qt::IgnoreAction)
        Q_EMIT itemDragged();
    updateCapEnable(this);
}

// Moves the rows and tells with what action; IgnoreAction where they may not go.
Qt::DropAction signalTreeWidget::dropAt(const QPoint &position)
{
    const QList<int> moved = movableRows();
    const int count = topLevelItemCount();
    if (moved.isEmpty())
        return Qt::IgnoreAction;
    QTreeWidgetItem *over = itemAt(position);
    const QTreeWidgetItem *neighbour = over ? over : topLevelItem(count - 1);
    if (neighbour->parent() || !recordOf(neighbour).capEnable)
        return Qt::IgnoreAction;
    int before = count;
    if (over) {
        if (selectedItems().contains(over))
            return Qt::IgnoreAction;
        const QRect rect = visualItemRect(over);
        before = dropRow(indexOfTopLevelItem(over), position.y(), rect.top(), rect.height());
    }
    RowEdit(this).reorder(orderAfterMove(count, moved, before));
    return over ? Qt::CopyAction : Qt::MoveAction;
}

// By one place, all together behind the first or in front of the last of them; rows that are not captured
// stay at the end.
void signalTreeWidget::moveRows(int step)
{
    const QList<int> moved = movableRows();
    if (moved.isEmpty())
        return;
    const int captured = firstDisabledRow(this);
    const int before = step < 0 ? qMax(0, moved.first() - 1) : qMin(captured, moved.last() + 2);
    const QList<int> order = orderAfterMove(topLevelItemCount(), moved, before);
    bool isSame = true;
    for (int i = 0; i < order.size(); ++i)
        isSame = isSame && order.at(i) == i;
    if (isSame)
        return;
    finishEdit();
    RowEdit(this).reorder(order);
    updateCapEnable(this);
    scrollToItem(currentItem());
    Q_EMIT itemDragged();
}

} // namespace RTLJEX
