#include "elaboration/reading/vhdlscopes.h"
#include "tests/fuzz/vhdldesign.h"

static void lookAt(const QUARRY::VhdlScope &scope)
{
    Fuzz::claim(scope.shownName().isEmpty() == scope.name.isEmpty(), "what has a name shows one");
    for (const auto &child : scope.children)
        lookAt(*child);
}

// The head of a waveform that GHDL writes.
void Fuzz::look(const QByteArray &bytes)
{
    const QString file = Fuzz::file(bytes);
    if (const std::unique_ptr<QUARRY::VhdlScope> scope = QUARRY::readVhdlScopes(file, QStringLiteral("crc8")))
        lookAt(*scope);
    Fuzz::readVhdlDesign(file, QStringLiteral(CORPUS "/places/blocks.vhd"));
}
