#include "netselect/rtlnetlisttreeview.h"

#include "model/netlist/rtlnetlist.h"

namespace RTLJEX {

namespace {

RtlTreeItem *makeItem(int type, const QString &text, void *object)
{
    RtlTreeItem *item = new RtlTreeItem(type);
    item->setText(0, text);
    item->netlistObject = object;
    return item;
}

} // namespace

RtlNetlistTreeView::RtlNetlistTreeView(QWidget *parent)
    : QTreeWidget(parent), m_netlist(nullptr), m_moduleIcon(QLatin1String(":/netlist/image/module.png"))
{
    setHeaderHidden(true);
    setUniformRowHeights(true);
}

void RtlNetlistTreeView::setNetlistData(QUARRY::RtlNetlist *netlist)
{
    m_netlist = netlist;
    updateTree();
}

void RtlNetlistTreeView::updateTree()
{
    clear();
    if (!m_netlist || !m_netlist->topHierarchy)
        return;
    addTopLevelItem(buildHierachyItem(m_netlist->topHierarchy));
    expandToDepth(0);
}

RtlTreeItem *RtlNetlistTreeView::buildHierachyItem(QUARRY::Hierachy *node)
{
    const QString text = node->parent
                             ? node->instanceName + QLatin1Char('[') + node->moduleName + QLatin1Char(']')
                             : node->instanceName;
    RtlTreeItem *item = makeItem(RtlTreeItem::HierachyItem, text, node);
    item->setIcon(0, m_moduleIcon);
    for (QUARRY::Hierachy *child : node->children)
        item->addChild(buildHierachyItem(child));
    return item;
}

RtlTreeItem *RtlNetlistTreeView::buildNetItem(QUARRY::RtlNet *net)
{
    return makeItem(RtlTreeItem::NetItem, net->fullPathName(), net);
}

RtlTreeItem *RtlNetlistTreeView::buildNetBusItem(QUARRY::RtlNetBus *bus)
{
    RtlTreeItem *item = makeItem(RtlTreeItem::NetBusItem, bus->fullBusName(), bus);
    for (QUARRY::RtlNet *net : bus->members)
        item->addChild(buildNetItem(net));
    return item;
}

} // namespace RTLJEX
