#pragma once

#include <QIcon>
#include <QTreeWidget>

namespace QUARRY {
class Hierachy;
class RtlNet;
class RtlNetBus;
class RtlNetlist;
} // namespace QUARRY

namespace RTLJEX {

// A row that stands for an object of the netlist, which is not owned: read it by the row's type.
class RtlTreeItem : public QTreeWidgetItem
{
public:
    enum ItemType { NetItem = UserType + 1, NetBusItem, HierachyItem };

    explicit RtlTreeItem(int type) : QTreeWidgetItem(type) {}

    void *netlistObject = nullptr; // QUARRY::RtlNet, RtlNetBus or Hierachy
};

// The modules of a design as a tree. Its rows point into the netlist, which is not owned (may be null): set
// another one before that one goes.
class RtlNetlistTreeView : public QTreeWidget
{
    Q_OBJECT

public:
    explicit RtlNetlistTreeView(QWidget *parent = nullptr);

    void setNetlistData(QUARRY::RtlNetlist *netlist);
    QUARRY::RtlNetlist *netlistData() const { return m_netlist; }

    // Builds the rows anew, the top module's row open.
    void updateTree();

    // The caller owns the row. Modules have their instances below them, but no nets.
    RtlTreeItem *buildHierachyItem(QUARRY::Hierachy *node);
    RtlTreeItem *buildNetItem(QUARRY::RtlNet *net);
    RtlTreeItem *buildNetBusItem(QUARRY::RtlNetBus *bus);

private:
    QUARRY::RtlNetlist *m_netlist;
    QIcon m_moduleIcon;
};

} // namespace RTLJEX
