#include "model/jex/zubfields.h"

#include "model/jex/resourcetable.h"

namespace JEX {

namespace {

const char *const edgeWords[] = {"rising", "falling"};
const char *const triggerModeWords[] = {"dynamic", "static"};
const char *const kindWords[] = {"group", "net", "bus"};

// By their numbers.
struct ResourceWords
{
    const char *words[JEX_TOOL::ResourceCount] = {};

    constexpr ResourceWords()
    {
        for (const JEX_TOOL::Resource &resource : JEX_TOOL::resources) {
            words[resource.code] = resource.name;
        }
    }
};
constexpr ResourceWords resourceWords;

struct FunctionWords
{
    const char *words[MatchFunctionCount] = {};

    constexpr FunctionWords()
    {
        for (int i = 0; i < MatchFunctionCount; ++i) {
            words[i] = matchFunctions[i].word;
        }
    }
};
constexpr FunctionWords functionWords;

constexpr Rule edgeRule = Rule::wordsFor<RisingEdge, FallingEdge>(edgeWords);
constexpr Rule triggerModeRule = Rule::wordsFor<DynamicTrigger, StaticTrigger>(triggerModeWords);
constexpr Rule implementationRule = Rule::wordsFor<0, JEX_TOOL::ResourceCount - 1>(resourceWords.words);
constexpr Rule functionRule = Rule::wordsFor<MatchEqual, MatchFunctionCount - 1>(functionWords.words);
constexpr Rule kindRule = Rule::wordsFor<GroupKind, BusKind>(kindWords);
constexpr Rule portNumberRule = {Rule::Range, 0, PortCount - 1};
constexpr Rule bitsRule = {Rule::Bits};

template <class Record>
constexpr Field<Record> field(const char *name, const Rule &rule, qint32 Record::*member)
{
    return {name, NumberField, rule, member};
}

template <class Record>
constexpr Field<Record> field(const char *name, bool Record::*member)
{
    return {name, FlagField, Rule(), nullptr, member};
}

template <class Record>
constexpr Field<Record> field(const char *name, QString Record::*member, const Rule &rule = Rule())
{
    return {name, TextField, rule, nullptr, nullptr, member};
}

template <class Record>
constexpr Field<Record> field(const char *name, TriggerPort *Record::*member)
{
    return {name, PortField, portNumberRule, nullptr, nullptr, nullptr, member};
}

// A capture amount of 0 and a trigger position of -4 are what the editor stores when the storage is too
// small for the chosen number of segments.
constexpr Field<AoCore> standardFields[] = {
    field("number", {Rule::Range, 0, CoreLimit - 1}, &AoCore::coreNumber).key(),
    field("clock", &AoCore::sampleClock),
    field("edge", edgeRule, &AoCore::sampleEdge),
    field("triggerMode", triggerModeRule, &AoCore::triggerMode),
    field("triggerImplementation", implementationRule, &AoCore::triggerImplementation),
    field("captureImplementation", implementationRule, &AoCore::captureImplementation),
    field("storageSize", {Rule::PowerOfTwo, 4, 65536}, &AoCore::storageSize),
    field("segments", {Rule::Range, 1, 16384}, &AoCore::windowNumber),
    field("captureAmount", {Rule::PowerOfTwoOrZero, 4, 65536}, &AoCore::captureAmount),
    field("triggerPosition", {Rule::Range, -4, 65532}, &AoCore::triggerPosition),
    field("forceTriggerByFallingEdge", &AoCore::forceTriggerByFallingEdge),
    field("captureInitialData", &AoCore::captureInitialData),
    field("topModule", &AoCore::topModuleName),
};

constexpr Field<AOCore_Lite> liteFields[] = {
    field("number", {Rule::Range, 0, CoreLimit - 1}, &AOCore_Lite::coreNumber).key(),
    field("clock", &AOCore_Lite::sampleClock),
    field("edge", edgeRule, &AOCore_Lite::sampleEdge),
    field("implementation", implementationRule, &AOCore_Lite::implementation),
    field("captureAmount", {Rule::PowerOfTwo, 2, 65536}, &AOCore_Lite::captureAmount),
    field("inputRegister", &AOCore_Lite::enableCaptureDataInputRegister),
    field("captureInitialData", &AOCore_Lite::captureInitialData),
    field("topModule", &AOCore_Lite::topModuleName),
};

constexpr Field<TriggerPort> portFields[] = {
    field("number", portNumberRule, &TriggerPort::portNumber).key(),
};

constexpr Field<MatchUnit> unitFields[] = {
    field("number", {Rule::Range, 0, UnitCount - 1}, &MatchUnit::unitNumber).key().shownAs("M"),
    field("enabled", &MatchUnit::enabled).shownAs("", "disabled", "enabled"),
    field("port", &MatchUnit::triggerPort).optional().shownAs("port ", "not bound"),
    field("function", functionRule, &MatchUnit::function),
    field("value", &MatchUnit::value, bitsRule),
    field("upperValue", &MatchUnit::upperValue, bitsRule).optional(),
};

constexpr Field<SignalItem> signalFields[] = {
    field("name", &SignalItem::name).key().titled("signal"),
    field("alias", &SignalItem::alias).optional().titled("shown as"),
    field("type", kindRule, &SignalItem::type).nature(),
    field("capture", &SignalItem::capEnable).optional().shownAs("", "no", "yes"),
    field("valid", &SignalItem::valid).optional().noColumn(),
    field("aux", &SignalItem::auxFlag).optional().noColumn(),
};

template <class Record, int Size>
constexpr FieldTable<Record> tableOf(const Field<Record> (&fields)[Size])
{
    return {fields, Size};
}

} // namespace

FieldTable<AoCore> AoCore::fields()
{
    return tableOf(standardFields);
}

FieldTable<AOCore_Lite> AOCore_Lite::fields()
{
    return tableOf(liteFields);
}

FieldTable<TriggerPort> TriggerPort::fields()
{
    return tableOf(portFields);
}

FieldTable<MatchUnit> MatchUnit::fields()
{
    return tableOf(unitFields);
}

FieldTable<SignalItem> SignalItem::fields()
{
    return tableOf(signalFields);
}

} // namespace JEX
