#include "bench/program.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <vector>

void runProgram(const QStringList &words, const QString &output)
{
    QList<QByteArray> bytes;
    for (const QString &word : words)
        bytes += word.toLocal8Bit();
    std::vector<char *> arguments;
    for (QByteArray &word : bytes)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);

    qputenv("LC_ALL", "C");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, qPrintable(output),
                                     O_WRONLY | O_CREAT | O_TRUNC, 0666);
    pid_t child = 0;
    const int error = posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0)
        qFatal("Cannot start %s: %s", arguments[0], strerror(error));
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR)
        continue;
    if (!WIFEXITED(status) || WEXITSTATUS(status) > 1)
        qFatal("%s failed", arguments[0]);
}
