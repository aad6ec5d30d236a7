#pragma once

#include <QByteArray>

#include "model/jex/core.h"

namespace RTLJEX {

// A parameter of "jex_unit".
struct UnitSetting
{
    const char *parameter;
    QByteArray digits; // binary; of what is said for each bit of the port, its first bit first
};

// What a match unit compares for, in the order of its registers. The unit must be without fault.
QList<UnitSetting> unitSettings(const JEX::MatchUnit &unit);

} // namespace RTLJEX
