// The request client role over real sockets: one persistent REQ socket per
// thread, per-call time-outs, and recovery after a daemon that is missing,
// silent, or answers with nothing.
#include "support/scripted_daemon.h"
#include "support/test_support.h"
#include "transport/zmq_manager.h"

#include <gtest/gtest.h>

#include <future>
#include <tuple>

using namespace std::chrono_literals;

namespace {

using Clock = std::chrono::steady_clock;
using nlohmann::json;
using testsupport::ScriptedDaemon;
using Timeouts = std::pair<int, int>; // receive, send

const Timeouts kDefaultTimeouts{2000, 500};
const std::string kPing = R"({"opt":"ping"})";
const std::string kPong = R"({"pong":1})";

// Marks a socket so that a test can tell it from one created later.
void mark(zmq::socket_t* socket)
{
    socket->set(zmq::sockopt::maxmsgsize, int64_t{424242});
}
bool isMarked(zmq::socket_t* socket)
{
    return socket->get(zmq::sockopt::maxmsgsize) == 424242;
}
Timeouts timeoutsOf(zmq::socket_t* socket)
{
    return {socket->get(zmq::sockopt::rcvtimeo), socket->get(zmq::sockopt::sndtimeo)};
}

// Answers every request with a zero-length message, which the server role
// never sends.
class EmptyReplier {
public:
    explicit EmptyReplier(const std::string& endpoint)
    {
        socket.set(zmq::sockopt::linger, 0);
        socket.bind(endpoint);
        loop = std::thread([this] {
            zmq::message_t request;
            try {
                while (socket.recv(request))
                    socket.send(zmq::message_t(), zmq::send_flags::none);
            } catch (const zmq::error_t&) {
                // The context was shut down.
            }
        });
    }
    ~EmptyReplier()
    {
        context.shutdown();
        loop.join();
    }

private:
    zmq::context_t context;
    zmq::socket_t socket{context, zmq::socket_type::rep};
    std::thread loop;
};

class RequestClientTest : public ::testing::Test {
protected:
    void SetUp() override { client.init_zmq_router_dealer_client(endpoint, 1); }

    zmq::socket_t* ownSocket() { return client.get_thread_local_rd_client(); }
    int send(const std::string& request, std::string& response, int timeout_ms)
    {
        return client.send_zmq_router_dealer_client_msg(request, response, timeout_ms);
    }

    testsupport::TempDir dir;
    const std::string endpoint = dir.ipcEndpoint("daemon.sock");
    ZMQManager client{"test-client"};
};

TEST_F(RequestClientTest, EachThreadKeepsOneSocketWithTheDefaultTimeouts)
{
    ScriptedDaemon daemon(endpoint);
    daemon.reply("ping", json::parse(kPong));
    zmq::socket_t* mine = ownSocket();
    mark(mine);

    std::string response;
    EXPECT_EQ(send(kPing, response, 2000), static_cast<int>(kPong.size()));
    EXPECT_EQ(response, kPong);
    EXPECT_EQ(client.send_zmq_router_dealer_client_msg(kPing, response), (int)kPong.size());
    EXPECT_EQ(ownSocket(), mine);
    EXPECT_TRUE(isMarked(mine));
    EXPECT_EQ(timeoutsOf(mine), kDefaultTimeouts);

    const auto [theirs, theirs_later, length] = std::async(std::launch::async, [&] {
                                                    zmq::socket_t* first = ownSocket();
                                                    std::string reply;
                                                    const int n = send(kPing, reply, 2000);
                                                    return std::tuple{first, ownSocket(), n};
                                                }).get();
    EXPECT_NE(theirs, mine);
    EXPECT_EQ(theirs_later, theirs);
    EXPECT_EQ(length, static_cast<int>(kPong.size()));
    EXPECT_EQ(daemon.countOf("ping"), 3);
}

TEST_F(RequestClientTest, MissingDaemonFailsTheSendAndTheSameSocketCarriesTheNextRequest)
{
    zmq::socket_t* before = ownSocket();
    mark(before);
    std::string response = "untouched";
    const auto start = Clock::now();
    EXPECT_EQ(send(kPing, response, 100), -1);
    EXPECT_LT(Clock::now() - start, 1500ms);
    EXPECT_EQ(response, "untouched");

    // A send that never went out leaves the REQ socket usable.
    ScriptedDaemon daemon(endpoint);
    daemon.reply("ping", json::parse(kPong));
    EXPECT_EQ(send(kPing, response, 2000), static_cast<int>(kPong.size()));
    EXPECT_EQ(ownSocket(), before);
    EXPECT_TRUE(isMarked(before));
}

TEST_F(RequestClientTest, UnansweredRequestReplacesTheSocketAndTheNextCallWorksAtOnce)
{
    ScriptedDaemon daemon(endpoint);
    daemon.reply("lost", {{"late", true}}, 5s);
    daemon.reply("ping", json::parse(kPong));
    mark(ownSocket());

    std::string response = "untouched";
    EXPECT_EQ(send(R"({"opt":"lost"})", response, 150), -1);
    EXPECT_EQ(response, "untouched");
    EXPECT_FALSE(isMarked(ownSocket()));
    EXPECT_EQ(timeoutsOf(ownSocket()), kDefaultTimeouts);

    const auto start = Clock::now();
    EXPECT_EQ(client.send_zmq_router_dealer_client_msg(kPing, response), (int)kPong.size());
    EXPECT_EQ(response, kPong) << "the late answer must never pass for the next one";
    EXPECT_LT(Clock::now() - start, 1000ms);
}

TEST_F(RequestClientTest, ZeroLengthReplyIsAnErrorAndReplacesTheSocket)
{
    EmptyReplier daemon(endpoint);
    mark(ownSocket());
    std::string response;
    EXPECT_EQ(send(kPing, response, 1000), -1);
    EXPECT_EQ(response, R"({"error":"empty reply"})");
    EXPECT_FALSE(isMarked(ownSocket()));
}

TEST_F(RequestClientTest, PerCallTimeoutIsCappedAndRestoredAndZeroOrLessKeepsTheSockets)
{
    ScriptedDaemon daemon(endpoint);
    daemon.reply("slow", json::parse(kPong), 1200ms);
    std::atomic<zmq::socket_t*> in_use{nullptr};
    auto call = std::async(std::launch::async, [&] {
        in_use = ownSocket();
        std::string response;
        const int result = send(R"({"opt":"slow"})", response, 20000);
        return std::pair{result, timeoutsOf(ownSocket())};
    });
    ASSERT_TRUE(testsupport::waitUntil([&] { return daemon.countOf("slow") == 1; }));
    EXPECT_EQ(timeoutsOf(in_use), Timeouts(10000, 10000));
    const auto [result, restored] = call.get();
    EXPECT_EQ(result, static_cast<int>(kPong.size()));
    EXPECT_EQ(restored, kDefaultTimeouts);

    for (const int timeout : {0, -5}) {
        ownSocket()->set(zmq::sockopt::rcvtimeo, 120);
        std::string response;
        const auto start = Clock::now();
        EXPECT_EQ(send(R"({"opt":"slow"})", response, timeout), -1);
        EXPECT_LT(Clock::now() - start, 1000ms) << "timeout " << timeout;
    }
}

TEST_F(RequestClientTest, CloseAllIsBoundedWhileARequestHangs)
{
    ScriptedDaemon daemon(endpoint);
    daemon.reply("hang", json::object(), 8s);
    auto call = std::async(std::launch::async, [&] {
        std::string response;
        return send(R"({"opt":"hang"})", response, 8000);
    });
    ASSERT_TRUE(testsupport::waitUntil([&] { return daemon.countOf("hang") == 1; }));
    EXPECT_EQ(client.requests_in_flight(), 1);

    const auto start = Clock::now();
    client.close_all_rd_clients();
    EXPECT_GE(Clock::now() - start, 500ms) << "shutdown did not wait for the request in flight";
    EXPECT_EQ(call.get(), -1);
    EXPECT_LT(Clock::now() - start, 3000ms) << "the hanging request was not released";

    std::string response;
    EXPECT_EQ(ownSocket(), nullptr);
    EXPECT_EQ(client.send_zmq_router_dealer_client_msg(kPing, response), -1);
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
