#pragma once

#include <QList>
#include <QStringList>

#include "check/configuration.h"

namespace RTLJEX {

// What of a design and of its own settings a core is made of.

// The captured bits by their full names, in row order: those of the enabled rows.
QStringList capturedBits(const AnyCore &core);

// The match units that a core has: the enabled ones, in Static mode of those that it knows.
QList<const JEX::MatchUnit *> coreUnits(const JEX::AoCore &core);

// The trigger ports that these units compare, by their number.
QList<const JEX::TriggerPort *> corePorts(const JEX::AoCore &core);

} // namespace RTLJEX
