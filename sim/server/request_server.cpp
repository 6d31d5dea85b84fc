#include "server/request_server.h"

#include <cstdio>

namespace sim {

RequestServer::RequestServer(std::string endpoint, std::string inproc, Dispatcher& dispatcher)
    : endpoint_(std::move(endpoint)), inproc_(std::move(inproc)), dispatcher_(dispatcher),
      manager_("panel-sim " + endpoint_)
{
}

RequestServer::~RequestServer()
{
    stop();
}

void RequestServer::onRequest(std::string request, std::string& reply, void* user)
{
    reply = static_cast<RequestServer*>(user)->dispatcher_.handle(request);
}

void RequestServer::start()
{
    manager_.init_zmq_router_dealer_server(endpoint_, inproc_, 1, kWorkers, &onRequest, this);
    started_ = true;
    proxy_thread_ = std::thread([this] {
        try {
            manager_.run_zmq_router_dealer_server();
        } catch (const zmq::error_t&) {
            // Reported by the transport; the owner's stop() still cleans up.
        }
    });
}

void RequestServer::stop()
{
    if (!started_)
        return;
    started_ = false;
    manager_.exit_zmq_socket();
    if (proxy_thread_.joinable())
        proxy_thread_.join();
    const std::string scheme = "ipc://";
    if (endpoint_.rfind(scheme, 0) == 0)
        std::remove(endpoint_.substr(scheme.size()).c_str());
}

} // namespace sim
