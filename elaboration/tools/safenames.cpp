#include "elaboration/tools/safenames.h"

#include <QFile>
#include <QFileInfo>

#include "elaboration/tools/scratchdir.h"

namespace QUARRY {
namespace {

bool isSafe(const QString &path)
{
    for (const QChar c : path) {
        const bool plain = (c >= QLatin1Char('a') && c <= QLatin1Char('z')) ||
                           (c >= QLatin1Char('A') && c <= QLatin1Char('Z')) ||
                           (c >= QLatin1Char('0') && c <= QLatin1Char('9'));
        if (!plain && c != QLatin1Char('/') && c != QLatin1Char('.') && c != QLatin1Char('_') &&
            c != QLatin1Char('-'))
            return false;
    }
    return path.startsWith(QLatin1Char('/'));
}

QString folderOf(const QString &path)
{
    return path.left(qMax(0, path.lastIndexOf(QLatin1Char('/'))));
}

} // namespace

SafeNames::SafeNames(const ScratchDir &scratch) : m_scratch(scratch)
{
}

QString SafeNames::file(const QString &path, const QString &suffix)
{
    if (m_copies.contains(path))
        return link(path, suffix);
    const QString folderName = folder(folderOf(path));
    const QString name = path.mid(path.lastIndexOf(QLatin1Char('/')));
    if (isSafe(name) && name.endsWith(suffix))
        return folderName + name;
    if (!m_includeFolders.contains(folderName))
        m_includeFolders.append(folderName);
    return link(path, suffix);
}

void SafeNames::setCopy(const QString &path, const QString &copy)
{
    if (m_copies.contains(path))
        return;
    m_copies.insert(path, copy);
    for (const QString &key : m_links.keys()) {
        if (key.startsWith(path + QLatin1Char('\n')))
            m_links.remove(key);
    }
}

QString SafeNames::folder(const QString &path)
{
    if (isSafe(path))
        return path;
    return link(path, QString());
}

QString SafeNames::link(const QString &path, const QString &suffix)
{
    QString &made = m_links[path + QLatin1Char('\n') + suffix];
    if (!made.isEmpty())
        return made;
    // Others may have made links there. Where none can be made, the tool will say that it cannot read it.
    int number = m_real.size();
    do {
        made = m_scratch.file(QString::fromLatin1("link") + QString::number(number++) + suffix);
    } while (QFileInfo(made).isSymLink() || QFileInfo(made).exists());
    QFile::link(m_copies.value(path, path), made);
    m_real.insert(made, path);
    return made;
}

QString SafeNames::real(const QString &handedOver) const
{
    for (QString prefix = handedOver; !prefix.isEmpty(); prefix = folderOf(prefix)) {
        const QHash<QString, QString>::const_iterator found = m_real.find(prefix);
        if (found != m_real.end())
            return found.value() + handedOver.mid(prefix.size());
    }
    return handedOver;
}

} // namespace QUARRY
