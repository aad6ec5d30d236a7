#pragma once

#include <QMap>
#include <QStringList>
#include <QVariant>

#include "elaboration/tools/designinput.h"

namespace QUARRY {

class RtlNetlist;

// From the information map of TE::DesignManager::getSourceFileInfo(); missing keys are empty.
DesignInput designInputFromInfo(const QMap<QString, QVariant> &info);
DesignInput projectInput(); // of the project that is open

// For programs without a window: each waits for a ReadingJob, in an event loop of its own. The second uses
// what the first already elaborated while the sources are unchanged, and gives null, with messages, when the
// design cannot be elaborated.
ModuleList listModules(const DesignInput &input);
RtlNetlist *buildNetlist(const DesignInput &input, QStringList &messages);

} // namespace QUARRY
