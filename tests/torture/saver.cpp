// Saves: "save PATH SIZE" once, SIZE bytes, and prints why it failed; "loop PATH" two configurations in
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
#include "model/jex/zubwriter.h"

namespace {

const int signalCount = 20000; // large enough that a write can be interrupted

void saveInTurns(const QString &path)
{
    JEX::AOCore_Lite small, large;
    for (int i = 0; i < signalCount; ++i) {
        large.captureSignals.append(JEX::SignalItem());
        large.captureSignals.last().name = QString::number(i);
    }
    large.enabledCaptureSignals = large.captureSignals;
    QByteArray states[2]; // made before, so that all of the time is spent on saving
    QString error;
    JEX::zubFromCores(QList<decltype(&small)>{&small}, &states[0], &error);
    JEX::zubFromCores(QList<decltype(&large)>{&large}, &states[1], &error);
    for (bool isFirst = true;; isFirst = false) {
        for (const QByteArray &state : states)
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
