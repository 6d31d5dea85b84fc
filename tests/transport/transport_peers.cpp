#include "transport_peers.h"

#include <future>
#include <vector>

namespace transporttest {

namespace {
constexpr int64_t kMarker = 424242;
constexpr auto kPollInterval = std::chrono::milliseconds(10);
} // namespace

ServerPeer::ServerPeer(const std::string& endpoint, Handler handler, int workers)
    : handler(std::move(handler)), server("test-server")
{
    server.init_zmq_router_dealer_server(endpoint, "inproc://test-server-workers", 1, workers,
                                         this->handler ? &ServerPeer::onRequest : nullptr, this);
    proxy = std::thread([this] {
        server.run_zmq_router_dealer_server();
        proxy_returned = true;
    });
}

ServerPeer::~ServerPeer()
{
    stop();
}

void ServerPeer::stop()
{
    server.exit_zmq_socket();
    if (proxy.joinable())
        proxy.join();
}

void ServerPeer::onRequest(std::string request, std::string& reply, void* user)
{
    reply = static_cast<ServerPeer*>(user)->handler(request);
}

RawRouterPeer::RawRouterPeer(const std::string& endpoint, Policy policy) : policy(std::move(policy))
{
    std::promise<void> bound;
    std::future<void> ready = bound.get_future();
    loop = std::thread([this, endpoint, &bound] {
        zmq::socket_t router(context, zmq::socket_type::router);
        router.set(zmq::sockopt::linger, 0);
        try {
            router.bind(endpoint);
        } catch (const zmq::error_t&) {
            bound.set_exception(std::current_exception());
            return;
        }
        bound.set_value();
        std::vector<std::string> swallowed_ids;
        while (!stopping) {
            zmq::pollitem_t item{router.handle(), 0, ZMQ_POLLIN, 0};
            zmq::poll(&item, 1, kPollInterval);
            if (item.revents & ZMQ_POLLIN) {
                zmq::message_t id, delimiter, body;
                (void)router.recv(id);
                (void)router.recv(delimiter);
                (void)router.recv(body);
                const int index = received_count.load();
                const auto reply = this->policy(index, body.to_string());
                if (reply) {
                    router.send(id, zmq::send_flags::sndmore);
                    router.send(zmq::message_t(), zmq::send_flags::sndmore);
                    router.send(zmq::buffer(*reply), zmq::send_flags::none);
                } else {
                    swallowed_ids.push_back(id.to_string());
                }
                ++received_count;
            }
            std::optional<std::string> late_reply;
            {
                std::lock_guard<std::mutex> lock(release_mtx);
                late_reply.swap(release_reply);
            }
            if (late_reply) {
                for (const std::string& id : swallowed_ids) {
                    router.send(zmq::buffer(id), zmq::send_flags::sndmore);
                    router.send(zmq::message_t(), zmq::send_flags::sndmore);
                    router.send(zmq::buffer(*late_reply), zmq::send_flags::none);
                }
                swallowed_ids.clear();
            }
        }
    });
    try {
        ready.get();
    } catch (...) {
        loop.join();
        throw;
    }
}

RawRouterPeer::~RawRouterPeer()
{
    stopping = true;
    loop.join();
}

void RawRouterPeer::answerSwallowed(const std::string& reply)
{
    std::lock_guard<std::mutex> lock(release_mtx);
    release_reply = reply;
}

void Gate::open()
{
    std::lock_guard<std::mutex> lock(mtx);
    opened = true;
    cv.notify_all();
}

bool Gate::waitOpen(std::chrono::milliseconds limit)
{
    std::unique_lock<std::mutex> lock(mtx);
    return cv.wait_for(lock, limit, [this] { return opened; });
}

void markSocket(zmq::socket_t& socket)
{
    socket.set(zmq::sockopt::maxmsgsize, kMarker);
}

bool isMarked(zmq::socket_t& socket)
{
    return socket.get(zmq::sockopt::maxmsgsize) == kMarker;
}

int receiveTimeout(zmq::socket_t& socket)
{
    return socket.get(zmq::sockopt::rcvtimeo);
}

int sendTimeout(zmq::socket_t& socket)
{
    return socket.get(zmq::sockopt::sndtimeo);
}

int onOtherThread(const std::function<int()>& call)
{
    return std::async(std::launch::async, call).get();
}

} // namespace transporttest
