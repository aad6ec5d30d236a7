#pragma once

#include <QStringList>

#include "cli/output.h"

namespace Cli {

// What the program ends with; scripts rely on it.
enum ExitCode {
    Fine = 0,
    Findings = 1,   // it ran, and found what a build should stop for
    WrongUse = 2,   // the words on the command line make no sense
    CouldNotRun = 3 // a file or the design cannot be read, or a result cannot be written
};

struct Command
{
    const char *name;
    const char *summary; // one line for the list of commands
    ExitCode (*run)(const QStringList &words, Output &out);
};

ExitCode check(const QStringList &words, Output &out);
ExitCode nets(const QStringList &words, Output &out);
ExitCode show(const QStringList &words, Output &out);
ExitCode makeNew(const QStringList &words, Output &out);
ExitCode format(const QStringList &words, Output &out);
ExitCode usage(const QStringList &words, Output &out);
ExitCode devices(const QStringList &words, Output &out);
ExitCode add(const QStringList &words, Output &out);
ExitCode set(const QStringList &words, Output &out);
ExitCode diff(const QStringList &words, Output &out);
ExitCode rebind(const QStringList &words, Output &out);
ExitCode merge(const QStringList &words, Output &out);
ExitCode insert(const QStringList &words, Output &out);
ExitCode simulate(const QStringList &words, Output &out);

} // namespace Cli
