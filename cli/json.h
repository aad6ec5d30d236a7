#pragma once

#include <QString>

#include <nlohmann/json.hpp>

#include "cli/output.h"
#include "host/utf8.h"
#include "model/jex/signalitem.h"

namespace Cli {

// Keys stay in the order in which they are added.
using Json = nlohmann::ordered_json;

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
        json.push_back(QUtil::toUtf8(text));
    return json;
}

} // namespace Cli
