#include "sim_backend.h"

namespace apitest {

namespace {

// Every endpoint, the topic proxy's included, is an ipc socket in the test's
// folder, so tests never meet each other or a real backend.
BackendEndpoints privateEndpoints(const testsupport::TempDir& dir)
{
    return {dir.ipcEndpoint("webserver.sock"), dir.ipcEndpoint("mediaserver.sock"),
            dir.ipcEndpoint("topics-sub.sock"), dir.ipcEndpoint("topics-pub.sock")};
}

} // namespace

SimBackendTest::SimBackendTest()
{
    config.endpoints = privateEndpoints(dir);
    config.quiet = true;
    config.tick_ms = 100; // searches, speed tests and the like finish in a few ticks
    simulator = std::make_unique<sim::Simulator>(config);
    simulator->start();
    app = std::make_unique<AppManager>(std::make_unique<ZmqSubWorker>(config.endpoints));
    topic_loop = std::thread([this] { worker().process(); });
}

SimBackendTest::~SimBackendTest()
{
    worker().stop();
    topic_loop.join();
    app.reset();
    simulator->stop();
}

void SimBackendTest::control(const std::string& line)
{
    const std::string answer = simulator->control(line);
    ASSERT_EQ(answer.rfind("ok", 0), 0u) << line << " -> " << answer;
}

json SimBackendTest::simAt(const std::string& pointer) const
{
    return simulator->state().at(pointer);
}

bool SimBackendTest::waitForTopics(const std::function<bool(const ZmqSubCache&)>& accept)
{
    return testsupport::waitUntil([&] { return accept(worker().getSubCache()); });
}

std::vector<sim::HandledRequest> SimBackendTest::webRequestsOf(const std::string& operation) const
{
    std::vector<sim::HandledRequest> matching;
    for (const sim::HandledRequest& request : simulator->webRequests()) {
        if (request.operation == operation)
            matching.push_back(request);
    }
    return matching;
}

} // namespace apitest
