#pragma once

#include <QByteArray>
#include <QString>

namespace QUtil {

// What a file held when it was read or written, to find out later whether somebody else has changed it. The
// content decides: times are too coarse for an edit that follows at once, and a file that was only touched,
// or replaced by an equal one, is the same.
class FileMark
{
public:
    FileMark() {} // nothing was there
    explicit FileMark(const QByteArray &content);
    static FileMark of(const QString &path); // as it is now

    bool isNull() const { return m_digest.isEmpty(); }
    bool operator==(const FileMark &other) const { return m_digest == other.m_digest; }
    bool operator!=(const FileMark &other) const { return !(*this == other); }

    // Whether something else is there now. A file that is gone is nothing that could be lost.
    bool isOutdated(const QString &path) const;

private:
    QByteArray m_digest;
};

} // namespace QUtil
