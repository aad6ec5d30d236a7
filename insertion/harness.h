#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

#include "insertion/simulators.h"

namespace Insertion {

class Analyzer;

// How the cores of a simulation are reached.
struct HarnessPlace
{
    Simulator simulator = Simulator::Icarus;
    QString benchTop;     // module of the test bench
    QString instance;     // of the design in the test bench
    QByteArray prefix;    // of what was added to the netlist; empty: the harness attaches the cores itself
    QString folder;       // for what it writes
    bool records = false; // the whole waveform of all taps, too
};

// A top module "jex_harness" that reads the cores. It writes "core_N.txt", and at the end of the simulation
// "end.txt": a line with number, finished windows and what was seen for each core. For Icarus Verilog it
// stands beside the test bench and works the control ports, as soon as so many windows of core N are finished
// as `windows` says. Verilator knows one top module and no loops that take no time: there the bench is in the
// harness, the control ports rest, and the memories of the cores are looked into at the end.
QByteArray harnessText(const Analyzer &analyzer, const HarnessPlace &place, const QMap<int, int> &windows);

// Stands before what it wrote of all taps, "raw.txt": both are one value change dump.
QByteArray recordHead(const Analyzer &analyzer);

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
