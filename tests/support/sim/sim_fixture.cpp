#include "sim_fixture.h"

#include "link/zmq_get_cache.h"

#include <gtest/gtest.h>

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

} // namespace testsupport
