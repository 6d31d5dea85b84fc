// The device simulator in this process, on ipc endpoints of a private folder,
// with the panel's AppManager on top of it, for the control tests that cross
// the wire.
#pragma once

#include "model/app_manager.h"
#include "simulator.h"
#include "support/test_support.h"

#include <nlohmann/json.hpp>

#include <memory>
#include <string>

namespace controltest {

class SimBackend {
public:
    SimBackend();
    ~SimBackend();
    SimBackend(const SimBackend&) = delete;
    SimBackend& operator=(const SimBackend&) = delete;

    const BackendEndpoints& endpoints() const { return config.endpoints; }
    // A control command; fails the test when the simulator refuses it.
    void control(const std::string& line);
    nlohmann::json at(const std::string& pointer) const;
    // Requests named `operation` that the web server daemon has answered.
    int requestsOf(const std::string& operation) const;

    // The panel's full link: topic worker and poller on their threads.
    std::unique_ptr<AppManager> fullAppManager() const;
    // A manager around a bare worker: requests go out, nothing is polled.
    std::unique_ptr<AppManager> bareAppManager() const;

private:
    testsupport::TempDir dir;
    sim::SimConfig config;
    std::unique_ptr<sim::Simulator> simulator;
};

} // namespace controltest
