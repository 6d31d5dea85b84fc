#include "model_sim_backend.h"

#include "link/zmq_get_cache.h"

namespace modeltest {

SimBackend::SimBackend()
{
    config.endpoints = {dir.ipcEndpoint("webserver.sock"), dir.ipcEndpoint("mediaserver.sock"),
                        dir.ipcEndpoint("topics-sub.sock"), dir.ipcEndpoint("topics-pub.sock")};
    config.quiet = true;
    config.tick_ms = 100;
    simulator = std::make_unique<sim::Simulator>(config);
    simulator->start();
}

SimBackend::~SimBackend()
{
    simulator->stop();
}

std::string SimBackend::control(const std::string& line)
{
    return simulator->control(line);
}

nlohmann::json SimBackend::at(const std::string& pointer) const
{
    return simulator->state().at(pointer);
}

int SimBackend::webRequestsOf(const std::string& operation) const
{
    int count = 0;
    for (const sim::HandledRequest& request : simulator->webRequests())
        count += request.operation == operation ? 1 : 0;
    return count;
}

int SimBackend::webRequestTotal() const
{
    return static_cast<int>(simulator->webRequests().size());
}

std::unique_ptr<AppManager> SimBackend::bareAppManager() const
{
    auto app = std::make_unique<AppManager>(std::make_unique<ZmqSubWorker>(config.endpoints));
    clearCaches(*app->subWorker());
    return app;
}

void clearCaches(ZmqSubWorker& worker)
{
    worker.updateSubCache([](ZmqSubCache& sub) { sub = ZmqSubCache(); });
    worker.updateGetCache([](ZmqGetCache& get) { get = ZmqGetCache(); });
}

} // namespace modeltest
