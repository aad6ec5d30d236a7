#include "elaboration/reading/ghdltree.h"
#include "elaboration/reading/vhdlplaces.h"
#include "tests/fuzz/vhdldesign.h"

// The syntax tree that GHDL prints of the VHDL sources.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString file = Fuzz::file(Fuzz::bytes(data, size));
    const QMap<QString, QString> names;
    QUARRY::VhdlPlaceTable table;
    table.open({file}, names);
    while (table.readSome())
        ;
    for (const char *entity : {"crc8", "blocks"}) {
        const QUARRY::VhdlPlaces *places = table.of(QLatin1String(entity), QString());
        for (const QUARRY::Declaration &place :
             places ? places->declarations.values() : QList<QUARRY::Declaration>())
            Fuzz::claim(place.line >= 0 && place.file.isEmpty() == (place.line == 0), "a place is whole");
    }
    QString place;
    QUARRY::findGhdlName("foreign", file, place);
    Fuzz::readVhdlDesign(QStringLiteral(CORPUS "/waveform/blocks.vcd"), file);
    return 0;
}
