#pragma once

#include <QList>
#include <QSet>

class QTreeWidget;
class QTreeWidgetItem;

namespace RTLJEX {

// Takes all top-level rows out of a tree for as long as it lives, so that any number of them can be
// changed, moved, added or deleted at no cost but their own, and puts `rows` back in at its end. Rows that
// were there before keep their expansion and selection; the tree keeps its current row, or takes the one in
// its place, and its scrolling, and reports a changed selection once, afterwards.
class RowEdit
{
public:
    explicit RowEdit(QTreeWidget *tree);
    ~RowEdit();

    QList<QTreeWidgetItem *> rows; // owned while outside

    void reorder(const QList<int> &order);               // old row numbers in their new order
    void remove(const QList<QTreeWidgetItem *> &doomed); // deletes them
    // Makes the row current and selects it alone.
    void choose(QTreeWidgetItem *row);

private:
    RowEdit(const RowEdit &);
    RowEdit &operator=(const RowEdit &);
    void forget(QTreeWidgetItem *row);
    void restoreExpansion();
    void restoreSelection();

    QTreeWidget *m_tree;
    bool m_blocked;
    bool m_autoScroll;
    QSet<QTreeWidgetItem *> m_expanded;
    QList<QTreeWidgetItem *> m_selected; // in the order of their selection, members included
    QTreeWidgetItem *m_current;
    int m_currentPlace; // of its top-level row, for the one that follows it when it goes
    bool m_selectionChanged;
};

} // namespace RTLJEX
