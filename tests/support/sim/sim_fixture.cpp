#include "sim_fixture.h"

#include "link/zmq_get_cache.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace testsupport {

sim::SimConfig privateSimConfig(const TempDir& dir)
{
    sim::SimConfig config;
    config.endpoints = {dir.ipcEndpoint("webserver.sock"), dir.ipcEndpoint("mediaserver.sock"),
                        dir.ipcEndpoint("topics-sub.sock"), dir.ipcEndpoint("topics-pub.sock")};
    config.quiet = true;
    config.tick_ms = 100;
    return config;
}

void useLoopbackTopics(sim::SimConfig& config)
{
    const BackendEndpoints loopback = BackendEndpoints::local("", freeTcpPortPair());
    config.endpoints.topics_sub = loopback.topics_sub;
    config.endpoints.topics_pub = loopback.topics_pub;
}

SimFixture::SimFixture(const std::function<void(sim::SimConfig&)>& adjust)
    : config_(privateSimConfig(dir_))
{
    if (adjust)
        adjust(config_);
    simulator_ = std::make_unique<sim::Simulator>(config_);
    simulator_->start();
}

SimFixture::~SimFixture()
{
    simulator_->stop();
}

std::string SimFixture::control(const std::string& line)
{
    return simulator_->control(line);
}

void SimFixture::require(const std::string& line)
{
    const std::string answer = control(line);
    EXPECT_EQ(answer.rfind("ok", 0), 0u) << line << " -> " << answer;
}

nlohmann::json SimFixture::at(const std::string& pointer) const
{
    return simulator_->state().at(pointer);
}

int SimFixture::webRequestsOf(const std::string& operation) const
{
    int count = 0;
    for (const sim::HandledRequest& request : simulator_->webRequests())
        count += request.operation == operation ? 1 : 0;
    return count;
}

int SimFixture::webRequestTotal() const
{
    return static_cast<int>(simulator_->webRequests().size());
}

std::unique_ptr<AppManager> SimFixture::bareAppManager() const
{
    auto app = std::make_unique<AppManager>(std::make_unique<ZmqSubWorker>(config_.endpoints));
    app->subWorker()->updateSubCache([](ZmqSubCache& sub) { sub = ZmqSubCache(); });
    app->subWorker()->updateGetCache([](ZmqGetCache& get) { get = ZmqGetCache(); });
    return app;
}

namespace {

int loopbackPort(const std::string& endpoint)
{
    const std::size_t colon = endpoint.rfind(':');
    EXPECT_EQ(endpoint.rfind("tcp://127.0.0.1:", 0), 0u) << "topics not on loopback: " << endpoint;
    return colon == std::string::npos ? 0 : std::atoi(endpoint.c_str() + colon + 1);
}

} // namespace

PanelEnvironment::PanelEnvironment(const SimFixture& sim)
    : ipc_dir("PANEL_BACKEND_IPC_DIR", sim.folder().c_str()),
      topic_port("PANEL_BACKEND_TOPIC_PORT",
                 std::to_string(loopbackPort(sim.endpoints().topics_sub)).c_str())
{
}

} // namespace testsupport
