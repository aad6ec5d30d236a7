#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include "model/jex/corestate.h"
#include "model/jex/modes.h"

namespace RTLJEX {

// One core as an editor shows it, packed.
struct CoreSnapshot
{
    quint64 identity = 0; // tells cores of one editor apart, also those that were removed; numbers change
    int number = 0;
    QByteArray zub;    // a ".zub" file of this core alone, numbered 0, as saving would write it now
    QByteArray rest;   // what saving would leave out, one line each
    QByteArray digest; // of both

    bool showsSame(const CoreSnapshot &other) const; // whatever the number
};

// That they show the same under the same number and identity.
bool operator==(const CoreSnapshot &a, const CoreSnapshot &b);
QByteArray snapshotDigest(const CoreSnapshot &core); // as it has to be

// Packing fails for what no ".zub" file can hold, unpacking for what is damaged, of another mode or out of
// bounds; the core is the caller's then, complete with its number and the units that were left out.
bool packCore(JEX::CorePointer core, const JEX::LeftOut &leftOut, CoreSnapshot *packed);
// Appends it to the list.
bool unpackCore(const CoreSnapshot &packed, JEX::LeftOut *leftOut, JEX::CoreList *cores);
// For who knows the mode; null when it fails.
template <class Core>
Core *unpackCore(const CoreSnapshot &packed, JEX::LeftOut *leftOut)
{
    JEX::CoreList cores = QList<Core *>();
    return unpackCore(packed, leftOut, &cores) ? std::get<QList<Core *>>(cores).first() : nullptr;
}

// What Core::ISnapshot hands over for an editor, and what is kept of a file for recovery: a line with
// version, mode and path of the file, for each core a line with its measures before it, and a line at the
// end. A change of one core leaves the bytes of the others alone.
struct Snapshot
{
    JEX::JexMode mode = JEX::InvalidMode;
    QString file;
    QList<CoreSnapshot> cores; // 1 to 16, no two of one number or identity

    QByteArray toBytes() const;
    // False for bytes that are none. Whether the cores are whole is found by unpacking them.
    static bool fromBytes(const QByteArray &bytes, Snapshot *snapshot);
};

class Configuration;

// The cores, for who compares or judges them. False, and nothing changed, when one is damaged.
bool readSnapshot(const Snapshot &snapshot, Configuration *configuration);

} // namespace RTLJEX
