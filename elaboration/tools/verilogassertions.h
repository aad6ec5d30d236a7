#pragma once

#include <QByteArray>

namespace QUARRY {

// Blanks what describes checks and not hardware, and what the tools cannot parse: sequences, properties,
// concurrent assertions with their actions, covergroups with the objects made of them, checkers, `let` and
// "default disable iff". A statement leaves its semicolon. False when there is nothing of it in the text.
bool blankAssertions(QByteArray &systemVerilog);

} // namespace QUARRY
