#pragma once

#include <QString>

namespace JEX_TOOL {

// The figures of the device table as the editor's host offers them.

// What the device offers, by the first two texts of DEV::DeviceArg. 0 of everything for a device that the
// table does not hold. A block memory (BSRAM) is the family's smallest one; a shadow memory (SSRAM) is one
// logic block used as a memory, as large as the family makes it (16x4, 32x6 or 32x20 bit); registers are
// those of the logic cells.
int currentDeviceBsramAmount(const QString &series, const QString &device);
int currentDeviceSsramAmount(const QString &series, const QString &device);
int currentDeviceRegAmount(const QString &series, const QString &device);

// What storing `depth` samples of `signalCount` bits needs of the family of the project's current device, see
// storageneed.h; a device that is not known counts as one of the usual family.
int bsramNumberRequired(int signalCount, int depth);
int bsramNumberRequiredWithAdjust(int signalCount, int depth); // always adjusted
int ssramNumberRequiredWithAdjust(int signalCount, int depth, bool adjust);
int regNumberRequiredWidthAdjust(int signalCount, int depth, bool adjust);

} // namespace JEX_TOOL
