#include "transport_peers.h"

#include "support/test_support.h"

#include <gtest/gtest.h>

#include <dirent.h>

#include <fstream>

using transporttest::ServerPeer;

namespace {

// Threads of this process whose name starts with the worker prefix.
int namedWorkerThreads()
{
    int count = 0;
    DIR* tasks = opendir("/proc/self/task");
    if (!tasks)
        return -1;
    while (dirent* entry = readdir(tasks)) {
        if (entry->d_name[0] == '.')
            continue;
        std::ifstream comm(std::string("/proc/self/task/") + entry->d_name + "/comm");
        std::string thread_name;
        std::getline(comm, thread_name);
        if (thread_name.rfind("zmq:wrk:", 0) == 0)
            ++count;
    }
    closedir(tasks);
    return count;
}

class ServerRoleTest : public ::testing::Test {
protected:
    std::string request(const std::string& text, int timeout_ms = 2000)
    {
        ZMQManager client("server-test-client");
        client.init_zmq_router_dealer_client(endpoint, 1);
        std::string response;
        if (client.send_zmq_router_dealer_client_msg(text, response, timeout_ms) < 0)
            return "<failed>";
        return response;
    }

    testsupport::TempDir dir;
    const std::string endpoint = dir.ipcEndpoint("server.sock");
};

TEST_F(ServerRoleTest, WorkerCountIsClampedToOneToFour)
{
    for (const auto& [asked, expected] :
         {std::pair{0, 1}, std::pair{-3, 1}, std::pair{9, 4}, std::pair{3, 3}}) {
        ServerPeer daemon(
            endpoint, [](const std::string&) { return "ok"; }, asked);
        EXPECT_EQ(daemon.manager().worker_count(), expected) << "asked for " << asked;
        EXPECT_TRUE(testsupport::waitUntil([&] { return namedWorkerThreads() == expected; }))
            << "asked for " << asked << ", named workers " << namedWorkerThreads();
        EXPECT_EQ(request("ping"), "ok");
    }
    EXPECT_EQ(namedWorkerThreads(), 0);
}

TEST_F(ServerRoleTest, WorkersAnswerThroughTheCallback)
{
    ServerPeer daemon(
        endpoint, [](const std::string& text) { return "got " + text; }, 2);
    EXPECT_EQ(request("one"), "got one");
    EXPECT_EQ(request("two"), "got two");
}

TEST_F(ServerRoleTest, MissingCallbackAndEmptyCallbackReplyAreAnsweredWithErrors)
{
    {
        ServerPeer without_callback(endpoint, nullptr);
        EXPECT_EQ(request("anything"), "{\"error\":\"no callback set\"}");
    }
    ServerPeer silent(endpoint, [](const std::string&) { return std::string(); });
    EXPECT_EQ(request("anything"), "{\"error\":\"empty reply\"}");
}

TEST_F(ServerRoleTest, SecondInitIsIgnored)
{
    ServerPeer daemon(
        endpoint, [](const std::string&) { return "first"; }, 2);
    daemon.manager().init_zmq_router_dealer_server(endpoint, "inproc://other", 1, 4, nullptr,
                                                   nullptr);
    EXPECT_EQ(daemon.manager().worker_count(), 2);
    EXPECT_EQ(request("x"), "first");
}

TEST_F(ServerRoleTest, ExitStopsARunningProxyAndAllWorkers)
{
    ServerPeer daemon(
        endpoint, [](const std::string&) { return "ok"; }, 3);
    ASSERT_EQ(request("x"), "ok");
    daemon.stop();
    EXPECT_TRUE(daemon.proxyReturned());
    EXPECT_EQ(namedWorkerThreads(), 0);
    EXPECT_EQ(request("y", 100), "<failed>");
}

TEST(ServerRole, RunWithoutInitReturnsAtOnce)
{
    ZMQManager unconfigured;
    testing::internal::CaptureStdout();
    unconfigured.run_zmq_router_dealer_server();
    const std::string printed = testing::internal::GetCapturedStdout();
    EXPECT_NE(printed.find("ZMQ ROUTER&DEALER server is run error..."), std::string::npos);
}

TEST(ServerRole, FailedBindRaises)
{
    ZMQManager server;
    EXPECT_THROW(server.init_zmq_router_dealer_server("ipc:///nonexistent-dir/x/y.sock",
                                                      "inproc://b", 1, 1, nullptr, nullptr),
                 zmq::error_t);
}

} // namespace
