// The server role: a ROUTER front, one to four REP workers answering through
// a callback, the proxy on a thread of its own, and a clean stop.
#include "support/qt_capture.h"
#include "support/test_support.h"
#include "transport/zmq_manager.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace {

// A daemon that answers "got <request>", and nothing at all to "mute".
class Server {
public:
    Server(const std::string& endpoint, int workers, bool with_callback = true)
    {
        manager.init_zmq_router_dealer_server(endpoint, "inproc://test-workers", 1, workers,
                                              with_callback ? &answer : nullptr, nullptr);
        proxy = std::thread([this] { manager.run_zmq_router_dealer_server(); });
    }
    ~Server() { stop(); }
    // The way an owner stops it.
    void stop()
    {
        manager.exit_zmq_socket();
        if (proxy.joinable())
            proxy.join();
    }

    ZMQManager manager;

private:
    static void answer(std::string request, std::string& reply, void*)
    {
        reply = request == "mute" ? "" : "got " + request;
    }
    std::thread proxy;
};

// Threads of this process named as server workers.
int workerThreads()
{
    int count = 0;
    for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
        std::ifstream comm(task.path() / "comm");
        std::string name;
        std::getline(comm, name);
        count += name.rfind("zmq:wrk:", 0) == 0 ? 1 : 0;
    }
    return count;
}

class ServerRoleTest : public ::testing::Test {
protected:
    std::string ask(const std::string& text, int timeout_ms = 2000)
    {
        ZMQManager client;
        client.init_zmq_router_dealer_client(endpoint, 1);
        std::string response;
        return client.send_zmq_router_dealer_client_msg(text, response, timeout_ms) < 0 ? "<failed>"
                                                                                        : response;
    }

    testsupport::TempDir dir;
    const std::string endpoint = dir.ipcEndpoint("server.sock");
};

TEST_F(ServerRoleTest, OneToFourWorkersAnswerThroughTheCallbackAndStopWithTheProxy)
{
    for (const auto& [asked, expected] : {std::pair{0, 1}, std::pair{3, 3}, std::pair{9, 4}}) {
        Server daemon(endpoint, asked);
        EXPECT_EQ(daemon.manager.worker_count(), expected) << "asked for " << asked;
        EXPECT_TRUE(testsupport::waitUntil([&] { return workerThreads() == expected; }))
            << "asked for " << asked << ", running " << workerThreads();
        EXPECT_EQ(ask("one"), "got one");
        EXPECT_EQ(ask("mute"), R"({"error":"empty reply"})");
        // A second init changes nothing.
        daemon.manager.init_zmq_router_dealer_server(endpoint, "inproc://other", 1, 4, nullptr,
                                                     nullptr);
        EXPECT_EQ(daemon.manager.worker_count(), expected);
        EXPECT_EQ(ask("two"), "got two");

        daemon.stop();
        EXPECT_EQ(workerThreads(), 0);
        EXPECT_EQ(ask("after", 100), "<failed>");
    }
    Server without_callback(endpoint, 1, false);
    EXPECT_EQ(ask("anything"), R"({"error":"no callback set"})");
}

TEST(ServerRole, RunWithoutInitReturnsAtOnceAndAFailedBindRaises)
{
    ZMQManager unconfigured;
    EXPECT_NE(testsupport::capturedStdout([&] {
                  unconfigured.run_zmq_router_dealer_server();
              }).find("ZMQ ROUTER&DEALER server is run error..."),
              std::string::npos);
    ZMQManager server;
    EXPECT_THROW(server.init_zmq_router_dealer_server("ipc:///nonexistent-dir/x/y.sock",
                                                      "inproc://b", 1, 1, nullptr, nullptr),
                 zmq::error_t);
}

} // namespace
