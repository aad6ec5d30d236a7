#pragma once

#include <QString>

#include "check/configuration.h"

namespace RTLJEX {

// Why no core can be made of these settings, as a finished sentence; empty when one can. A file may hold what
// no page of the editor offers. What the editor's check says of a core is said here only where a core needs
// it.
QString coreFault(const AnyCore &core);

} // namespace RTLJEX
