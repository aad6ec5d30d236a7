#include "host/regularfile.h"

#include <QCoreApplication>
#include <QFile>
#include <QRegExp>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include "host/descriptor.h"

namespace QUtil {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(QUtil::RegularFile)
};

QString kindOf(const struct stat &info)
{
    switch (info.st_mode & S_IFMT) {
    case S_IFREG:
        return QString();
    case S_IFDIR:
        return Texts::tr("a folder");
    case S_IFIFO:
        return Texts::tr("a named pipe");
    case S_IFSOCK:
        return Texts::tr("a socket");
    default:
        return Texts::tr("a device");
    }
}

QString linkLoop()
{
    return Texts::tr("a link that leads to itself");
}

QString reasonOf(const QString &kind)
{
    if (kind.isEmpty())
        return kind;
    return (kind == linkLoop() ? Texts::tr("it is %1") : Texts::tr("it is %1, not a regular file")).arg(kind);
}

bool fail(const QString &why, QString *reason)
{
    *reason = why;
    return false;
}

// What a regular file does not give at once it never gives; the writer of a stream is waited for.
ssize_t readSome(int descriptor, bool waits, char *buffer, size_t size)
{
    for (;;) {
        const ssize_t count = ::read(descriptor, buffer, size);
        if (count < 0 && errno == EAGAIN && waits) {
            pollfd ready = {descriptor, POLLIN, 0};
            ::poll(&ready, 1, -1);
        } else if (count >= 0 || errno != EINTR) {
            return count;
        }
    }
}

bool readAll(int descriptor, bool waits, qint64 limit, QByteArray *bytes, QString *reason)
{
    char buffer[64 * 1024];
    for (;;) {
        const ssize_t count = readSome(descriptor, waits, buffer, sizeof buffer);
        if (count == 0)
            return true;
        if (count < 0)
            return fail(errorWords(errno), reason);
        if (bytes->size() + count > limit)
            return fail(Texts::tr("it is larger than %1 MiB").arg(limit / MiB), reason);
        bytes->append(buffer, int(count));
    }
}

// -1 when the word names a file.
int descriptorOf(const QString &word)
{
    if (word == QLatin1String("-") || word == QLatin1String("/dev/stdin"))
        return STDIN_FILENO;
    QRegExp form(QLatin1String("/(?:dev|proc/self)/fd/(\\d{1,6})"));
    return form.exactMatch(word) ? form.cap(1).toInt() : -1;
}

} // namespace

bool readRegularFile(const QString &path, qint64 limit, QByteArray *bytes, QString *reason)
{
    // Before it is opened, which does things to some devices, and again for what was opened.
    const QString odd = irregularReason(path);
    if (!odd.isEmpty())
        return fail(odd, reason);
    const Descriptor file(
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat info;
    if (file.number() < 0 || ::fstat(file.number(), &info) != 0)
        return fail(errorWords(errno), reason);
    if (!S_ISREG(info.st_mode))
        return fail(reasonOf(kindOf(info)), reason);
    bytes->clear();
    bytes->reserve(int(qMin(qint64(info.st_size), limit)));
    return readAll(file.number(), false, limit, bytes, reason);
}

bool readFileOrStream(const QString &word, qint64 limit, QByteArray *bytes, QString *reason)
{
    const int descriptor = descriptorOf(word);
    if (descriptor < 0)
        return readRegularFile(word, limit, bytes, reason);
    bytes->clear();
    return readAll(descriptor, true, limit, bytes, reason);
}

bool isStreamName(const QString &word)
{
    return descriptorOf(word) >= 0;
}

QString irregularKind(const QString &path)
{
    struct stat info;
    if (::stat(QFile::encodeName(path).constData(), &info) == 0)
        return kindOf(info);
    return errno == ELOOP ? linkLoop() : QString();
}

QString irregularReason(const QString &path)
{
    return reasonOf(irregularKind(path));
}

bool isSameFile(const QString &one, const QString &other)
{
    struct stat first, second;
    return ::stat(QFile::encodeName(one).constData(), &first) == 0 &&
           ::stat(QFile::encodeName(other).constData(), &second) == 0 && first.st_dev == second.st_dev &&
           first.st_ino == second.st_ino;
}

QString errorWords(int cause)
{
    return QString::fromLocal8Bit(std::strerror(cause));
}

} // namespace QUtil
