#include "check/netplace.h"

#include "model/netlist/rtlnetlist.h"

namespace RTLJEX {

Core::NetPlace netPlace(const QUARRY::RtlNetlist *netlist, const QString &name)
{
    const QUARRY::RtlNet *net = netlist ? netlist->findNet(name) : nullptr;
    const QUARRY::RtlNetBus *bus = netlist && !net ? netlist->findBus(name) : nullptr;
    Core::NetPlace place;
    place.isInDesign = net || bus;
    if (!place.isInDesign)
        return place;
    const QUARRY::Declaration declaration = net ? net->declaration() : bus->declaration();
    place.file = declaration.file;
    place.line = declaration.line;
    return place;
}

} // namespace RTLJEX
