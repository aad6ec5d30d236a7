#include "insertion/outputfolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "host/regularfile.h"

namespace Insertion {
namespace {

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

} // namespace

QString outputFault(const QString &folder, const QStringList &names, const QStringList &sources)
{
    const QFileInfo info(folder);
    if (!info.exists())
        return info.isSymLink() ? folder + " is a link that leads nowhere." : QString();
    if (!info.isDir() || info.isSymLink())
        return folder + " is not a folder. Name another one for the output.";
    const QString canonical = info.canonicalFilePath();
    for (const QString &source : sources) {
        if (QFileInfo(source).canonicalPath() == canonical)
            return folder + " is a folder of the sources: " + QFileInfo(source).fileName() +
                   " is in it. Name another one for the output.";
    }
    const QStringList held =
        QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QString &entry : held) {
        if (!names.contains(entry))
            return folder + " holds other files (" + entry +
                   "), which would be lost. Name another folder for the output.";
    }
    return QString();
}

bool writeFolder(const QString &folder, const QMap<QString, QByteArray> &files, QString *error)
{
    const QString target = QDir::cleanPath(QFileInfo(folder).absoluteFilePath());
    const QString parent = QFileInfo(target).absolutePath();
    if (!QDir().mkpath(parent)) {
        *error = "The folder " + parent + " cannot be made.";
        return false;
    }
    QTemporaryDir made(parent + "/.jex-XXXXXX");
    QString reason = made.errorString();
    bool isGood = made.isValid();
    for (auto it = files.begin(); isGood && it != files.end(); ++it)
        isGood = writeFile(made.filePath(it.key()), it.value(), &reason);
    // Made for its owner alone, as temporary folders are.
    const mode_t mask = umask(0);
    umask(mask);
    if (isGood && (chmod(QFile::encodeName(made.path()).constData(), 0777 & ~mask) != 0 ||
                   !exchange(made.path(), target))) {
        reason = QUtil::errorWords(errno);
        isGood = false;
    }
    if (!isGood)
        *error = target + " cannot be written: " + reason + ". Nothing was changed.";
    return isGood;
}

} // namespace Insertion
