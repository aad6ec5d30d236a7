#pragma once

#include <QString>

#include <string_view>

namespace QUtil {

// Bytes that a tool or a library gave, as text.
inline QString fromUtf8(std::string_view bytes)
{
    return QString::fromUtf8(bytes.data(), int(bytes.size()));
}

} // namespace QUtil
