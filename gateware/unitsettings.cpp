#include "gateware/unitsettings.h"

#include "gateware/coretaps.h"

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

UnitSettings::UnitSettings(const JEX::MatchUnit &unit)
    : kind(binary(unit.function, KindBits)),
      edges(among(unit.value, "RFBN")),
      care(among(unit.value, "01RF")),
      level(among(unit.value, "1RB"))
{
    upper = among(unit.upperValue, "1").leftJustified(unit.value.size(), '0', true);
}

QByteArray loadedSettings(const JEX::AoCore &core)
{
    QByteArray all;
    for (const JEX::MatchUnit *unit : coreUnits(core))
        all += UnitSettings(*unit).all();
    return all;
}

} // namespace RTLJEX
