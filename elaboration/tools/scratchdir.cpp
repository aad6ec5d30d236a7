#include "elaboration/tools/scratchdir.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <stdlib.h>

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

} // namespace

ScratchDir::ScratchDir()
{
    QByteArray pattern = QFile::encodeName(QDir::tempPath() + QLatin1String("/jexquarry-XXXXXX"));
    if (mkdtemp(pattern.data()))
        m_path = QFile::decodeName(pattern);
}

ScratchDir::~ScratchDir()
{
    if (isValid())
        removeTree(m_path);
}

bool ScratchDir::write(const QString &name, const QByteArray &content) const
{
    QFile out(file(name));
    return out.open(QIODevice::WriteOnly) && out.write(content) == content.size() && out.flush();
}

} // namespace QUARRY
