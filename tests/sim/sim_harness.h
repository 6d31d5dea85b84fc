#pragma once

#include "simulator.h"
#include "support/test_support.h"
#include "transport/zmq_manager.h"

#include <nlohmann/json.hpp>

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace simtest {

using json = nlohmann::json;

// A loopback port N such that N and N + 1 were both free a moment ago: the
// simulator's proxy takes both.
int freePortPair();

// Endpoints of a simulator in a fresh temporary folder and on free ports,
// never the device's.
sim::SimConfig testConfig(const testsupport::TempDir& dir);

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

// The panel's subscriber: the nine topics through the simulator's proxy,
// received on a thread of its own.
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

// A simulator running in this process on its own endpoints, with a client
// for each daemon and a control channel.
struct Harness {
    explicit Harness(std::function<void(sim::SimConfig&)> adjust = nullptr);
    ~Harness();

    json web(const json& request, int timeout_ms = 1000)
    {
        return web_client->ask(request, timeout_ms);
    }
    std::string control(const std::string& line) { return control_client->send(line); }
    json stateAt(const std::string& pointer);

    testsupport::TempDir dir;
    sim::SimConfig config;
    std::unique_ptr<sim::Simulator> simulator;
    std::unique_ptr<Client> web_client;
    std::unique_ptr<Client> media_client;
    std::unique_ptr<ControlClient> control_client;
};

// Request bodies as the panel's API builds them.
json request(const std::string& module, const std::string& group, const std::string& opt,
             const json& data = nullptr);
std::string statusOf(const json& reply);

} // namespace simtest
