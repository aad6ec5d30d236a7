#include "signals/signaltreesetup.h"

#include <QPushButton>
#include <QShortcut>

#include "host/rowdelegate.h"
#include "signals/signaltreewidget.h"

namespace RTLJEX {

void setRowStyle(QAbstractItemView *view, const char *styleSheet)
{
    view->setStyleSheet(QLatin1String(styleSheet));
    QUtil::useRowDelegate(view);
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
