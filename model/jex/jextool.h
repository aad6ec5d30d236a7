#pragma once

#include <QString>

namespace JEX_TOOL {

// What the device offers, by the first two texts of DEV::DeviceArg. 0 of everything for a device that the
// table does not hold.
int currentDeviceBsramAmount(const QString &series, const QString &device);
int currentDeviceSsramAmount(const QString &series, const QString &device);
int currentDeviceRegAmount(const QString &series, const QString &device);

// What a capture needs: `signalCount` bits, `depth` samples.
int bsramNumberRequired(int signalCount, int depth);
int bsramNumberRequiredWithAdjust(int signalCount, int depth);
int ssramNumberRequiredWithAdjust(int signalCount, int depth, bool adjust);
int regNumberRequiredWidthAdjust(int signalCount, int depth, bool adjust);

} // namespace JEX_TOOL
