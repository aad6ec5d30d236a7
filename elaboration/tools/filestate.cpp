#include "elaboration/tools/filestate.h"

#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace QUARRY {
namespace {

// QFileInfo counts time in milliseconds and knows no identity, too coarse for an edit that follows at once.
QByteArray state(const QString &path, bool withSize)
{
    QByteArray text = path.toUtf8();
#ifdef Q_OS_UNIX
    struct stat info;
    if (::stat(QFile::encodeName(path).constData(), &info) != 0)
        return text + " -\n";
    text += ' ' + QByteArray::number(qint64(info.st_ino)) + ' ' + QByteArray::number(qint64(info.st_mtime));
#ifdef Q_OS_LINUX
    text += '.' + QByteArray::number(qint64(info.st_mtim.tv_nsec));
#endif
    if (withSize)
        text += ' ' + QByteArray::number(qint64(info.st_size));
#else
    const QFileInfo info(path);
    text += ' ' + info.lastModified().toString(Qt::ISODate).toUtf8();
    if (withSize)
        text += ' ' + QByteArray::number(info.size());
#endif
    return text + '\n';
}

} // namespace

QByteArray fileState(const QStringList &files, const QStringList &folders)
{
    QByteArray text;
    for (const QString &file : files)
        text += state(file, true);
    for (const QString &folder : folders)
        text += state(folder, false);
    return text;
}

bool anyWrittenSince(const QStringList &files, const QDateTime &moment)
{
    for (const QString &file : files) {
        const QFileInfo info(file);
        if (info.exists() && info.lastModified() >= moment)
            return true;
    }
    return false;
}

} // namespace QUARRY
