#include "workbench/logfile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMutex>
#include <QStringList>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "host/descriptor.h"
#include "host/regularfile.h"
#include "host/savetarget.h"

namespace Workbench {
namespace {

const char head[] = "Log of jexworkbench\n";
const qint64 sizeLimit = 4 * QUtil::MiB;
const int textLimit = 16 * 1024;

QMutex mutex;
int log = -1;
QByteArray logPath;

bool fail(const QString &why, QString *reason)
{
    *reason = why;
    return false;
}

bool isOwn(const struct stat &info)
{
    return info.st_uid == geteuid() || info.st_uid == 0;
}

// Of the names that lead to the file.
bool leadsOverStrangersLink(const QString &folder)
{
    QString name;
    for (const QString &part : folder.split('/', Qt::SkipEmptyParts)) {
        struct stat info;
        name += '/' + part;
        if (lstat(QFile::encodeName(name).constData(), &info) == 0 && S_ISLNK(info.st_mode) && !isOwn(info))
            return true;
    }
    return false;
}

// Step by step and over no link, since one could have come since the names were looked at. -1, with errno.
int openFolder(const QString &canonical)
{
    const int flags = O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
    int folder = ::open("/", flags);
    for (const QString &part : canonical.split('/', Qt::SkipEmptyParts)) {
        const int next = folder < 0 ? -1 : openat(folder, QFile::encodeName(part).constData(), flags);
        const int cause = errno;
        if (folder >= 0)
            ::close(folder);
        folder = next;
        errno = cause;
    }
    return folder;
}

// The beginning tells a log from a file that somebody needs.
bool isLog(int file, const struct stat &info)
{
    char start[sizeof head - 1];
    return info.st_size == 0 ||
           (pread(file, start, sizeof start, 0) == sizeof start && qstrncmp(start, head, sizeof start) == 0);
}

bool mayLogTo(int file, QString *reason)
{
    struct stat info;
    if (fstat(file, &info) != 0)
        return fail(QUtil::errorWords(errno), reason);
    if (!S_ISREG(info.st_mode))
        return fail("it is not a regular file", reason);
    if (info.st_uid != geteuid() || info.st_nlink != 1)
        return fail("it belongs to another user, or has several names", reason);
    if (!isLog(file, info))
        return fail("it is there already, and is no log", reason);
    return true;
}

// Keeps the younger half, from the beginning of a line.
void shorten(qint64 size)
{
    QByteArray kept(int(sizeLimit / 2), Qt::Uninitialized);
    const ssize_t count = pread(log, kept.data(), size_t(kept.size()), size - kept.size());
    if (count < 0 || ftruncate(log, 0) != 0)
        return;
    kept.truncate(int(count));
    kept.remove(0, kept.indexOf('\n') + 1);
    QUtil::writeAll(log, head + kept);
}

void append(const QByteArray &bytes)
{
    struct stat info;
    if (fstat(log, &info) == 0 && info.st_size + bytes.size() > sizeLimit)
        shorten(info.st_size);
    QUtil::writeAll(log, info.st_size == 0 ? head + bytes : bytes);
}

} // namespace

bool LogFile::open(const QString &path, QString *reason)
{
    const QFileInfo file(QFileInfo(path).absoluteFilePath());
    if (!file.dir().exists())
        return fail("there is no such folder", reason);
    if (leadsOverStrangersLink(file.absolutePath()))
        return fail("a link of another user leads to its folder", reason);
    const QUtil::Descriptor folder(openFolder(QFileInfo(file.absolutePath()).canonicalFilePath()));
    if (folder.number() < 0)
        return fail(QUtil::errorWords(errno), reason);
    const int flags = O_RDWR | O_APPEND | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | O_NOCTTY;
    const int opened = openat(folder.number(), QFile::encodeName(file.fileName()).constData(), flags, 0600);
    if (opened < 0)
        return fail(errno == ELOOP ? "it is a link" : QUtil::errorWords(errno), reason);
    if (!mayLogTo(opened, reason)) {
        ::close(opened);
        return false;
    }
    close();
    const QMutexLocker lock(&mutex);
    log = opened;
    logPath = QFile::encodeName(file.absoluteFilePath());
    return true;
}

void LogFile::close()
{
    const QMutexLocker lock(&mutex);
    if (log >= 0)
        ::close(log);
    log = -1;
}

void LogFile::note(const QString &text)
{
    const QMutexLocker lock(&mutex);
    if (log >= 0)
        append(QDateTime::currentDateTime().toString("yyyy-MM-dd HH:mm:ss.zzz ").toLatin1() + logLines(text));
}

int LogFile::descriptor()
{
    return log;
}

const char *LogFile::path()
{
    return logPath.constData();
}

QByteArray logLines(const QString &text)
{
    QString shown;
    for (const QChar letter : text.left(textLimit)) {
        if (letter == '\n')
            shown += "\n    ";
        else if (letter.category() == QChar::Other_Control || letter.category() == QChar::Other_Format)
            shown += QString("\\u%1").arg(letter.unicode(), 4, 16, QChar('0'));
        else
            shown += letter;
    }
    return shown.toUtf8() + (text.size() > textLimit ? " ...\n" : "\n");
}

} // namespace Workbench
