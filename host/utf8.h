#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace QUtil {

// Bytes that a tool or a library gave, as text, and text as such bytes.
inline QString fromUtf8(std::string_view bytes)
{
    return QString::fromUtf8(bytes.data(), int(bytes.size()));
}

inline std::string toUtf8(const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    return std::string(bytes.constData(), size_t(bytes.size()));
}

} // namespace QUtil
