#pragma once

#include <QList>
#include <QString>

#include "model/jex/modes.h"

namespace QUARRY {
class RtlNetlist;
}

namespace RTLJEX {

// One error, and where the editor has what is to be mended.
struct CheckError
{
    enum Place { Ports, Units, Expressions, Clock, Capture };

    QString line;
    int core = 0; // position in the list of cores
    Place place = Clock;
    int unit = -1;      // number, when one is at fault
    QString expression; // likewise
};

// Judges a whole configuration against the design before it is written. Changes nothing. A null netlist
// holds no clock.
QList<CheckError> coreErrors(const JEX::CoreList &cores, const QUARRY::RtlNetlist *netlist);

// The same as text. True when nothing was found; `errors`, when not null, gets the lines, joined by newlines.
bool checkCores(const JEX::CoreList &cores, const QUARRY::RtlNetlist *netlist, QString *errors);

} // namespace RTLJEX
