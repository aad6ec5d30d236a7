#pragma once

#include <QStringList>

#include "check/configuration.h"

namespace Cli {

// Brings what `theirs` changed since `base` into `ours`, field by field, unit by unit and row by row. Where
// both changed the same thing differently, ours stays, and a sentence says what theirs is. The configurations
// have one mode. Cores that are only in `theirs` move over.
QStringList mergeConfigurations(RTLJEX::Configuration &base, RTLJEX::Configuration &theirs,
                                RTLJEX::Configuration &ours);

} // namespace Cli
