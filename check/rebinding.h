#pragma once

#include "check/renaming.h"

namespace RTLJEX {

// What came of a rename, and whether the configuration may be kept with it.
struct Rebinding
{
    Renaming::Changes changes; // none: no signal has such a name
    FileFindings findings;     // with the new names
    // A sentence: the design does not have a new name as it is now stored, a list holds one twice, or a bus
    // bits of another name. Empty: all is well.
    QString refusal;
};

// Renames everywhere in the configuration, and judges the result.
Rebinding rebind(const Renaming &renaming, const QUARRY::RtlNetlist &netlist, Configuration &configuration);
// The same for no more than the rows and clocks of these signals.
Rebinding rebindAt(const QList<StaleSignal> &stale, const Renaming &renaming,
                   const QUARRY::RtlNetlist &netlist, Configuration &configuration);

} // namespace RTLJEX
