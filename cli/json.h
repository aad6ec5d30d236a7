#pragma once

#include <QString>

#include <nlohmann/json.hpp>

#include "cli/output.h"
#include "model/jex/signalitem.h"

namespace Cli {

// Keys stay in the order in which they are added.
using Json = nlohmann::ordered_json;

inline std::string toStd(const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    return std::string(bytes.constData(), size_t(bytes.size()));
}

inline QString fromStd(const std::string &text)
{
    return QString::fromUtf8(text.data(), int(text.size()));
}

inline void printJson(const Json &json, Output &out)
{
    const std::string text = json.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
    out.write(text.data(), text.size());
}

template <typename List>
Json toJson(const List &texts)
{
    Json json = Json::array();
    for (const QString &text : texts)
        json.push_back(toStd(text));
    return json;
}

} // namespace Cli
