#include "host/savetarget.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <unistd.h>

#include "host/descriptor.h"
#include "host/regularfile.h"

namespace QUtil {
namespace {

const int linkLimit = 40; // as the kernel has it

QByteArray folderOf(const QByteArray &path)
{
    const int slash = path.lastIndexOf('/');
    return slash < 0 ? QByteArray(".") : path.left(qMax(slash, 1));
}

// Where a link leads is left to the kernel to read: "..", for one, counts from where its folder really is.
bool followLinks(QByteArray &path)
{
    for (int i = 0; i < linkLimit; ++i) {
        char text[PATH_MAX];
        const ssize_t size = ::readlink(path.constData(), text, sizeof text);
        if (size < 0)
            return true;
        const QByteArray leadsTo(text, int(size));
        path = leadsTo.startsWith('/') ? leadsTo : folderOf(path) + '/' + leadsTo;
    }
    return false;
}

// False, with errno.
bool mayWrite(const QByteArray &path, const struct stat &info)
{
    if (S_ISDIR(info.st_mode)) {
        errno = EISDIR;
        return false;
    }
    return ::faccessat(AT_FDCWD, path.constData(), W_OK, AT_EACCESS) == 0;
}

SaveFault refusal(const QString &reason)
{
    SaveFault fault;
    fault.reason = reason;
    return fault;
}

} // namespace

QString SaveFault::sentence(const QString &path) const
{
    const QString name = QDir::toNativeSeparators(path);
    return step.isEmpty() ? SaveFault::tr("Can not save to %1: %2.").arg(name, reason)
                          : SaveFault::tr("Can not save to %1: %2 failed (%3).").arg(name, step, reason);
}

SaveFault faultOf(const char *step)
{
    SaveFault fault;
    fault.reason = errorWords(errno);
    fault.step = SaveFault::tr(step);
    return fault;
}

SaveTarget::SaveTarget(const QString &name) : path(QFile::encodeName(name))
{
    if (!followLinks(path)) {
        fault = refusal(irregularReason(name));
        return;
    }
    folder = folderOf(path);
    exists = ::stat(path.constData(), &info) == 0;
    if (exists && !S_ISREG(info.st_mode) && !S_ISDIR(info.st_mode))
        fault = refusal(irregularReason(name));
    else if (exists ? !mayWrite(path, info) : errno != ENOENT)
        fault = faultOf(QT_TRANSLATE_NOOP("QUtil::Saving", "opening"));
}

SaveFault writeAll(int descriptor, const QByteArray &bytes)
{
    qint64 done = 0;
    while (done < bytes.size()) {
        const ssize_t count = ::write(descriptor, bytes.constData() + done, size_t(bytes.size() - done));
        if (count > 0) {
            done += count;
        } else if (count == 0 || errno != EINTR) {
            if (count == 0)
                errno = EIO; // it did not set it
            return faultOf(QT_TRANSLATE_NOOP("QUtil::Saving", "writing"));
        }
    }
    return SaveFault();
}

SaveFault flush(int descriptor)
{
    return ::fsync(descriptor) == 0 ? SaveFault()
                                    : faultOf(QT_TRANSLATE_NOOP("QUtil::Saving", "flushing to the disk"));
}

SaveFault flushFolder(const QByteArray &folder)
{
    const Descriptor opened(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // Not every file system has this, and not every folder that can be written to can be read.
    if (opened.number() < 0 || ::fsync(opened.number()) == 0 || errno == EINVAL || errno == ENOTSUP)
        return SaveFault();
    return faultOf(QT_TRANSLATE_NOOP("QUtil::Saving", "flushing the folder to the disk"));
}

} // namespace QUtil
