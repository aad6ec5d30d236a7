#pragma once

#include <QtGlobal>
#include <limits>

namespace JEX {

// Of what a trigger or a capture is made: the numbers in records. None holds NoImplementation: a text can
// fail to name one.
enum Implementation {
    NoImplementation = -1,
    BsramImplementation = 0, // block memory
    RegImplementation = 1,   // registers
    SsramImplementation = 2  // shadow memory
};
enum { ImplementationCount = 3 };

} // namespace JEX

namespace JEX_TOOL {

// What a static trigger takes of a resource for each expression. A table is a look-up of four match units.
enum TriggerNeed {
    OneEach,    // whatever the number of units
    TablesEach, // as many as there are tables
    TablesAndOneEach
};

// Of what a trigger or a capture can be made: all that differs between block memory, shadow memory and
// registers. Everyone who asks for, counts, shows or builds one walks the table.
struct Resource
{
    JEX::Implementation code;
    const char *name;       // for people and in files
    const char *amountName; // over what a device has of it; to be translated
    const char *usageText;  // before required and available, to be translated; null: with the name
    const char *one, *many; // of what is counted
    const char *liteText;   // what the Lite page looks for in its box
    const char *style;      // of a memory in Verilog
    bool isMemory;          // and counted by its shapes, which every family or else the usual one has
    qint64 largestCapture;  // bits; a larger one is not offered
    TriggerNeed triggerNeed;
    bool isAlwaysOffered;  // also for a device that has none
    bool hasInputRegister; // for the initial data of a Lite core
    const char *lackedBy;  // families of Yosys that have none, with a blank between; empty: all have it
};

constexpr qint64 anyCapture = std::numeric_limits<qint64>::max();

// In the order in which they are offered and listed.
constexpr Resource resources[] = {
    {JEX::BsramImplementation, "BSRAM", "BSRAM", nullptr, "memory", "memories", "BSRAM", "block", true,
     anyCapture, OneEach, true, true, ""},
    {JEX::SsramImplementation, "SSRAM", "SSRAM", nullptr, "memory", "memories", "SSRAM", "distributed", true,
     anyCapture, TablesEach, false, false, "ice40"},
    {JEX::RegImplementation, "REG", QT_TRANSLATE_NOOP("JEX_TOOL::Resource", "registers"),
     QT_TRANSLATE_NOOP("RTLJEX::CaptureUsage", "Register Usage :"), "registers", "registers", "Logic",
     "registers", false, 512, TablesAndOneEach, true, false, ""},
};
enum { ResourceCount = sizeof resources / sizeof *resources };
static_assert(int(ResourceCount) == JEX::ImplementationCount, "each implementation has a row");

// Null for NoImplementation.
constexpr const Resource *resourceOf(JEX::Implementation implementation)
{
    for (const Resource &resource : resources) {
        if (resource.code == implementation)
            return &resource;
    }
    return nullptr;
}

} // namespace JEX_TOOL
