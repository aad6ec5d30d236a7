#pragma once

#include <QAbstractListModel>
#include <QList>

namespace RTLJEX {

// The numbers that a combo box offers; each is both text and data of its row. A large storage has
// thousands of segment numbers, for which a model of items takes as long as all the rest of a page.
class NumberModel : public QAbstractListModel
{
public:
    explicit NumberModel(QObject *parent) : QAbstractListModel(parent) {}

    void append(const QList<int> &numbers);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    bool insertRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;
    bool removeRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;

private:
    QList<int> m_numbers;
};

} // namespace RTLJEX
