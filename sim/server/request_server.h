#pragma once

#include "server/dispatcher.h"
#include "transport/zmq_manager.h"

#include <string>
#include <thread>

namespace sim {

// One daemon's request endpoint, served with the transport's router/dealer
// server role: ROUTER on the ipc endpoint, DEALER on the inproc name, and
// worker threads that hand each request to the dispatcher.
class RequestServer {
public:
    RequestServer(std::string endpoint, std::string inproc, Dispatcher& dispatcher);
    ~RequestServer();
    RequestServer(const RequestServer&) = delete;
    RequestServer& operator=(const RequestServer&) = delete;

    void start(); // throws zmq::error_t when the endpoint can't be bound
    void stop();  // also removes the socket file

private:
    static void onRequest(std::string request, std::string& reply, void* user);

    // Several workers, so that one held reply doesn't stop the daemon.
    static constexpr int kWorkers = 4;

    std::string endpoint_;
    std::string inproc_;
    Dispatcher& dispatcher_;
    ZMQManager manager_;
    std::thread proxy_thread_;
    bool started_ = false;
};

} // namespace sim
