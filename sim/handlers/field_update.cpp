#include "handlers/field_update.h"

#include "handlers/replies.h"

namespace sim {

bool updateIntFields(const json& args, json& target, const std::vector<IntField>& fields)
{
    bool any = false;
    for (const IntField& field : fields) {
        const auto it = args.find(field.key);
        if (it == args.end())
            continue;
        if (!it->is_number_integer())
            return false;
        const int value = it->get<int>();
        if (value < field.low || value > field.high)
            return false;
        any = true;
    }
    if (!any)
        return false;
    for (const IntField& field : fields)
        if (args.contains(field.key))
            target[field.key] = args[field.key];
    return true;
}

} // namespace sim

namespace sim {

Handler intSetter(const std::string& pointer, std::vector<IntField> fields,
                  const std::string& invalid_code)
{
    return [pointer, fields, invalid_code](Request& r) {
        json& target = r.state[json::json_pointer(pointer)];
        return updateIntFields(r.data(), target, fields)
                   ? reply::ok()
                   : reply::refuse(invalid_code, "invalid or missing value");
    };
}

Handler objectReader(const std::string& pointer)
{
    return [pointer](Request& r) { return reply::okData(r.state[json::json_pointer(pointer)]); };
}

} // namespace sim
