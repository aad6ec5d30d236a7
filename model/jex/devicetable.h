#pragma once

#include <QList>
#include <QString>

#include "host/devicearg.h"
#include "model/jex/codes.h"

namespace JEX_TOOL {

// One way in which a memory can be used: so many words of so many bits.
struct MemoryShape
{
    int depth;
    int width;
};

// What the devices of a family have in common. The lists of shapes end with {0, 0}.
struct DeviceFamily
{
    const char *series;
    // Of one memory for each JEX::Implementation, with a write and a read port of their own; null: the family
    // has none.
    const MemoryShape *shapes[JEX::ImplementationCount];
    const char *source; // the public data sheet that the figures are from
};

// One device and the part that the workbench offers for it.
struct Device
{
    const DeviceFamily *family;
    const char *device;
    const char *package;
    const char *partNumber;
    // For each JEX::Implementation. Registers of the logic cells, of which those of pins do not count.
    int amounts[JEX::ImplementationCount];
};

// Null for a device that the table does not hold.
const Device *findDevice(const QString &series, const QString &device);

// What it has for an implementation; a device that is not known (null) has nothing.
int amountOf(const Device *device, JEX::Implementation implementation);

// One whose memories are of the most common kind: 18 Kbit blocks, 16x4 shadow memories.
const DeviceFamily &usualFamily();
// The family by whose memories is counted; the usual one for a device that is not known (null).
const DeviceFamily &familyOf(const Device *device);

// Every part of the table, ordered by series; part numbers are unique.
QList<DEV::DeviceArg> knownDevices();

} // namespace JEX_TOOL
