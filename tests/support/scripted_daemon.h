#pragma once
// A stand-in backend daemon made of the transport's own server role: bound on
// a test endpoint, it answers each request from a script kept by operation
// name and remembers every request it got.
#include "transport/zmq_manager.h"

#include <nlohmann/json.hpp>

#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace testsupport {

// The operation a request names: its `opt`, else its `group`, else its `path`.
std::string operationOf(const nlohmann::json& request);

class ScriptedDaemon {
public:
    using json = nlohmann::json;
    using milliseconds = std::chrono::milliseconds;

    // Several workers, so that one late answer doesn't hold up the others.
    explicit ScriptedDaemon(const std::string& endpoint, int workers = 4);
    ~ScriptedDaemon();
    ScriptedDaemon(const ScriptedDaemon&) = delete;
    ScriptedDaemon& operator=(const ScriptedDaemon&) = delete;

    // The answer to `operation` from now on; unscripted ones get {"rsp":"fail"}.
    void reply(const std::string& operation, const json& body,
               milliseconds delay = milliseconds(0));
    void replyRaw(const std::string& operation, const std::string& text,
                  milliseconds delay = milliseconds(0));

    std::vector<json> requests() const;
    // The requests that named `operation`, in arrival order.
    std::vector<json> requestsOf(const std::string& operation) const;
    int countOf(const std::string& operation) const
    {
        return static_cast<int>(requestsOf(operation).size());
    }
    void clearRequests();

private:
    struct Reply {
        std::string text;
        milliseconds delay;
    };
    static void onRequest(std::string request, std::string& reply, void* user);

    mutable std::mutex mutex;
    std::condition_variable stopping_changed;
    bool stopping = false;
    int busy = 0;
    std::map<std::string, Reply> script;
    std::vector<json> received;
    ZMQManager server;
    std::thread proxy;
};

} // namespace testsupport
