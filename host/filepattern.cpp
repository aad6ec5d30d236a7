#include "host/filepattern.h"

#include <QDir>
#include <QFileInfo>
#include <QRegExp>

#include "host/absolutepath.h"
#include "host/project.h"

namespace Core {

bool FilePattern::isPattern(const QString &text)
{
    return text.contains(QRegExp(QLatin1String("[*?[]")));
}

QStringList FilePattern::files(const QString &folder, const QString &pattern)
{
    if (!isPattern(pattern))
        return QStringList(QUtil::absoluteIn(folder, pattern));
    QStringList found;
    const bool isAbsolute = pattern.startsWith(QLatin1Char('/'));
    descend(isAbsolute ? QString(QLatin1Char('/')) : folder,
            pattern.split(QLatin1Char('/'), QString::SkipEmptyParts), 0, found);
    found.sort();
    found.removeDuplicates();
    return found;
}

void FilePattern::descend(const QString &folder, const QStringList &parts, int at, QStringList &found)
{
    const QString &part = parts.at(at);
    const bool isLast = at + 1 == parts.size();
    if (gaveUp())
        return;
    if (!isPattern(part)) {
        const QString path = QUtil::absoluteIn(folder, part);
        if (isLast && QFileInfo(path).isFile())
            found.append(path);
        else if (!isLast && QFileInfo(path).isDir())
            descend(path, parts, at + 1, found);
        return;
    }
    const bool isDeep = part == QLatin1String("**");
    const QRegExp form(part, Qt::CaseSensitive, QRegExp::Wildcard);
    const QDir::Filters hidden = part.startsWith(QLatin1Char('.')) ? QDir::Hidden : QDir::Filters();
    const QFileInfoList entries =
        QDir(folder).entryInfoList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot | hidden);
    if (isDeep && !isLast)
        descend(folder, parts, at + 1, found);
    for (const QFileInfo &entry : entries) {
        ++m_looked;
        const QString path = QUtil::absoluteIn(folder, entry.fileName());
        const bool fits = isDeep || form.exactMatch(entry.fileName());
        if (fits && isLast && entry.isFile())
            found.append(path);
        else if (isDeep && entry.isDir() && !entry.isSymLink())
            descend(path, parts, at, found);
        else if (fits && !isDeep && !isLast && entry.isDir())
            descend(path, parts, at + 1, found);
    }
}

} // namespace Core
