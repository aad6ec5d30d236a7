#include "signals/signalrow.h"

#include "host/rowdelegate.h"

namespace RTLJEX {

namespace {

QString stateText(const QTreeWidgetItem *row)
{
    switch (QUtil::rowState(row->data(0, Qt::ForegroundRole), row->flags())) {
    case QUtil::IdleRow:
        return SignalRow::tr("Not captured");
    case QUtil::UnusableRow:
        return SignalRow::tr("Not in the design");
    case QUtil::FaultyRow:
        return SignalRow::tr("Marked as faulty in the file");
    default:
        return QString();
    }
}

} // namespace

QVariant SignalRow::data(int column, int role) const
{
    const QVariant own = QTreeWidgetItem::data(column, role);
    if (column != 0 || own.isValid() || (role != Qt::ToolTipRole && role != Qt::AccessibleTextRole))
        return own;
    const QString state = stateText(this);
    if (state.isEmpty())
        return own;
    return role == Qt::ToolTipRole ? state : text(0) + QLatin1String(", ") + state;
}

} // namespace RTLJEX
