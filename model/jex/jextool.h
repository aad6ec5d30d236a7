#pragma once

#include <QString>

namespace JEX_TOOL {

// What the device offers, by the first two texts of DEV::DeviceArg. 0 of everything for a device that the
// table does not hold. A block memory (BSRAM) is the family's smallest one; a shadow memory (SSRAM) is one
// logic block used as a memory, as large as the family makes it (16x4, 32x6 or 32x20 bit); registers are
// those of the logic cells.
int currentDeviceBsramAmount(const QString &series, const QString &device);
int currentDeviceSsramAmount(const QString &series, const QString &device);
int currentDeviceRegAmount(const QString &series, const QString &device);

// What storing `depth` samples of `signalCount` bits needs; 0 when either is not positive. The addresses,
// the trigger and the read-out are logic and not counted here.
//
// "Adjust" adds one bit to each sample: the mark of the sample at which the core triggered, which a core
// with trigger and segments stores along. So with W = signalCount, or signalCount + 1 when adjusted:
//   block and shadow memories   the least of ceil(depth / D) * ceil(W / B) over the shapes D x B of one
//   memory registers                   depth * W
// The shapes are those of the project's current device: an 18 Kbit block, say, is 16384x1, 8192x2, 4096x4,
// 2048x9, 1024x18 or 512x36, so 18 bits of 1024 samples take one and 19 take two. For a device that is not
// known, blocks are such 18 Kbit blocks and shadow memories, where the device has none either, 16x4.
int bsramNumberRequired(int signalCount, int depth);
int bsramNumberRequiredWithAdjust(int signalCount, int depth); // always adjusted
int ssramNumberRequiredWithAdjust(int signalCount, int depth, bool adjust);
int regNumberRequiredWidthAdjust(int signalCount, int depth, bool adjust);

} // namespace JEX_TOOL
