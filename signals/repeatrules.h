#pragma once

#include "model/jex/signalitem.h"

namespace RTLJEX {

class SignalListIndex;

// What becomes of a row of a list when new signals are about to be added: how repeats are dropped, by the
// type of the row's record.

enum RowVerdict {
    RowKept,    // nothing changed in the row
    RowChanged, // the record was changed and belongs back into the row
    RowGone     // the row is to be deleted
};

// A single net: one new entry of the same name is dropped, and the row enabled for it.
RowVerdict judgeSingleRow(JEX::SignalItem &row, SignalListIndex &others);

// A bus, or a bit of one, against the new buses and bits.
RowVerdict judgeBusRow(JEX::SignalItem &row, SignalListIndex &buses);

// A user's group gives way member by member to new buses. One that lost members is gone; what is left of
// it stands at the front of `buses` then.
RowVerdict judgeGroupRow(JEX::SignalItem &row, SignalListIndex &others, SignalListIndex &buses);

// By the record's type, one of the above.
RowVerdict judgeRow(JEX::SignalItem &row, SignalListIndex &others, SignalListIndex &buses);

} // namespace RTLJEX
