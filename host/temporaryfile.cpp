#include "host/temporaryfile.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>

namespace QUtil {
namespace {

const char prefix[] = ".jex-save-"; // short, whatever the name that the file is to get
const int attemptLimit = 100;

// Between the making of a file and its lock somebody may take it for a left-over.
bool isMine(int descriptor)
{
    struct stat info;
    return lockFile(descriptor) && ::fstat(descriptor, &info) == 0 && info.st_nlink > 0;
}

void removeIfDead(const QByteArray &path)
{
    const Descriptor file(::open(path.constData(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat opened, named;
    if (file.number() >= 0 && ::fstat(file.number(), &opened) == 0 && S_ISREG(opened.st_mode) &&
        opened.st_uid == ::geteuid() && lockFile(file.number()) && ::lstat(path.constData(), &named) == 0 &&
        named.st_ino == opened.st_ino)
        ::unlink(path.constData());
}

} // namespace

TemporaryFile::~TemporaryFile()
{
    if (m_lock.number() >= 0 && !m_path.isEmpty())
        ::unlink(m_path.constData());
}

bool TemporaryFile::create(const QByteArray &folder, mode_t mode)
{
    for (int attempt = 0; attempt < attemptLimit; ++attempt) {
        m_path = folder + '/' + prefix + QByteArray::number(qint64(::getpid())) + '-' +
                 QByteArray::number(attempt);
        m_file.reset(::open(m_path.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode));
        if (m_file.number() < 0 && errno != EEXIST)
            return false;
        if (m_file.number() >= 0 && isMine(m_file.number())) {
            m_lock.reset(::dup(m_file.number()));
            if (m_lock.number() >= 0)
                return true;
            const int cause = errno;
            ::unlink(m_path.constData());
            errno = cause;
            return false;
        }
    }
    errno = EEXIST;
    return false;
}

SaveFault TemporaryFile::fill(const QByteArray &bytes)
{
    SaveFault fault = writeAll(m_file.number(), bytes);
    if (!fault)
        fault = flush(m_file.number());
    if (!fault && !m_file.close())
        fault = faultOf(QT_TRANSLATE_NOOP("QUtil::Saving", "closing"));
    return fault;
}

SaveFault TemporaryFile::take(const QByteArray &path, bool keepsOld)
{
    m_isExchanged = keepsOld && ::renameat2(AT_FDCWD, m_path.constData(), AT_FDCWD, path.constData(),
                                            RENAME_EXCHANGE) == 0;
    if (m_isExchanged)
        return SaveFault();
    if (::rename(m_path.constData(), path.constData()) != 0)
        return faultOf(QT_TRANSLATE_NOOP("QUtil::Saving", "replacing the file"));
    m_path.clear();
    return SaveFault();
}

void TemporaryFile::giveBack(const QByteArray &path)
{
    if (m_isExchanged && ::rename(m_path.constData(), path.constData()) == 0)
        m_path.clear();
}

bool lockFile(int descriptor)
{
    // Where there are no locks, nobody has one.
    return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

void sweepTemporaryFiles(const QByteArray &folder)
{
    DIR *entries = ::opendir(folder.constData());
    if (!entries)
        return;
    while (const dirent *entry = ::readdir(entries)) {
        if (std::strncmp(entry->d_name, prefix, sizeof prefix - 1) == 0)
            removeIfDead(folder + '/' + entry->d_name);
    }
    ::closedir(entries);
}

} // namespace QUtil
