#pragma once

#include <QByteArray>
#include <QString>

#include "host/savetarget.h"

namespace QUtil {

// Overwrites a file that is there. What it holds is kept in a flushed backup until the new bytes are on the
// disk: beside it (".NAME.jex-backup"), or in the user's data folder where its folder cannot be written to.
// Puts the old content back when a step fails.
SaveFault writeInPlace(const SaveTarget &target, const QByteArray &bytes);

// The backup of a save in place that did not end since its process died, so that the file may hold parts of
// both states; empty when there is none. One that is of no use, since the file holds the same, is removed.
QString pendingBackup(const QString &path);

// A sentence for those who can not ask what is to be done about it; empty when there is none.
QString pendingBackupFault(const QString &path);

// What the file held before comes back, and the backup goes. False with a sentence, and nothing is lost.
bool restoreBackup(const QString &path, QString *errorMessage);

// The file stays as it is, the backup goes.
void discardBackup(const QString &path);

} // namespace QUtil
