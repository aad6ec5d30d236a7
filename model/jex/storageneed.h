#pragma once

#include "model/jex/codes.h"
#include "model/jex/devicetable.h"

namespace JEX_TOOL {

// What storing samples takes of the memories or registers of a device family, on plain values.

struct StorageNeed
{
    int width = 0;              // bits of a sample, the mark included
    MemoryShape shape = {0, 0}; // of one memory; {0, 0} for registers, and when nothing is stored
    int required = 0;           // memories or registers
};

// For `depth` samples of `signalCount` bits; nothing when either is not positive. The addresses, the trigger
// and the read-out are logic and not counted here.
// `adjusted`: with the mark of the sample at which the core triggered, a bit that a core with trigger and
// segments stores along with each sample.
StorageNeed storageNeed(const DeviceFamily &family, JEX::Implementation implementation, int signalCount,
                        int depth, bool adjusted);

// The same as a term, "ceil(1024 / 512) x ceil(19 / 36)".
QString storageFormula(const StorageNeed &need, int depth);

} // namespace JEX_TOOL
