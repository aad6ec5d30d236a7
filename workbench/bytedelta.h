#pragma once

#include <QByteArray>

namespace Workbench {

// How one text of bytes becomes another, and back, in the room of what differs. Lines that only moved count
// for little.
class ByteDelta
{
public:
    ByteDelta() = default;
    ByteDelta(const QByteArray &before, const QByteArray &after);

    QByteArray
    forward(const QByteArray &before) const; // gives `after`, for the very bytes that it was made of
    QByteArray backward(const QByteArray &after) const;
    qint64 size() const { return m_before.size() + m_after.size(); }

private:
    int m_prefix = 0; // alike in both, and so are m_suffix bytes at the end
    int m_suffix = 0;
    QByteArray m_before; // what is between, packed
    QByteArray m_after;
};

} // namespace Workbench
