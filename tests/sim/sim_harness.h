#pragma once
// The simulator reached the raw way, from the panel's side of the wire: JSON
// requests through the transport's client role, lines over the control
// socket, and a subscriber that keeps every topic message.
#include "support/sim/sim_fixture.h"
#include "support/test_support.h"
#include "transport/zmq_manager.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <atomic>
#include <cstring>
#include <mutex>
#include <thread>

namespace simtest {

using json = nlohmann::json;

// One request; the parsed reply, or null when nothing came back in time.
inline json ask(const std::string& endpoint, const json& request, int timeout_ms = 1000)
{
    ZMQManager client;
    client.init_zmq_router_dealer_client(endpoint, 1);
    std::string reply;
    if (client.send_zmq_router_dealer_client_msg(request.dump(), reply, timeout_ms) < 0)
        return nullptr;
    return json::parse(reply, nullptr, false);
}

// A request body as the panel's API builds it.
inline json request(const std::string& module, const std::string& group, const std::string& opt,
                    const json& data = nullptr)
{
    json body = {{"func_module", module}};
    for (const auto& [key, value] : {std::pair{"group", group}, std::pair{"opt", opt}})
        if (!value.empty())
            body[key] = value;
    if (!data.is_null())
        body["data"] = data;
    return body;
}

// One line to the control socket, and the line it answers.
inline std::string controlLine(const std::string& socket_path, const std::string& line)
{
    const int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, socket_path.c_str(), sizeof(address.sun_path) - 1);
    timeval timeout{5, 0};
    ::setsockopt(fd, SOL_SOCKET, SO_RCVTIMEO, &timeout, sizeof(timeout));
    std::string reply = "<no connection>";
    const std::string out = line + "\n";
    if (::connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof(address)) == 0
        && ::write(fd, out.data(), out.size()) == static_cast<ssize_t>(out.size())) {
        reply.clear();
        for (char c = 0; ::read(fd, &c, 1) == 1 && c != '\n';)
            reply += c;
    }
    ::close(fd);
    return reply;
}

// A subscriber to every topic, receiving on a thread of its own.
class TopicListener {
public:
    explicit TopicListener(const std::string& endpoint)
    {
        manager.init_zmq_socket(zmq::socket_type::sub, endpoint, 1);
        manager.set_subscribe_topic("");
        thread = std::thread([this] {
            std::string topic;
            std::string content;
            while (running)
                if (manager.recv_sub_msg(topic, content) == 0) {
                    std::lock_guard<std::mutex> lock(mutex);
                    received.emplace_back(topic, content);
                }
        });
    }
    ~TopicListener()
    {
        running = false;
        thread.join();
    }

    // Waits until a message of `topic` passes `accept`, given the raw content.
    bool waitForRaw(const std::string& topic, const std::function<bool(const std::string&)>& accept)
    {
        std::size_t seen = 0;
        return testsupport::waitUntil([&] {
            std::lock_guard<std::mutex> lock(mutex);
            for (; seen < received.size(); ++seen)
                if (received[seen].first == topic && accept(received[seen].second))
                    return true;
            return false;
        });
    }
    // The same for payloads that are JSON.
    bool waitFor(const std::string& topic, const std::function<bool(const json&)>& accept)
    {
        return waitForRaw(topic, [&](const std::string& content) {
            const json payload = json::parse(content, nullptr, false);
            return !payload.is_discarded() && accept(payload);
        });
    }

private:
    ZMQManager manager;
    std::atomic<bool> running{true};
    std::mutex mutex;
    std::vector<std::pair<std::string, std::string>> received;
    std::thread thread;
};

// An in-process simulator with a listener on its topics.
struct Harness {
    explicit Harness(const std::function<void(sim::SimConfig&)>& adjust = nullptr) : fixture(adjust)
    {
    }
    json web(const json& body) { return ask(fixture.endpoints().webserver, body); }
    // The reply's status code, or "<none>".
    std::string status(const json& body)
    {
        const json reply = web(body);
        return reply.is_object() ? reply.value("status", "<none>") : "<no reply>";
    }
    std::string control(const std::string& line)
    {
        return controlLine(fixture.simulator().controlPath(), line);
    }
    json stateAt(const std::string& pointer) const { return fixture.at(pointer); }

    testsupport::SimFixture fixture;
    TopicListener topics{fixture.endpoints().topics_sub};
};

} // namespace simtest
