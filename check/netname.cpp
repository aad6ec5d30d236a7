#include "check/netname.h"

namespace RTLJEX {

namespace {

// "[3]" or "[7:0]" at the end of a name.
bool readRange(const QString &text, NetName &name)
{
    const int bracket = text.lastIndexOf(QLatin1Char('['));
    if (bracket <= 0 || !text.endsWith(QLatin1Char(']')))
        return false;
    const QString inside = text.mid(bracket + 1, text.size() - bracket - 2);
    const int colon = inside.indexOf(QLatin1Char(':'));
    bool isLeft = false;
    bool isRight = true;
    name.left = inside.left(colon < 0 ? inside.size() : colon).toInt(&isLeft);
    name.right = colon < 0 ? name.left : inside.mid(colon + 1).toInt(&isRight);
    if (!isLeft || !isRight)
        return false;
    name.form = colon < 0 ? NetName::Bit : NetName::Range;
    name.base = text.left(bracket);
    return true;
}

} // namespace

NetName::NetName(const QString &fullName)
{
    const int separator = fullName.lastIndexOf(QLatin1Char('/'));
    path = fullName.left(qMax(0, separator));
    const QString shortName = fullName.mid(separator + 1);
    if (!readRange(shortName, *this))
        base = shortName;
}

bool NetName::hasShapeOf(const QUARRY::RtlModule::Entry &entry) const
{
    switch (form) {
    case Plain:
        return !entry.isBus;
    case Bit:
        return entry.isBus && entry.hasBit(left);
    case Range:
        break;
    }
    return entry.isBus && entry.width() == QUARRY::rangeWidth(left, right);
}

bool NetName::isPartOf(const QUARRY::RtlModule::Entry &entry) const
{
    return hasShapeOf(entry) && (form != Range || (entry.hasBit(left) && entry.hasBit(right)));
}

QString NetName::in(const QUARRY::Hierachy &node, const QUARRY::RtlModule::Entry &entry) const
{
    const QUARRY::RtlModule &module = node.declarations();
    if (!entry.isBus)
        return module.netName(entry.firstSlot, &node.fullPathName());
    return form == Bit && entry.hasBit(left) ? module.netName(entry.slotOfBit(left), &node.fullPathName())
                                             : module.busName(entry, &node.fullPathName());
}

} // namespace RTLJEX
