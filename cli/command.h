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

// In the order of the list that --help prints.
inline constexpr Command commands[] = {
    {"check", "check configurations against the design, and find stale signals", check},
    {"nets", "search the nets of a design", nets},
    {"show", "print a configuration", show},
    {"new", "make an empty configuration", makeNew},
    {"fmt", "bring a configuration into the form in which the editor writes it", format},
    {"usage", "what each core needs of the device", usage},
    {"devices", "list the known devices", devices},
    {"add", "add signals to a core", add},
    {"set", "set fields of a configuration", set},
    {"diff", "what changed between two configurations", diff},
    {"rebind", "rename stored signals after the design was changed", rebind},
    {"merge", "bring two changes of a configuration together", merge},
    {"insert", "make the analyzer and put it into the design", insert},
    {"simulate", "run a test bench with the analyzer, and get the captured windows", simulate},
};

} // namespace Cli
