#include "options/capturerows.h"

#include <QTreeWidgetItem>

#include "signals/signalrules.h"
#include "signals/signaltreewidget.h"

namespace RTLJEX {

namespace {

const int rowType = 0;

JEX::SignalItem recordOf(const QTreeWidgetItem *row)
{
    return row->data(0, Qt::UserRole).value<JEX::SignalItem>();
}

} // namespace

CaptureRows::CaptureRows(signalTreeWidget *tree) : m_tree(tree)
{
}

void CaptureRows::append(const QList<JEX::SignalItem> &items)
{
    insertSignalRows(m_tree, items, m_tree->topLevelItemCount(), rowType);
    updateCapEnable(m_tree);
}

void CaptureRows::add(const QList<JEX::SignalItem> &chosen)
{
    QList<JEX::SignalItem> buses;
    QList<JEX::SignalItem> others;
    Grouped(chosen, buses, others);
    CheckRepeat(m_tree, buses, others);
    // Rows may have gone or become enabled by now, so the place is looked up only here.
    insertSignalRows(m_tree, buses + others, firstDisabled(), rowType);
}

int CaptureRows::firstDisabled() const
{
    int row = 0;
    while (row < m_tree->topLevelItemCount() && recordOf(m_tree->topLevelItem(row)).capEnable)
        ++row;
    return row;
}

bool CaptureRows::canRemove() const
{
    const QList<QTreeWidgetItem *> selected = m_tree->selectedItems();
    for (const QTreeWidgetItem *row : selected) {
        if (row->parent())
            return false;
    }
    return !selected.isEmpty();
}

bool CaptureRows::removeSelected()
{
    if (!canRemove())
        return false;
    const QList<QTreeWidgetItem *> selected = m_tree->selectedItems();
    m_tree->clearSelection();
    const bool blocked = m_tree->blockSignals(true);
    qDeleteAll(selected);
    m_tree->blockSignals(blocked);
    return true;
}

void CaptureRows::sortEnabledFirst()
{
    RTLJEX::sortEnabledFirst(m_tree);
}

void CaptureRows::rebuild(QUARRY::RtlNetlist *netlist, QList<JEX::SignalItem> &stored)
{
    classifySignals(netlist, stored);
    m_tree->clear();
    append(stored);
}

void CaptureRows::write(QList<JEX::SignalItem> &enabled, QList<JEX::SignalItem> &all) const
{
    enabled.clear();
    all.clear();
    for (int row = 0; row < m_tree->topLevelItemCount(); ++row) {
        const QVariant data = m_tree->topLevelItem(row)->data(0, Qt::UserRole);
        if (!data.canConvert<JEX::SignalItem>())
            continue;
        const JEX::SignalItem item = data.value<JEX::SignalItem>();
        all.append(item);
        if (item.capEnable)
            enabled.append(item);
    }
}

} // namespace RTLJEX
