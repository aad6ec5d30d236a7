#include "model/jex/matchunitmodel.h"

#include <QBrush>

#include "model/jex/matchvalue.h"

namespace JEX {

namespace {

const char *const headers[] = {QT_TRANSLATE_NOOP("JEX::MatchUnitModel", "Enabled"),
                               QT_TRANSLATE_NOOP("JEX::MatchUnitModel", "Number"),
                               QT_TRANSLATE_NOOP("JEX::MatchUnitModel", "Unit"),
                               QT_TRANSLATE_NOOP("JEX::MatchUnitModel", "Trigger Port"),
                               QT_TRANSLATE_NOOP("JEX::MatchUnitModel", "Function"),
                               QT_TRANSLATE_NOOP("JEX::MatchUnitModel", "Value")};
static_assert(sizeof headers / sizeof *headers == MatchUnitModel::ColumnCount, "each column has a header");

QVariant cellText(const MatchUnit &unit, int column)
{
    switch (column) {
    case MatchUnitModel::NumberColumn:
        return unit.unitNumber;
    case MatchUnitModel::UnitColumn:
        return QString::fromLatin1("M%1").arg(unit.unitNumber);
    case MatchUnitModel::PortColumn:
        return portText(unit.triggerPort);
    case MatchUnitModel::FunctionColumn:
        return unit.triggerPort ? matchFunctionName(unit.function) : QVariant();
    case MatchUnitModel::ValueColumn:
        return unit.triggerPort ? matchValueText(unit) : QVariant();
    default:
        return QVariant();
    }
}

// A value can stop fitting when the port is filled anew: it is red then, and the tool tip says why.
QVariant valueLook(const MatchUnit &unit, int role)
{
    if (role == Qt::FontRole)
        return bitFont();
    if (role != Qt::ToolTipRole && role != Qt::ForegroundRole && role != Qt::AccessibleTextRole)
        return QVariant();
    const QString fault = matchUnitFault(unit);
    if (fault.isEmpty())
        return QVariant();
    if (role == Qt::AccessibleTextRole)
        return matchValueText(unit) + QLatin1String(", ") + fault;
    return role == Qt::ToolTipRole ? QVariant(fault) : QVariant(QBrush(Qt::red));
}

} // namespace

QFont bitFont()
{
    QFont font(QLatin1String("Monospace"));
    font.setStyleHint(QFont::TypeWriter);
    return font;
}

MatchUnitModel::MatchUnitModel(const QList<MatchUnit *> &units, QObject *parent)
    : QAbstractTableModel(parent), m_units(units)
{
}

void MatchUnitModel::setMatcherList(const QList<MatchUnit *> &units)
{
    beginResetModel();
    m_units = units;
    endResetModel();
}

MatchUnit *MatchUnitModel::muFromIndex(const QModelIndex &index) const
{
    return index.model() == this ? m_units.value(index.row(), nullptr) : nullptr;
}

void MatchUnitModel::updateRow(int row)
{
    if (row >= 0 && row < m_units.size())
        Q_EMIT dataChanged(index(row, 0), index(row, ColumnCount - 1));
}

int MatchUnitModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_units.size();
}

int MatchUnitModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(ColumnCount);
}

QVariant MatchUnitModel::data(const QModelIndex &index, int role) const
{
    const MatchUnit *unit = muFromIndex(index);
    if (!unit)
        return QVariant();
    if (role == Qt::DisplayRole)
        return cellText(*unit, index.column());
    if (role == Qt::CheckStateRole && index.column() == EnabledColumn)
        return int(unit->enabled ? Qt::Checked : Qt::Unchecked);
    return index.column() == ValueColumn ? valueLook(*unit, role) : QVariant();
}

QVariant MatchUnitModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= ColumnCount)
        return QAbstractTableModel::headerData(section, orientation, role);
    return tr(headers[section]);
}

Qt::ItemFlags MatchUnitModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.column() == EnabledColumn ? flags | Qt::ItemIsUserCheckable : flags;
}

bool MatchUnitModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    MatchUnit *unit = muFromIndex(index);
    if (!unit || index.column() != EnabledColumn || role != Qt::CheckStateRole)
        return false;
    const bool enabled = value.toInt() == Qt::Checked;
    if (unit->enabled != enabled) {
        unit->enabled = enabled;
        updateRow(index.row());
        Q_EMIT matchChange();
    }
    return true;
}

} // namespace JEX
