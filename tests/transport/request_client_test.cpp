#include "transport_peers.h"

#include "support/test_support.h"

#include <gtest/gtest.h>

#include <chrono>

using namespace std::chrono_literals;
using transporttest::isMarked;
using transporttest::markSocket;
using transporttest::RawRouterPeer;
using transporttest::receiveTimeout;
using transporttest::sendTimeout;
using transporttest::ServerPeer;

namespace {

using Clock = std::chrono::steady_clock;

std::chrono::milliseconds elapsedSince(Clock::time_point start)
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
}

std::string echo(const std::string& request)
{
    return "reply:" + request;
}

class RequestClientTest : public ::testing::Test {
protected:
    void SetUp() override { client.init_zmq_router_dealer_client(endpoint, 1); }

    zmq::socket_t& ownSocket() { return *client.get_thread_local_rd_client(); }

    testsupport::TempDir dir;
    const std::string endpoint = dir.ipcEndpoint("daemon.sock");
    ZMQManager client{"test-client"};
};

TEST_F(RequestClientTest, ExchangeReturnsTheReplyAndKeepsTheThreadsSocket)
{
    ServerPeer daemon(endpoint, echo);
    markSocket(ownSocket());

    std::string response;
    EXPECT_EQ(client.send_zmq_router_dealer_client_msg("ping", response, 2000), 10);
    EXPECT_EQ(response, "reply:ping");
    EXPECT_EQ(client.send_zmq_router_dealer_client_msg("second", response), 12);
    EXPECT_EQ(response, "reply:second");

    EXPECT_TRUE(isMarked(ownSocket()));
    EXPECT_EQ(receiveTimeout(ownSocket()), 2000);
    EXPECT_EQ(sendTimeout(ownSocket()), 500);
}

TEST_F(RequestClientTest, AbsentDaemonFailsTheSendAndTheSocketSurvives)
{
    zmq::socket_t* before = &ownSocket();
    markSocket(*before);

    std::string response = "untouched";
    const auto start = Clock::now();
    EXPECT_EQ(client.send_zmq_router_dealer_client_msg("anyone?", response, 100), -1);
    EXPECT_LT(elapsedSince(start), 1500ms);
    EXPECT_EQ(response, "untouched");
    EXPECT_EQ(&ownSocket(), before);
    EXPECT_TRUE(isMarked(ownSocket()));

    // The socket was still in its send state: once the daemon is up the very
    // same socket carries the next request.
    ServerPeer daemon(endpoint, echo);
    EXPECT_EQ(client.send_zmq_router_dealer_client_msg("now", response, 2000), 9);
    EXPECT_EQ(response, "reply:now");
    EXPECT_TRUE(isMarked(ownSocket()));
}

TEST_F(RequestClientTest, UnansweredRequestReplacesTheSocketAndTheNextCallWorks)
{
    RawRouterPeer daemon(endpoint, [](int index, const std::string&) {
        return index == 0 ? std::nullopt : std::optional<std::string>("pong");
    });
    markSocket(ownSocket());

    std::string response = "untouched";
    EXPECT_EQ(client.send_zmq_router_dealer_client_msg("lost", response, 150), -1);
    EXPECT_EQ(response, "untouched");
    EXPECT_FALSE(isMarked(ownSocket()));
    EXPECT_EQ(receiveTimeout(ownSocket()), 2000);
    EXPECT_EQ(sendTimeout(ownSocket()), 500);

    const auto start = Clock::now();
    EXPECT_EQ(client.send_zmq_router_dealer_client_msg("again", response), 4);
    EXPECT_EQ(response, "pong");
    EXPECT_LT(elapsedSince(start), 1000ms);
}

TEST_F(RequestClientTest, ZeroLengthReplyIsAnErrorAndReplacesTheSocket)
{
    RawRouterPeer daemon(endpoint, [](int, const std::string&) { return std::string(); });
    markSocket(ownSocket());

    std::string response;
    EXPECT_EQ(client.send_zmq_router_dealer_client_msg("hello", response, 1000), -1);
    EXPECT_EQ(response, "{\"error\":\"empty reply\"}");
    EXPECT_FALSE(isMarked(ownSocket()));
}

TEST_F(RequestClientTest, PerCallTimeoutIsCappedAtTenSecondsAndRestoredAfterwards)
{
    RawRouterPeer daemon(endpoint, [](int, const std::string&) { return std::nullopt; });
    std::atomic<zmq::socket_t*> in_use{nullptr};
    int result = 0;
    int restored_rcv = 0;
    int restored_snd = 0;
    std::thread caller([&] {
        in_use = client.get_thread_local_rd_client();
        std::string response;
        result = client.send_zmq_router_dealer_client_msg("slow", response, 20000);
        restored_rcv = receiveTimeout(*client.get_thread_local_rd_client());
        restored_snd = sendTimeout(*client.get_thread_local_rd_client());
    });

    ASSERT_TRUE(testsupport::waitUntil([&] { return daemon.received() == 1; }));
    EXPECT_EQ(receiveTimeout(*in_use), 10000);
    EXPECT_EQ(sendTimeout(*in_use), 10000);
    daemon.answerSwallowed("late");
    caller.join();

    EXPECT_EQ(result, 4);
    EXPECT_EQ(restored_rcv, 2000);
    EXPECT_EQ(restored_snd, 500);
}

TEST_F(RequestClientTest, ZeroOrNegativeTimeoutKeepsTheSocketsOwnTimeouts)
{
    RawRouterPeer daemon(endpoint, [](int, const std::string&) { return std::nullopt; });
    for (const int timeout : {0, -5}) {
        ownSocket().set(zmq::sockopt::rcvtimeo, 120);
        std::string response;
        const auto start = Clock::now();
        EXPECT_EQ(client.send_zmq_router_dealer_client_msg("x", response, timeout), -1);
        EXPECT_LT(elapsedSince(start), 1500ms) << "timeout " << timeout;
    }
}

TEST_F(RequestClientTest, EachThreadGetsItsOwnPersistentSocket)
{
    ServerPeer daemon(endpoint, echo, 2);
    zmq::socket_t* mine = &ownSocket();

    zmq::socket_t* theirs = nullptr;
    zmq::socket_t* theirs_later = nullptr;
    const int result = transporttest::onOtherThread([&] {
        theirs = client.get_thread_local_rd_client();
        std::string response;
        const int length = client.send_zmq_router_dealer_client_msg("from-other", response, 2000);
        theirs_later = client.get_thread_local_rd_client();
        return length;
    });

    EXPECT_EQ(result, 16);
    ASSERT_NE(theirs, nullptr);
    EXPECT_NE(theirs, mine);
    EXPECT_EQ(theirs_later, theirs);
    EXPECT_EQ(&ownSocket(), mine);
}

TEST_F(RequestClientTest, CloseAllIsBoundedWhileARequestHangs)
{
    RawRouterPeer daemon(endpoint, [](int, const std::string&) { return std::nullopt; });
    int result = 0;
    std::thread caller([&] {
        std::string response;
        result = client.send_zmq_router_dealer_client_msg("hang", response, 8000);
    });
    ASSERT_TRUE(testsupport::waitUntil([&] { return daemon.received() == 1; }));
    EXPECT_EQ(client.requests_in_flight(), 1);

    const auto start = Clock::now();
    client.close_all_rd_clients();
    const auto took = elapsedSince(start);
    EXPECT_GE(took, 500ms) << "shutdown did not wait for the request in flight";
    EXPECT_LT(took, 2000ms);
    // The hanging request is released as well, long before its own time-out.
    caller.join();
    EXPECT_EQ(result, -1);
    EXPECT_LT(elapsedSince(start), 3000ms);

    std::string response;
    EXPECT_EQ(client.get_thread_local_rd_client(), nullptr);
    EXPECT_EQ(client.send_zmq_router_dealer_client_msg("after", response), -1);
}

TEST(RequestClientRole, UninitialisedClientRefusesEveryCall)
{
    ZMQManager idle;
    std::string response = "untouched";
    EXPECT_EQ(idle.get_thread_local_rd_client(), nullptr);
    EXPECT_EQ(idle.send_zmq_router_dealer_client_msg("x", response), -1);
    EXPECT_EQ(idle.send_zmq_router_dealer_client_msg("x", response, 100), -1);
    idle.reconnect_zmq_router_dealer_client();
    EXPECT_EQ(idle.get_thread_local_rd_client(), nullptr);
    EXPECT_EQ(response, "untouched");
}

} // namespace
