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
//
// `adjusted` adds one bit to each sample: the mark of the sample at which the core triggered, which a core
// with trigger and segments stores along. So with W = signalCount, or signalCount + 1 when adjusted:
//   block and shadow memories   the least of ceil(depth / D) * ceil(W / B) over the shapes D x B of one
//   memory registers                   depth * W
// An 18 Kbit block, say, is 16384x1, 8192x2, 4096x4, 2048x9, 1024x18 or 512x36, so 18 bits of 1024 samples
// take one and 19 take two. For a family without shadow memories these are 16x4.
StorageNeed storageNeed(const DeviceFamily &family, JEX::Implementation implementation, int signalCount,
                        int depth, bool adjusted);

// The same as a term, "ceil(1024 / 512) x ceil(19 / 36)".
QString storageFormula(const StorageNeed &need, int depth);

} // namespace JEX_TOOL
