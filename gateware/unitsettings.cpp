#include "gateware/unitsettings.h"

namespace RTLJEX {

namespace {

enum { KindBits = 3 };

QByteArray binary(int number, int digits)
{
    QByteArray text;
    for (int bit = digits - 1; bit >= 0; --bit)
        text += number >> bit & 1 ? '1' : '0';
    return text;
}

// For each character of a value whether it stands in the list.
QByteArray among(const QString &value, const char *list)
{
    QByteArray text;
    for (QChar c : value)
        text += QString::fromLatin1(list).contains(c) ? '1' : '0';
    return text;
}

} // namespace

QList<UnitSetting> unitSettings(const JEX::MatchUnit &unit)
{
    return {{"KIND", binary(unit.function, KindBits)},
            {"EDGES", among(unit.value, "RFBN")},
            {"CARE", among(unit.value, "01RF")},
            {"LEVEL", among(unit.value, "1RB")},
            {"UPPER", among(unit.upperValue, "1").leftJustified(unit.value.size(), '0', true)}};
}

} // namespace RTLJEX
