#include "gateware/corefault.h"

#include "gateware/coretaps.h"
#include "gateware/expressiontext.h"
#include "model/jex/matchvalue.h"
#include "options/capturemath.h"
#include "options/triggermath.h"

namespace RTLJEX {

namespace {

// What the identity word of a core can say, and the address of a sample.
const int widestSample = 65535;
const int largestStorage = 65536;

QString latin(const char *text)
{
    return QString::fromLatin1(text);
}

bool isPowerOfTwo(int number)
{
    return number > 0 && !(number & (number - 1));
}

QString unitFault(const JEX::MatchUnit &unit)
{
    if (!unit.triggerPort)
        return latin("it is not bound to a trigger port.");
    if (unit.triggerPort->width() > JEX::TriggerPort::WidthLimit)
        return latin("its trigger port holds more than %1 signals.").arg(int(JEX::TriggerPort::WidthLimit));
    if (unit.function < 0 || unit.function >= JEX::MatchFunctionCount)
        return latin("it compares by a function that does not exist.");
    return JEX::matchUnitFault(unit);
}

QString expressionFault(const JEX::AoCore &core, const QString &text)
{
    const Expression expression(text);
    if (!expression.isValid())
        return latin("it is not well formed.");
    for (int number : expression.units()) {
        const JEX::MatchUnit *unit = core.matchUnit(number);
        if (!unit || !unit->enabled)
            return latin("M%1 is not enabled.").arg(number);
        if (core.isStatic() && number >= StaticUnitCount)
            return latin("M%1 does not exist in Static mode.").arg(number);
    }
    return QString();
}

QString triggerFault(const JEX::AoCore &core)
{
    for (const JEX::MatchUnit *unit : coreUnits(core)) {
        const QString fault = unitFault(*unit);
        if (!fault.isEmpty())
            return latin("M%1 cannot be made: ").arg(unit->unitNumber) + fault;
    }
    if (core.expressions.isEmpty())
        return latin("it has no trigger expression, so it would never trigger.");
    if (core.expressions.size() > JEX::ExpressionLimit)
        return latin("it has more than %1 trigger expressions.").arg(int(JEX::ExpressionLimit));
    for (const QString &text : core.expressions) {
        const QString fault = expressionFault(core, text);
        if (!fault.isEmpty())
            return latin("the expression \"") + text + latin("\" cannot be made: ") + fault;
    }
    return QString();
}

QString ownFault(const JEX::AoCore &core)
{
    if (!isPowerOfTwo(core.storageSize) || core.storageSize > largestStorage)
        return latin("a storage of %1 samples cannot be made: the size is a power of two up to %2.")
            .arg(core.storageSize)
            .arg(largestStorage);
    if (!captureAmounts(core.storageSize, core.windowNumber).contains(core.captureAmount))
        return latin(
                   "a capture amount of %1 does not fit into one of %2 segments of a storage of %3 samples.")
            .arg(core.captureAmount)
            .arg(core.windowNumber)
            .arg(core.storageSize);
    if (core.triggerPosition < 0 || core.triggerPosition > lastTriggerPosition(core.captureAmount))
        return latin("a trigger position of %1 does not suit a capture amount of %2: it is from 0 to %3.")
            .arg(core.triggerPosition)
            .arg(core.captureAmount)
            .arg(lastTriggerPosition(core.captureAmount));
    return triggerFault(core);
}

QString ownFault(const JEX::AOCore_Lite &core)
{
    if (isPowerOfTwo(core.captureAmount) && core.captureAmount > 1 && core.captureAmount <= largestStorage)
        return QString();
    return latin("a capture amount of %1 cannot be made: it is a power of two from 2 to %2.")
        .arg(core.captureAmount)
        .arg(largestStorage);
}

QString faultWithoutCore(const AnyCore &core)
{
    const int bits = capturedBits(core).size();
    if (bits == 0)
        return latin("it captures no signals.");
    if (bits >= widestSample)
        return latin("it captures %1 bits, and a core stores at most %2.").arg(bits).arg(widestSample - 1);
    return core.visit([](const auto &record) { return ownFault(record); });
}

} // namespace

QString coreFault(const AnyCore &core)
{
    const QString fault = faultWithoutCore(core);
    return fault.isEmpty() ? fault : latin("Core %1 cannot be made: ").arg(core.number) + fault;
}

} // namespace RTLJEX
