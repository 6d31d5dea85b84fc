#pragma once
// The simulator as the daemons' side of the wire, reached the raw way: JSON
// requests through the transport's client role, lines over the control
// socket, and a subscriber that records every topic message.
#include "support/sim/sim_fixture.h"
#include "transport/zmq_manager.h"

#include <nlohmann/json.hpp>

#include <atomic>
#include <chrono>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace simtest {

using json = nlohmann::json;

// The panel's side of a request endpoint: the transport's client role and a
// raw JSON request, as the panel builds it.
class Client {
public:
    explicit Client(const std::string& endpoint);
    // The transport's result: reply length, or -1.
    int send(const json& request, std::string& reply, int timeout_ms = 1000);
    // The parsed reply; null when nothing usable came back.
    json ask(const json& request, int timeout_ms = 1000);

private:
    ZMQManager manager_;
};

// The control channel as a user script would use it: one line out, one back.
class ControlClient {
public:
    explicit ControlClient(const std::string& path);
    ~ControlClient();
    std::string send(const std::string& line);

private:
    int fd_ = -1;
};

// A subscriber to every topic, receiving on a thread of its own.
class TopicListener {
public:
    explicit TopicListener(const std::string& endpoint);
    ~TopicListener();

    // Waits until a message of `topic` satisfies `accept` (given the raw
    // payload); messages before this call count too.
    bool waitFor(const std::string& topic, const std::function<bool(const std::string&)>& accept,
                 std::chrono::milliseconds deadline = std::chrono::milliseconds(3000));
    bool waitForJson(const std::string& topic, const std::function<bool(const json&)>& accept,
                     std::chrono::milliseconds deadline = std::chrono::milliseconds(3000));
    int count(const std::string& topic);
    void forget();

private:
    ZMQManager manager_;
    std::atomic<bool> running_{true};
    std::thread thread_;
    std::mutex mutex_;
    std::vector<std::pair<std::string, std::string>> received_;
};

// An in-process simulator with a raw web server client and its control socket.
struct Harness {
    explicit Harness(const std::function<void(sim::SimConfig&)>& adjust = nullptr) : fixture(adjust)
    {
    }

    json web(const json& request) { return web_client.ask(request); }
    std::string control(const std::string& line) { return control_client.send(line); }
    json stateAt(const std::string& pointer) const { return fixture.at(pointer); }
    const BackendEndpoints& endpoints() const { return fixture.endpoints(); }

    testsupport::SimFixture fixture;
    Client web_client{fixture.endpoints().webserver};
    ControlClient control_client{fixture.simulator().controlPath()};
};

// Request bodies as the panel's API builds them.
json request(const std::string& module, const std::string& group, const std::string& opt,
             const json& data = nullptr);
std::string statusOf(const json& reply);

} // namespace simtest
