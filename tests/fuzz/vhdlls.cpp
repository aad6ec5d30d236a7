#include "tests/fuzz/foreign.h"

// The libraries of a vhdl_ls.toml, whose patterns are looked for beside the example.
void Fuzz::look(const QByteArray &bytes)
{
    Fuzz::readForeignProject(bytes, Core::projectFromVhdlLs);
}
