#include "signals/signaltreesetup.h"

#include <QPushButton>
#include <QShortcut>
#include <QStyledItemDelegate>

#include "signals/signaltreewidget.h"

namespace RTLJEX {

namespace {

class ReadableRows : public QStyledItemDelegate
{
public:
    explicit ReadableRows(QObject *parent) : QStyledItemDelegate(parent) {}

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index).expandedTo(QSize(0, option.fontMetrics.height()));
    }
};

} // namespace

void setRowStyle(QAbstractItemView *view, const char *styleSheet)
{
    view->setStyleSheet(QLatin1String(styleSheet));
    view->setItemDelegate(new ReadableRows(view));
}

void setUpSignalTree(signalTreeWidget *tree, QPushButton *remove)
{
    setRowStyle(tree, "QTreeWidget::item { height: 20px;}");
    remove->setEnabled(false);
    // The key of the tree alone: while a row is renamed it belongs to the text.
    const QShortcut *key =
        new QShortcut(QKeySequence(Qt::Key_Delete), tree, nullptr, nullptr, Qt::WidgetShortcut);
    remove->connect(key, SIGNAL(activated()), SLOT(click()));
}

} // namespace RTLJEX
