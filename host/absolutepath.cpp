#include "host/absolutepath.h"

#include <QDir>

namespace QUtil {

QString absoluteIn(const QString &folder, const QString &path)
{
    const QLatin1Char slash('/');
    if (path.startsWith(slash))
        return QDir::cleanPath(path);
    const QString from = folder.startsWith(slash) ? folder : QDir::currentPath() + slash + folder;
    return QDir::cleanPath(from + slash + path);
}

} // namespace QUtil
