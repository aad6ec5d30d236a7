#include "options/capturemath.h"

#include <QCoreApplication>

#include "model/jex/storageneed.h"

namespace RTLJEX {

namespace {

const qint64 largestRegisterCapture = 512; // bits
const int smallestCapture = 4;             // samples of a Standard core

struct CaptureTexts
{
    Q_DECLARE_TR_FUNCTIONS(RTLJEX::CaptureUsage)
};

QString usageName(JEX::Implementation implementation)
{
    switch (implementation) {
    case JEX::BsramImplementation:
        return CaptureTexts::tr("BSRAM Usage :");
    case JEX::RegImplementation:
        return CaptureTexts::tr("Register Usage :");
    case JEX::SsramImplementation:
        return CaptureTexts::tr("SSRAM Usage :");
    case JEX::NoImplementation:
        break;
    }
    return QString();
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

QList<JEX::Implementation> offeredImplementations(bool deviceHasSsram, qint64 captureBits)
{
    QList<JEX::Implementation> offered;
    offered.append(JEX::BsramImplementation);
    if (deviceHasSsram)
        offered.append(JEX::SsramImplementation);
    if (captureBits <= largestRegisterCapture)
        offered.append(JEX::RegImplementation);
    return offered;
}

QStringList implementationNames(const QList<JEX::Implementation> &implementations)
{
    QStringList names;
    for (JEX::Implementation implementation : implementations)
        names.append(JEX::implementationName(implementation));
    return names;
}

bool keepsImplementations(const QList<JEX::Implementation> &offered, int count, JEX::Implementation current)
{
    if (count != offered.size())
        return false;
    return count != 2 || current == offered.at(1);
}

JEX::Implementation liteImplementationFromText(const QString &text)
{
    const JEX::Implementation named = JEX::implementationNamed(text);
    return named == JEX::NoImplementation ? JEX::RegImplementation : named;
}

QString liteImplementationText(int implementation)
{
    return implementation == JEX::RegImplementation ? QString(QLatin1String("Logic"))
                                                    : implementationText(implementation);
}

JEX::Implementation implementationFromText(const QString &text)
{
    const JEX::Implementation named = JEX::implementationNamed(text);
    return named == JEX::NoImplementation ? JEX::BsramImplementation : named;
}

QString implementationText(int implementation)
{
    return JEX::implementationName(JEX::implementationOf(implementation));
}

CaptureUsage captureUsage(JEX::Implementation implementation, const JEX_TOOL::Device *device, int signalCount,
                          int depth, bool adjusted)
{
    const JEX_TOOL::DeviceFamily &family = JEX_TOOL::familyOf(device);
    CaptureUsage usage;
    usage.name = usageName(implementation);
    usage.required = JEX_TOOL::storageNeed(family, implementation, signalCount, depth, adjusted).required;
    usage.available = JEX_TOOL::amountOf(device, implementation);
    return usage;
}

QString usageText(int required, int available)
{
    if (available < required)
        return CaptureTexts::tr("<font color = red>%1</font>").arg(required) + QLatin1Char('/') +
               QString::number(available);
    return QString::fromLatin1("%1/%2").arg(required).arg(available);
}

} // namespace RTLJEX
