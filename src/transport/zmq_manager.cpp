#include "transport/zmq_manager.h"

#include <iostream>

ZMQManager::ZMQManager() = default;

ZMQManager::ZMQManager(std::string name) : name(std::move(name))
{
}

ZMQManager::~ZMQManager()
{
    exit_zmq_socket();
}

ZMQManager::InprogressGuard::InprogressGuard(std::atomic<int>* cnt, std::mutex* mtx,
                                             std::condition_variable* cv)
    : cnt(cnt), mtx(mtx), cv(cv)
{
    cnt->fetch_add(1);
}

ZMQManager::InprogressGuard::~InprogressGuard()
{
    if (cnt->fetch_sub(1) == 1) {
        std::lock_guard<std::mutex> lock(*mtx);
        cv->notify_all();
    }
}

void ZMQManager::set_io_threads(int io_threads)
{
    try {
        zmq_ctx.set(zmq::ctxopt::io_threads, io_threads);
    } catch (const zmq::error_t& e) {
        std::cerr << "ZMQ exception when setting io threads: " << e.what() << std::endl;
    }
}

void ZMQManager::exit_zmq_socket()
{
    shut_down_server_role();
    for (std::thread& worker : workers) {
        if (worker.joinable())
            worker.join();
    }
    workers.clear();

    if (zmq_socket) {
        zmq_socket->close();
        zmq_socket.reset();
        std::cout << "ZMQ socket closed and cleaned up." << std::endl;
    }
    if (frontend) {
        frontend->close();
        frontend.reset();
        std::cout << "ZMQ frontend socket closed and cleaned up." << std::endl;
    }
    if (backend) {
        backend->close();
        backend.reset();
        std::cout << "ZMQ backend socket closed and cleaned up." << std::endl;
    }

    close_all_rd_clients();

    // context_t::close retries zmq_ctx_term while it fails with EINTR, and is
    // a no-op once the context is gone.
    zmq_ctx.close();
    std::cout << "ZMQManager resources cleaned up. zmq name=" << name << std::endl;
}
