#include "tests/fuzz/foreign.h"

// The libraries of a vhdl_ls.toml, whose patterns are looked for beside the example.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Fuzz::readForeignProject(Fuzz::bytes(data, size), Core::projectFromVhdlLs);
    return 0;
}
