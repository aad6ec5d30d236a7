#pragma once

#include <QByteArray>
#include <QString>

namespace QUARRY {

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
    bool write(const QString &name, const QByteArray &content) const;

private:
    Q_DISABLE_COPY(ScratchDir)
    QString m_path;
    int m_lock = -1; // held as long as the folder is in use
};

} // namespace QUARRY
