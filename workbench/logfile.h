#pragma once

#include <QByteArray>
#include <QString>

namespace Workbench {

// What the program did, a line each with its time, for who has to find out later why something went wrong.
// One a program. The file stays below 4 MiB: the older half goes when it is full.
class LogFile
{
public:
    // Goes on in a log that is there. False with a reason, a clause, for what is something else: another kind
    // of file, one of another user, or one that is reached by a link which another user may have set.
    static bool open(const QString &path, QString *reason);
    static void close();

    static void note(const QString &text); // nothing without a log; from any thread

    // For who may not take memory any more.
    static int descriptor(); // -1: there is no log
    static const char *path();
};

// The text as lines of a log: no control characters, not endless, further lines of it set in.
QByteArray logLines(const QString &text);

} // namespace Workbench
