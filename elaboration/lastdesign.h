#pragma once

#include <QDateTime>

#include <memory>

namespace QUARRY {

struct DesignInput;
struct Elaboration;

// Keeps the design that was elaborated last, until somebody wants its netlist: who lists the modules of a
// design asks for that next. At most one; it holds a temporary folder and next to no memory.

// Unless a source was written while the tools ran, which may have been read in either state.
void rememberDesign(const DesignInput &input, std::unique_ptr<Elaboration> design, const QDateTime &start);
// Null unless it was the same design and its sources are unchanged. Forgets it.
std::unique_ptr<Elaboration> takeLastDesign(const DesignInput &input);

} // namespace QUARRY
