#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

// A test has no use for going on when it cannot prepare its files. Gives the path.
inline QString put(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

inline QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(cannot be read)");
}

// What is in a folder, hidden or not, by name.
inline QStringList entriesOf(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

// A folder that lives as long as this.
class Folder
{
public:
    QString path(const QString &name = QString()) const { return QDir(dir.path()).filePath(name); }
    QString write(const QString &name, const QByteArray &bytes) const { return put(path(name), bytes); }
    QByteArray read(const QString &name) const { return contents(path(name)); }

    QTemporaryDir dir;
};
