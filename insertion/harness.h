#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

namespace Insertion {

class Analyzer;

// How the cores of a simulation are reached.
struct HarnessPlace
{
    QString instance;     // of the design in the test bench
    QByteArray prefix;    // of what was added to the netlist; empty: the harness attaches the cores itself
    QString folder;       // for what it writes
    bool records = false; // the whole waveform of all taps, too
};

// A second top module, "jex_harness", that reads the cores through their control port. It writes "core_N.txt"
// when so many windows of core N are finished as `windows` says, and at the end of the simulation "end.txt":
// a line with number, finished windows and what was seen for each core.
QByteArray harnessText(const Analyzer &analyzer, const HarnessPlace &place, const QMap<int, int> &windows);

struct CoreEnd
{
    int windows = 0;
    quint32 seen = 0;
};
// What a core wrote, with the number of finished windows that its port told when it was read: through the
// control port it is known only an edge of the sample clock later.
QByteArray withWindows(const QByteArray &text, int windows);

// By number of the core; empty when there is no such text.
QMap<int, CoreEnd> readEnds(const QByteArray &text);

} // namespace Insertion
