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

qint64 triggerRequired(const QString &implementation, int expressions, int units)
{
    if (implementation == implementationText(JEX::RegImplementation))
        return qint64(expressions * (tables(units) + 1));
    const bool isShadow = implementation == implementationText(JEX::SsramImplementation);
    return isShadow && units > freeUnits ? qint64(expressions * tables(units)) : expressions;
}

QString triggerFormula(const QString &implementation, int expressions, int units)
{
    const QString more = QString::fromLatin1("2^(%1 - %2)").arg(units).arg(freeUnits);
    if (implementation == implementationText(JEX::RegImplementation))
        return QString::fromLatin1("floor(%1 x (%2 + 1))").arg(expressions).arg(more);
    const bool isShadow = implementation == implementationText(JEX::SsramImplementation);
    const QString each = isShadow && units > freeUnits ? more : QString::fromLatin1("1");
    return QString::fromLatin1("%1 x %2").arg(expressions).arg(each);
}

QString triggerUsageText(const QString &implementation, int available, int expressions, int units)
{
    const qint64 required = triggerRequired(implementation, expressions, units);
    if (implementation == implementationText(JEX::BsramImplementation)) {
        if (available == 0)
            return translated("BSRAM Usage : %1").arg(required);
        return translated("BSRAM Usage : %1/%2").arg(required).arg(available);
    }
    if (implementation == implementationText(JEX::RegImplementation))
        return translated("Register Usage : %1/%2").arg(required).arg(available);
    if (implementation == implementationText(JEX::SsramImplementation))
        return translated("SSRAM Usage : %1/%2").arg(required).arg(available);
    return QString();
}

} // namespace RTLJEX
