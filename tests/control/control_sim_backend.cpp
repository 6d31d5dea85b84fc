#include "control_sim_backend.h"

#include <gtest/gtest.h>

namespace controltest {

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

void SimBackend::control(const std::string& line)
{
    const std::string answer = simulator->control(line);
    EXPECT_EQ(answer.rfind("ok", 0), 0u) << line << ": " << answer;
}

nlohmann::json SimBackend::at(const std::string& pointer) const
{
    return simulator->state().at(pointer);
}

int SimBackend::requestsOf(const std::string& operation) const
{
    int count = 0;
    for (const sim::HandledRequest& request : simulator->webRequests())
        count += request.operation == operation ? 1 : 0;
    return count;
}

std::unique_ptr<AppManager> SimBackend::fullAppManager() const
{
    return std::make_unique<AppManager>(config.endpoints);
}

std::unique_ptr<AppManager> SimBackend::bareAppManager() const
{
    return std::make_unique<AppManager>(std::make_unique<ZmqSubWorker>(config.endpoints));
}

} // namespace controltest
