#include "gateware/corefault.h"

#include <QCoreApplication>

#include "gateware/coretaps.h"
#include "gateware/expressiontext.h"
#include "model/jex/matchvalue.h"
#include "model/jex/zubfields.h"
#include "model/jex/zubrule.h"
#include "options/capturemath.h"
#include "options/triggermath.h"

namespace RTLJEX {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(RTLJEX::CoreFault)
};

// What the identity word of a core can say, and the address of a sample.
const int widestSample = 65535;
const int largestStorage = 65536;

QString unitFault(const JEX::MatchUnit &unit)
{
    if (!unit.triggerPort)
        return Texts::tr("it is not bound to a trigger port.");
    if (unit.triggerPort->width() > JEX::TriggerPort::WidthLimit)
        return Texts::tr("its trigger port holds more than %1 signals.")
            .arg(int(JEX::TriggerPort::WidthLimit));
    if (unit.function < 0 || unit.function >= JEX::MatchFunctionCount)
        return Texts::tr("it compares by a function that does not exist.");
    return JEX::matchUnitFault(unit);
}

QString expressionFault(const JEX::AoCore &core, const QString &text)
{
    const Expression expression(text);
    if (!expression.isValid())
        return Texts::tr("it is not well formed.");
    for (int number : expression.units()) {
        const JEX::MatchUnit *unit = core.matchUnit(number);
        if (!unit || !unit->enabled)
            return Texts::tr("M%1 is not enabled.").arg(number);
        if (core.isStatic() && number >= StaticUnitCount)
            return Texts::tr("M%1 does not exist in Static mode.").arg(number);
    }
    return QString();
}

QString triggerFault(const JEX::AoCore &core)
{
    for (const JEX::MatchUnit *unit : coreUnits(core)) {
        const QString fault = unitFault(*unit);
        if (!fault.isEmpty())
            return Texts::tr("M%1 cannot be made: %2").arg(QString::number(unit->unitNumber), fault);
    }
    if (core.expressions.isEmpty())
        return Texts::tr("it has no trigger expression, so it would never trigger.");
    if (core.expressions.size() > JEX::ExpressionLimit)
        return Texts::tr("it has more than %1 trigger expressions.").arg(int(JEX::ExpressionLimit));
    for (const QString &text : core.expressions) {
        const QString fault = expressionFault(core, text);
        if (!fault.isEmpty())
            return Texts::tr("the expression \"%1\" cannot be made: %2").arg(text, fault);
    }
    return QString();
}

QString ownFault(const JEX::AoCore &core)
{
    if (!JEX::isPowerOfTwo(core.storageSize) || core.storageSize > largestStorage)
        return Texts::tr("a storage of %1 samples cannot be made: the size is a power of two up to %2.")
            .arg(core.storageSize)
            .arg(largestStorage);
    if (!captureAmounts(core.storageSize, core.windowNumber).contains(core.captureAmount))
        return Texts::tr(
                   "a capture amount of %1 does not fit into one of %2 segments of a storage of %3 samples.")
            .arg(core.captureAmount)
            .arg(core.windowNumber)
            .arg(core.storageSize);
    if (core.triggerPosition < 0 || core.triggerPosition > lastTriggerPosition(core.captureAmount))
        return Texts::tr("a trigger position of %1 does not suit a capture amount of %2: it is from 0 to %3.")
            .arg(core.triggerPosition)
            .arg(core.captureAmount)
            .arg(lastTriggerPosition(core.captureAmount));
    return triggerFault(core);
}

// Of what has no trigger.
template <class Core>
QString ownFault(const Core &core)
{
    for (const JEX::Field<Core> &field : JEX::fieldsOf<Core>()) {
        if (field.number == &Core::captureAmount && !field.isHeld(core))
            return Texts::tr("a capture amount of %1 cannot be made: it is a power of two from %2 to %3.")
                .arg(core.captureAmount)
                .arg(field.rule.low)
                .arg(field.rule.high);
    }
    return QString();
}

QString faultWithoutCore(const AnyCore &core)
{
    const int bits = capturedBits(core).size();
    if (bits == 0)
        return Texts::tr("it captures no signals.");
    if (bits >= widestSample)
        return Texts::tr("it captures %1 bits, and a core stores at most %2.")
            .arg(bits)
            .arg(widestSample - 1);
    return core.visit([](const auto &record) { return ownFault(record); });
}

} // namespace

QString coreFault(const AnyCore &core)
{
    const QString fault = faultWithoutCore(core);
    return fault.isEmpty() ? fault
                           : Texts::tr("Core %1 cannot be made: %2").arg(QString::number(core.number), fault);
}

} // namespace RTLJEX
