#pragma once

#include <QList>

#include "model/jex/signalitem.h"

class QTreeWidget;

namespace RTLJEX {

// Reconciles the rows of a tree with new signals, as Grouped() sorted them, before they are added: what the
// tree shows already leaves the lists and is enabled for capture, bits that a new bus brings leave the tree,
// and so do groups that lost members, whose rest stands at the front of `busList`.
void CheckRepeat(QTreeWidget *tree, QList<JEX::SignalItem> &busList, QList<JEX::SignalItem> &otherList);

// The chosen signals as rows that are still to be made, sorted and reconciled with the rows of the tree.
QList<JEX::SignalItem> withoutRepeats(QTreeWidget *tree, const QList<JEX::SignalItem> &chosen);

// One row of it. A row that is deleted lowers the index by one, so that the next one is looked at after
// the caller's increment.
void CheckRepeatBus(QTreeWidget *tree, int &index, QList<JEX::SignalItem> &busList);
void CheckRepeatGroupBus(QTreeWidget *tree, int &index, QList<JEX::SignalItem> &otherList,
                         QList<JEX::SignalItem> &busList);

} // namespace RTLJEX
