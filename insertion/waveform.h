#pragma once

#include <QByteArray>
#include <QList>

#include "gateware/windowtext.h"
#include "insertion/analyzer.h"

namespace Insertion {

const int unitsPerSample = 10; // of time

// The captured windows of all cores as a value change dump: a scope for each core with its trigger and the
// number of its window, and in it a scope for each instance, with the rows of the capture list under the
// names that they are shown by and their bits in row order. A sample is ten units of time; windows follow
// each other. `captured` goes with the cores of the analyzer.
QByteArray waveformText(const Analyzer &analyzer, const QList<RTLJEX::CapturedCore> &captured);

// The names of a core's enabled rows there, with scopes and range: "core_0.soc.u_uart.count[3:0]".
QList<QByteArray> rowNames(const Analyzer::Core &core);

} // namespace Insertion
