#include "insertion/outputfolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <nlohmann/json.hpp>

#include "host/regularfile.h"
#include "insertion/insertionjob.h"

namespace Insertion {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Insertion::OutputFolder)
};

bool writeFile(const QString &path, const QByteArray &bytes, QString *reason)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush() &&
        fsync(file.handle()) == 0)
        return true;
    *reason = file.error() == QFileDevice::NoError ? QUtil::errorWords(errno) : file.errorString();
    return false;
}

// The new folder takes the name; what had it is left under the other one.
bool exchange(const QString &made, const QString &folder)
{
    const QByteArray from = QFile::encodeName(made), to = QFile::encodeName(folder);
    if (!QFileInfo(folder).exists())
        return rename(from.constData(), to.constData()) == 0;
    return renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_EXCHANGE) == 0;
}

// Nothing but the files of an insertion, and the folder when it is empty then: what somebody else put there
// stays.
bool removeFolder(const QString &folder)
{
    for (const QString &name : InsertionJob::fileNames())
        unlink(QFile::encodeName(folder + '/' + name).constData());
    return rmdir(QFile::encodeName(folder).constData()) == 0;
}

bool isOurs(const QString &folder)
{
    QByteArray map;
    QString reason;
    if (!QUtil::readRegularFile(folder + "/map.json", 1024 * QUtil::MiB, &map, &reason))
        return false;
    const auto json = nlohmann::json::parse(map.begin(), map.end(), nullptr, false);
    const auto maker = json.is_object() ? json.find(makerMember) : json.end();
    return maker != json.end() && *maker == makerText;
}

} // namespace

OutputFolder::OutputFolder(const QString &folder, const QStringList &sources)
    : m_name(folder), m_path(QDir::cleanPath(QFileInfo(folder).absoluteFilePath())), m_sources(sources)
{
}

QString OutputFolder::fault() const
{
    const QFileInfo info(m_path);
    if (!info.exists())
        return info.isSymLink() ? Texts::tr("%1 is a link that leads nowhere.").arg(m_name) : QString();
    if (!info.isDir() || info.isSymLink())
        return Texts::tr("%1 is not a folder. Name another one for the output.").arg(m_name);
    const QString canonical = info.canonicalFilePath();
    for (const QString &source : m_sources) {
        if (QFileInfo(source).canonicalPath() == canonical)
            return Texts::tr("%1 is a folder of the sources: %2 is in it. Name another one for the output.")
                .arg(m_name, QFileInfo(source).fileName());
    }
    const QFileInfoList held =
        QDir(m_path).entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QFileInfo &entry : held) {
        if (!InsertionJob::fileNames().contains(entry.fileName()) || entry.isSymLink() ||
            !QUtil::irregularKind(entry.filePath()).isEmpty())
            return Texts::tr(
                       "%1 holds other files (%2), which would be lost. Name another folder for the output.")
                .arg(m_name, entry.fileName());
    }
    return held.isEmpty() || isOurs(m_path) ? QString()
                                            : Texts::tr("%1 holds files that were not made here (%2), which "
                                                        "would be lost. Name another folder for the output.")
                                                  .arg(m_name, held.first().fileName());
}

bool OutputFolder::write(const QMap<QString, QByteArray> &files, QString *error) const
{
    const QString parent = QFileInfo(m_path).absolutePath();
    if (!QDir().mkpath(parent)) {
        *error = Texts::tr("The folder %1 cannot be made.").arg(parent);
        return false;
    }
    QTemporaryDir made(parent + "/.jex-XXXXXX");
    made.setAutoRemove(false);
    QString reason = made.errorString();
    bool isGood = made.isValid();
    for (auto it = files.begin(); isGood && it != files.end(); ++it)
        isGood = writeFile(made.filePath(it.key()), it.value(), &reason);
    // Made for its owner alone, as temporary folders are.
    const mode_t mask = umask(0);
    umask(mask);
    *error = isGood ? fault() : QString();
    if (isGood && error->isEmpty() &&
        (chmod(QFile::encodeName(made.path()).constData(), 0777 & ~mask) != 0 ||
         !exchange(made.path(), m_path))) {
        reason = QUtil::errorWords(errno);
        isGood = false;
    }
    if (!isGood)
        *error = Texts::tr("%1 cannot be written: %2. Nothing was changed.").arg(m_path, reason);
    // What it holds now: the new files that were not wanted, or the old ones.
    if (made.isValid() && !removeFolder(made.path()) && QFileInfo(made.path()).exists() && error->isEmpty())
        *error = Texts::tr("What was put into %1 meanwhile is now in %2.").arg(m_path, made.path());
    return error->isEmpty();
}

} // namespace Insertion
