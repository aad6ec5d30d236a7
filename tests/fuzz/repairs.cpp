#include "elaboration/tools/sourcerepairs.h"
#include "tests/fuzz/fuzz.h"

// Sources that no tool can take as they are. All lines stay, and all text that no repair concerns.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray source = Fuzz::bytes(data, size);
    for (const QUARRY::SourceLanguage language : {QUARRY::VerilogSource, QUARRY::VhdlSource}) {
        QByteArray text = source;
        const int all = QUARRY::HideSimulation | QUARRY::HideEncrypted | QUARRY::DropByteOrderMark |
                        QUARRY::HideAssertions;
        QUARRY::BlankedNames names;
        const int made =
            QUARRY::repairSource(text, language, all & QUARRY::neededRepairs(text, language, all), names);
        Fuzz::claim(text.size() == source.size() || source.contains("let"), "no text grows or shrinks");
        Fuzz::claim(text.size() < source.size() + 32 * 1024 * 1024, "what is put in is bounded");
        Fuzz::claim(text.count('\n') == source.count('\n'), "all lines stay");
        Fuzz::claim(made || text == source, "what needs no repair stays as it is");
    }
    return 0;
}
