#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

namespace QUtil {

// Replaces a file in one step: the bytes go to a new file in the same folder, reach the disk and take the
// name of the old one, whose owner, group, permissions, access list and extended attributes they keep. A
// symbolic link stays one and its target is replaced. Where a new file cannot keep all of that, or cannot be
// made, the old one is written in place, with a backup until that has ended (see backupfile.h). False leaves
// the old file as it was; errorMessage, which may be null, then gets a sentence that names the file, the step
// and the cause. One step comes after the file was replaced: flushing the folder.
bool writeFileAtomically(const QString &path, const QByteArray &bytes, QString *errorMessage);

// All of them, or none: each is prepared beside its place, and when all are on the disk they take their
// names. Those that have to be written in place come before that, one after the other, and one that is
// written stays.
struct NewFile
{
    QString path;
    QByteArray bytes;
};
bool writeFilesAtomically(const QList<NewFile> &files, QString *errorMessage);

// Why a save of this file would write in place, a clause each ("it has 2 names (hard links)"). None where it
// can be replaced, and where it cannot be saved at all.
QStringList reasonsToWriteInPlace(const QString &path);

} // namespace QUtil
