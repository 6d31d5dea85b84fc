#pragma once
// The panel's API layer against the device simulator over the real sockets:
// an AppManager on a bare worker, which polls and listens to nothing, so
// every request the device sees is the test's.
#include "api_calls.h"
#include "support/sim/sim_fixture.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <functional>
#include <memory>
#include <string>

namespace apitest {

using json = nlohmann::json;

class SimBackendTest : public ::testing::Test {
protected:
    ZmqSubWorker& worker() { return *app->subWorker(); }
    void control(const std::string& line) { sim.require(line); }
    json simAt(const std::string& pointer) const { return sim.at(pointer); }

    testsupport::SimFixture sim;
    std::unique_ptr<AppManager> app = sim.bareAppManager();
};

// Checks the device's state, given as "pointer=value ..." with the values in
// JSON, e.g. R"(/system/fan_mode=2 /network/ap/ssid="box")".
void expectDeviceState(const testsupport::SimFixture& device, const std::string& states);

} // namespace apitest
