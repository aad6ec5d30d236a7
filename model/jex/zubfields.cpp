#include "model/jex/zubfields.h"

#include <QStringList>

namespace JEX {

namespace {

const char *const edgeWords[] = {"rising", "falling"};
const char *const triggerModeWords[] = {"dynamic", "static"};
const char *const implementationWords[] = {"BSRAM", "REG", "SSRAM"};
const char *const functionWords[] = {"equal", "notEqual", "less", "greater", "inRange"};
const char *const typeWords[] = {"group", "net", "bus"};

const Rule noRule = {Rule::Any, 0, 0, nullptr};
const Rule coreNumberRule = {Rule::Range, 0, CoreLimit - 1, nullptr};
const Rule edgeRule = {Rule::Words, 0, 1, edgeWords};
const Rule implementationRule = {Rule::Words, 0, 2, implementationWords};

template <class Core>
constexpr Field<Core> number(const char *name, const Rule &rule, qint32 Core::*member)
{
    return {name, rule, member, nullptr, nullptr};
}

template <class Core>
constexpr Field<Core> flag(const char *name, bool Core::*member)
{
    return {name, noRule, nullptr, member, nullptr};
}

template <class Core>
constexpr Field<Core> text(const char *name, QString Core::*member)
{
    return {name, noRule, nullptr, nullptr, member};
}

bool isPowerOfTwo(int value)
{
    return value > 0 && (value & (value - 1)) == 0;
}

} // namespace

const Rule matchFunctionRule = {Rule::Words, MatchEqual, MatchInRange, functionWords};
const Rule signalTypeRule = {Rule::Words, -1, 1, typeWords};
const Rule portNumberRule = {Rule::Range, 0, PortCount - 1, nullptr};
const Rule unitNumberRule = {Rule::Range, 0, UnitCount - 1, nullptr};

// A capture amount of 0 and a trigger position of -4 are what the editor stores when the storage is too
// small for the chosen number of segments.
const FieldTable<AoCore> &standardFields()
{
    static const Field<AoCore> fields[] = {
        number("number", coreNumberRule, &AoCore::coreNumber),
        text("clock", &AoCore::sampleClock),
        number("edge", edgeRule, &AoCore::sampleEdge),
        number("triggerMode", {Rule::Words, 0, 1, triggerModeWords}, &AoCore::triggerMode),
        number("triggerImplementation", implementationRule, &AoCore::triggerImplementation),
        number("captureImplementation", implementationRule, &AoCore::captureImplementation),
        number("storageSize", {Rule::PowerOfTwo, 4, 65536, nullptr}, &AoCore::storageSize),
        number("segments", {Rule::Range, 1, 16384, nullptr}, &AoCore::windowNumber),
        number("captureAmount", {Rule::PowerOfTwoOrZero, 4, 65536, nullptr}, &AoCore::captureAmount),
        number("triggerPosition", {Rule::Range, -4, 65532, nullptr}, &AoCore::triggerPosition),
        flag("forceTriggerByFallingEdge", &AoCore::forceTriggerByFallingEdge),
        flag("captureInitialData", &AoCore::captureInitialData),
        text("topModule", &AoCore::topModuleName),
    };
    static const FieldTable<AoCore> table = {fields, int(sizeof fields / sizeof *fields)};
    return table;
}

const FieldTable<AOCore_Lite> &liteFields()
{
    static const Field<AOCore_Lite> fields[] = {
        number("number", coreNumberRule, &AOCore_Lite::coreNumber),
        text("clock", &AOCore_Lite::sampleClock),
        number("edge", edgeRule, &AOCore_Lite::sampleEdge),
        number("implementation", implementationRule, &AOCore_Lite::implementation),
        number("captureAmount", {Rule::PowerOfTwo, 2, 65536, nullptr}, &AOCore_Lite::captureAmount),
        flag("inputRegister", &AOCore_Lite::enableCaptureDataInputRegister),
        flag("captureInitialData", &AOCore_Lite::captureInitialData),
        text("topModule", &AOCore_Lite::topModuleName),
    };
    static const FieldTable<AOCore_Lite> table = {fields, int(sizeof fields / sizeof *fields)};
    return table;
}

const char *modeName(JexMode mode)
{
    return mode == StandardMode ? "Standard" : mode == LiteMode ? "Lite" : nullptr;
}

bool Rule::holds(int value) const
{
    switch (kind) {
    case Any:
        return true;
    case PowerOfTwoOrZero:
        return value == 0 || (value >= low && value <= high && isPowerOfTwo(value));
    case PowerOfTwo:
        return value >= low && value <= high && isPowerOfTwo(value);
    case Range:
    case Words:
        break;
    }
    return value >= low && value <= high;
}

QString Rule::toText(int value) const
{
    return kind == Words ? QString::fromLatin1(words[value - low]) : QString::number(value);
}

bool Rule::fromText(const QStringRef &text, int *value) const
{
    if (kind != Words) {
        bool isNumber = false;
        *value = text.toString().toInt(&isNumber);
        // One spelling a number, or loading and saving would not give the same bytes.
        return isNumber && holds(*value) && text == QString::number(*value);
    }
    for (int i = low; i <= high; ++i) {
        if (text == QLatin1String(words[i - low])) {
            *value = i;
            return true;
        }
    }
    return false;
}

QString Rule::description() const
{
    if (kind == Words) {
        QStringList list;
        for (int i = low; i <= high; ++i) {
            list.append(toText(i));
        }
        return QLatin1String("one of ") + list.join(QLatin1String(", "));
    }
    QString text = kind == Range ? QLatin1String("a number from %1 to %2")
                                 : QLatin1String("a power of two from %1 to %2");
    if (kind == PowerOfTwoOrZero) {
        text += QLatin1String(", or 0");
    }
    return text.arg(low).arg(high);
}

} // namespace JEX
