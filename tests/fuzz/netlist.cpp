#include "elaboration/tools/ghdlverilog.h"
#include "model/netlist/rtlnetlist.h"
#include "tests/fuzz/fuzz.h"

#include <memory>

// The XML that Verilator writes of a design. Nets that VHDL declares come with another target.
void Fuzz::look(const QByteArray &bytes)
{
    QUARRY::ReadOptions options;
    options.workingDir = QStringLiteral(EXAMPLE_DIR "/rtl");
    options.generated.insert(QStringLiteral("made.v"), &QUARRY::GhdlVerilog::maker);
    QUARRY::NetlistReader reader(Fuzz::file(bytes), options);
    while (reader.readSlice())
        ;
    const std::unique_ptr<QUARRY::RtlNetlist> netlist(reader.takeNetlist());
    if (!netlist) {
        Fuzz::claim(reader.error().startsWith(QLatin1String("ERROR: ")),
                    "what is refused comes with a reason");
        return;
    }
    Fuzz::claim(reader.error().isEmpty(), "a netlist comes without a fault");
    int looked = 0;
    for (const QUARRY::RtlNet *net : netlist->topHierarchy->singleNetsIncludeSub()) {
        Fuzz::claim(net->name().isEmpty() || netlist->findNet(net->fullPathName()) != nullptr,
                    "a net is found by its name");
        if (++looked == 100)
            break;
    }
}
