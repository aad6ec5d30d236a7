#include "model/jex/modes.h"

#include <QtAlgorithms>

namespace JEX {

namespace {

template <class Core>
JexMode modeOfList(const QList<Core *> &)
{
    return modeOf<Core>();
}

template <size_t Index>
CoreList listOf(JexMode mode)
{
    CoreList cores(std::in_place_index<Index>);
    const JexMode own = std::visit([](const auto &list) { return modeOfList(list); }, cores);
    if constexpr (Index + 1 < std::variant_size_v<CoreList>)
        return own == mode ? cores : listOf<Index + 1>(mode);
    return cores;
}

} // namespace

const char *modeName(JexMode mode)
{
    for (const ModeText &text : modeTexts) {
        if (text.mode == mode)
            return text.name;
    }
    return nullptr;
}

JexMode modeNamed(const QString &name)
{
    for (const ModeText &text : modeTexts) {
        if (name == QLatin1String(text.name))
            return text.mode;
    }
    return InvalidMode;
}

QStringList modeNames()
{
    QStringList names;
    for (const ModeText &text : modeTexts)
        names << QLatin1String(text.name);
    return names;
}

CoreList emptyListOf(JexMode mode)
{
    return listOf<0>(mode);
}

void deleteCores(const CoreList &cores)
{
    std::visit([](const auto &list) { qDeleteAll(list); }, cores);
}

} // namespace JEX
