#include "elaboration/reading/vhdldeclarations.h"
#include "tests/fuzz/vhdldesign.h"

// VHDL sources, of which only the declarations are read.
void Fuzz::look(const QByteArray &bytes)
{
    const QString file = Fuzz::file(bytes);
    const QMap<QString, QString> names;
    QUARRY::VhdlPlaceTable table;
    table.open({{QStringLiteral("work"), file}}, names);
    while (table.readSome())
        ;
    for (const char *entity : {"crc8", "blocks"}) {
        const QUARRY::VhdlPlaces *places = table.of(QStringLiteral("work"), QLatin1String(entity), QString());
        for (const QUARRY::Declaration &place :
             places ? places->declarations.values() : QList<QUARRY::Declaration>())
            Fuzz::claim(place.line >= 0 && place.file.isEmpty() == (place.line == 0), "a place is whole");
    }
    Fuzz::readVhdlDesign(QStringLiteral(CORPUS "/waveform/blocks.vcd"), file);
}
