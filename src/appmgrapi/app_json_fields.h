#pragma once
// Readers of one record field each: the field takes the key's value when the
// object has the key, and keeps what it held otherwise. A value of the wrong
// type throws the JSON library's type error.
#include <QString>
#include <nlohmann/json.hpp>

#include <string>

namespace appapi {

using json = nlohmann::json;

// A number, or a boolean as 0 or 1; a fraction is truncated.
inline void readInt(const json& object, const char* key, int& field)
{
    auto it = object.find(key);
    if (it != object.end())
        field = it->get<int>();
}

// The key's value as readInt reads it, or `fallback` when the key is missing.
inline int intOr(const json& object, const char* key, int fallback)
{
    readInt(object, key, fallback);
    return fallback;
}

inline void readString(const json& object, const char* key, std::string& field)
{
    auto it = object.find(key);
    if (it != object.end())
        field = it->get<std::string>();
}

inline void readText(const json& object, const char* key, QString& field)
{
    auto it = object.find(key);
    if (it != object.end())
        field = QString::fromStdString(it->get<std::string>());
}

// `object.key.selected_id`, the backend's way of naming a list choice.
inline void readSelectedId(const json& object, const char* key, int& field)
{
    auto it = object.find(key);
    if (it != object.end())
        readInt(*it, "selected_id", field);
}

} // namespace appapi
