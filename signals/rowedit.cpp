#include "signals/rowedit.h"

#include <QHash>
#include <QTreeWidget>
#include <QTreeWidgetItem>

#include "signals/signalrows.h"

namespace RTLJEX {

RowEdit::RowEdit(QTreeWidget *tree)
    : m_tree(tree),
      m_blocked(tree->blockSignals(true)),
      m_autoScroll(tree->hasAutoScroll()),
      m_selected(tree->selectedItems()),
      m_current(tree->currentItem()),
      m_currentPlace(
          m_current ? tree->indexOfTopLevelItem(m_current->parent() ? m_current->parent() : m_current) : -1),
      m_selectionChanged(false)
{
    for (int i = 0; i < tree->topLevelItemCount(); ++i) {
        if (tree->isExpanded(tree->model()->index(i, 0)))
            m_expanded.insert(tree->topLevelItem(i));
    }
    rows = tree->invisibleRootItem()->takeChildren();
}

RowEdit::~RowEdit()
{
    m_tree->setAutoScroll(false); // a new current row would be scrolled to
    m_tree->addTopLevelItems(rows);
    for (QTreeWidgetItem *row : rows)
        settleRow(row);
    restoreExpansion();
    restoreSelection();
    m_tree->setAutoScroll(m_autoScroll);
    m_tree->blockSignals(m_blocked);
    if (m_selectionChanged)
        QMetaObject::invokeMethod(m_tree, "itemSelectionChanged", Qt::DirectConnection);
}

void RowEdit::reorder(const QList<int> &order)
{
    QList<QTreeWidgetItem *> ordered;
    for (int index : order)
        ordered.append(rows.at(index));
    rows = ordered;
}

void RowEdit::remove(const QList<QTreeWidgetItem *> &doomed)
{
    QSet<QTreeWidgetItem *> leaving;
    for (QTreeWidgetItem *row : doomed)
        leaving.insert(row);
    QList<QTreeWidgetItem *> kept;
    for (QTreeWidgetItem *row : rows) {
        if (!leaving.contains(row))
            kept.append(row);
    }
    rows = kept;

    QList<QTreeWidgetItem *> selected;
    for (QTreeWidgetItem *row : m_selected) {
        if (!leaving.contains(row) && !leaving.contains(row->parent()))
            selected.append(row);
    }
    m_selectionChanged = m_selectionChanged || selected.size() != m_selected.size();
    m_selected = selected;
    for (QTreeWidgetItem *row : leaving)
        forget(row);
}

// Of a row that is gone from `rows` and the selection.
void RowEdit::forget(QTreeWidgetItem *row)
{
    m_expanded.remove(row);
    if (m_current && (m_current == row || m_current->parent() == row))
        m_current = nullptr;
    delete row;
}

void RowEdit::choose(QTreeWidgetItem *row)
{
    m_selected.clear();
    m_selected.append(row);
    m_current = row;
    m_selectionChanged = true;
}

void RowEdit::restoreExpansion()
{
    for (int i = 0; !m_expanded.isEmpty() && i < rows.size(); ++i) {
        if (m_expanded.contains(rows.at(i)))
            m_tree->setExpanded(m_tree->model()->index(i, 0), true);
    }
}

void RowEdit::restoreSelection()
{
    QHash<QTreeWidgetItem *, int> position;
    for (int i = 0; i < rows.size(); ++i)
        position.insert(rows.at(i), i);
    const auto indexOf = [&](QTreeWidgetItem *row) {
        const QTreeWidgetItem *parent = row->parent();
        const QAbstractItemModel *model = m_tree->model();
        return parent ? model->index(parent->indexOfChild(row), 0,
                                     model->index(position.value(row->parent()), 0))
                      : model->index(position.value(row), 0);
    };
    if (!m_current && m_currentPlace >= 0 && !rows.isEmpty())
        m_current = rows.at(qMin(m_currentPlace, rows.size() - 1));
    if (m_current)
        m_tree->selectionModel()->setCurrentIndex(indexOf(m_current), QItemSelectionModel::NoUpdate);
    QItemSelection selection;
    for (QTreeWidgetItem *row : m_selected) {
        const QModelIndex index = indexOf(row);
        if (!selection.isEmpty() && selection.last().bottomRight() == index.sibling(index.row() - 1, 0))
            selection.last() = QItemSelectionRange(selection.last().topLeft(), index);
        else
            selection.append(QItemSelectionRange(index));
    }
    m_tree->selectionModel()->select(selection,
                                     QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

} // namespace RTLJEX
