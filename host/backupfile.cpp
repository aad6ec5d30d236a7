#include "host/backupfile.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

#include "host/fileattributes.h"
#include "host/regularfile.h"
#include "host/temporaryfile.h"

namespace QUtil {
namespace {

const qint64 sizeLimit = 256 * MiB;
const char suffix[] = ".jex-backup";
const int nameLimit = 200; // bytes; with dot and suffix below what a name may have

QByteArray digest(const QByteArray &text)
{
    return QCryptographicHash::hash(text, QCryptographicHash::Sha1).toHex();
}

QByteArray nameOf(const SaveTarget &target)
{
    return target.path.mid(target.path.lastIndexOf('/') + 1);
}

QByteArray besideFile(const SaveTarget &target)
{
    const QByteArray name = nameOf(target);
    return target.folder + "/." + (name.size() > nameLimit ? digest(name) : name) + suffix;
}

QByteArray dataFolder()
{
    const QByteArray set = qgetenv("XDG_DATA_HOME");
    const QByteArray base = set.startsWith('/') ? set : QFile::encodeName(QDir::homePath()) + "/.local/share";
    return base + "/jex/backups";
}

QByteArray inDataFolder(const SaveTarget &target)
{
    char real[PATH_MAX];
    const char *folder = ::realpath(target.folder.constData(), real);
    return dataFolder() + '/' + digest(QByteArray(folder ? folder : "") + '/' + nameOf(target)) + suffix;
}

bool holds(int descriptor, const QByteArray &bytes)
{
    struct stat info;
    QByteArray held(bytes.size(), '\0');
    return ::fstat(descriptor, &info) == 0 && info.st_size == bytes.size() &&
           ::pread(descriptor, held.data(), size_t(held.size()), 0) == held.size() && held == bytes;
}

int openBackup(const QByteArray &path)
{
    const int descriptor = ::open(path.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    struct stat info;
    if (descriptor < 0 || (::fstat(descriptor, &info) == 0 && S_ISREG(info.st_mode)))
        return descriptor;
    ::close(descriptor);
    return -1;
}

// What a file holds, while others write to it. Locked, so that it does not pass for one whose writer died.
class Backup
{
public:
    SaveFault keep(const SaveTarget &target, const QByteArray &content)
    {
        const QByteArray places[] = {besideFile(target), inDataFolder(target)};
        for (const QByteArray &place : places) {
            m_found.reset(openBackup(place));
            if (m_found.number() < 0)
                continue;
            // One whose save did not end holds the last good state, which the file itself may not.
            m_path = place;
            return lockFile(m_found.number()) ? SaveFault()
                                              : fault(SaveFault::tr("another program is saving it"));
        }
        bool isElsewhere = false;
        SaveFault failed = make(target, content, places[0], &isElsewhere);
        if (isElsewhere) {
            QDir().mkpath(QFile::decodeName(dataFolder()));
            ::chmod(dataFolder().constData(), 0700);
            sweepTemporaryFiles(dataFolder());
            failed = make(target, content, places[1], &isElsewhere);
        }
        return failed;
    }

    void remove() { ::unlink(m_path.constData()); }
    bool isOlder() const { return m_found.number() >= 0; } // than this save
    QByteArray path() const { return m_path; }

private:
    static SaveFault fault(const QString &reason)
    {
        SaveFault fault;
        fault.reason = reason;
        return fault;
    }

    SaveFault make(const SaveTarget &target, const QByteArray &content, const QByteArray &place,
                   bool *isElsewhere)
    {
        const QByteArray folder = place.left(place.lastIndexOf('/'));
        *isElsewhere = false;
        if (!m_made.create(folder, 0600)) {
            *isElsewhere = errno == EACCES || errno == EPERM || errno == EROFS;
            return faultOf(QT_TRANSLATE_NOOP("QUtil::Saving", "keeping a backup"));
        }
        // Who may read the file may read the backup, and nobody else.
        QStringList losses;
        const SaveFault failed = copyAttributes(target, m_made.descriptor(), losses);
        if (failed || !losses.isEmpty())
            ::fchmod(m_made.descriptor(), 0600);
        m_path = place;
        SaveFault unkept = m_made.fill(content);
        if (!unkept)
            unkept = m_made.take(place, false);
        if (!unkept)
            unkept = flushFolder(folder);
        if (unkept)
            unkept.step = SaveFault::tr("keeping a backup");
        return unkept;
    }

    QByteArray m_path;
    Descriptor m_found;
    TemporaryFile m_made;
};

SaveFault overwrite(int descriptor, const QByteArray &bytes)
{
    // Room first: a disk that is full says so before anything is lost.
    if (::fallocate(descriptor, FALLOC_FL_KEEP_SIZE, 0, bytes.isEmpty() ? 1 : bytes.size()) != 0 &&
        (errno == ENOSPC || errno == EDQUOT || errno == EFBIG || errno == EIO))
        return faultOf(QT_TRANSLATE_NOOP("QUtil::Saving", "writing"));
    if (::lseek(descriptor, 0, SEEK_SET) != 0)
        return faultOf(QT_TRANSLATE_NOOP("QUtil::Saving", "writing"));
    SaveFault fault = writeAll(descriptor, bytes);
    if (!fault && ::ftruncate(descriptor, bytes.size()) != 0)
        fault = faultOf(QT_TRANSLATE_NOOP("QUtil::Saving", "writing"));
    if (!fault)
        fault = flush(descriptor);
    // A network's file system may say only now that it did not take the bytes, and then it is too late to
    // take them back if this was the last descriptor.
    Descriptor copy(::dup(descriptor));
    if (!fault && !copy.close())
        fault = faultOf(QT_TRANSLATE_NOOP("QUtil::Saving", "closing"));
    return fault;
}

QString nativeName(const QByteArray &path)
{
    return QDir::toNativeSeparators(QFile::decodeName(path));
}

} // namespace

SaveFault writeInPlace(const SaveTarget &target, const QByteArray &bytes)
{
    SaveFault fault;
    QByteArray old;
    if (!readRegularFile(QFile::decodeName(target.path), sizeLimit, &old, &fault.reason)) {
        fault.step = SaveFault::tr("reading what it holds for a backup");
        return fault;
    }
    const Descriptor file(::open(target.path.constData(), O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (file.number() < 0)
        return faultOf(QT_TRANSLATE_NOOP("QUtil::Saving", "opening"));
    Backup backup;
    fault = backup.keep(target, old);
    if (fault)
        return fault;
    fault = overwrite(file.number(), bytes);
    if (fault && overwrite(file.number(), old))
        fault.reason =
            SaveFault::tr("%1; what it held is kept in %2").arg(fault.reason, nativeName(backup.path()));
    else if (!fault || !backup.isOlder())
        backup.remove();
    return fault;
}

QString pendingBackup(const QString &path)
{
    const SaveTarget target(path);
    if (!target.exists)
        return QString();
    const QByteArray places[] = {besideFile(target), inDataFolder(target)};
    for (const QByteArray &place : places) {
        const Descriptor backup(openBackup(place));
        if (backup.number() < 0 || !lockFile(backup.number()))
            continue;
        QByteArray content;
        QString reason;
        const bool isRead = readRegularFile(QFile::decodeName(target.path), sizeLimit, &content, &reason);
        if (!isRead || !holds(backup.number(), content))
            return QDir::cleanPath(QFile::decodeName(place));
        ::unlink(place.constData());
    }
    return QString();
}

QString pendingBackupFault(const QString &path)
{
    const QString backup = pendingBackup(path);
    if (backup.isEmpty())
        return QString();
    return SaveFault::tr(
               "its last save did not end; what it held before is kept in %1, which is to be put in "
               "its place or removed")
        .arg(QDir::toNativeSeparators(backup));
}

bool restoreBackup(const QString &path, QString *errorMessage)
{
    const QString backup = pendingBackup(path);
    const SaveTarget target(path);
    SaveFault fault = target.fault;
    QByteArray content;
    if (!fault && !readRegularFile(backup, sizeLimit, &content, &fault.reason))
        fault.step = SaveFault::tr("reading the backup");
    if (!fault) {
        const Descriptor file(
            ::open(target.path.constData(), O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
        fault = file.number() < 0 ? faultOf(QT_TRANSLATE_NOOP("QUtil::Saving", "opening"))
                                  : overwrite(file.number(), content);
    }
    if (!fault)
        discardBackup(path);
    else if (errorMessage)
        *errorMessage = fault.sentence(path);
    return !fault;
}

void discardBackup(const QString &path)
{
    const SaveTarget target(path);
    const QByteArray places[] = {besideFile(target), inDataFolder(target)};
    for (const QByteArray &place : places) {
        const Descriptor backup(openBackup(place));
        if (backup.number() >= 0 && lockFile(backup.number()))
            ::unlink(place.constData());
    }
}

} // namespace QUtil
