#pragma once

#include <QList>
#include <QStringList>

#include "model/jex/signalitem.h"

class QTreeWidget;
class QTreeWidgetItem;

namespace RTLJEX {

// Rows of signal trees. A row carries its whole record in column 0 under Qt::UserRole and shows the alias
// in italics, or the name; each member has a child row, which has a record of its own only where it is
// said. What is not valid is grey and can be neither selected nor used.

// One row with its members, appended to the tree or the parent or put at a position, which is clamped.
// Nothing without a tree or parent.
void signal2TreeItem(QTreeWidget *tree, JEX::SignalItem item, int type);
void signal2TreeItem(QTreeWidgetItem *parent, JEX::SignalItem item, int type);
void signal2TreeItemWithIndex(QTreeWidget *tree, JEX::SignalItem item, int index, int type);
// The texts stand for the names of the record and its members, whose rows carry their records here.
// Nothing unless there is one text for each.
void signal2TreeItemForHierarchy(QTreeWidgetItem *parent, JEX::SignalItem item, QStringList texts, int type);

// Many rows at once, in order, which saves a search and a notice for each.
void insertSignalRows(QTreeWidget *tree, const QList<JEX::SignalItem> &items, int index, int type);
// The same for a capture tree, whose rows come as updateCapEnable() would leave them.
const int captureRowType = 0;
void insertCaptureRows(QTreeWidget *tree, const QList<JEX::SignalItem> &items, int index);

// The row as the functions above make it, not yet in a tree.
QTreeWidgetItem *makeSignalRow(const JEX::SignalItem &item, int type);

// To be called for a row that was taken out and put in, or put below another: the toolkit enables its members
// then, although it is not.
void settleRow(QTreeWidgetItem *row);

// The record of a row; a default one when it carries none.
JEX::SignalItem recordOf(const QTreeWidgetItem *row);
void setRecord(QTreeWidgetItem *row, const JEX::SignalItem &item);
// Text and slant for the record, whose identity is in the name.
void showName(QTreeWidgetItem *row, const JEX::SignalItem &item);

// Colours and flags of all rows of a capture tree by their records: grey while disabled for capture, red
// where the library's flag is off, black otherwise.
void updateCapEnable(QTreeWidget *tree);
// The same for one top-level row.
void updateCapEnable(QTreeWidgetItem *row);

// Where new rows of a capture tree go: behind the enabled ones, in front of the first disabled one.
int firstDisabledRow(const QTreeWidget *tree);

// Enabled rows first, each kind in its old order. Nothing happens when they are in order already;
// otherwise the rows keep their expansion and are coloured anew.
void sortEnabledFirst(QTreeWidget *tree);

// The records of the top-level rows, in row order.
QList<JEX::SignalItem> topLevelRecords(const QTreeWidget *tree);
// Those of the rows that are selected, and of selected members of others.
QList<JEX::SignalItem> selectedRecords(const QTreeWidget *tree);

// Whether the selection may be removed: it has rows, and none of them is a member of another.
bool canRemoveRows(const QTreeWidget *tree);
// Removes the rows of the selection that are no members; the tree reports its selection once. False when
// nothing happened.
bool removeChosenRows(QTreeWidget *tree);

} // namespace RTLJEX
