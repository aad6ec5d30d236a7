#pragma once

#include <QByteArray>
#include <QStringList>

#include "host/savetarget.h"

namespace QUtil {

// Gives a new file what the old one has beside its content: owner, group, permissions, access lists and other
// extended attributes. `losses` gets a clause for each that it cannot have; a fault is another thing: a disk
// that fails.
SaveFault copyAttributes(const SaveTarget &from, int descriptor, QStringList &losses);

} // namespace QUtil
