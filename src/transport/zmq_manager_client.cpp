// The request client role: one REQ socket per calling thread, created on
// first use and thrown away whenever its REQ state machine may be stuck.
#include "transport/zmq_manager.h"

#include <chrono>
#include <iostream>

namespace {

constexpr int kMaxTimeoutMs = 10000;
constexpr int kDefaultRcvTimeoutMs = 2000;
constexpr int kDefaultSndTimeoutMs = 500;
constexpr auto kStateErrorRetryDelay = std::chrono::milliseconds(300);
constexpr auto kAgainErrorRetryDelay = std::chrono::milliseconds(200);
constexpr auto kShutdownWait = std::chrono::milliseconds(1000);

void set_timeouts(zmq::socket_t& socket, int rcvtimeo_ms, int sndtimeo_ms)
{
    socket.set(zmq::sockopt::rcvtimeo, rcvtimeo_ms);
    socket.set(zmq::sockopt::sndtimeo, sndtimeo_ms);
}

// Lets go of a REQ socket without waiting for anything it still holds.
void discard_client(std::unique_ptr<zmq::socket_t>& socket, const std::string& path)
{
    try {
        socket->set(zmq::sockopt::linger, 0);
    } catch (const zmq::error_t&) {
    }
    try {
        socket->disconnect(path);
    } catch (const zmq::error_t&) {
    }
    socket->close();
    socket.reset();
}

} // namespace

void ZMQManager::init_zmq_router_dealer_client(std::string path, int io_threads)
{
    connect_path = std::move(path);
    set_io_threads(io_threads);
    rd_client_enabled = true;
    rd_rcvtimeo_ms = kDefaultRcvTimeoutMs;
    rd_sndtimeo_ms = kDefaultSndTimeoutMs;
}

zmq::socket_t* ZMQManager::create_rd_client_locked()
{
    auto socket = std::make_unique<zmq::socket_t>(zmq_ctx, zmq::socket_type::req);
    socket->set(zmq::sockopt::linger, 0);
    // A daemon that is not connected makes the send fail after the send
    // time-out instead of queueing a request that nobody will answer. The
    // option only acts on connections made after it, hence connect comes last.
    socket->set(zmq::sockopt::immediate, 1);
    socket->set(zmq::sockopt::rcvtimeo, rd_rcvtimeo_ms);
    socket->set(zmq::sockopt::sndtimeo, rd_sndtimeo_ms);
    socket->set(zmq::sockopt::linger, 0);
    socket->connect(connect_path);
    zmq::socket_t* raw = socket.get();
    rd_clients[std::this_thread::get_id()] = std::move(socket);
    return raw;
}

zmq::socket_t* ZMQManager::get_thread_local_rd_client()
{
    if (!rd_client_enabled)
        return nullptr;
    std::lock_guard<std::mutex> lock(rd_clients_mtx);
    const auto found = rd_clients.find(std::this_thread::get_id());
    if (found != rd_clients.end() && found->second)
        return found->second.get();
    return create_rd_client_locked();
}

void ZMQManager::reconnect_zmq_router_dealer_client()
{
    if (!rd_client_enabled) {
        std::cerr << "ZMQ router dealer client not initialized." << std::endl;
        return;
    }
    std::lock_guard<std::mutex> lock(rd_clients_mtx);
    const auto found = rd_clients.find(std::this_thread::get_id());
    if (found != rd_clients.end()) {
        if (found->second)
            discard_client(found->second, connect_path);
        rd_clients.erase(found);
    }
    create_rd_client_locked();
}

int ZMQManager::send_zmq_router_dealer_client_msg(const std::string& request, std::string& response)
{
    if (!rd_client_enabled) {
        std::cerr << "ZMQ router dealer client is not initialized." << std::endl;
        return -1;
    }
    // Each kind of error earns one retry of its own.
    int state_error_retried = 0;
    int again_error_marker = 2;
    for (;;) {
        try {
            InprogressGuard guard(&rd_inprogress, &rd_inprogress_mtx, &rd_inprogress_cv);
            zmq::socket_t* client = get_thread_local_rd_client();
            if (!client) {
                std::cerr << "Failed to get thread-local REQ client." << std::endl;
                return -1;
            }
            // A send that timed out leaves the REQ socket in its send state,
            // so it stays usable and is kept.
            if (!client->send(zmq::buffer(request), zmq::send_flags::none))
                return -1;
            zmq::message_t reply;
            if (!client->recv(reply, zmq::recv_flags::none)) {
                // Sent but never answered: the socket would refuse the next
                // send, so it is replaced; the request is not repeated.
                reconnect_zmq_router_dealer_client();
                return -1;
            }
            if (reply.size() == 0) {
                response = ZMQManager::kEmptyReply;
                reconnect_zmq_router_dealer_client();
                return -1;
            }
            response.assign(static_cast<const char*>(reply.data()), reply.size());
            return static_cast<int>(response.size());
        } catch (const zmq::error_t& e) {
            std::cerr << "ZMQ exception[" << name << "]: " << e.what() << ", code: " << e.num()
                      << " (" << zmq_strerror(e.num()) << ")" << std::endl;
            bool retry = false;
            try {
                if (e.num() == EFSM) {
                    std::cerr << "Socket is in an invalid state. Attempting to reconnect..."
                              << std::endl;
                    reconnect_zmq_router_dealer_client();
                    if (state_error_retried == 0) {
                        std::this_thread::sleep_for(kStateErrorRetryDelay);
                        state_error_retried = 1;
                        retry = true;
                    }
                } else if (e.num() == EAGAIN) {
                    reconnect_zmq_router_dealer_client();
                    if (again_error_marker == 2) {
                        std::this_thread::sleep_for(kAgainErrorRetryDelay);
                        again_error_marker = 1;
                        retry = true;
                    }
                }
            } catch (const zmq::error_t&) {
                // The context went away while reconnecting: give up.
                retry = false;
            }
            if (retry)
                continue;
            std::cerr << "Failed to send message after retries." << std::endl;
            return -1;
        }
    }
}

int ZMQManager::send_zmq_router_dealer_client_msg(const std::string& request, std::string& response,
                                                  int timeout_ms)
{
    if (timeout_ms < 1)
        return send_zmq_router_dealer_client_msg(request, response);
    if (timeout_ms > kMaxTimeoutMs)
        timeout_ms = kMaxTimeoutMs;

    try {
        zmq::socket_t* client = get_thread_local_rd_client();
        if (!client) {
            std::cerr << "Failed to get thread-local REQ client." << std::endl;
            return -1;
        }
        set_timeouts(*client, timeout_ms, timeout_ms);
    } catch (const zmq::error_t& e) {
        std::cerr << "ZMQ exception when setting timeout: " << e.what() << std::endl;
        return -1;
    }

    const int result = send_zmq_router_dealer_client_msg(request, response);

    try {
        // The exchange may have replaced the socket; set the defaults again
        // on whichever socket the thread now has.
        if (zmq::socket_t* client = get_thread_local_rd_client())
            set_timeouts(*client, rd_rcvtimeo_ms, rd_sndtimeo_ms);
    } catch (const zmq::error_t& e) {
        std::cerr << "ZMQ exception when restoring timeout: " << e.what() << std::endl;
    }
    return result;
}

bool ZMQManager::wait_for_rd_requests(std::chrono::milliseconds limit)
{
    std::unique_lock<std::mutex> lock(rd_inprogress_mtx);
    return rd_inprogress_cv.wait_until(lock, std::chrono::steady_clock::now() + limit,
                                       [this] { return rd_inprogress.load() < 1; });
}

void ZMQManager::close_all_rd_clients()
{
    rd_client_enabled = false;
    // Bounded on purpose: shutdown must not hang on a dead daemon.
    if (!wait_for_rd_requests(kShutdownWait)) {
        // A socket closed under a thread still blocked on it makes libzmq
        // abort; shutting the context down ends such calls at once (ETERM).
        if (zmq_ctx.handle() != nullptr)
            zmq_ctx.shutdown();
        wait_for_rd_requests(kShutdownWait);
    }
    std::lock_guard<std::mutex> lock(rd_clients_mtx);
    for (auto& entry : rd_clients) {
        if (entry.second)
            discard_client(entry.second, connect_path);
    }
    rd_clients.clear();
}
