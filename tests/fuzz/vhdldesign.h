#pragma once

#include "elaboration/tools/ghdlverilog.h"
#include "model/netlist/rtlnetlist.h"
#include "tests/fuzz/fuzz.h"

#include <memory>

namespace Fuzz {

// Reads the design of tests/fuzz/corpus/netlist/blocks.xml, whose Verilog GHDL made of VHDL, with the
// waveform and the VHDL that the files hold.
inline void readVhdlDesign(const QString &waveform, const QString &vhdl)
{
    QUARRY::ReadOptions options;
    options.generated.insert(QStringLiteral("made.v"), &QUARRY::GhdlVerilog::maker);
    options.vhdlScopes.insert(QStringLiteral("blocks"), waveform);
    options.vhdlScopes.insert(QStringLiteral("leaf"), waveform);
    options.vhdlSources.append({QStringLiteral("work"), vhdl});
    QUARRY::NetlistReader reader(QStringLiteral(CORPUS "/netlist/blocks.xml"), options);
    while (reader.readSlice())
        ;
    const std::unique_ptr<QUARRY::RtlNetlist> netlist(reader.takeNetlist());
    claim((netlist == nullptr) == reader.error().startsWith(QLatin1String("ERROR: ")),
          "a netlist or a reason");
}

} // namespace Fuzz
