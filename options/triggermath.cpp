#include "options/triggermath.h"

#include <QCoreApplication>
#include <QRegExp>
#include <cmath>

#include "model/jex/core.h"
#include "options/capturemath.h"

namespace RTLJEX {

namespace {

// Units whose combinations fit into the look-up table that an expression has anyway.
const int freeUnits = 4;

QString translated(const char *text)
{
    return QCoreApplication::translate("RTLJEX::TriggerUsage", text);
}

// A fraction of one below the free units.
double tables(int units)
{
    return std::ldexp(1.0, units - freeUnits);
}

} // namespace

bool isStaticExpression(const QString &expression)
{
    return !expression.contains(QRegExp(QLatin1String("M1[0-5]")));
}

QStringList triggerImplementations(bool deviceHasSsram)
{
    return offeredImplementations(deviceHasSsram, 0);
}

QString triggerUsageText(const QString &implementation, int available, int expressions, int units)
{
    if (implementation == implementationText(JEX::BsramImplementation)) {
        if (available == 0)
            return translated("BSRAM Usage : %1").arg(expressions);
        return translated("BSRAM Usage : %1/%2").arg(expressions).arg(available);
    }
    if (implementation == implementationText(JEX::RegImplementation))
        return translated("Register Usage : %1/%2")
            .arg(qint64(expressions * (tables(units) + 1)))
            .arg(available);
    if (implementation == implementationText(JEX::SsramImplementation))
        return translated("SSRAM Usage : %1/%2")
            .arg(units > freeUnits ? qint64(expressions * tables(units)) : expressions)
            .arg(available);
    return QString();
}

} // namespace RTLJEX
