#pragma once

#include <QList>
#include <QMap>
#include <QString>

#include "model/jex/core.h"

namespace JEX {

// What the page of a core shows and saving it leaves out. Nothing for a Lite core.
struct LeftOut
{
    int triggerImplementation =
        -1;           // chosen in the box that dynamic mode hides; -1: the box is no other than saved
    QList<int> units; // enabled ones that static mode lacks
    QMap<int, QString> expressions; // grey ones, by row
};

// All that a core holds, for the caller; units are bound to the ports of their own core.
AoCore *copyOf(const AoCore &core);
template <class Core>
Core *copyOf(const Core &core)
{
    return new Core(core);
}

// Ports and units alone, which an editor changes in place.
void copyTrigger(const AoCore &from, AoCore *to);

} // namespace JEX
