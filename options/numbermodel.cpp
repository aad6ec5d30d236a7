#include "options/numbermodel.h"

namespace RTLJEX {

void NumberModel::append(const QList<int> &numbers)
{
    if (numbers.isEmpty())
        return;
    beginInsertRows(QModelIndex(), m_numbers.size(), m_numbers.size() + numbers.size() - 1);
    m_numbers += numbers;
    endInsertRows();
}

int NumberModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_numbers.size();
}

QVariant NumberModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return QVariant();
    const int number = m_numbers.at(index.row());
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return QString::number(number);
    return role == Qt::UserRole ? QVariant(number) : QVariant();
}

bool NumberModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    bool isNumber = false;
    const int number = value.toInt(&isNumber);
    if (!index.isValid() || !isNumber || (role != Qt::EditRole && role != Qt::UserRole))
        return false;
    m_numbers[index.row()] = number;
    Q_EMIT dataChanged(index, index);
    return true;
}

bool NumberModel::insertRows(int row, int count, const QModelIndex &parent)
{
    if (parent.isValid() || row < 0 || row > m_numbers.size() || count < 1)
        return false;
    beginInsertRows(parent, row, row + count - 1);
    for (int i = 0; i < count; ++i)
        m_numbers.insert(row, 0);
    endInsertRows();
    return true;
}

bool NumberModel::removeRows(int row, int count, const QModelIndex &parent)
{
    if (parent.isValid() || row < 0 || count < 1 || row + count > m_numbers.size())
        return false;
    beginRemoveRows(parent, row, row + count - 1);
    m_numbers.erase(m_numbers.begin() + row, m_numbers.begin() + row + count);
    endRemoveRows();
    return true;
}

} // namespace RTLJEX
