#pragma once

#include "tests/gateware/randomcores.h"

// Cores side by side in one bench, each with its inputs and commands.
struct Bench
{
    QList<const RandomCore *> cores;
    QList<RTLJEX::CoreModule> modules;
    QByteArray sources; // all text of the cores

    int edges() const; // of the clock
};

enum Simulator { Icarus, Verilator };

// For each core what it captured, or what is wrong with it, as text.
QStringList simulate(const Bench &bench, Simulator simulator);

// A line of its status, and one for each window.
QString captureText(const RTLJEX::CapturedCore &core);
