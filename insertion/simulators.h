#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include "elaboration/tools/toolprocess.h"

namespace Insertion {

enum class Simulator { Icarus, Verilator };

// What a simulator compiles and runs. All names are such as any tool takes.
struct SimulatedSources
{
    QStringList includeFolders;
    QStringList libraryFolders;
    QStringList librarySuffixes;
    QStringList defines; // NAME=VALUE
    QStringList files;   // in reading order
    QString benchTop;    // the harness is beside it for Icarus Verilog, above it for Verilator
    QString folder;      // for what is made, and the only one that can be written to
    QString workingDir;  // in which the bench runs
};

struct SimulationStep
{
    QUARRY::ToolCall call;
    QString stage;   // for the user
    QString refusal; // the sentence when the tool ends with a failure; empty: the bench itself ran
};

// One after the other; the last one runs the bench.
QList<SimulationStep> simulationSteps(Simulator simulator, const SimulatedSources &sources);

// What of Verilator and of what it needs is missing, a sentence; empty: nothing.
QString missingFor(Simulator simulator);

} // namespace Insertion
