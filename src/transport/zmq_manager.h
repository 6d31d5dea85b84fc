#pragma once

#include <zmq.hpp>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <unordered_map>
#include <vector>

// The box's one ZeroMQ transport. An instance wraps one context and plays one
// or more roles: subscriber, publisher, request client (one REQ socket per
// calling thread) or router/dealer server with worker threads. It moves
// strings only; JSON lives above it. All its messages go straight to
// standard output or standard error.
class ZMQManager {
public:
    using ServerCallback = void (*)(std::string request, std::string& reply, void* user);
    // Stands in for an empty reply, on the client's side and the server's.
    static constexpr const char* kEmptyReply = "{\"error\":\"empty reply\"}";

    ZMQManager();
    explicit ZMQManager(std::string name);
    ~ZMQManager();
    ZMQManager(const ZMQManager&) = delete;
    ZMQManager& operator=(const ZMQManager&) = delete;

    // Subscriber and publisher roles: both connect, the box's proxy binds.
    void init_zmq_socket(zmq::socket_type type, const std::string& path, int io_threads);
    int set_subscribe_topic(const std::string& topic);
    // 0 message (or caught error), 1 nothing within 100 ms, -1 wrong role,
    // -2 no content frame, -3 content frame failed.
    int recv_sub_msg(std::string& topic, std::string& content);
    // 0 sent, -1 wrong role or error, -2 empty topic, -3/-4 a frame failed.
    int send_pub_msg(const std::string& topic, const std::string& content);

    // Request client role. Results: response length, or -1 for any failure.
    void init_zmq_router_dealer_client(std::string path, int io_threads);
    zmq::socket_t* get_thread_local_rd_client();
    int send_zmq_router_dealer_client_msg(const std::string& request, std::string& response);
    int send_zmq_router_dealer_client_msg(const std::string& request, std::string& response,
                                          int timeout_ms);
    void reconnect_zmq_router_dealer_client();
    // Ends the client role for good. Waits up to 1 s for requests in flight;
    // any still hanging then are ended by shutting the context down.
    void close_all_rd_clients();

    // Server role: ROUTER on `frontend_path`, DEALER on `backend_path`, and
    // 1 to 4 REP workers calling `callback`.
    void init_zmq_router_dealer_server(std::string frontend_path, std::string backend_path,
                                       int io_threads, int workers, ServerCallback callback,
                                       void* user);
    // Runs the proxy on the calling thread until the context is shut down
    // (context().shutdown() or exit_zmq_socket()); then it returns.
    void run_zmq_router_dealer_server();

    // Tears every role down. With a server role the context is shut down
    // first, since the workers and the proxy end only on a terminated context.
    void exit_zmq_socket();

    // Read-only views for owners and tests.
    const std::string& get_name() const { return name; }
    int worker_count() const { return kNumWorkers; }
    int requests_in_flight() const { return rd_inprogress.load(); }
    zmq::context_t& context() { return zmq_ctx; }

private:
    struct InprogressGuard {
        InprogressGuard(std::atomic<int>* cnt, std::mutex* mtx, std::condition_variable* cv);
        ~InprogressGuard();
        std::atomic<int>* cnt;
        std::mutex* mtx;
        std::condition_variable* cv;
    };

    zmq::socket_t* create_rd_client_locked();
    // Waits until no request is in flight; false when `limit` passed first.
    bool wait_for_rd_requests(std::chrono::milliseconds limit);
    void set_io_threads(int io_threads);
    void shut_down_server_role();

    // Lets exit_zmq_socket wait until a proxy running on another thread has
    // left the server sockets alone before it closes them.
    struct ProxyRunningScope {
        explicit ProxyRunningScope(ZMQManager& owner);
        ~ProxyRunningScope();
        ZMQManager& owner;
    };

    std::string name;
    zmq::context_t zmq_ctx;
    std::unique_ptr<zmq::socket_t> zmq_socket;
    int zmq_type = 0;
    std::unique_ptr<zmq::socket_t> frontend;
    std::unique_ptr<zmq::socket_t> backend;
    int kNumWorkers = 1;
    std::vector<std::thread> workers;
    std::string connect_path;
    std::unordered_map<std::thread::id, std::unique_ptr<zmq::socket_t>> rd_clients;
    std::mutex rd_clients_mtx;
    int rd_rcvtimeo_ms = 10000;
    int rd_sndtimeo_ms = 2000;
    std::atomic<bool> rd_client_enabled{false};
    std::atomic<int> rd_inprogress{0};
    std::mutex rd_inprogress_mtx;
    std::condition_variable rd_inprogress_cv;
    bool proxy_running = false;
    std::mutex proxy_mtx;
    std::condition_variable proxy_cv;
};

// Body of each server thread: a REP socket on the shared context, answering
// through `callback` until the context is terminated.
void worker_task(std::string backend_path, int id, zmq::context_t* ctx,
                 ZMQManager::ServerCallback callback, void* user);
