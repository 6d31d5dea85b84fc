#include "topics/topic_proxy.h"

#include <iostream>

namespace sim {

TopicProxy::TopicProxy(std::string subscriber_endpoint, std::string publisher_endpoint)
    : subscriber_endpoint_(std::move(subscriber_endpoint)),
      publisher_endpoint_(std::move(publisher_endpoint)), context_(1),
      xsub_(context_, zmq::socket_type::xsub), xpub_(context_, zmq::socket_type::xpub)
{
    xsub_.set(zmq::sockopt::linger, 0);
    xpub_.set(zmq::sockopt::linger, 0);
}

TopicProxy::~TopicProxy()
{
    stop();
}

std::string TopicProxy::loopbackBindAddress(const std::string& endpoint)
{
    const std::string scheme = "tcp://";
    if (endpoint.rfind(scheme, 0) != 0)
        return endpoint;
    const auto colon = endpoint.rfind(':');
    return scheme + "127.0.0.1" + endpoint.substr(colon);
}

void TopicProxy::start()
{
    xsub_.bind(loopbackBindAddress(publisher_endpoint_));
    xpub_.bind(loopbackBindAddress(subscriber_endpoint_));
    thread_ = std::thread([this] {
        try {
            zmq::proxy(xsub_, xpub_);
        } catch (const zmq::error_t& e) {
            // Shutting the context down is how stop() ends the proxy.
            if (e.num() != ETERM)
                std::cerr << "panel-sim: topic proxy stopped: " << e.what() << std::endl;
        }
    });
}

void TopicProxy::stop()
{
    if (!context_.handle())
        return;
    context_.shutdown();
    if (thread_.joinable())
        thread_.join();
    xsub_.close();
    xpub_.close();
    context_.close();
}

} // namespace sim
