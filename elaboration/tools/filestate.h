#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QStringList>

namespace QUARRY {

// The state on disk of files (size, time, identity) and folders (time): two equal states mean that
// nothing was written, replaced, added or removed.
QByteArray fileState(const QStringList &files, const QStringList &folders);

// True when one of the files was written at or after that moment.
bool anyWrittenSince(const QStringList &files, const QDateTime &moment);

} // namespace QUARRY
