#pragma once

#include <QByteArray>

#include "model/jex/modes.h"

namespace JEX {

// The bytes of a ".zub" file of these cores. Only what a reader would take is written: false, and a
// sentence for the log, when there are too many cores, two of one number, or a number out of range.
// Characters that XML cannot hold become U+FFFD.
bool zubFromCores(const CoreList &cores, QByteArray *bytes, QString *error);

} // namespace JEX
