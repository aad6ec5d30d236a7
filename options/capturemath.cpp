#include "options/capturemath.h"

#include <QCoreApplication>

#include "model/jex/core.h"
#include "model/jex/jextool.h"

namespace RTLJEX {

namespace {

const qint64 largestRegisterCapture = 512; // bits
const int smallestCapture = 4;             // samples of a Standard core

const char bsram[] = "BSRAM";
const char ssram[] = "SSRAM";
const char reg[] = "REG";

QString translated(const char *text)
{
    return QCoreApplication::translate("RTLJEX::CaptureUsage", text);
}

} // namespace

QList<int> doublingNumbers(int first, int last)
{
    QList<int> numbers;
    for (qint64 number = first; number <= last; number *= 2)
        numbers.append(int(number));
    return numbers;
}

int fixedWindowNum(int count)
{
    qint64 fixed = count > 0 ? 1 : 0;
    while (fixed < count)
        fixed *= 2;
    return int(fixed);
}

QList<int> segmentNumbers(int storage)
{
    QList<int> numbers;
    for (int number = 1; number <= storage / smallestCapture; ++number)
        numbers.append(number);
    return numbers;
}

QList<int> captureAmounts(int storage, int segments)
{
    const int parts = fixedWindowNum(segments);
    return parts > 0 ? doublingNumbers(smallestCapture, storage / parts) : QList<int>();
}

int lastTriggerPosition(int captureAmount)
{
    return captureAmount - smallestCapture;
}

QStringList offeredImplementations(bool deviceHasSsram, qint64 captureBits)
{
    QStringList offered(QLatin1String{bsram});
    if (deviceHasSsram)
        offered.append(QLatin1String(ssram));
    if (captureBits <= largestRegisterCapture)
        offered.append(QLatin1String(reg));
    return offered;
}

bool keepsImplementations(const QStringList &offered, int count, const QString &current)
{
    if (count != offered.size())
        return false;
    return count != 2 || current == offered.at(1);
}

int liteImplementationFromText(const QString &text)
{
    if (text == QLatin1String(bsram))
        return JEX::BsramImplementation;
    return text == QLatin1String(ssram) ? JEX::SsramImplementation : JEX::RegImplementation;
}

QString liteImplementationText(int implementation)
{
    switch (implementation) {
    case JEX::SsramImplementation:
        return QLatin1String(ssram);
    case JEX::RegImplementation:
        return QLatin1String("Logic");
    default:
        return QLatin1String(bsram);
    }
}

int implementationFromText(const QString &text)
{
    if (text == QLatin1String(ssram))
        return JEX::SsramImplementation;
    return text == QLatin1String(reg) ? JEX::RegImplementation : JEX::BsramImplementation;
}

QString implementationText(int implementation)
{
    return QLatin1String(implementation == JEX::SsramImplementation ? ssram
                         : implementation == JEX::RegImplementation ? reg
                                                                    : bsram);
}

int deviceAmount(const QString &implementation, const DEV::DeviceArg &device)
{
    using namespace JEX_TOOL;
    if (implementation == QLatin1String(bsram))
        return currentDeviceBsramAmount(device.series, device.device);
    if (implementation == QLatin1String(ssram))
        return currentDeviceSsramAmount(device.series, device.device);
    if (implementation == QLatin1String(reg))
        return currentDeviceRegAmount(device.series, device.device);
    return 0;
}

CaptureUsage captureUsage(const QString &implementation, const DEV::DeviceArg &device, int signalCount,
                          int depth, bool adjusted)
{
    using namespace JEX_TOOL;
    CaptureUsage usage;
    usage.available = deviceAmount(implementation, device);
    if (implementation == QLatin1String(bsram)) {
        usage.name = translated("BSRAM Usage :");
        usage.required = adjusted ? bsramNumberRequiredWithAdjust(signalCount, depth)
                                  : bsramNumberRequired(signalCount, depth);
    } else if (implementation == QLatin1String(ssram)) {
        usage.name = translated("SSRAM Usage :");
        usage.required = ssramNumberRequiredWithAdjust(signalCount, depth, adjusted);
    } else if (implementation == QLatin1String(reg)) {
        usage.name = translated("Register Usage :");
        usage.required = regNumberRequiredWidthAdjust(signalCount, depth, adjusted);
    }
    return usage;
}

QString usageText(int required, int available)
{
    if (available < required)
        return translated("<font color = red>%1</font>").arg(required) + QLatin1Char('/') +
               QString::number(available);
    return QString::fromLatin1("%1/%2").arg(required).arg(available);
}

} // namespace RTLJEX
