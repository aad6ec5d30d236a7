#pragma once

#include <QList>

#include "model/jex/signalitem.h"

namespace QUARRY {
class RtlNetlist;
}

namespace RTLJEX {

class signalTreeWidget;

// The capture rows of a page's signal tree: adding, removing, sorting, rebuilding and writing them. The
// tree is the page's and outlives this. Nothing here tells anyone about a change; the page does.
class CaptureRows
{
public:
    explicit CaptureRows(signalTreeWidget *tree);

    void append(const QList<JEX::SignalItem> &items);
    // Merges the chosen signals with the rows and puts what is new after the enabled ones.
    void add(const QList<JEX::SignalItem> &chosen);
    // Whether the selection may be removed: it has rows, and none of them is a member of another.
    bool canRemove() const;
    // False when there was nothing to remove. The tree reports its selection at most once.
    bool removeSelected();
    void sortEnabledFirst();

    // Clears the tree and makes the rows from `stored`, which is classified against the netlist (may be
    // null) first.
    void rebuild(QUARRY::RtlNetlist *netlist, QList<JEX::SignalItem> &stored);

    // The records of the rows, in row order: all of them, and those that are enabled.
    void write(QList<JEX::SignalItem> &enabled, QList<JEX::SignalItem> &all) const;

private:
    int firstDisabled() const; // the number of rows when all are enabled

    signalTreeWidget *m_tree;
};

} // namespace RTLJEX
