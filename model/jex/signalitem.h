#pragma once

#include <QList>
#include <QMetaType>
#include <QString>

#include "model/jex/codes.h"

namespace JEX {

template <class Record>
struct FieldTable; // see zubfields.h

// One capture or trigger signal row. A value; stored whole in the rows of signal trees.
struct SignalItem
{
    QString name;              // full name of the net or bus in the netlist: the signal's identity
    QString alias;             // display name given by the user; empty: none
    QList<SignalItem> members; // of a bus or group, one record a bit, in row order; empty for a single net
    bool valid = true;         // exists in the current netlist
    bool auxFlag = true;       // the library's; copied unchanged, a row without it is drawn red
    qint32 type = GroupKind;   // SignalKind
    bool capEnable = true;     // takes part in the capture

    bool isSingle() const { return members.isEmpty(); } // has no bits but itself
    int width() const { return isSingle() ? 1 : members.size(); }
    bool isNet() const { return type == NetKind; }
    bool isOfBus() const { return type == BusKind; }
    bool isGroup() const { return type == GroupKind; }

    static FieldTable<SignalItem> fields();
};

// How many bits they are together.
int widthOf(const QList<SignalItem> &items);

bool operator==(const SignalItem &a, const SignalItem &b);
inline bool operator!=(const SignalItem &a, const SignalItem &b)
{
    return !(a == b);
}

} // namespace JEX

Q_DECLARE_METATYPE(JEX::SignalItem)
