#pragma once

#include <QList>
#include <QString>

#include "host/devicearg.h"

namespace Core {

// How the host finds the editor of a file: a plug-in announces, while its library is loaded or in its
// initialize(), a function that opens files of a suffix. The function shows its own messages; false
// means that no view came of it.
class EditorRegistry
{
public:
    // Opens a file in a view; see above.
    typedef bool (*Opener)(const QString &file, const DEV::DeviceArg &device);

    // The suffix without its dot, such as "zub"; compared without regard to case. A later announcement
    // for the same suffix takes the place of the earlier one.
    static void announce(const QString &suffix, Opener open);
    static Opener editorFor(const QString &path); // null when nobody edits such files
    static QList<Opener> openers();               // in order of announcement
    static void withdraw(Opener open);            // whoever announced before for its suffix is asked again
    static void clear();                          // before plug-ins unload
};

} // namespace Core
