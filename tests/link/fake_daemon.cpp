#include "fake_daemon.h"

#include "support/test_support.h"

namespace linktest {

FakeDaemon::FakeDaemon(const std::string& endpoint, Handler handler, int workers)
    : handler(std::move(handler)), server("fake-daemon")
{
    server.init_zmq_router_dealer_server(endpoint, "inproc://fake-daemon-workers", 1, workers,
                                         &FakeDaemon::onRequest, this);
    proxy = std::thread([this] {
        try {
            server.run_zmq_router_dealer_server();
        } catch (const zmq::error_t&) {
            // The context was shut down: the daemon goes away.
        }
    });
}

FakeDaemon::~FakeDaemon()
{
    // A handler still sleeping on a delayed answer must finish before the
    // context goes, or its reply would hit a terminated socket.
    testsupport::waitUntil([this] { return busy.load() == 0; }, std::chrono::seconds(5));
    server.context().shutdown();
    proxy.join();
}

void FakeDaemon::onRequest(std::string request, std::string& reply, void* user)
{
    auto* self = static_cast<FakeDaemon*>(user);
    ++self->busy;
    const json parsed = json::parse(request, nullptr, false);
    {
        std::lock_guard<std::mutex> lock(self->requests_mutex);
        self->received.push_back(parsed);
    }
    reply = self->handler(parsed);
    --self->busy;
}

std::vector<json> FakeDaemon::requests() const
{
    std::lock_guard<std::mutex> lock(requests_mutex);
    return received;
}

void FakeDaemon::clearRequests()
{
    std::lock_guard<std::mutex> lock(requests_mutex);
    received.clear();
}

int FakeDaemon::countOf(const std::string& name) const
{
    int count = 0;
    for (const json& request : requests()) {
        if (operationOf(request) == name)
            ++count;
    }
    return count;
}

std::string operationOf(const json& request)
{
    if (!request.is_object())
        return std::string();
    const std::string opt = request.value("opt", std::string());
    return opt.empty() ? request.value("group", std::string()) : opt;
}

FakeDaemon::Handler replyAfter(std::chrono::milliseconds delay, const std::string& reply)
{
    return [delay, reply](const json&) {
        std::this_thread::sleep_for(delay);
        return reply;
    };
}

} // namespace linktest
