// The router/dealer server role: clients talk to the ROUTER, zmq_proxy hands
// each request through the DEALER to one of 1 to 4 REP worker threads.
#include "transport/zmq_manager.h"

#include <pthread.h>

#include <cerrno>
#include <cstdio>
#include <iostream>

namespace {

constexpr int kMinWorkers = 1;
constexpr int kMaxWorkers = 4;
const char* const kNoCallbackReply = "{\"error\":\"no callback set\"}";

int clamp_workers(int workers)
{
    if (workers < kMinWorkers)
        return kMinWorkers;
    if (workers > kMaxWorkers)
        return kMaxWorkers;
    return workers;
}

std::string answer(ZMQManager::ServerCallback callback, std::string request, void* user)
{
    if (!callback)
        return kNoCallbackReply;
    std::string reply;
    callback(std::move(request), reply, user);
    return reply.empty() ? ZMQManager::kEmptyReply : reply;
}

} // namespace

void worker_task(std::string backend_path, int id, zmq::context_t* ctx,
                 ZMQManager::ServerCallback callback, void* user)
{
    printf("====> run work id=%d \n", id);
    fflush(stdout);
    char thread_name[16];
    snprintf(thread_name, sizeof(thread_name), "zmq:wrk:%d", id);
    pthread_setname_np(pthread_self(), thread_name);

    try {
        zmq::socket_t socket(*ctx, zmq::socket_type::rep);
        socket.connect(backend_path);
        for (;;) {
            zmq::message_t request;
            if (!socket.recv(request, zmq::recv_flags::none))
                continue;
            const std::string reply =
                answer(callback,
                       std::string(static_cast<const char*>(request.data()), request.size()), user);
            socket.send(zmq::buffer(reply), zmq::send_flags::none);
        }
    } catch (const zmq::error_t& e) {
        // A terminated context is the worker's only way out.
        if (e.num() != ETERM)
            std::cerr << "ZMQ worker " << id << " stopped: " << e.what() << std::endl;
    }
}

void ZMQManager::init_zmq_router_dealer_server(std::string frontend_path, std::string backend_path,
                                               int io_threads, int workers, ServerCallback callback,
                                               void* user)
{
    if (frontend)
        return;
    set_io_threads(io_threads);
    frontend = std::make_unique<zmq::socket_t>(zmq_ctx, zmq::socket_type::router);
    frontend->bind(frontend_path);
    backend = std::make_unique<zmq::socket_t>(zmq_ctx, zmq::socket_type::dealer);
    backend->bind(backend_path);
    kNumWorkers = clamp_workers(workers);
    for (int id = 0; id < kNumWorkers; ++id)
        this->workers.emplace_back(worker_task, backend_path, id, &zmq_ctx, callback, user);
}

ZMQManager::ProxyRunningScope::ProxyRunningScope(ZMQManager& owner) : owner(owner)
{
    std::lock_guard<std::mutex> lock(owner.proxy_mtx);
    owner.proxy_running = true;
}

ZMQManager::ProxyRunningScope::~ProxyRunningScope()
{
    std::lock_guard<std::mutex> lock(owner.proxy_mtx);
    owner.proxy_running = false;
    owner.proxy_cv.notify_all();
}

void ZMQManager::run_zmq_router_dealer_server()
{
    std::cout << "ZMQ ROUTER&DEALER server is running..." << std::endl;
    if (!frontend || !backend) {
        std::cout << "ZMQ ROUTER&DEALER server is run error..." << std::endl;
        return;
    }
    int rc = 0;
    int error = 0;
    {
        ProxyRunningScope running(*this);
        rc = zmq_proxy(frontend->handle(), backend->handle(), nullptr);
        error = zmq_errno();
    }
    std::cout << "ZMQ ROUTER&DEALER server is run error..." << std::endl;
    // A shut-down context is how the owner stops the server; anything else
    // is a real fault.
    if (rc != 0 && error != ETERM) {
        errno = error;
        throw zmq::error_t();
    }
}

void ZMQManager::shut_down_server_role()
{
    if (workers.empty() && !frontend && !backend)
        return;
    if (zmq_ctx.handle() != nullptr)
        zmq_ctx.shutdown();
    std::unique_lock<std::mutex> lock(proxy_mtx);
    proxy_cv.wait(lock, [this] { return !proxy_running; });
}
