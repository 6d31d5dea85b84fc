#include "handlers/replies.h"

namespace sim::reply {

json ok()
{
    return {{"rsp", "succeed"}, {"status", code::kSuccess}};
}

json okData(json data)
{
    json body = ok();
    body["data"] = std::move(data);
    return body;
}

json okTop(const char* key, json value)
{
    json body = ok();
    body[key] = std::move(value);
    return body;
}

json refuse(const std::string& code, const std::string& reason)
{
    return {{"rsp", "failed"}, {"status", code}, {"msg", reason}};
}

json aiOk()
{
    return {{"rsp", "success"}, {"status", code::kSuccess}};
}

json aiData(json data)
{
    return {{"rsp", "success"}, {"data", std::move(data)}};
}

json mediaData(json data)
{
    return {{"msg", "success"}, {"data", std::move(data)}};
}

std::string statusOf(const json& reply)
{
    if (!reply.is_object())
        return "?";
    for (const char* key : {"status", "code", "rsp", "msg"}) {
        const auto it = reply.find(key);
        if (it != reply.end())
            return it->is_string() ? it->get<std::string>() : it->dump();
    }
    return "?";
}

} // namespace sim::reply
