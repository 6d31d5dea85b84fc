#pragma once

#include "control/control_commands.h"
#include "control/control_socket.h"
#include "faults/fault_table.h"
#include "server/dispatcher.h"
#include "server/request_server.h"
#include "state/device_state.h"
#include "stop_signal.h"
#include "topics/topic_proxy.h"
#include "topics/topic_publisher.h"
#include "transport/zmq_endpoints.h"

#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <thread>
#include <vector>

namespace sim {

struct SimConfig {
    BackendEndpoints endpoints = BackendEndpoints::defaults();
    std::string control_path; // empty: panel-sim.ctl beside the web server's socket
    std::string script_path;  // control commands run at start
    std::string state_path;   // start from it, and save back to it
    bool quiet = false;       // no request log
    int tick_ms = 1000;       // the device clock and the topic round
};

// The whole stand-in for the box's daemons: the web server and media server
// endpoints, the topic proxy and publisher, the device clock and the control
// channel around one device state. Tests run it in-process; panel-sim is a
// thin wrapper around it.
class Simulator {
public:
    // Loads the state file if one is given; throws std::runtime_error when
    // it can't be read.
    explicit Simulator(SimConfig config);
    ~Simulator();
    Simulator(const Simulator&) = delete;
    Simulator& operator=(const Simulator&) = delete;

    // Binds every endpoint and runs the start script. Throws
    // std::runtime_error (or zmq::error_t for a taken endpoint); the
    // simulator is then stopped again.
    void start();
    // Ends all threads, saves the state file, removes the socket files.
    // Safe to call twice.
    void stop();

    // A control command, exactly as the control channel runs it.
    std::string control(const std::string& line);

    DeviceState& state() { return *state_; }
    // The latest requests each daemon answered; empty before start().
    std::vector<HandledRequest> webRequests() const;
    std::vector<HandledRequest> mediaRequests() const;
    const std::string& controlPath() const { return control_path_; }

    static std::string defaultControlPath(const BackendEndpoints& endpoints);

private:
    void runScript();
    void runClock();
    void onChange();
    void saveIfChanged();

    SimConfig config_;
    std::string control_path_;
    std::unique_ptr<DeviceState> state_;
    FaultTable faults_;
    StopSignal stop_;
    std::mt19937 rng_{20240611};
    std::uint64_t saved_revision_ = 0;

    std::unique_ptr<TopicProxy> proxy_;
    std::unique_ptr<TopicPublisher> publisher_;
    std::unique_ptr<Dispatcher> web_dispatcher_;
    std::unique_ptr<Dispatcher> media_dispatcher_;
    std::unique_ptr<RequestServer> web_server_;
    std::unique_ptr<RequestServer> media_server_;
    std::unique_ptr<ControlCommands> commands_;
    std::unique_ptr<ControlSocket> control_socket_;
    std::thread clock_;
    bool running_ = false;
};

} // namespace sim
