#pragma once

#include "elaboration/tools/blankednames.h"

namespace QUARRY {

// Puts the expression of a `let` wherever it is used: in the scope that declares it, behind an import of its
// package or an include of its file, and behind "package::". All lines stay. Knows and adds what other
// sources may use. A use that is not understood, or would take too much room, stays as it is, and a tool will
// refuse it. False when nothing was expanded.
bool expandLets(QByteArray &systemVerilog, BlankedNames &names);

} // namespace QUARRY
