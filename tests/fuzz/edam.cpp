#include "tests/fuzz/foreign.h"

// A design as FuseSoC hands it over.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Fuzz::readForeignProject(Fuzz::bytes(data, size), Core::projectFromEdam);
    return 0;
}
