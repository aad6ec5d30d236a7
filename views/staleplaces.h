#pragma once

#include "check/stalereport.h"
#include "host/iview.h"

namespace RTLJEX {

// Stale signals as what a view tells its host, and back.
QList<Core::Finding> listFindings(const QList<StaleSignal> &stale);
StaleSignal staleSignalOf(const Core::Finding &finding);

// Brings the signal's row of a core's page into view and makes it the current one: of the trigger tree or
// the capture list, or the field of the clock. Nothing when the user has removed it.
void showSignalRow(QWidget *page, const StaleSignal &signal);

} // namespace RTLJEX
