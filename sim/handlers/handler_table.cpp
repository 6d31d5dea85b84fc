#include "handlers/handler_table.h"

namespace sim {

namespace {

std::string stringField(const json& request, const char* key)
{
    const auto it = request.find(key);
    return it != request.end() && it->is_string() ? it->get<std::string>() : std::string();
}

} // namespace

const json& Request::data() const
{
    static const json empty = json::object();
    const auto it = body.find("data");
    return it != body.end() && it->is_object() ? *it : empty;
}

std::optional<int> Request::intArg(const char* key) const
{
    const json& args = data();
    const auto it = args.find(key);
    if (it == args.end() || !it->is_number_integer())
        return std::nullopt;
    return it->get<int>();
}

std::optional<std::string> Request::stringArg(const char* key) const
{
    const json& args = data();
    const auto it = args.find(key);
    if (it == args.end() || !it->is_string())
        return std::nullopt;
    return it->get<std::string>();
}

std::string HandlerTable::key(const std::string& module, const std::string& group,
                              const std::string& opt)
{
    return module + "|" + group + "|" + opt;
}

void HandlerTable::add(const std::string& module, const std::string& group, const std::string& opt,
                       OpKind kind, Handler handler)
{
    const std::string name = opt.empty() ? group : opt;
    operations_[key(module, group, opt)] = Operation{name, kind, std::move(handler)};
    names_.insert(name);
}

void HandlerTable::addPath(const std::string& module, const std::string& path, OpKind kind,
                           Handler handler)
{
    add(module, path, "", kind, std::move(handler));
}

const Operation* HandlerTable::find(const json& request) const
{
    if (!request.is_object())
        return nullptr;
    const std::string module = stringField(request, "func_module");
    const std::string path = stringField(request, "path");
    const auto it = path.empty() ? operations_.find(
                        key(module, stringField(request, "group"), stringField(request, "opt")))
                                 : operations_.find(key(module, path, ""));
    return it == operations_.end() ? nullptr : &it->second;
}

bool HandlerTable::knows(const std::string& operation_name) const
{
    return names_.count(operation_name) > 0;
}

std::string HandlerTable::operationName(const json& request)
{
    if (!request.is_object())
        return "";
    for (const char* key : {"opt", "group", "path"}) {
        const std::string value = stringField(request, key);
        if (!value.empty())
            return value;
    }
    return "";
}

} // namespace sim
