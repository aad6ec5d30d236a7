#pragma once

#include <QList>

#include "model/jex/signalitem.h"

namespace QUARRY {
class RtlNet;
class RtlNetBus;
} // namespace QUARRY

namespace RTLJEX {

// Lists of signals without a tree: what the pages and dialogs do to their rows, for who has no window.

// The records of a net that stands alone and of a bus with its bits. They are valid unless excluded.
JEX::SignalItem signalOfNet(const QUARRY::RtlNet *net);
JEX::SignalItem signalOfBus(const QUARRY::RtlNetBus *bus);

// The list with what the user chose: signals that it has already are enabled, bits give way to their bus,
// groups lose what a new bus brings. The first is for a trigger port, the other for a capture list, whose
// disabled rows stay last.
QList<JEX::SignalItem> withPortSignals(const QList<JEX::SignalItem> &rows,
                                       const QList<JEX::SignalItem> &chosen);
QList<JEX::SignalItem> withCaptureSignals(const QList<JEX::SignalItem> &rows,
                                          const QList<JEX::SignalItem> &chosen);

// The list with one of its rows enabled or not, in the place that it then has.
QList<JEX::SignalItem> withEnabled(QList<JEX::SignalItem> rows, int row, bool isEnabled);

// Those that are enabled.
QList<JEX::SignalItem> enabledRows(const QList<JEX::SignalItem> &rows);

} // namespace RTLJEX
