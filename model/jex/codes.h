#pragma once

#include <QString>

#include "model/jex/resourcetable.h"

namespace JEX {

// What the numbers in the records stand for. The records hold plain 32-bit integers and keep any value that
// a host puts into them.

// What a signal is in the netlist.
enum SignalKind {
    GroupKind = -1, // made by the user, or not told yet
    NetKind = 0,    // a single net
    BusKind = 1     // a bus of the netlist, or a bit of one
};

enum SampleEdge { RisingEdge = 0, FallingEdge = 1 };

enum TriggerMode { DynamicTrigger = 0, StaticTrigger = 1 };

// What a unit compares for, see matchvalue.h.
enum MatchFunction {
    MatchEqual = 0,
    MatchNotEqual = 1,
    MatchLess = 2,
    MatchGreater = 3,
    MatchInRange = 4,
    MatchFunctionCount
};

// By their numbers. Everyone who names, reads, writes or offers a function walks the table.
struct FunctionText
{
    const char *word; // in files, see zubfields.cpp
    const char *name; // for people, to be translated
    bool comparesNumbers;
    bool hasUpper; // a second value
};
inline constexpr FunctionText matchFunctions[] = {
    {QT_TR_NOOP("equal"), QT_TRANSLATE_NOOP("JEX::MatchFunction", "Equal"), false, false},
    {QT_TR_NOOP("notEqual"), QT_TRANSLATE_NOOP("JEX::MatchFunction", "Not equal"), false, false},
    {QT_TR_NOOP("less"), QT_TRANSLATE_NOOP("JEX::MatchFunction", "Less"), true, false},
    {QT_TR_NOOP("greater"), QT_TRANSLATE_NOOP("JEX::MatchFunction", "Greater"), true, false},
    {QT_TR_NOOP("inRange"), QT_TRANSLATE_NOOP("JEX::MatchFunction", "In range"), true, true},
};
static_assert(sizeof matchFunctions / sizeof *matchFunctions == MatchFunctionCount,
              "each function has a row");

// By its row, for people and in files.
QString implementationName(Implementation implementation); // empty for none
Implementation implementationNamed(const QString &name);
// What a number in a record is taken for; block memory when it stands for none.
Implementation implementationOf(qint32 number);

} // namespace JEX
