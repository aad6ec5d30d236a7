#pragma once

#include <QList>

namespace RTLJEX {

// Orders of rows as plain numbers: the result lists the old row numbers in their new order.

// The enabled ones first, each kind in its old order.
QList<int> enabledFirstOrder(const QList<bool> &enabled);

// `moved` taken out and put, in their order, in front of the row that was at `before`; the row count means
// behind all rows.
QList<int> orderAfterMove(int count, const QList<int> &moved, int before);

// Rows that are enabled one after another, in the given order, each put in front of the first row that is
// disabled at that moment.
QList<int> orderAfterEnabling(QList<bool> enabled, const QList<int> &toEnable);

// The row in front of which a drop at height y of `row` puts what was dragged: the row's upper half means
// the row itself, the lower half the one below.
int dropRow(int row, int y, int top, int height);

} // namespace RTLJEX
