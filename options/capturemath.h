#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include "model/jex/codes.h"

namespace JEX_TOOL {
struct Device;
}

namespace RTLJEX {

// The arithmetic of the capture settings, on plain values: what the boxes of a capture page offer and what
// its usage line says.

// first, 2 first, 4 first ... up to and including last; empty when last is below first.
QList<int> doublingNumbers(int first, int last);

// A number of segments as the storage is divided for it: the next power of two, 0 for none.
int fixedWindowNum(int count);

// The numbers of segments that a storage of that many samples may have: 1, 2, 3 ...
QList<int> segmentNumbers(int storage);

// The capture amounts that fit into one segment; none when a segment is too small for the least one, or when
// there are no segments.
QList<int> captureAmounts(int storage, int segments);

// The last trigger position in a capture of that many samples. Negative when nothing is captured.
int lastTriggerPosition(int captureAmount);

// The implementations that suit a device, null when it is not known, and a capture of that many bits, block
// memory first. Registers are worth offering for small captures only, shadow memory only where the device has
// it.
QList<JEX::Implementation> offeredImplementations(const JEX_TOOL::Device *device, qint64 captureBits);
QStringList implementationNames(const QList<JEX::Implementation> &implementations);

// True when a box with `count` items that shows `current` is left as it is rather than filled with `offered`
// again.
bool keepsImplementations(const QList<JEX::Implementation> &offered, int count, JEX::Implementation current);

// Coding of the implementation of a Lite core. The text is what the page looks for in its box: registers are
// looked up as "Logic", which the box never offers, so that such a core opens with the box as it stands.
JEX::Implementation liteImplementationFromText(const QString &text);
QString liteImplementationText(int implementation);

// The same for both implementations of a Standard core.
JEX::Implementation implementationFromText(const QString &text);
QString implementationText(int implementation);

// "BSRAM Usage :"; empty for no implementation.
QString usageName(JEX::Implementation implementation);

// What a capture takes of a device.
struct CaptureUsage
{
    QString name; // as above
    int required = 0;
    int available = 0;
};

// `signalCount` bits, `depth` samples; the device is null when it is not known. `adjusted` picks the
// estimates for cores that trigger, which need more than the captured bits.
CaptureUsage captureUsage(JEX::Implementation implementation, const JEX_TOOL::Device *device, int signalCount,
                          int depth, bool adjusted);

// "required/available"; the required number in red when it is more than there is.
QString usageText(int required, int available);

} // namespace RTLJEX
