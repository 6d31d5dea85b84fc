#pragma once
// The panel's API layer against the device simulator over the real sockets:
// a Simulator in this process on endpoints of a private folder, an
// AppManager on a bare worker (no poller, so every request is the test's),
// and the worker's topic loop on a thread of its own so that the
// subscription cache fills as it does on the device.
#include "model/app_manager.h"
#include "simulator.h"
#include "support/test_support.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace apitest {

using json = nlohmann::json;

class SimBackendTest : public ::testing::Test {
protected:
    SimBackendTest();
    ~SimBackendTest() override;

    ZmqSubWorker& worker() { return *app->subWorker(); }

    // Runs a control command; the test fails unless the simulator took it.
    void control(const std::string& line);
    // The simulator's own state at a JSON pointer.
    json simAt(const std::string& pointer) const;
    // Waits until the subscription cache, filled from the topics, satisfies `accept`.
    bool waitForTopics(const std::function<bool(const ZmqSubCache&)>& accept);
    // The requests the web server daemon answered with `operation`'s name.
    std::vector<sim::HandledRequest> webRequestsOf(const std::string& operation) const;

    testsupport::TempDir dir;
    sim::SimConfig config;
    std::unique_ptr<sim::Simulator> simulator;
    std::unique_ptr<AppManager> app;

private:
    std::thread topic_loop;
};

} // namespace apitest
