#pragma once

#include <QMap>
#include <QStringList>
#include <QVariant>

#include "elaboration/reading/elaborationprogress.h"
#include "elaboration/tools/designinput.h"

namespace QUARRY {

class RtlNetlist;

// From the information map of TE::DesignManager::getSourceFileInfo(); missing keys are empty.
DesignInput designInputFromInfo(const QMap<QString, QVariant> &info);

// Both need no widget. `progress` may be null. The second uses what the first already elaborated while
// the sources are unchanged, and gives null, with messages, when the design cannot be elaborated.
ModuleList listModules(const DesignInput &input, ElaborationProgress *progress);
RtlNetlist *buildNetlist(const DesignInput &input, QStringList &messages, ElaborationProgress *progress);

} // namespace QUARRY
