#pragma once

#include <QMap>

#include "gateware/windowtext.h"

// What a core does, said once more and plainly: all samples in, windows out. Knows nothing of clocks,
// memories and registers, and takes the settings of the core from its record.
namespace coremodel {

// Bits of one sample as '0', '1', 'x' or 'z': those of `data` and of each trigger port, by number, with the
// highest bit first.
struct Sample
{
    QByteArray data;
    QMap<int, QByteArray> ports;
};

struct Command
{
    enum Kind { Arm, ForceHigh, ForceLow } kind;
    int sample; // before which it comes
};

// What happens to a core from its configuration on.
struct Story
{
    QList<Sample> samples;
    QList<Command> commands;
};

RTLJEX::CapturedCore run(const RTLJEX::AnyCore &core, const RTLJEX::CoreOptions &options, const Story &story);

} // namespace coremodel
