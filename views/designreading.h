#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

#include "check/designjudgement.h"

class QWidget;
namespace QUARRY {
class RtlNetlist;
}

namespace RTLJEX {

// Reads the project's design for an editor and shows the user the first fault found. On success *netlist
// belongs to the caller, and is null when the parser gave none. False too when the editor died while
// a dialog was open.
bool readDesign(QWidget *editor, QUARRY::RtlNetlist **netlist);

// The two steps of reading: which modules there are, and the netlist below the top one (null: failed).
void catchDesignModules(QMap<QString, QVariant> &info, QStringList &topModules, QStringList &modules,
                        QStringList &messages);
QUARRY::RtlNetlist *catchDesignNetlist();

// The project's include paths, made absolute.
QStringList projectIncludePaths();

} // namespace RTLJEX
