#pragma once

#include <QTemporaryDir>

#include "bench/largedesign.h"
#include "model/jex/signalitem.h"

namespace RTLJEX {
class EditorView;
}

// What the rows share. The files live in a folder that is gone when the program ends.
struct Context
{
    LargeDesign design;
    std::unique_ptr<QUARRY::RtlNetlist> netlist;
    QTemporaryDir dir;
};

// Records of the netlist: every fifth a bus, the others single nets, spread over the design from `first` on.
QList<JEX::SignalItem> signalRecords(const QList<QUARRY::RtlNet *> &nets,
                                     const QList<QUARRY::RtlNetBus *> &buses, int first, int count);

// With a script in place of bubblewrap that only starts the tool: for the front of PATH.
QString unconfiningFolder(const Context &context);

// The groups of rows, one file each.
void measureNetlist(Context &context);
void measureSearch(Context &context);
void measureFilter(Context &context);
void measureWide();
void measureConfiguration(Context &context);
void measureSignals(Context &context);
void measureResultTree(Context &context);
void measurePages(Context &context);
void measureOpening(Context &context);
void measureVhdl(Context &context);
void measureConfinement(Context &context);
void measureEditor(Context &context);
void measureUndo(RTLJEX::EditorView &view);
void measureInsertion(Context &context);
