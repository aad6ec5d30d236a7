#pragma once

#include <QList>
#include <QString>

#include "model/jex/codes.h"

namespace JEX_TOOL {
struct Device;
}

namespace RTLJEX {

// The arithmetic of the trigger settings, on plain values.

// Static mode has the match units below this one.
enum { StaticUnitCount = 10 };

// Whether an expression names none of the units that Static mode lacks.
bool isStaticExpression(const QString &expression);

// The implementations that suit a device, block memory first. Registers are offered whatever the size.
QList<JEX::Implementation> triggerImplementations(const JEX_TOOL::Device *device);

// What that many expressions over that many enabled match units take of an implementation, and how that is
// worked out.
qint64 triggerRequired(JEX::Implementation implementation, int expressions, int units);
QString triggerFormula(JEX::Implementation implementation, int expressions, int units);

// The same as the page shows it, with what the device has. Empty for no implementation.
QString triggerUsageText(JEX::Implementation implementation, int available, int expressions, int units);

} // namespace RTLJEX
