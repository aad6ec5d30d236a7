#pragma once

#include <QString>

namespace Workbench {

// A source as the user gets to see it: lines are those of the tools, whatever ends them, and what would keep
// a window busy is bounded.
struct ShownSource
{
    QString text;
    QString notice;       // what is not shown, or why nothing is; empty: all is shown
    bool isLarge = false; // too large to be coloured, or with too long lines
};

// Opens nothing but a regular file, and waits for nothing.
ShownSource readShownSource(const QString &path);

} // namespace Workbench
