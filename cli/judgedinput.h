#pragma once

#include "check/configuration.h"
#include "cli/arguments.h"
#include "cli/design.h"
#include "commandline/endsignals.h"

namespace Cli {

// What the commands work on that let a configuration do something in its design: a configuration without
// findings, and the design elaborated.
struct JudgedInput
{
    const CommandLine::EndSignals ends; // an interrupt between two jobs ends the second one
    QString file;
    RTLJEX::Configuration configuration;
    Design design;

    // The configuration and the design that the words name; false when the command is over, then `result` is
    // set.
    bool open(Arguments &arguments, CommandLine::DesignOptions options, ExitCode *result);
    bool judge(Output &out, ExitCode *result);
};

// Of the options that such commands share; false after a refusal.
bool readTrigger(const Arguments &arguments, bool *byAny);
void addTrigger(Arguments &arguments);

} // namespace Cli
