#pragma once

#include <QByteArray>
#include <QString>

namespace QUtil {

const qint64 MiB = 1024 * 1024;

// Reads a file that a user or a project names. Nothing but a regular file is opened, and nothing is waited
// for: a pipe or a device in its place would hold the program for ever. False with a reason, a clause without
// a full stop ("it is a named pipe, not a regular file"), also when there are more than `limit` bytes.
bool readRegularFile(const QString &path, qint64 limit, QByteArray *bytes, QString *reason);

// As above for a word of a command line, which may be the name of a stream, too: that is read to its end.
// Once: what has been read from it is gone.
bool readFileOrStream(const QString &word, qint64 limit, QByteArray *bytes, QString *reason);

// Whether the word stands for an open descriptor: "-", and what a shell passes ("/dev/fd/63",
// "/proc/self/fd/63", "/dev/stdin").
bool isStreamName(const QString &word);

// What a name leads to that is no regular file: "a folder", "a named pipe", "a socket", "a device", "a link
// that leads to itself". Empty for a regular file, and where nothing is.
QString irregularKind(const QString &path);

// The reason that goes with it; empty as above.
QString irregularReason(const QString &path);

// Whether both names lead to one file that is there.
bool isSameFile(const QString &one, const QString &other);

// The words for an errno.
QString errorWords(int cause);

} // namespace QUtil
