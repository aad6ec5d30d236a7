#pragma once

#include <QString>
#include <QStringList>

#include "host/devicearg.h"

namespace CommandLine {

// By part number or name, in any case of letters. A part number of a known die in a package that the device
// table does not hold gives the die, with that part number and no package. False when nothing of it is known.
bool findDevice(const QString &name, DEV::DeviceArg &device);

// Names of devices that are spelt much like this one, the nearest first, at most three.
QStringList nearestDevices(const QString &name);

// " Did you mean A, B or C?"; empty when nothing is near.
QString deviceHint(const QString &name);

} // namespace CommandLine
