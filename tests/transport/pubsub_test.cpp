#include "transport/zmq_manager.h"

#include "support/test_support.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

std::string loopback(int port)
{
    return "tcp://127.0.0.1:" + std::to_string(port);
}

// The box's forwarder in small: publishers connect to its XSUB side,
// subscribers to its XPUB side.
class Forwarder {
public:
    Forwarder() : sub_port(testsupport::freeTcpPort()), pub_port(testsupport::freeTcpPort())
    {
        xpub.bind(loopback(sub_port));
        xsub.bind(loopback(pub_port));
        proxy = std::thread([this] {
            try {
                zmq::proxy(xsub, xpub);
            } catch (const zmq::error_t&) {
                // Context shut down: the forwarder stops.
            }
        });
    }
    ~Forwarder()
    {
        context.shutdown();
        proxy.join();
    }

    const int sub_port;
    const int pub_port;

private:
    zmq::context_t context;
    zmq::socket_t xpub{context, zmq::socket_type::xpub};
    zmq::socket_t xsub{context, zmq::socket_type::xsub};
    std::thread proxy;
};

// Publishes with `publish` until the subscriber reports something other than
// "nothing yet"; subscriptions reach a publisher only after a moment.
int publishUntilReceived(ZMQManager& subscriber, const std::function<void()>& publish,
                         std::string& topic, std::string& content)
{
    int result = 1;
    testsupport::waitUntil([&] {
        publish();
        result = subscriber.recv_sub_msg(topic, content);
        return result != 1;
    });
    return result;
}

TEST(PubSubRoles, TwoPartTopicMessagesTravelThroughTheForwarder)
{
    Forwarder forwarder;
    ZMQManager publisher("pub");
    ZMQManager subscriber("sub");
    publisher.init_zmq_socket(zmq::socket_type::pub, loopback(forwarder.pub_port), 1);
    subscriber.init_zmq_socket(zmq::socket_type::sub, loopback(forwarder.sub_port), 1);
    ASSERT_EQ(subscriber.set_subscribe_topic("topic_network_info"), 0);

    std::string topic;
    std::string content;
    const int result = publishUntilReceived(
        subscriber,
        [&] {
            EXPECT_EQ(publisher.send_pub_msg("topic_other", "{\"ignored\":1}"), 0);
            EXPECT_EQ(publisher.send_pub_msg("topic_network_info", "{\"ip\":\"10.0.0.2\"}"), 0);
        },
        topic, content);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(topic, "topic_network_info");
    EXPECT_EQ(content, "{\"ip\":\"10.0.0.2\"}");
}

TEST(PubSubRoles, IdleSubscriberReportsNothingWithinItsShortTimeout)
{
    Forwarder forwarder;
    ZMQManager subscriber;
    subscriber.init_zmq_socket(zmq::socket_type::sub, loopback(forwarder.sub_port), 1);
    subscriber.set_subscribe_topic("");
    std::string topic = "kept";
    std::string content = "kept";
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(subscriber.recv_sub_msg(topic, content), 1);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
    EXPECT_EQ(topic, "kept");
    EXPECT_EQ(content, "kept");
}

TEST(PubSubRoles, SinglePartMessageIsReportedAsMissingContent)
{
    zmq::context_t context;
    zmq::socket_t raw_publisher(context, zmq::socket_type::pub);
    raw_publisher.set(zmq::sockopt::linger, 0);
    const int port = testsupport::freeTcpPort();
    raw_publisher.bind(loopback(port));

    ZMQManager subscriber;
    subscriber.init_zmq_socket(zmq::socket_type::sub, loopback(port), 1);
    subscriber.set_subscribe_topic("topic_lonely");
    std::string topic;
    std::string content = "kept";
    const int result = publishUntilReceived(
        subscriber,
        [&] { raw_publisher.send(zmq::str_buffer("topic_lonely"), zmq::send_flags::none); }, topic,
        content);
    EXPECT_EQ(result, -2);
    EXPECT_EQ(content, "kept");
}

TEST(PubSubRoles, RolesRefuseTheWrongSocket)
{
    ZMQManager nothing;
    std::string topic;
    std::string content;
    EXPECT_EQ(nothing.recv_sub_msg(topic, content), -1);
    EXPECT_EQ(nothing.set_subscribe_topic("t"), -1);
    EXPECT_EQ(nothing.send_pub_msg("t", "c"), -1);

    const int port = testsupport::freeTcpPort();
    ZMQManager publisher;
    publisher.init_zmq_socket(zmq::socket_type::pub, loopback(port), 1);
    EXPECT_EQ(publisher.recv_sub_msg(topic, content), -1);
    EXPECT_EQ(publisher.set_subscribe_topic("t"), -1);

    ZMQManager subscriber;
    subscriber.init_zmq_socket(zmq::socket_type::sub, loopback(port), 1);
    EXPECT_EQ(subscriber.send_pub_msg("t", "c"), -1);
}

TEST(PubSubRoles, EmptyTopicIsRefusedAndNothingIsSent)
{
    Forwarder forwarder;
    ZMQManager publisher;
    ZMQManager subscriber;
    publisher.init_zmq_socket(zmq::socket_type::pub, loopback(forwarder.pub_port), 1);
    subscriber.init_zmq_socket(zmq::socket_type::sub, loopback(forwarder.sub_port), 1);
    subscriber.set_subscribe_topic("");

    std::string topic;
    std::string content;
    // Wait until the path is live, then drain it.
    ASSERT_EQ(publishUntilReceived(
                  subscriber, [&] { publisher.send_pub_msg("topic_probe", "p"); }, topic, content),
              0);
    while (subscriber.recv_sub_msg(topic, content) == 0) {
    }

    EXPECT_EQ(publisher.send_pub_msg("", "{\"a\":1}"), -2);
    EXPECT_EQ(publisher.send_pub_msg("topic_marker", "m"), 0);
    ASSERT_TRUE(
        testsupport::waitUntil([&] { return subscriber.recv_sub_msg(topic, content) == 0; }));
    EXPECT_EQ(topic, "topic_marker") << "the refused message arrived after all";
    EXPECT_EQ(content, "m");
}

TEST(PubSubRoles, ConnectMessagesNameTheEndpoint)
{
    testing::internal::CaptureStdout();
    {
        ZMQManager publisher;
        publisher.init_zmq_socket(zmq::socket_type::pub, "tcp://127.0.0.1:1", 1);
        ZMQManager subscriber;
        subscriber.init_zmq_socket(zmq::socket_type::sub, "tcp://127.0.0.1:2", 1);
    }
    const std::string printed = testing::internal::GetCapturedStdout();
    EXPECT_NE(printed.find("【pub】ZMQ socket connect to: tcp://127.0.0.1:1"), std::string::npos);
    EXPECT_NE(printed.find("【sub】ZMQ connected to: tcp://127.0.0.1:2"), std::string::npos);
}

} // namespace
