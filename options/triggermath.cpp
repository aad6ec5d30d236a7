#include "options/triggermath.h"

#include <QCoreApplication>
#include <QRegExp>
#include <cmath>

#include "options/capturemath.h"

namespace RTLJEX {

namespace {

// Units whose combinations fit into the look-up table that an expression has anyway.
const int freeUnits = 4;

struct TriggerTexts
{
    Q_DECLARE_TR_FUNCTIONS(RTLJEX::TriggerUsage)
};

// A fraction of one below the free units.
double tables(int units)
{
    return std::ldexp(1.0, units - freeUnits);
}

// More memories than one for each expression.
bool needsMore(JEX::Implementation implementation, int units)
{
    return implementation == JEX::SsramImplementation && units > freeUnits;
}

} // namespace

bool isStaticExpression(const QString &expression)
{
    return !expression.contains(QRegExp(QLatin1String("M1[0-5]")));
}

QList<JEX::Implementation> triggerImplementations(bool deviceHasSsram)
{
    return offeredImplementations(deviceHasSsram, 0);
}

qint64 triggerRequired(JEX::Implementation implementation, int expressions, int units)
{
    if (implementation == JEX::RegImplementation)
        return qint64(expressions * (tables(units) + 1));
    return needsMore(implementation, units) ? qint64(expressions * tables(units)) : expressions;
}

QString triggerFormula(JEX::Implementation implementation, int expressions, int units)
{
    const QString more = QString::fromLatin1("2^(%1 - %2)").arg(units).arg(freeUnits);
    if (implementation == JEX::RegImplementation)
        return QString::fromLatin1("floor(%1 x (%2 + 1))").arg(expressions).arg(more);
    const QString each = needsMore(implementation, units) ? more : QString::fromLatin1("1");
    return QString::fromLatin1("%1 x %2").arg(expressions).arg(each);
}

QString triggerUsageText(JEX::Implementation implementation, int available, int expressions, int units)
{
    const qint64 required = triggerRequired(implementation, expressions, units);
    switch (implementation) {
    case JEX::BsramImplementation:
        if (available == 0)
            return TriggerTexts::tr("BSRAM Usage : %1").arg(required);
        return TriggerTexts::tr("BSRAM Usage : %1/%2").arg(required).arg(available);
    case JEX::RegImplementation:
        return TriggerTexts::tr("Register Usage : %1/%2").arg(required).arg(available);
    case JEX::SsramImplementation:
        return TriggerTexts::tr("SSRAM Usage : %1/%2").arg(required).arg(available);
    case JEX::NoImplementation:
        break;
    }
    return QString();
}

} // namespace RTLJEX
