#pragma once

#include "check/stalereport.h"
#include "host/iview.h"
#include "views/configcheck.h"

class QTreeWidgetItem;

namespace RTLJEX {

// Stale signals and what refused a save as what a view tells its host. The first is found again.
QList<Core::Finding> listFindings(const QList<CheckError> &refusals, const QList<StaleSignal> &stale);
StaleSignal staleSignalOf(const Core::Finding &finding);
int coreOf(const Core::Finding &finding); // its position; -1: of none

// Brings the finding's row of a core's page into view and makes it the current one, or its field. Nothing
// when the user has removed it.
void showPlace(QWidget *page, const Core::Finding &finding);

} // namespace RTLJEX
