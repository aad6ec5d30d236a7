#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include "check/anycore.h"

namespace QUARRY {
class RtlNetlist;
}

namespace RTLJEX {

// One signal of a configuration that the design does not have as it is stored.
struct StaleSignal
{
    // Which part of the core holds it.
    enum Place { Clock, Trigger, Capture };
    // In what the design differs.
    enum Fault {
        Missing,
        WidthChanged, // the design declares the name with another range, or without one
        Excluded,     // it is there, but must not be probed
        Moved         // the only net of its short name is under another instance path
    };

    int core = 0;  // position in the list of cores
    int shown = 0; // as of AnyCore
    Place place = Clock;
    int port = -1; // number of the trigger port
    int row = -1;  // position in the port's or the capture list; -1 when it stands in none
    QString name;  // as stored: of a net, a bit or a bus as a whole
    QString group; // name of the row when `name` is one of its members
    QString alias; // that the user gave to `name`
    Fault fault = Missing;
    QString now;         // the full name that the design has, when the width changed or it moved
    QStringList nearest; // names to take instead of a missing one, the best first
};

// Looks up every clock, trigger and capture signal, disabled ones too, in the order of the file. Bits are
// looked up one by one, so that groups and parts of buses count as there when their bits are. Costs nothing
// per net of the design unless something is missing.
QList<StaleSignal> staleSignals(const QList<AnyCore> &cores, const QUARRY::RtlNetlist &netlist);

QString staleWord(StaleSignal::Fault fault);      // "missing", "width changed", "excluded", "moved"
QString staleSentence(const StaleSignal &signal); // all of it in one line

} // namespace RTLJEX
