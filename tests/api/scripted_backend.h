#pragma once
// A stand-in for the backend daemons: the transport's server role bound on
// ipc endpoints in a private folder, answering every request from a script
// and recording it, and an AppManager whose worker talks to it.
#include "model/app_manager.h"
#include "support/test_support.h"
#include "transport/zmq_endpoints.h"
#include "transport/zmq_manager.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <chrono>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace apitest {

using json = nlohmann::json;
using std::chrono::milliseconds;

// The operation a request names: its `opt`, else its `group`, else its `path`.
std::string operationOf(const json& request);

// One daemon endpoint. Unscripted operations are answered {"rsp":"fail"}.
class ScriptedPeer {
public:
    explicit ScriptedPeer(const std::string& endpoint);
    ~ScriptedPeer();
    ScriptedPeer(const ScriptedPeer&) = delete;
    ScriptedPeer& operator=(const ScriptedPeer&) = delete;

    void reply(const std::string& operation, const json& body,
               milliseconds delay = milliseconds(0));
    void replyRaw(const std::string& operation, const std::string& text,
                  milliseconds delay = milliseconds(0));

    std::vector<json> requests() const;
    // The requests that named `operation`, in arrival order.
    std::vector<json> requestsOf(const std::string& operation) const;
    void clearRequests();

private:
    struct Reply {
        std::string text;
        milliseconds delay;
    };
    static void onRequest(std::string request, std::string& reply, void* user);

    mutable std::mutex mutex;
    std::map<std::string, Reply> script;
    std::vector<json> received;
    std::unique_ptr<ZMQManager> server;
    std::thread proxy;
};

// A web server and a media server peer, and an AppManager wired to them.
class ApiTest : public ::testing::Test {
protected:
    ApiTest();
    ~ApiTest() override;

    ZmqSubWorker& worker() { return *app->subWorker(); }
    // Runs `call` and returns how long it took.
    template <class Call> milliseconds timed(Call&& call)
    {
        const auto start = std::chrono::steady_clock::now();
        call();
        return std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now() - start);
    }
    // The only request the web peer got since the last clear.
    json onlyRequest() const;

    testsupport::TempDir dir;
    BackendEndpoints endpoints;
    ScriptedPeer web;
    ScriptedPeer media;
    std::unique_ptr<AppManager> app;
};

} // namespace apitest
