#pragma once
// The panel's API layer against the device simulator over the real sockets:
// an AppManager on a bare worker (no poller, so every request is the
// test's), and the worker's topic loop on a thread of its own so that the
// subscription cache fills as it does on the device.
#include "model/app_manager.h"
#include "support/sim/sim_fixture.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <functional>
#include <memory>
#include <string>
#include <thread>

namespace apitest {

using json = nlohmann::json;

class SimBackendTest : public ::testing::Test {
protected:
    SimBackendTest();
    ~SimBackendTest() override;

    ZmqSubWorker& worker() { return *app->subWorker(); }
    void control(const std::string& line) { sim.require(line); }
    json simAt(const std::string& pointer) const { return sim.at(pointer); }
    int webRequestsOf(const std::string& operation) const { return sim.webRequestsOf(operation); }
    // Waits until the subscription cache, filled from the topics, satisfies `accept`.
    bool waitForTopics(const std::function<bool(const ZmqSubCache&)>& accept);

    testsupport::SimFixture sim;
    std::unique_ptr<AppManager> app;

private:
    std::thread topic_loop;
};

} // namespace apitest
