#include "elaboration/reading/vhdlscopes.h"
#include "tests/fuzz/vhdldesign.h"

namespace {

void look(const QUARRY::VhdlScope &scope)
{
    Fuzz::claim(scope.shownName().isEmpty() == scope.name.isEmpty(), "what has a name shows one");
    for (const auto &child : scope.children)
        look(*child);
}

} // namespace

// The head of a waveform that GHDL writes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString file = Fuzz::file(Fuzz::bytes(data, size));
    if (const std::unique_ptr<QUARRY::VhdlScope> scope = QUARRY::readVhdlScopes(file, QStringLiteral("crc8")))
        look(*scope);
    Fuzz::readVhdlDesign(file, QStringLiteral(CORPUS "/places/blocks.vhd"));
    return 0;
}
