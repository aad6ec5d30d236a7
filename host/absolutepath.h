#pragma once

#include <QString>

namespace QUtil {

// A path as seen from a folder, clean; a folder that is none itself counts from the current one. The
// toolkit's own functions take a name that begins with a colon for something else than a file.
QString absoluteIn(const QString &folder, const QString &path);

} // namespace QUtil
