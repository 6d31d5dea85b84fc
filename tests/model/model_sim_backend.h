#pragma once
// The device simulator in this process, on ipc endpoints of a private folder
// (topics included), for the model's tests that cross the wire.
#include "model/app_manager.h"
#include "simulator.h"
#include "support/test_support.h"

#include <nlohmann/json.hpp>

#include <memory>
#include <string>

namespace modeltest {

class SimBackend {
public:
    SimBackend();
    ~SimBackend();
    SimBackend(const SimBackend&) = delete;
    SimBackend& operator=(const SimBackend&) = delete;

    const BackendEndpoints& endpoints() const { return config.endpoints; }
    // A control command; the answer, "ok..." when the simulator took it.
    std::string control(const std::string& line);
    // The simulator's own state at a JSON pointer.
    nlohmann::json at(const std::string& pointer) const;
    // How many requests named `operation` the web server daemon has answered.
    int webRequestsOf(const std::string& operation) const;
    int webRequestTotal() const;

    // A manager around a bare worker on this simulator: no threads run, so
    // the caches hold only what the test puts there (they start cleared).
    std::unique_ptr<AppManager> bareAppManager() const;

private:
    testsupport::TempDir dir;
    sim::SimConfig config;
    std::unique_ptr<sim::Simulator> simulator;
};

// Both caches back to their start state.
void clearCaches(ZmqSubWorker& worker);

} // namespace modeltest
