#pragma once

#include <zmq.hpp>

#include <string>
#include <thread>

namespace sim {

// The box's pub/sub forwarder: publishers connect to its XSUB, subscribers
// to its XPUB. It binds loopback addresses only, whatever host the endpoint
// names, so the simulator is never reachable from the network.
class TopicProxy {
public:
    TopicProxy(std::string subscriber_endpoint, std::string publisher_endpoint);
    ~TopicProxy();
    TopicProxy(const TopicProxy&) = delete;
    TopicProxy& operator=(const TopicProxy&) = delete;

    // Binds both sides (throws zmq::error_t when a port is taken) and starts
    // forwarding on a thread of its own.
    void start();
    void stop();

    static std::string loopbackBindAddress(const std::string& endpoint);

private:
    std::string subscriber_endpoint_;
    std::string publisher_endpoint_;
    zmq::context_t context_;
    zmq::socket_t xsub_;
    zmq::socket_t xpub_;
    std::thread thread_;
};

} // namespace sim
