#include "elaboration/tools/designdump.h"
#include "tests/fuzz/fuzz.h"

// The tree dump that Verilator writes of an unfinished design.
void Fuzz::look(const QByteArray &bytes)
{
    QUARRY::DesignDump dump;
    Fuzz::claim(QUARRY::readDesignDump(Fuzz::file(bytes), dump), "every text is read");
    for (const QUARRY::DumpCell &cell : dump.cells) {
        Fuzz::claim(cell.owner >= 0 && cell.owner < dump.modules.size(), "an instance is in a module");
        Fuzz::claim(cell.line >= 0, "no line is negative");
        for (const QUARRY::DumpPin &pin : cell.ports + cell.parameters)
            Fuzz::claim(pin.line >= 0 && pin.column >= 0 && pin.position >= 0, "no place is negative");
    }
}
