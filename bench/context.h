#pragma once

#include <QTemporaryDir>

#include "bench/largedesign.h"

// What the rows share. The files live in a folder that is gone when the program ends.
struct Context
{
    LargeDesign design;
    std::unique_ptr<QUARRY::RtlNetlist> netlist;
    QTemporaryDir dir;
};

// The groups of rows, one file each.
void measureNetlist(Context &context);
void measureSearch(Context &context);
void measureConfiguration(Context &context);
void measureSignals(Context &context);
void measureResultTree(Context &context);
void measureOpening(Context &context);
