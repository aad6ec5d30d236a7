#pragma once

#include <QString>

#include "model/jex/core.h"

namespace JEX {

// What the ".zub" format writes for each field of a record, in the order of the file. Reader and writer
// both walk these tables, so neither can know a field that the other does not.

// The numbers that a field may hold, and how they are spelled.
struct Rule
{
    enum Kind { Any, Range, PowerOfTwo, PowerOfTwoOrZero, Words };
    Kind kind;
    int low; // of Words: the number that the first word stands for
    int high;
    const char *const *words;

    bool holds(int value) const;
    QString toText(int value) const;                         // value must hold
    bool fromText(const QStringRef &text, int *value) const; // false: no such word, no number, or not held
    QString description() const;                             // "a number from 0 to 15", for messages
};

// One attribute of a core. Exactly one of the three member pointers is set.
template <class Core>
struct Field
{
    const char *name;
    Rule rule; // of number
    qint32 Core::*number;
    bool Core::*flag;
    QString Core::*text;
};

template <class Core>
struct FieldTable
{
    const Field<Core> *begin;
    int size;
};

const FieldTable<AoCore> &standardFields();
const FieldTable<AOCore_Lite> &liteFields();

// The attributes of <unit> and <signal> that hold more than text or a flag.
extern const Rule matchFunctionRule;
extern const Rule signalTypeRule;
extern const Rule portNumberRule;
extern const Rule unitNumberRule;

// How deep <signal> may nest; a bus in a group is 3.
enum { SignalDepthLimit = 8 };

const char *modeName(JexMode mode); // "Standard", "Lite"; null for neither
enum { ZubVersion = 1 };

} // namespace JEX
