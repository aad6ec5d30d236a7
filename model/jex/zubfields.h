#pragma once

#include <QString>

#include "model/jex/core.h"
#include "model/jex/zubrule.h"

namespace JEX {

// The newest version of the format. A file says the lowest one that holds what is in it, so that files
// without anything new keep their bytes and older editors.
enum { ZubVersion = 1 };

// One table for each record: what its fields are called, what they may hold, and how they are shown. The
// reader and the writer of the ".zub" format and all that prints or compares records walk it, so that a new
// field is one row. Lists of other records are no fields.

enum FieldKind { NumberField, FlagField, TextField, PortField };

// What a field says of its record. A file has the parts in this order, and the fields of each in that of the
// table; JSON has the order of the table.
enum FieldPart {
    KeyPart,    // which record of its list it is; the first row of a table, required in a file
    NaturePart, // what the design makes of it
    SettingPart // what the user set
};

// Only the member pointer of its kind is set.
template <class Record>
struct Field
{
    const char *name; // in a file and in JSON
    FieldKind kind;
    Rule rule; // of a port: that of its number
    qint32 Record::*number = nullptr;
    bool Record::*flag = nullptr;
    QString Record::*text = nullptr;
    TriggerPort *Record::*port = nullptr; // of the record's core; null for none

    FieldPart part = SettingPart;
    bool isOptional = false;  // not written when it is as in a new record
    int version = 1;          // of the format, the first that has the field
    const char *title = name; // for people
    // A table of such records has a column for it: "port 2", "no".
    bool isColumn = true;
    const char *before = "";   // what is no flag
    const char *off = "false"; // or no port
    const char *on = "true";

    constexpr Field &key()
    {
        part = KeyPart;
        return *this;
    }
    constexpr Field &nature()
    {
        part = NaturePart;
        return *this;
    }
    constexpr Field &optional()
    {
        isOptional = true;
        return *this;
    }
    // Of a later version, and so optional.
    constexpr Field &since(int newVersion)
    {
        version = newVersion;
        return optional();
    }
    constexpr Field &titled(const char *newTitle)
    {
        title = newTitle;
        return *this;
    }
    constexpr Field &noColumn()
    {
        isColumn = false;
        return *this;
    }
    constexpr Field &shownAs(const char *newBefore, const char *newOff = "", const char *newOn = "")
    {
        before = newBefore;
        off = newOff;
        on = newOn;
        return *this;
    }

    // Ports of different cores are the same when their numbers are.
    bool isSame(const Record &a, const Record &b) const
    {
        if (kind == TextField)
            return a.*text == b.*text;
        return kind == FlagField ? a.*flag == b.*flag : numberOf(a) == numberOf(b);
    }
    // The number of a field that is no text or flag; -1 for no port.
    int numberOf(const Record &record) const
    {
        if (kind == NumberField)
            return record.*number;
        return record.*port ? (record.*port)->portNumber : -1;
    }
    // Whether a file may hold the value.
    bool isHeld(const Record &record) const
    {
        if (kind == TextField)
            return rule.holds(record.*text);
        return kind == FlagField || rule.holds(numberOf(record));
    }
};

// The fields of one record, in the order in which files have them; the key comes first. Owned by nobody: it
// points to what lives as long as the program.
template <class Record>
struct FieldTable
{
    const Field<Record> *first;
    int size;

    const Field<Record> *begin() const { return first; }
    const Field<Record> *end() const { return first + size; }
    const Field<Record> &key() const { return *first; }
};

template <class Record>
FieldTable<Record> fieldsOf()
{
    return Record::fields();
}

// How deep <signal> may nest; a bus in a group is 3.
enum { SignalDepthLimit = 8 };

} // namespace JEX
