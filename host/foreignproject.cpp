#include "host/foreignproject.h"

#include <QFileInfo>

namespace Core {

bool isForeignProject(const QString &path)
{
    const QString name = QFileInfo(path).fileName().toLower();
    return name.endsWith(QLatin1String(".toml")) || name.endsWith(QLatin1String(".eda.yml")) ||
           name.endsWith(QLatin1String(".eda.yaml"));
}

bool isProjectName(const QString &path)
{
    return QFileInfo(path).suffix().toLower() == QLatin1String(projectFileSuffix()) || isForeignProject(path);
}

bool readForeignProject(const QString &path, const QByteArray &bytes, const QString &folder,
                        ProjectData &data, QStringList &notes, QString &fault)
{
    const bool isToml = path.endsWith(QLatin1String(".toml"), Qt::CaseInsensitive);
    return isToml ? projectFromVhdlLs(bytes, folder, data, notes, fault)
                  : projectFromEdam(bytes, folder, data, notes, fault);
}

} // namespace Core
