#pragma once

#include <QByteArray>
#include <QString>

namespace JEX {

// The bytes of a ".zub" file, within bounds that keep the XML reader from taking the machine's memory or
// time. False with a sentence that names the file: when it is no regular file, when its last save did not
// end, when it is larger than 64 MiB, or when an element has more than 64 attributes.
bool readZubFile(const QString &path, QByteArray *bytes, QString *error);

// The same for a word of a command line, which may name a stream (see regularfile.h). That can be read once.
bool readZubInput(const QString &word, QByteArray *bytes, QString *error);

// Whether bytes that are in memory already keep to the last of these bounds and are in UTF-8; `name` is for
// the sentence.
bool keepsZubBounds(const QByteArray &bytes, const QString &name, QString *error);

} // namespace JEX
