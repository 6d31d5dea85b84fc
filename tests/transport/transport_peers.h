#pragma once

#include "transport/zmq_manager.h"

#include <zmq.hpp>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

namespace transporttest {

// A daemon made of the transport's own server role: ROUTER on `endpoint`,
// workers answering through `handler`, the proxy on a thread of its own.
class ServerPeer {
public:
    using Handler = std::function<std::string(const std::string& request)>;

    ServerPeer(const std::string& endpoint, Handler handler, int workers = 1);
    ~ServerPeer();
    ServerPeer(const ServerPeer&) = delete;
    ServerPeer& operator=(const ServerPeer&) = delete;

    ZMQManager& manager() { return server; }
    // Stops the proxy and the workers the way an owner does: exit_zmq_socket.
    void stop();
    bool proxyReturned() const { return proxy_returned.load(); }

private:
    static void onRequest(std::string request, std::string& reply, void* user);

    Handler handler;
    ZMQManager server;
    std::thread proxy;
    std::atomic<bool> proxy_returned{false};
};

// A hand-written ROUTER for the replies the server role never gives: a
// zero-length reply, or no reply at all. `policy` sees each request (numbered
// from 0) and returns the reply, or nothing to swallow the request.
class RawRouterPeer {
public:
    using Policy = std::function<std::optional<std::string>(int index, const std::string& body)>;

    RawRouterPeer(const std::string& endpoint, Policy policy);
    ~RawRouterPeer();
    RawRouterPeer(const RawRouterPeer&) = delete;
    RawRouterPeer& operator=(const RawRouterPeer&) = delete;

    int received() const { return received_count.load(); }
    // Answers every swallowed request with `reply`.
    void answerSwallowed(const std::string& reply);

private:
    void run(const std::string& endpoint);

    Policy policy;
    zmq::context_t context;
    std::thread loop;
    std::atomic<bool> stopping{false};
    std::atomic<int> received_count{0};
    std::mutex release_mtx;
    std::optional<std::string> release_reply;
};

// A one-shot latch that server handlers can wait on, never for ever.
class Gate {
public:
    void open();
    // Returns whether the gate opened within `limit`.
    bool waitOpen(std::chrono::milliseconds limit);

private:
    std::mutex mtx;
    std::condition_variable cv;
    bool opened = false;
};

// Marks a socket so that a test can tell it from one created later.
void markSocket(zmq::socket_t& socket);
bool isMarked(zmq::socket_t& socket);

int receiveTimeout(zmq::socket_t& socket);
int sendTimeout(zmq::socket_t& socket);

// Runs `call` on a new thread and returns what it returned.
int onOtherThread(const std::function<int()>& call);

} // namespace transporttest
