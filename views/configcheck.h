#pragma once

#include <QList>
#include <QString>

namespace JEX {
class AoCore;
struct AOCore_Lite;
} // namespace JEX
namespace QUARRY {
class RtlNetlist;
}

namespace RTLJEX {

// Judges a whole configuration against the design before it is written. Changes nothing. A null netlist
// holds no clock. True when nothing was found; `errors`, when not null, gets one line for each error, joined
// by newlines.
bool checkStandardCores(const QList<JEX::AoCore *> &cores, const QUARRY::RtlNetlist *netlist,
                        QString *errors);
bool checkLiteCores(const QList<JEX::AOCore_Lite *> &cores, const QUARRY::RtlNetlist *netlist,
                    QString *errors);

} // namespace RTLJEX
