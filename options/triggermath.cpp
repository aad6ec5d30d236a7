#include "options/triggermath.h"

#include <QRegExp>
#include <cmath>

#include "model/jex/resourcetable.h"
#include "options/capturemath.h"

namespace RTLJEX {

namespace {

// Units whose combinations fit into the look-up table that an expression has anyway.
const int freeUnits = 4;

// A fraction of one below the free units.
double tables(int units)
{
    return std::ldexp(1.0, units - freeUnits);
}

JEX_TOOL::TriggerNeed needOf(JEX::Implementation implementation, int units)
{
    const JEX_TOOL::Resource *resource = JEX_TOOL::resourceOf(implementation);
    const JEX_TOOL::TriggerNeed need = resource ? resource->triggerNeed : JEX_TOOL::OneEach;
    return need == JEX_TOOL::TablesEach && units <= freeUnits ? JEX_TOOL::OneEach : need;
}

} // namespace

bool isStaticExpression(const QString &expression)
{
    return !expression.contains(QRegExp(QLatin1String("M1[0-5]")));
}

QList<JEX::Implementation> triggerImplementations(const JEX_TOOL::Device *device)
{
    return offeredImplementations(device, 0);
}

qint64 triggerRequired(JEX::Implementation implementation, int expressions, int units)
{
    const JEX_TOOL::TriggerNeed need = needOf(implementation, units);
    if (need == JEX_TOOL::TablesAndOneEach)
        return qint64(expressions * (tables(units) + 1));
    return need == JEX_TOOL::TablesEach ? qint64(expressions * tables(units)) : expressions;
}

QString triggerFormula(JEX::Implementation implementation, int expressions, int units)
{
    const QString more = QString::fromLatin1("2^(%1 - %2)").arg(units).arg(freeUnits);
    const JEX_TOOL::TriggerNeed need = needOf(implementation, units);
    if (need == JEX_TOOL::TablesAndOneEach)
        return QString::fromLatin1("floor(%1 x (%2 + 1))").arg(expressions).arg(more);
    const QString each = need == JEX_TOOL::TablesEach ? more : QString::fromLatin1("1");
    return QString::fromLatin1("%1 x %2").arg(expressions).arg(each);
}

QString triggerUsageText(JEX::Implementation implementation, int available, int expressions, int units)
{
    const QString name = usageName(implementation);
    if (name.isEmpty())
        return name;
    const QString required = QString::number(triggerRequired(implementation, expressions, units));
    const bool isUnknown = implementation == JEX::BsramImplementation && available == 0;
    return name + QLatin1Char(' ') + required +
           (isUnknown ? QString() : QLatin1Char('/') + QString::number(available));
}

} // namespace RTLJEX
