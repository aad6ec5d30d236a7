#include "elaboration/tools/sourcerepairs.h"
#include "tests/fuzz/fuzz.h"

// Sources that no tool can take as they are. All lines stay, and all text that no repair concerns.
void Fuzz::look(const QByteArray &bytes)
{
    for (const QUARRY::SourceLanguage language : {QUARRY::VerilogSource, QUARRY::VhdlSource}) {
        QByteArray text = bytes;
        const int all = QUARRY::HideSimulation | QUARRY::HideEncrypted | QUARRY::DropByteOrderMark |
                        QUARRY::HideAssertions;
        QUARRY::BlankedNames names;
        const int made =
            QUARRY::repairSource(text, language, all & QUARRY::neededRepairs(text, language, all), names);
        Fuzz::claim(text.size() == bytes.size() || bytes.contains("let"), "no text grows or shrinks");
        Fuzz::claim(text.size() < bytes.size() + 32 * 1024 * 1024, "what is put in is bounded");
        Fuzz::claim(text.count('\n') == bytes.count('\n'), "all lines stay");
        Fuzz::claim(made || text == bytes, "what needs no repair stays as it is");
    }
}
