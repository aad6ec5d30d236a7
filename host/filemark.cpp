#include "host/filemark.h"

#include <QCryptographicHash>
#include <QFile>

#include <sys/stat.h>

#include "host/regularfile.h"

namespace QUtil {

static const qint64 sizeLimit = 256 * MiB;

FileMark::FileMark(const QByteArray &content)
    : m_digest(QCryptographicHash::hash(content, QCryptographicHash::Sha1))
{
}

FileMark FileMark::of(const QString &path)
{
    QByteArray bytes;
    QString reason;
    if (readRegularFile(path, sizeLimit, &bytes, &reason))
        return FileMark(bytes);
    FileMark mark;
    struct stat info;
    // What cannot be read is another thing than anything that was.
    if (::stat(QFile::encodeName(path).constData(), &info) == 0)
        mark.m_digest = "unreadable";
    return mark;
}

bool FileMark::isOutdated(const QString &path) const
{
    const FileMark now = of(path);
    return !now.isNull() && now != *this;
}

} // namespace QUtil
