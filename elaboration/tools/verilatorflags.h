#pragma once

#include <QLatin1String>
#include <QStringList>

namespace QUARRY {

// What `verilator_bin` must be told so that its XML holds every name that the user declared. Without -O0
// it drops variables it split or folded. With the public mark, declared variables can be told from
// genvars and from what the tool made up; nothing else of the two changes the XML, and the run is faster.
// A missing time scale says nothing about nets, nor does a select in a branch that is never taken.
inline QStringList verilatorReadFlags()
{
    return QStringList() << QLatin1String("--xml-only") << QLatin1String("-O0")
                         << QLatin1String("--public-flat-rw") << QLatin1String("-Wno-fatal")
                         << QLatin1String("-Wno-lint") << QLatin1String("-Wno-style")
                         << QLatin1String("-Wno-TIMESCALEMOD") << QLatin1String("-Wno-SELRANGE")
                         << QLatin1String("--timing") << QLatin1String("--bbox-sys")
                         << QLatin1String("--bbox-unsup");
}

} // namespace QUARRY
