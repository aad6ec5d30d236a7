#pragma once

#include "elaboration/tools/blankednames.h"

namespace QUARRY {

// Blanks what describes checks and not hardware, and what the tools cannot parse: sequences, properties,
// concurrent assertions with their actions, covergroups with the objects made of them, checkers with their
// instances, each `bind` to a path, `let`, "default disable iff" and the condition of an event, "posedge clk
// iff enable". A statement leaves its semicolon. Knows and adds the names of what is blanked. False when
// there is nothing of it in the text.
bool blankAssertions(QByteArray &systemVerilog, BlankedNames &names);

} // namespace QUARRY
