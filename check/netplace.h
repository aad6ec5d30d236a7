#pragma once

#include "host/inetplaces.h"

namespace QUARRY {
class RtlNetlist;
}

namespace RTLJEX {

// Where the design (null: it has nothing) declares the net or bus of that full name.
Core::NetPlace netPlace(const QUARRY::RtlNetlist *netlist, const QString &name);

} // namespace RTLJEX
