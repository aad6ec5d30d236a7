#pragma once

#include <QAbstractItemModel>
#include <QHash>

namespace QUARRY {
class Hierachy;
class RtlNetlist;
} // namespace QUARRY

namespace Workbench {

// The instances of a design as a tree. Points into the netlist, which is not owned: show another one, or
// none, before that goes. Costs nothing for instances that are not looked at.
class InstanceModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    using QAbstractItemModel::QAbstractItemModel;

    void show(const QUARRY::RtlNetlist *netlist); // null: nothing

    const QUARRY::Hierachy *nodeAt(const QModelIndex &index) const; // null for none
    QModelIndex indexOf(const QUARRY::Hierachy *node) const;
    QModelIndex indexOfPath(const QString &path) const; // invalid when the design has no such instance

    QModelIndex index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &) const override { return 1; }
    QVariant data(const QModelIndex &index, int role) const override;

private:
    int rowOf(const QUARRY::Hierachy *node) const;

    const QUARRY::Hierachy *m_top = nullptr;
    mutable QHash<const QUARRY::Hierachy *, int> m_rows; // of the children of nodes that were asked for
};

} // namespace Workbench
