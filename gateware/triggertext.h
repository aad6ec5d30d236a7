#pragma once

#include <QByteArray>
#include <QList>

#include "model/jex/core.h"

namespace RTLJEX {

QByteArray triggerName(const JEX::TriggerPort &port); // "trig_3"

// What a core triggers by, as Verilog: the bits of all its trigger ports side by side, its match units and
// its expressions over them. Points to the core, which must be without fault.
class TriggerText
{
public:
    explicit TriggerText(const JEX::AoCore &core);

    int width() const { return lowestBitOf(nullptr); } // of all ports
    QByteArray ports() const;                          // "trig_5, trig_0"
    QByteArray body() const;

private:
    int lowestBitOf(const JEX::TriggerPort *wanted) const; // in all trigger bits; of null the number of all
    QByteArray unit(int position) const;
    QByteArray unitsWithout() const;
    QByteArray noExpressions() const;
    QByteArray logic() const;
    QByteArray tables() const;

    const JEX::AoCore &m_core;
    QList<const JEX::MatchUnit *> m_units;
    QList<const JEX::TriggerPort *> m_ports;
    QList<int> m_numbers; // of the units
};

} // namespace RTLJEX
