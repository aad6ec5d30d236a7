#pragma once

#include "elaboration/reading/vhdlscopes.h"

namespace QUARRY {

// The scope of an entity in the wave file that "ghdl --elab-run ENTITY --stop-time=0ns --stop-delta=0
// --wave=FILE" writes, which knows the shape of every type. Null when the file cannot be read or does not
// hold it.
std::unique_ptr<VhdlScope> readGhwScopes(const QString &ghwFile, const QString &entity);

} // namespace QUARRY
