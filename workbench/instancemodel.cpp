#include "workbench/instancemodel.h"

#include <QIcon>

#include "host/plaintooltip.h"
#include "model/netlist/rtlnetlist.h"

namespace Workbench {
namespace {

// The model only hands nodes back.
void *pointerTo(const QUARRY::Hierachy *node)
{
    return const_cast<QUARRY::Hierachy *>(node);
}

// The node above the net of that full name, whether or not there is such a net; null for none.
const QUARRY::Hierachy *nodeAbove(const QUARRY::Hierachy *node, const QString &name, int from)
{
    const int rest = node->restBelow(name, from);
    if (rest < 0 || name.indexOf('/', rest) < 0)
        return rest < 0 ? nullptr : node;
    for (const QUARRY::Hierachy *child : node->childrenTowards(name, rest)) {
        if (const QUARRY::Hierachy *found = nodeAbove(child, name, rest))
            return found;
    }
    return nullptr;
}

} // namespace

void InstanceModel::show(const QUARRY::RtlNetlist *netlist)
{
    beginResetModel();
    m_rows.clear();
    m_top = netlist ? netlist->topHierarchy : nullptr;
    endResetModel();
}

const QUARRY::Hierachy *InstanceModel::nodeAt(const QModelIndex &index) const
{
    return static_cast<const QUARRY::Hierachy *>(index.internalPointer());
}

QModelIndex InstanceModel::indexOf(const QUARRY::Hierachy *node) const
{
    return node ? createIndex(rowOf(node), 0, pointerTo(node)) : QModelIndex();
}

QModelIndex InstanceModel::indexOfPath(const QString &path) const
{
    return m_top ? indexOf(nodeAbove(m_top, path + "/net", 0)) : QModelIndex();
}

int InstanceModel::rowOf(const QUARRY::Hierachy *node) const
{
    if (!node->parent)
        return 0;
    if (!m_rows.contains(node)) {
        for (int row = 0; row < node->parent->children.size(); ++row)
            m_rows.insert(node->parent->children.at(row), row);
    }
    return m_rows.value(node);
}

QModelIndex InstanceModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    return createIndex(row, column, pointerTo(parent.isValid() ? nodeAt(parent)->children.at(row) : m_top));
}

QModelIndex InstanceModel::parent(const QModelIndex &index) const
{
    return index.isValid() ? indexOf(nodeAt(index)->parent) : QModelIndex();
}

int InstanceModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? nodeAt(parent)->children.size() : m_top ? 1 : 0;
}

QVariant InstanceModel::data(const QModelIndex &index, int role) const
{
    const QUARRY::Hierachy *node = nodeAt(index);
    if (!node)
        return {};
    if (role == Qt::DisplayRole)
        return node->instanceName;
    if (role == Qt::ToolTipRole)
        return QUtil::plainToolTip(tr("%1\nmodule %2").arg(node->fullPathName(), node->moduleName));
    static const QIcon icon(":/netlist/image/module.png");
    return role == Qt::DecorationRole ? icon : QVariant();
}

} // namespace Workbench
