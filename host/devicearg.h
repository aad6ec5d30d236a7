#pragma once

#include <QString>

namespace DEV {

// The device that a project is built for, in the host's four texts. Compared and copied as a value;
// all empty when the project names no device.
struct DeviceArg
{
    QString series;     // family as the device table spells it
    QString device;     // die or density within the family
    QString package;    // package code, may be empty
    QString partNumber; // full order code, what a user picks from a list
};

inline bool operator==(const DeviceArg &a, const DeviceArg &b)
{
    return a.series == b.series && a.device == b.device && a.package == b.package &&
           a.partNumber == b.partNumber;
}
inline bool operator!=(const DeviceArg &a, const DeviceArg &b)
{
    return !(a == b);
}

} // namespace DEV
