#pragma once

#include "check/configuration.h"
#include "signals/addedrows.h"

namespace Cli {

// The capture list of a core, and with it what is captured, which follows from it.
inline void setCaptureRows(const RTLJEX::AnyCore &core, const QList<JEX::SignalItem> &rows)
{
    *core.signalRows = rows;
    *core.enabledRows = RTLJEX::enabledRows(rows);
}

// The core of that number; one without rows when there is none.
inline RTLJEX::AnyCore coreNumbered(const RTLJEX::Configuration &configuration, int number)
{
    for (const RTLJEX::AnyCore &core : configuration.cores()) {
        if (core.number == number)
            return core;
    }
    return {};
}

// "0 and 1", "none", for sentences.
inline QString coreNumbers(const RTLJEX::Configuration &configuration)
{
    QStringList numbers;
    for (const RTLJEX::AnyCore &core : configuration.cores())
        numbers << QString::number(core.number);
    return numbers.isEmpty() ? QString("none") : numbers.join(", ");
}

} // namespace Cli
