#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

#include "check/designjudgement.h"

namespace QUARRY {
class RtlNetlist;
}

namespace RTLJEX {

class EditorView;

enum DesignReading {
    DesignRead,
    DesignRefused,  // the user knows why
    DesignCancelled // by the user, by the death of the editor, or since another reading is under way
};

// Reads the project's design for an editor, by the editor's own operations, and shows the user the first
// fault found. When it was read *netlist belongs to the caller, and is null when the parser gave none.
DesignReading readDesign(EditorView *editor, QUARRY::RtlNetlist **netlist);

// The two steps of reading: which modules there are, and the netlist below the top one (null: failed).
bool catchDesignModules(QMap<QString, QVariant> &info, QStringList &topModules, QStringList &modules,
                        QStringList &messages);
QUARRY::RtlNetlist *catchDesignNetlist();

// The project's include paths, made absolute.
QStringList projectIncludePaths();

} // namespace RTLJEX
