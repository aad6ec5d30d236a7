#include "host/rowdelegate.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPainter>

namespace QUtil {

namespace {

#if QT_VERSION < 0x050000
typedef QStyleOptionViewItemV4 RowOption;
#else
typedef QStyleOptionViewItem RowOption;
#endif

RowState stateOf(const QModelIndex &index)
{
    return rowState(index.data(Qt::ForegroundRole), index.flags());
}

QColor shownColour(RowState state, const QPalette &palette)
{
    if (state == FaultyRow)
        return errorColour(palette);
    return palette.color(state == UsualRow ? QPalette::Active : QPalette::Disabled, QPalette::Text);
}

// A circle that is struck out, a cross, or an exclamation mark in a triangle.
void paintMark(QPainter *painter, const QRectF &place, RowState state, const QColor &colour)
{
    const qreal size = qMin(place.width(), place.height());
    const QRectF box(place.center() - QPointF(size, size) * 0.4, QSizeF(size, size) * 0.8);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(colour, qMax(qreal(1), size / 10), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->setBrush(Qt::NoBrush);
    if (state == IdleRow) {
        const QPointF edge = QPointF(box.width(), -box.height()) * 0.35;
        painter->drawEllipse(box);
        painter->drawLine(box.center() - edge, box.center() + edge);
    } else if (state == UnusableRow) {
        painter->drawLine(box.topLeft(), box.bottomRight());
        painter->drawLine(box.topRight(), box.bottomLeft());
    } else {
        const qreal middle = box.center().x();
        painter->drawPolygon(QPolygonF()
                             << QPointF(middle, box.top()) << box.bottomRight() << box.bottomLeft());
        painter->drawLine(QPointF(middle, box.top() + box.height() * 0.4),
                          QPointF(middle, box.top() + box.height() * 0.6));
        painter->drawPoint(QPointF(middle, box.top() + box.height() * 0.8));
    }
    painter->restore();
}

} // namespace

RowState rowState(const QVariant &foreground, Qt::ItemFlags flags)
{
    if (foreground.userType() != QMetaType::QBrush && foreground.userType() != QMetaType::QColor)
        return UsualRow;
    const QColor colour = qvariant_cast<QBrush>(foreground).color();
    if (colour == QColor(Qt::red))
        return FaultyRow;
    if (colour != QColor(Qt::gray))
        return UsualRow;
    return flags & Qt::ItemIsSelectable ? IdleRow : UnusableRow;
}

QColor errorColour(const QPalette &palette)
{
    const bool isDark = palette.color(QPalette::Base).lightness() < 128;
    return isDark ? QColor(255, 128, 128) : QColor(176, 0, 32);
}

RowDelegate::RowDelegate(QObject *parent) : QStyledItemDelegate(parent)
{
}

void RowDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    const QVariant foreground = index.data(Qt::ForegroundRole);
    if (!foreground.isValid())
        return;
    RowOption *row = static_cast<RowOption *>(option);
    const RowState state = stateOf(index);
    const QPalette palette = row->widget ? row->widget->palette() : QApplication::palette();
    if (state != UsualRow || qvariant_cast<QBrush>(foreground).color() == QColor(Qt::black))
        row->palette.setColor(QPalette::Text, shownColour(state, palette));
    if (state == UsualRow || row->features & RowOption::HasDecoration)
        return;
    const int side = row->fontMetrics.ascent();
    row->features |= RowOption::HasDecoration; // room for the mark
    row->decorationSize = QSize(side, side);
}

void RowDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    const RowState state = stateOf(index);
    if (state == UsualRow)
        return;
    RowOption row(option);
    initStyleOption(&row, index);
    if (!row.icon.isNull())
        return;
    const bool isChosen = row.state & QStyle::State_Selected;
    const QStyle *style = row.widget ? row.widget->style() : QApplication::style();
    paintMark(painter, style->subElementRect(QStyle::SE_ItemViewItemDecoration, &row, row.widget), state,
              row.palette.color(isChosen ? QPalette::HighlightedText : QPalette::Text));
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    return QStyledItemDelegate::sizeHint(option, index).expandedTo(QSize(0, option.fontMetrics.height()));
}

void useRowDelegate(QAbstractItemView *view)
{
    view->setItemDelegate(new RowDelegate(view));
}

} // namespace QUtil
