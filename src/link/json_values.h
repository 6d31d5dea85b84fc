#pragma once
// Small readers of the daemons' JSON values shared by the request and topic code.
#include <QString>
#include <nlohmann/json.hpp>

#include <string>

namespace jsonvalue {

// null, {} and [] carry nothing: the daemons send them for "no data".
inline bool isEmpty(const nlohmann::json& value)
{
    return value.is_null() || (value.is_object() && value.empty())
           || (value.is_array() && value.empty());
}

// The key's string as UTF-8 text, or an empty text when it is missing.
inline QString utf8Text(const nlohmann::json& object, const char* key)
{
    return QString::fromStdString(object.value(key, std::string()));
}

} // namespace jsonvalue
