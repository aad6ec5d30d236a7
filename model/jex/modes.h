#pragma once

#include <QList>
#include <QStringList>

#include <type_traits>
#include <variant>

#include "model/jex/core.h"

namespace JEX {

// The modes of a file. Each stands here with its kind of core, and in modes.cpp with its name; what is done
// alike for all modes walks these.

typedef std::variant<AoCore *, AOCore_Lite *> CorePointer;
// The cores of one file, all of its mode.
typedef std::variant<QList<AoCore *>, QList<AOCore_Lite *>> CoreList;

template <class Core>
constexpr JexMode modeOf()
{
    return Core::mode;
}

const char *modeName(JexMode mode);     // "Standard", "Lite", as a file has it; null for neither
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
