#pragma once

#include <QString>
#include <QStringList>

namespace RTLJEX {

// The arithmetic of the trigger settings, on plain values.

// Static mode has the match units below this one.
enum { StaticUnitCount = 10 };

// Whether an expression names none of the units that Static mode lacks.
bool isStaticExpression(const QString &expression);

// The implementations that suit a device, block memory first. Registers are offered whatever the size.
QStringList triggerImplementations(bool deviceHasSsram);

// What that many expressions over that many enabled match units take of an implementation, and how that is
// worked out.
qint64 triggerRequired(const QString &implementation, int expressions, int units);
QString triggerFormula(const QString &implementation, int expressions, int units);

// The same as the page shows it, with what the device has. Empty for a text that is no implementation.
QString triggerUsageText(const QString &implementation, int available, int expressions, int units);

} // namespace RTLJEX
