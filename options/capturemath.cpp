#include "options/capturemath.h"

#include <QCoreApplication>

#include "model/jex/resourcetable.h"
#include "model/jex/storageneed.h"

namespace RTLJEX {

namespace {

const int smallestCapture = 4; // samples of a Standard core

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(RTLJEX::CaptureUsage)
};

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

QList<JEX::Implementation> offeredImplementations(const JEX_TOOL::Device *device, qint64 captureBits)
{
    QList<JEX::Implementation> offered;
    for (const JEX_TOOL::Resource &resource : JEX_TOOL::resources) {
        const bool isThere = resource.isAlwaysOffered || JEX_TOOL::amountOf(device, resource.code) != 0;
        if (isThere && captureBits <= resource.largestCapture)
            offered.append(resource.code);
    }
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
    return QLatin1String(JEX_TOOL::resourceOf(JEX::implementationOf(implementation))->liteText);
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

QString usageName(JEX::Implementation implementation)
{
    const JEX_TOOL::Resource *resource = JEX_TOOL::resourceOf(implementation);
    if (!resource)
        return QString();
    return resource->usageText ? Texts::tr(resource->usageText)
                               : Texts::tr("%1 Usage :").arg(QLatin1String(resource->name));
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
        return Texts::tr("<font color = red>%1</font>").arg(required) + QLatin1Char('/') +
               QString::number(available);
    return QString::fromLatin1("%1/%2").arg(required).arg(available);
}

} // namespace RTLJEX
