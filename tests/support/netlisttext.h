#pragma once

#include <QString>

namespace QUARRY {
class RtlNetlist;
}

// A netlist drawn as text, for tests. One line each, two blanks of indentation a level more than the
// first line; empty lines are skipped:
//
//   top                      the top instance (its module has the same name)
//     clk                    a net
//     din x                  a net or bus marked x is excluded
//     count[7:0]             a bus, either direction
//     count[7:0] x3 x5       a bus of which bits 3 and 5 are excluded
//     u0:uart                an instance of module uart
//       ready
//     TS_JTAG!               the design uses TS_JTAG
//
// Instances of one module that show the same nets share their declarations. The caller owns the result. A
// line that it cannot read ends the test program with a message.
QUARRY::RtlNetlist *netlistFromText(const QString &text);
