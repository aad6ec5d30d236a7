#pragma once

#include <QStringList>

// Runs a program to its end, in the C locale and with what it prints in the file `output`. It is spawned, not
// forked: a copy of this process's page tables would be counted for the program, and the faults on pages that
// were shared with it for what this process does next. An exit code above 1 ends the benchmark.
void runProgram(const QStringList &words, const QString &output);
