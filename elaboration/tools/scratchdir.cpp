#include "elaboration/tools/scratchdir.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegExp>

#include <fcntl.h>
#include <stdlib.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace QUARRY {
namespace {

void removeTree(const QString &folder)
{
    const QFileInfoList entries =
        QDir(folder).entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QFileInfo &entry : entries) {
        if (entry.isDir() && !entry.isSymLink())
            removeTree(entry.absoluteFilePath());
        else
            QFile::remove(entry.absoluteFilePath());
    }
    QDir().rmdir(folder);
}

// The tools trip over names that a shell would change, so such a folder for temporary files is passed over.
QString temporaryRoot()
{
    const QStringList folders = QStringList(QDir::tempPath()) << QLatin1String("/tmp");
    for (const QString &folder : folders) {
        if (!folder.contains(QRegExp(QLatin1String("[^A-Za-z0-9/._-]"))) && QFileInfo(folder).isWritable())
            return folder;
    }
    return QDir::tempPath();
}

int lockedFolder(const QString &path, bool mayWait)
{
    const int descriptor =
        open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (descriptor >= 0 && flock(descriptor, LOCK_EX | (mayWait ? 0 : LOCK_NB)) != 0) {
        close(descriptor);
        return -1;
    }
    return descriptor;
}

// The folders of programs that did not live to remove them: whose lock nobody holds. One that was just made
// may not be locked yet.
void sweep(const QString &root)
{
    const QDateTime recent = QDateTime::currentDateTime().addSecs(-60);
    for (const QFileInfo &folder : QDir(root).entryInfoList(QStringList(QLatin1String("jexquarry-??????")),
                                                            QDir::Dirs | QDir::Hidden)) {
        if (folder.isSymLink() || folder.ownerId() != geteuid() || folder.lastModified() > recent)
            continue;
        const int lock = lockedFolder(folder.absoluteFilePath(), false);
        if (lock < 0)
            continue;
        removeTree(folder.absoluteFilePath());
        close(lock);
    }
}

} // namespace

QString fullDiskMessage(const QString &path)
{
    const quint64 least = 16 << 10; // what some file systems keep for themselves
    struct statvfs disk;
    if (path.isEmpty() || statvfs(QFile::encodeName(path).constData(), &disk) != 0)
        return QString();
    const bool hasRoom = quint64(disk.f_bavail) * disk.f_frsize >= least;
    if (hasRoom && (disk.f_files == 0 || disk.f_favail > 0))
        return QString();
    return QCoreApplication::translate(
               "QUARRY::ScratchDir",
               "ERROR: The temporary folder %1 is full. Make room on its disk, or let the variable "
               "TMPDIR name another folder.")
        .arg(temporaryRoot());
}

bool isPlainFile(const QString &path)
{
    struct stat info;
    return lstat(QFile::encodeName(path).constData(), &info) == 0 && S_ISREG(info.st_mode);
}

ScratchDir::ScratchDir()
{
    const QString root = temporaryRoot();
    static bool isSwept = false;
    if (!isSwept)
        sweep(root);
    isSwept = true;
    QByteArray pattern = QFile::encodeName(root + QLatin1String("/jexquarry-XXXXXX"));
    if (!mkdtemp(pattern.data()))
        return;
    m_path = QFile::decodeName(pattern);
    m_lock = lockedFolder(m_path, true);
}

ScratchDir::~ScratchDir()
{
    if (isValid())
        removeTree(m_path);
    if (m_lock >= 0)
        close(m_lock);
}

bool ScratchDir::write(const QString &name, const QByteArray &content) const
{
    const QByteArray path = QFile::encodeName(file(name));
    unlink(path.constData());
    QFile out;
    const int descriptor = open(path.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    const bool isOpen = descriptor >= 0 && out.open(descriptor, QIODevice::WriteOnly, QFile::AutoCloseHandle);
    return isOpen && out.write(content) == content.size() && out.flush();
}

} // namespace QUARRY
