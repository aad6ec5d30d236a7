#pragma once

#include <QList>

#include "model/jex/signalitem.h"

class QTreeWidget;
class QWidget;
namespace QUARRY {
class RtlNetlist;
}

namespace RTLJEX {

// The capture rows of a page's signal tree. Nothing here tells anyone about a change; the page does.

// Lets the user search the design for signals, and adds them. False when there is nothing to do any more:
// nothing was chosen, or `page`, the parent of the dialog, died meanwhile.
bool addSearchedRows(QTreeWidget *tree, QUARRY::RtlNetlist *netlist, QWidget *page);

// Merges the chosen signals with the rows and puts what is new after the enabled ones.
void addCaptureRows(QTreeWidget *tree, const QList<JEX::SignalItem> &chosen);

// Without later records of a name that came before. Each port numbers its groups on its own, so groups are
// told apart by their members as well, in whatever order those are.
QList<JEX::SignalItem> uniqueByName(const QList<JEX::SignalItem> &items);

// Makes all rows anew from `stored`, which is classified against the netlist (may be null) first.
void rebuildCaptureRows(QTreeWidget *tree, const QUARRY::RtlNetlist *netlist, QList<JEX::SignalItem> &stored);

// Shows these records, as they are. Rows of a signal that is among them stay, expanded and selected as they
// were.
void showCaptureRows(QTreeWidget *tree, const QList<JEX::SignalItem> &records);

// The records of the rows, in row order: all of them, and those that are enabled.
void collectCaptureRows(const QTreeWidget *tree, QList<JEX::SignalItem> &enabled,
                        QList<JEX::SignalItem> &all);

} // namespace RTLJEX
