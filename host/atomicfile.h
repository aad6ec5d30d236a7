#pragma once

#include <QByteArray>
#include <QString>

namespace QUtil {

// Replaces a file in one step: the bytes go to a new file in the same folder, reach the disk and take
// the name of the old one, whose permissions they keep. A symbolic link stays one and its target is
// replaced. False leaves the old file as it was; errorMessage, which may be null, then gets a sentence
// that names the file, the step and the cause.
bool writeFileAtomically(const QString &path, const QByteArray &bytes, QString *errorMessage);

} // namespace QUtil
