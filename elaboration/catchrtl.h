#pragma once

#include <QMap>
#include <QStringList>
#include <QVariant>

class QWidget;

namespace QUARRY {

class RtlNetlist;

// Posted when one of the two below has read a design: "messages" and "topModules", lists of texts. For the
// host, whatever becomes of the reading.
constexpr char DesignMessagesTopic[] = "QUARRY.Design.Messages";

// Builds the netlist of the project's whole design under a modal progress dialog. The sources come from
// TE::DesignManager. On return *netlist is a new model that the caller owns, or null when elaboration
// failed or was cancelled; the messages say why. A failure is shown to the user here.
bool catchRtlNetsWithProgressDialog(RtlNetlist **netlist, QStringList &messages, QWidget *parent);

// Parses the sources named in `info` (see TE::DesignManager::getSourceFileInfo) and fills the three
// lists: top-module candidates, modules, messages. A message that begins with "ERROR" reports an error.
// A progress dialog appears when it takes longer than half a second.
bool catchRtlModules(QStringList &topModules, QStringList &modules, QStringList &messages,
                     QMap<QString, QVariant> &info, QWidget *parent);

// Whether one of the two is under way: another one is refused then.
bool isCatchingRtl();

// Whether the last of the two that ended did so by no fault of the design: the user cancelled it, or it was
// refused.
bool wasCatchingCancelled();

} // namespace QUARRY
