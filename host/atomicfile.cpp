#include "host/atomicfile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace QUtil {
namespace {

bool fail(const QString &path, const char *step, int cause, QString *errorMessage)
{
    if (errorMessage)
        *errorMessage = QString::fromLatin1("Can not save to %1: %2 failed (%3).")
                            .arg(QDir::toNativeSeparators(path), QLatin1String(step),
                                 QString::fromLocal8Bit(std::strerror(cause)));
    return false;
}

// The file that is replaced: the end of a chain of links, also when nothing is there yet.
QString realTarget(const QString &path)
{
    QString target = QFileInfo(path).absoluteFilePath();
    for (int hops = 0; hops < 32 && QFileInfo(target).isSymLink(); ++hops)
        target = QFileInfo(target).symLinkTarget();
    return target;
}

// A new file beside the target, with the permissions that a new file gets here. -1 on failure.
int createBeside(const QByteArray &target, QByteArray &name)
{
    for (int attempt = 0; attempt < 100; ++attempt) {
        name = target + '.' + QByteArray::number(qint64(::getpid())) + '.' + QByteArray::number(attempt) +
               ".tmp";
        const int fd = ::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd >= 0 || errno != EEXIST)
            return fd;
    }
    return -1;
}

bool writeAll(int fd, const QByteArray &bytes)
{
    qint64 done = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::write(fd, bytes.constData() + done, size_t(bytes.size() - done));
        if (n > 0)
            done += n;
        else if (n == 0 || errno != EINTR)
            return false;
    }
    return true;
}

// Null when every step succeeded, else the step at fault, with errno telling why.
const char *fill(int fd, const QByteArray &target, const QByteArray &bytes)
{
    struct stat old;
    if (::stat(target.constData(), &old) == 0 && ::fchmod(fd, old.st_mode & 07777) != 0)
        return "setting the permissions";
    if (!writeAll(fd, bytes))
        return "writing";
    return ::fsync(fd) == 0 ? nullptr : "flushing to the disk";
}

} // namespace

bool writeFileAtomically(const QString &path, const QByteArray &bytes, QString *errorMessage)
{
    const QString targetPath = realTarget(path);
    const QFileInfo info(targetPath);
    if (info.exists() && !info.isWritable())
        return fail(path, "opening", EACCES, errorMessage);
    if (info.isDir())
        return fail(path, "opening", EISDIR, errorMessage);

    const QByteArray target = QFile::encodeName(targetPath);
    QByteArray temporary;
    const int fd = createBeside(target, temporary);
    if (fd < 0)
        return fail(path, "creating a file in its folder", errno, errorMessage);

    const char *step = fill(fd, target, bytes);
    int cause = errno;
    if (::close(fd) != 0 && !step) {
        step = "closing";
        cause = errno;
    }
    if (!step && ::rename(temporary.constData(), target.constData()) != 0) {
        step = "replacing the file";
        cause = errno;
    }
    if (!step)
        return true;
    ::unlink(temporary.constData());
    return fail(path, step, cause, errorMessage);
}

} // namespace QUtil
