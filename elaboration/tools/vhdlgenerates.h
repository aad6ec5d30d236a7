#pragma once

#include <QByteArray>

namespace QUARRY {

// Makes "if ... generate" of each "case ... generate", which GHDL reads, but neither translates nor shows in
// its waves. Lines stay where they are. False when there is none.
bool replaceCaseGenerates(QByteArray &text);

} // namespace QUARRY
