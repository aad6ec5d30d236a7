#pragma once

#include "check/configuration.h"
#include "cli/json.h"

namespace Cli {

// One line for each finding, behind the name of the file, or one that says that there are none.
void printFindings(const QString &file, const RTLJEX::FileFindings &findings, Output &out);
Json findingsJson(const QString &file, const RTLJEX::Configuration &configuration,
                  const RTLJEX::FileFindings &findings);

} // namespace Cli
