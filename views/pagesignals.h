#pragma once

#include <QString>

class QWidget;
namespace QUARRY {
class RtlNetlist;
}

namespace RTLJEX {

struct AnyCore;

// The clock and capture signals that a core's page shows, into a copy of the core, whose ports hold what is
// shown already.
void takePageSignals(const QWidget *page, AnyCore &copy);

// Shows the clock and signals of a copy that was changed, as edits of the user, and writes those of the
// trigger ports, which are edited in place. Rows that stay keep what they are; there are as many as before.
// The netlist judges those that changed.
void putPageSignals(QWidget *page, AnyCore &copy, AnyCore &stored, const QUARRY::RtlNetlist *netlist);

// Full name of the net, or of the bus, that the current row or field of the focused widget stands for; of a
// group, of its first member. Empty: there is none.
QString focusedSignal(const QWidget *focused);

} // namespace RTLJEX
