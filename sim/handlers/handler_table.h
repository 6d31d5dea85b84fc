#pragma once

#include <nlohmann/json.hpp>

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>

namespace sim {

using json = nlohmann::json;

// One request as a handler sees it: the body as sent, and the device state,
// already locked by the caller.
struct Request {
    const json& body;
    json& state;

    // The request's `data` object, or an empty object.
    const json& data() const;
    // An integer argument of `data`; nothing when absent or no integer.
    std::optional<int> intArg(const char* key) const;
    std::optional<std::string> stringArg(const char* key) const;
};

// Reads change the state never; writes may, and a successful write is what
// saves the state file.
enum class OpKind { Read, Write };

using Handler = std::function<json(Request&)>;

struct Operation {
    std::string name; // what logs and fault commands call it
    OpKind kind;
    Handler handler;
};

// Operations of one daemon, found by the request's `func_module`, `group` and
// `opt`, or for the path-addressed AI requests by `func_module` and `path`.
class HandlerTable {
public:
    void add(const std::string& module, const std::string& group, const std::string& opt,
             OpKind kind, Handler handler);
    void addPath(const std::string& module, const std::string& path, OpKind kind, Handler handler);

    const Operation* find(const json& request) const;
    bool knows(const std::string& operation_name) const;

    // `opt`, else `group`, else `path`: the name under which a request is
    // logged and matched by faults.
    static std::string operationName(const json& request);

private:
    static std::string key(const std::string& module, const std::string& group,
                           const std::string& opt);

    std::map<std::string, Operation> operations_;
    std::set<std::string> names_;
};

} // namespace sim
