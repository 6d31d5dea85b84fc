#include "scripted_backend.h"

namespace apitest {

namespace {
constexpr int kPeerWorkers = 4;
}

std::string operationOf(const json& request)
{
    if (!request.is_object())
        return std::string();
    for (const char* key : {"opt", "group", "path"}) {
        auto it = request.find(key);
        if (it != request.end() && it->is_string() && !it->get<std::string>().empty()) {
            return it->get<std::string>();
        }
    }
    return std::string();
}

ScriptedPeer::ScriptedPeer(const std::string& endpoint) : server(std::make_unique<ZMQManager>())
{
    server->init_zmq_router_dealer_server(endpoint, "inproc://scripted-peer-workers", 1,
                                          kPeerWorkers, &ScriptedPeer::onRequest, this);
    proxy = std::thread([this] {
        try {
            server->run_zmq_router_dealer_server();
        } catch (const zmq::error_t&) {
            // The context went down with the peer.
        }
    });
}

ScriptedPeer::~ScriptedPeer()
{
    // Shutting the context down ends the proxy whether or not it has started
    // yet; the manager goes once nothing runs on it.
    server->context().shutdown();
    proxy.join();
    server.reset();
}

void ScriptedPeer::reply(const std::string& operation, const json& body, milliseconds delay)
{
    replyRaw(operation, body.dump(), delay);
}

void ScriptedPeer::replyRaw(const std::string& operation, const std::string& text,
                            milliseconds delay)
{
    std::lock_guard<std::mutex> lock(mutex);
    script[operation] = Reply{text, delay};
}

std::vector<json> ScriptedPeer::requests() const
{
    std::lock_guard<std::mutex> lock(mutex);
    return received;
}

std::vector<json> ScriptedPeer::requestsOf(const std::string& operation) const
{
    std::vector<json> matching;
    for (const json& request : requests()) {
        if (operationOf(request) == operation)
            matching.push_back(request);
    }
    return matching;
}

void ScriptedPeer::clearRequests()
{
    std::lock_guard<std::mutex> lock(mutex);
    received.clear();
}

void ScriptedPeer::onRequest(std::string request, std::string& reply, void* user)
{
    auto* self = static_cast<ScriptedPeer*>(user);
    const json parsed = json::parse(request, nullptr, false);
    Reply answer{R"({"rsp":"fail"})", milliseconds(0)};
    {
        std::lock_guard<std::mutex> lock(self->mutex);
        self->received.push_back(parsed);
        auto it = self->script.find(operationOf(parsed));
        if (it != self->script.end())
            answer = it->second;
    }
    std::this_thread::sleep_for(answer.delay);
    reply = answer.text;
}

ApiTest::ApiTest()
    : endpoints(BackendEndpoints::local(dir.path(), testsupport::freeTcpPort())),
      web(endpoints.webserver), media(endpoints.mediaserver),
      // A manager around a bare worker starts no poller, so every request the
      // peers see comes from the test.
      app(std::make_unique<AppManager>(std::make_unique<ZmqSubWorker>(endpoints)))
{
    // The start-up reads of the worker and the manager are not part of any test.
    web.clearRequests();
}

ApiTest::~ApiTest()
{
    app.reset();
}

json ApiTest::onlyRequest() const
{
    const std::vector<json> requests = web.requests();
    EXPECT_EQ(requests.size(), 1u);
    return requests.empty() ? json() : requests.back();
}

} // namespace apitest
