#pragma once
// The device simulator running in this process for tests that cross the
// wire. Every endpoint, the topic proxy's included, is an ipc socket in a
// private folder, so tests never meet each other or a real backend.
#include "model/app_manager.h"
#include "simulator.h"
#include "support/qt_capture.h"
#include "support/test_support.h"

#include <nlohmann/json.hpp>

#include <functional>
#include <memory>
#include <string>

namespace testsupport {

// A quiet simulator on the folder's endpoints whose clock ticks every 100 ms,
// so that searches, speed tests and the like finish in a few ticks.
sim::SimConfig privateSimConfig(const TempDir& dir);

// Moves the topic proxy to a free loopback port pair. A panel built in this
// process finds its backend through its environment, which names the topic
// proxy only by port.
void useLoopbackTopics(sim::SimConfig& config);

class SimFixture {
public:
    // `adjust` may change the configuration (a state file, a start script)
    // before the simulator starts.
    explicit SimFixture(const std::function<void(sim::SimConfig&)>& adjust = nullptr);
    ~SimFixture();
    SimFixture(const SimFixture&) = delete;
    SimFixture& operator=(const SimFixture&) = delete;

    sim::Simulator& simulator() { return *simulator_; }
    const sim::SimConfig& config() const { return config_; }
    const BackendEndpoints& endpoints() const { return config_.endpoints; }

    // A control command as the control channel runs it; "ok..." when taken.
    std::string control(const std::string& line);
    // A control command that the test needs: the test fails when it is refused.
    void require(const std::string& line);
    // The simulator's own state at a JSON pointer.
    nlohmann::json at(const std::string& pointer) const;
    // How many requests named `operation` the web server daemon answered.
    int webRequestsOf(const std::string& operation) const;
    int webRequestTotal() const;

    // A manager around a bare worker on this simulator: requests go out, but
    // nothing polls or listens, and both caches start cleared.
    std::unique_ptr<AppManager> bareAppManager() const;

    // The folder that holds the request sockets.
    const std::string& folder() const { return dir_.path(); }

private:
    TempDir dir_;
    sim::SimConfig config_;
    std::unique_ptr<sim::Simulator> simulator_;
};

// This process's environment pointed at a simulator the way the panel reads
// it (PANEL_BACKEND_IPC_DIR, PANEL_BACKEND_TOPIC_PORT), for the life of the
// object. The simulator's topics must be on loopback (useLoopbackTopics).
class PanelEnvironment {
public:
    explicit PanelEnvironment(const SimFixture& sim);

private:
    ScopedEnv ipc_dir;
    ScopedEnv topic_port;
};

} // namespace testsupport
