#pragma once

#include <QList>

#include "model/jex/signalitem.h"

class QTreeWidget;

namespace QUARRY {
class RtlNet;
class RtlNetBus;
} // namespace QUARRY

namespace RTLJEX {

struct ModuleForWidget;

// The rows of a search result. Each answers with its text, its record (Qt::UserRole) and its look as a row
// of signal2TreeItem() would, but makes them when it is asked: a result can have a million rows. Until they
// are cleared they point into the netlist.

// The header is hidden while there is one column.
void setUpResultColumns(QTreeWidget *tree);

// Buses with their bits, then single nets, under their full names.
void showFlatResult(QTreeWidget *tree, const QList<QUARRY::RtlNet *> &nets,
                    const QList<QUARRY::RtlNetBus *> &buses);

// A tree of modules, the nets in it under their short names.
void showModuleResult(QTreeWidget *tree, const ModuleForWidget &root);

// The records of the selected rows, in the order of the tree.
QList<JEX::SignalItem> selectedSignals(const QTreeWidget *tree);

} // namespace RTLJEX
