#include "commandline/devicename.h"

#include <QMultiMap>

#include "check/nearestnames.h"
#include "model/jex/devicetable.h"

namespace CommandLine {
namespace {

const int nearestCount = 3;

bool isSame(const QString &a, const QString &b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

// A die's name is followed by speed and package. A digit would make it another die.
bool isOfDie(const QString &part, const QString &die)
{
    return part.startsWith(die, Qt::CaseInsensitive) && part.size() > die.size() &&
           !part.at(die.size()).isDigit();
}

} // namespace

bool findDevice(const QString &name, DEV::DeviceArg &device)
{
    const QList<DEV::DeviceArg> all = JEX_TOOL::knownDevices();
    for (const DEV::DeviceArg &known : all) {
        if (isSame(known.partNumber, name) || isSame(known.device, name)) {
            device = known;
            return true;
        }
    }
    DEV::DeviceArg found;
    for (const DEV::DeviceArg &known : all) {
        if (isOfDie(name, known.device) && known.device.size() > found.device.size())
            found = known;
    }
    if (found.device.isEmpty())
        return false;
    device = found;
    device.partNumber = name;
    device.package.clear();
    return true;
}

QStringList nearestDevices(const QString &name)
{
    const int limit = qMax(2, name.size() / 3);
    QMultiMap<int, QString> byDistance;
    for (const DEV::DeviceArg &known : JEX_TOOL::knownDevices()) {
        const int distance = qMin(RTLJEX::editDistance(name, known.device, limit),
                                  RTLJEX::editDistance(name, known.partNumber, limit));
        if (distance <= limit)
            byDistance.insert(distance, known.device);
    }
    QStringList names = byDistance.values();
    names.removeDuplicates();
    return names.mid(0, nearestCount);
}

QString deviceHint(const QString &name)
{
    QStringList names = nearestDevices(name);
    if (names.isEmpty())
        return QString();
    const QString last = names.takeLast();
    return " Did you mean " + (names.isEmpty() ? last : names.join(", ") + " or " + last) + '?';
}

} // namespace CommandLine
