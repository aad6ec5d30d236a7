#pragma once

#include <QBrush>
#include <QPalette>
#include <QStyledItemDelegate>

class QAbstractItemView;

namespace QUtil {

// What a row tells by the colour that it carries: grey for one that does not count or, when it can not be
// chosen either, that can not be used, red for one at fault.
enum RowState { UsualRow, IdleRow, UnusableRow, FaultyRow };
RowState rowState(const QVariant &foreground, Qt::ItemFlags flags);

// Red that can be read on what the palette has behind its texts.
QColor errorColour(const QPalette &palette);

// Paints rows whose colours are fixed in the colours of the palette, light or dark, and puts a mark before
// those that are not as usual, so that nobody has to tell them by colour alone.
class RowDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit RowDelegate(QObject *parent = nullptr);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    // As high as the font of the desktop needs it, also where a style sheet says less.
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
};

// A delegate for the view, which owns it.
void useRowDelegate(QAbstractItemView *view);

} // namespace QUtil
