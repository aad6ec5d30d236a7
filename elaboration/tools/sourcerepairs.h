#pragma once

#include "elaboration/tools/blankednames.h"
#include "elaboration/tools/sourcetext.h"

#include <QString>

namespace QUARRY {

// What may have to be done to the text of a source before a tool can take it. Each leaves all lines where
// they are, so that places stay right.
enum SourceRepair {
    HideSimulation = 1, // what "translate_off" hides from synthesis
    HideEncrypted = 2,  // what stands in envelopes that no tool here can open
    DropByteOrderMark = 4,
    HideAssertions = 8,        // what Verilator cannot parse and synthesis ignores: see verilogassertions.h
    ReplaceCaseGenerates = 16, // see vhdlgenerates.h
    HideModules = 32,          // BlankedNames::modules
    SplitGenerics = 64,        // see splitVhdlGenerics()
    // BlankedNames::vhdl, see vhdlfaults.h
    ReplaceInstances = 128,
    QuoteNames = 256,
    LeaveOutUnits = 512
};

// Of the wanted repairs those that the text may need, found by words that it holds.
int neededRepairs(const QByteArray &text, SourceLanguage language, int wanted);

// The repairs that may help where a tool refuses a source with these words.
int repairsFor(const QString &words, SourceLanguage language);

// Makes the wanted repairs. Gives those that found anything to do. What is blanked may have been declared in
// another source: `names` are known and added to.
int repairSource(QByteArray &text, SourceLanguage language, int wanted, BlankedNames &names);

// Why no tool can read the text at all; a clause without a full stop, empty when there is no reason.
QString unreadableReason(const QByteArray &text);

} // namespace QUARRY
