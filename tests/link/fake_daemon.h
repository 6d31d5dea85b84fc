#pragma once

#include "transport/zmq_manager.h"

#include <nlohmann/json.hpp>

#include <atomic>
#include <chrono>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace linktest {

using json = nlohmann::json;

// A stand-in backend daemon: the transport's router/dealer server bound on a
// test endpoint, answering each request through `handler` and remembering
// every request it was sent.
class FakeDaemon {
public:
    using Handler = std::function<std::string(const json& request)>;

    FakeDaemon(const std::string& endpoint, Handler handler, int workers = 4);
    ~FakeDaemon();
    FakeDaemon(const FakeDaemon&) = delete;
    FakeDaemon& operator=(const FakeDaemon&) = delete;

    std::vector<json> requests() const;
    void clearRequests();
    // Requests whose `opt` (or, when `opt` is empty, `group`) equals `name`.
    int countOf(const std::string& name) const;

private:
    static void onRequest(std::string request, std::string& reply, void* user);

    Handler handler;
    mutable std::mutex requests_mutex;
    std::vector<json> received;
    std::atomic<int> busy{0};
    ZMQManager server;
    std::thread proxy;
};

// The operation name of a request: its `opt`, or its `group` when it has none.
std::string operationOf(const json& request);

// Handler that answers every request with `reply` after `delay`.
FakeDaemon::Handler replyAfter(std::chrono::milliseconds delay, const std::string& reply);

} // namespace linktest
