#pragma once

#include <QByteArray>

#include "model/jex/core.h"

namespace RTLJEX {

// What a match unit compares for, as the parameters of "jex_unit": binary digits, the port's first bit first.
// The unit must be without fault.
struct UnitSettings
{
    explicit UnitSettings(const JEX::MatchUnit &unit);

    QByteArray all() const
    {
        return kind + edges + care + level + upper;
    } // as its registers stand side by side

    QByteArray kind;
    QByteArray edges;
    QByteArray care;
    QByteArray level;
    QByteArray upper;
};

// The settings of all units of a core as one number. They are loaded through its control port with the last
// digit first; see docs/gateware.md.
QByteArray loadedSettings(const JEX::AoCore &core);

} // namespace RTLJEX
