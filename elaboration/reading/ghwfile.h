#pragma once

#include "elaboration/reading/vhdlscopes.h"

namespace QUARRY {

// Reads the tree of scopes in a wave file of GHDL's, which knows the shape of every type, into `all`. False
// when the bytes are no whole one.
bool readGhwScopes(const QByteArray &bytes, VhdlScope &all);
bool isGhwFile(const QByteArray &start);

} // namespace QUARRY
