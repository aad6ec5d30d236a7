#pragma once

#include <QByteArray>
#include <QString>

namespace QUARRY {

// False for a link, a pipe or the like, which a tool that ran sources may have left in place of what it
// should write. To be asked before such a file is opened.
bool isPlainFile(const QString &path);

// "The temporary folder /tmp is full. ..." when the disk that `path` lies on has no room; else empty. Most
// tools do not look whether they could write, so this is asked when one is over.
QString fullDiskMessage(const QString &path);

// A folder for temporary files, removed with everything in it when the object dies. Links in it are
// removed, never followed. The first one of a program removes what others, that were killed, left behind.
class ScratchDir
{
public:
    ScratchDir();
    ~ScratchDir();

    bool isValid() const { return !m_path.isEmpty(); } // false when no folder could be made
    QString path() const { return m_path; }
    QString file(const QString &name) const { return m_path + QLatin1Char('/') + name; }
    // In place of what is there, which is never written to: it may be a link that a tool made.
    bool write(const QString &name, const QByteArray &content) const;

private:
    Q_DISABLE_COPY(ScratchDir)
    QString m_path;
    int m_lock = -1; // held as long as the folder is in use
};

} // namespace QUARRY
