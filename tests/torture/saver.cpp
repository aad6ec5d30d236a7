// Saves: "save PATH SIZE" once, SIZE bytes, and prints why it failed; "loop PATH" two states of a file in
// turns, until it is killed. With "as UID" before, as that user.

#include <QByteArray>
#include <QFile>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <grp.h>
#include <unistd.h>

#include "host/atomicfile.h"

namespace {

void saveInTurns(const QString &path)
{
    for (bool isFirst = true;; isFirst = false) {
        // The large one so large that a write can be interrupted.
        for (const QByteArray &state : {QByteArray(20000, 'o'), QByteArray(2000000, 'n')})
            QUtil::writeFileAtomically(path, state, nullptr);
        if (isFirst && (std::puts("saving") == EOF || std::fflush(stdout) != 0))
            return;
    }
}

int saveOnce(const QString &path, int size)
{
    QString error;
    if (QUtil::writeFileAtomically(path, QByteArray(size, 'n'), &error))
        return 0;
    std::puts(qPrintable(error));
    return 1;
}

bool become(uid_t user)
{
    return ::setgroups(0, nullptr) == 0 && ::setgid(user) == 0 && ::setuid(user) == 0;
}

} // namespace

int main(int argc, char *argv[])
{
    std::signal(SIGXFSZ, SIG_IGN);
    if (argc > 3 && std::strcmp(argv[1], "as") == 0) {
        if (!become(uid_t(std::atoi(argv[2]))))
            return 2;
        argv += 2;
        argc -= 2;
    }
    if (argc == 3 && std::strcmp(argv[1], "loop") == 0)
        saveInTurns(QFile::decodeName(argv[2]));
    return argc == 4 ? saveOnce(QFile::decodeName(argv[2]), std::atoi(argv[3])) : 2;
}
