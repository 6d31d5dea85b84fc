#include "scripted_daemon.h"

namespace testsupport {

std::string operationOf(const nlohmann::json& request)
{
    if (!request.is_object())
        return std::string();
    for (const char* key : {"opt", "group", "path"}) {
        auto it = request.find(key);
        if (it != request.end() && it->is_string() && !it->get<std::string>().empty())
            return it->get<std::string>();
    }
    return std::string();
}

ScriptedDaemon::ScriptedDaemon(const std::string& endpoint, int workers) : server("scripted-daemon")
{
    server.init_zmq_router_dealer_server(endpoint, "inproc://scripted-daemon-workers", 1, workers,
                                         &ScriptedDaemon::onRequest, this);
    proxy = std::thread([this] {
        try {
            server.run_zmq_router_dealer_server();
        } catch (const zmq::error_t&) {
            // The context was shut down: the daemon goes away.
        }
    });
}

ScriptedDaemon::~ScriptedDaemon()
{
    // Late answers are cut short, and every handler must be done before the
    // context goes, or its reply would hit a terminated socket.
    {
        std::unique_lock<std::mutex> lock(mutex);
        stopping = true;
        stopping_changed.notify_all();
        stopping_changed.wait(lock, [this] { return busy == 0; });
    }
    server.context().shutdown();
    proxy.join();
}

void ScriptedDaemon::reply(const std::string& operation, const json& body, milliseconds delay)
{
    replyRaw(operation, body.dump(), delay);
}

void ScriptedDaemon::replyRaw(const std::string& operation, const std::string& text,
                              milliseconds delay)
{
    std::lock_guard<std::mutex> lock(mutex);
    script[operation] = Reply{text, delay};
}

std::vector<nlohmann::json> ScriptedDaemon::requests() const
{
    std::lock_guard<std::mutex> lock(mutex);
    return received;
}

std::vector<nlohmann::json> ScriptedDaemon::requestsOf(const std::string& operation) const
{
    std::vector<json> matching;
    for (const json& request : requests()) {
        if (operationOf(request) == operation)
            matching.push_back(request);
    }
    return matching;
}

void ScriptedDaemon::clearRequests()
{
    std::lock_guard<std::mutex> lock(mutex);
    received.clear();
}

void ScriptedDaemon::onRequest(std::string request, std::string& reply, void* user)
{
    auto* self = static_cast<ScriptedDaemon*>(user);
    const json parsed = json::parse(request, nullptr, false);
    std::unique_lock<std::mutex> lock(self->mutex);
    ++self->busy;
    self->received.push_back(parsed);
    Reply answer{R"({"rsp":"fail"})", milliseconds(0)};
    auto it = self->script.find(operationOf(parsed));
    if (it != self->script.end())
        answer = it->second;
    self->stopping_changed.wait_for(lock, answer.delay, [self] { return self->stopping; });
    reply = answer.text;
    --self->busy;
    self->stopping_changed.notify_all();
}

} // namespace testsupport
