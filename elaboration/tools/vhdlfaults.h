#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QSet>
#include <QString>

#include "elaboration/tools/toolmessages.h"

namespace QUARRY {

// What GHDL refused in a VHDL source, and what its repairs made of units. Names in lower case.
struct VhdlFaults
{
    QList<ToolMessage> errors; // of the source at hand, with places in its text
    QList<ToolMessage> mended; // of those, what a repair did something about
    QSet<QString> boxes;    // what is instantiated as a component of the package "jex_box_NAME"; as spelled
    QSet<QString> undriven; // signals that black boxes may drive
    QSet<QString> hollow;   // entities of which only the ports are known
    QSet<QString> missing;  // entities that were left out
    QHash<QString, QString> spelled; // what became extended identifiers, which tell large letters from small
    QSet<QString> lost;              // entities of which nothing, or only the ports are known
};

// An error that only says that the entity of an architecture, or of an instance, has one: its name, else
// empty.
QString vhdlFollowUp(const ToolMessage &error);

// What instances of something that is not there become: instances of a component without ports, whose types
// nobody knows.
bool replaceVhdlInstances(QByteArray &text, VhdlFaults &faults);
// Names that are words of the language since 2008 only become extended identifiers.
bool quoteVhdlNames(QByteArray &text, VhdlFaults &faults);
// Units that are wrong, and what cannot be without them, are left out; of an architecture an empty one stays.
bool leaveOutVhdlUnits(QByteArray &text, VhdlFaults &faults);

} // namespace QUARRY
