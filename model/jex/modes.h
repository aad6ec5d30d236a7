#pragma once

#include <QList>
#include <QStringList>

#include <type_traits>
#include <variant>

#include "model/jex/core.h"

namespace JEX {

// The modes of a file. Each stands here with its kind of core and its texts; what is done alike for all modes
// walks these.

typedef std::variant<AoCore *, AOCore_Lite *> CorePointer;
// The cores of one file, all of its mode.
typedef std::variant<QList<AoCore *>, QList<AOCore_Lite *>> CoreList;

template <class Core>
constexpr JexMode modeOf()
{
    return Core::mode;
}

// Its names and what people are told of it, where they choose one.
struct ModeText
{
    JexMode mode;
    const char *name;   // as a file has it
    const char *prefix; // of the names of its controls in the wizard for new files
    const char *title;  // in that, to be translated, as the note
    const char *note;
};
inline constexpr ModeText modeTexts[] = {
    {StandardMode, "Standard", "std", QT_TRANSLATE_NOOP("RTLJEX::JexModePage", "Standard Mode"),
     QT_TRANSLATE_NOOP("RTLJEX::JexModePage", "Create a JEX Config File")},
    {LiteMode, "Lite", "lite", QT_TRANSLATE_NOOP("RTLJEX::JexModePage", "Lite Mode"),
     QT_TRANSLATE_NOOP("RTLJEX::JexModePage",
                       "Create a simplified version of JEX Config File(without trigger port)")},
};
static_assert(sizeof modeTexts / sizeof *modeTexts == std::variant_size_v<CoreList>, "each mode has texts");

const char *modeName(JexMode mode);     // "Standard", "Lite", as a file has it; null for no mode
JexMode modeNamed(const QString &name); // in that spelling; InvalidMode for another name
QStringList modeNames();                // of all modes
CoreList emptyListOf(JexMode mode);     // any one for InvalidMode
void deleteCores(const CoreList &cores);

// A core as the editor makes it.
template <class Core>
Core *newCore(int number)
{
    if constexpr (std::is_constructible_v<Core, int>) {
        return new Core(number);
    } else {
        Core *core = new Core;
        core->coreNumber = number;
        return core;
    }
}

} // namespace JEX
