#include "model/jex/zubfields.h"

#include "model/jex/resourcetable.h"

namespace JEX {

namespace {

// What a difference between two configurations is told with is marked, to be translated with the context
// "JEX"; files and JSON have it as it is.
const char *const edgeWords[] = {QT_TR_NOOP("rising"), QT_TR_NOOP("falling")};
const char *const triggerModeWords[] = {QT_TR_NOOP("dynamic"), QT_TR_NOOP("static")};
const char *const kindWords[] = {QT_TR_NOOP("group"), QT_TR_NOOP("net"), QT_TR_NOOP("bus")};

// By their numbers.
struct ResourceWords
{
    const char *words[JEX_TOOL::ResourceCount] = {};

    constexpr ResourceWords()
    {
        for (const JEX_TOOL::Resource &resource : JEX_TOOL::resources)
            words[resource.code] = resource.name;
    }
};
constexpr ResourceWords resourceWords;

struct FunctionWords
{
    const char *words[MatchFunctionCount] = {};

    constexpr FunctionWords()
    {
        for (int i = 0; i < MatchFunctionCount; ++i)
            words[i] = matchFunctions[i].word;
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
    field(QT_TR_NOOP("clock"), &AoCore::sampleClock),
    field(QT_TR_NOOP("edge"), edgeRule, &AoCore::sampleEdge),
    field(QT_TR_NOOP("triggerMode"), triggerModeRule, &AoCore::triggerMode),
    field(QT_TR_NOOP("triggerImplementation"), implementationRule, &AoCore::triggerImplementation),
    field(QT_TR_NOOP("captureImplementation"), implementationRule, &AoCore::captureImplementation),
    field(QT_TR_NOOP("storageSize"), {Rule::PowerOfTwo, 4, 65536}, &AoCore::storageSize),
    field(QT_TR_NOOP("segments"), {Rule::Range, 1, 16384}, &AoCore::windowNumber),
    field(QT_TR_NOOP("captureAmount"), {Rule::PowerOfTwoOrZero, 4, 65536}, &AoCore::captureAmount),
    field(QT_TR_NOOP("triggerPosition"), {Rule::Range, -4, 65532}, &AoCore::triggerPosition),
    field(QT_TR_NOOP("forceTriggerByFallingEdge"), &AoCore::forceTriggerByFallingEdge),
    field(QT_TR_NOOP("captureInitialData"), &AoCore::captureInitialData),
    field(QT_TR_NOOP("topModule"), &AoCore::topModuleName),
};

constexpr Field<AOCore_Lite> liteFields[] = {
    field("number", {Rule::Range, 0, CoreLimit - 1}, &AOCore_Lite::coreNumber).key(),
    field(QT_TR_NOOP("clock"), &AOCore_Lite::sampleClock),
    field(QT_TR_NOOP("edge"), edgeRule, &AOCore_Lite::sampleEdge),
    field(QT_TR_NOOP("implementation"), implementationRule, &AOCore_Lite::implementation),
    field(QT_TR_NOOP("captureAmount"), {Rule::PowerOfTwo, 2, 65536}, &AOCore_Lite::captureAmount),
    field(QT_TR_NOOP("inputRegister"), &AOCore_Lite::enableCaptureDataInputRegister),
    field(QT_TR_NOOP("captureInitialData"), &AOCore_Lite::captureInitialData),
    field(QT_TR_NOOP("topModule"), &AOCore_Lite::topModuleName),
};

constexpr Field<TriggerPort> portFields[] = {
    field("number", portNumberRule, &TriggerPort::portNumber).key(),
};

constexpr Field<MatchUnit> unitFields[] = {
    field("number", {Rule::Range, 0, UnitCount - 1}, &MatchUnit::unitNumber).key().shownAs("M"),
    field(QT_TR_NOOP("enabled"), &MatchUnit::enabled).shownAs("", "disabled", "enabled"),
    field(QT_TR_NOOP("port"), &MatchUnit::triggerPort).optional().shownAs("port ", "not bound"),
    field(QT_TR_NOOP("function"), functionRule, &MatchUnit::function),
    field(QT_TR_NOOP("value"), &MatchUnit::value, bitsRule),
    field(QT_TR_NOOP("upperValue"), &MatchUnit::upperValue, bitsRule).optional(),
};

constexpr Field<SignalItem> signalFields[] = {
    field("name", &SignalItem::name).key().titled("signal"),
    field("alias", &SignalItem::alias).optional().titled(QT_TR_NOOP("shown as")),
    field(QT_TR_NOOP("type"), kindRule, &SignalItem::type).nature(),
    field(QT_TR_NOOP("capture"), &SignalItem::capEnable).optional().shownAs("", "no", "yes"),
    field(QT_TR_NOOP("valid"), &SignalItem::valid).optional().noColumn(),
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
