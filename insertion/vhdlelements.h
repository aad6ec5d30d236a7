#pragma once

#include <QList>
#include <QString>

namespace QUARRY {
class RtlModule;
}

namespace Insertion {

// A wire of GHDL's translation that holds a net among others.
struct WholeWire
{
    QString name;
    int width = 0;
    int low = 0; // the net's lowest bit in it
};

// Where GHDL has a member of a record or an element of an array, "list[2].valid": in the wire of the signal
// as a whole, or, where that is a port of a record type, in the one of the member. Told from what is declared
// beside it; empty when the net is a signal of its own.
QList<WholeWire> wholeWires(const QUARRY::RtlModule &declarations, quint32 entry);

} // namespace Insertion
