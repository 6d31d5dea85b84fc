// The subscriber and publisher roles: two-part messages of topic and content,
// each role against a plain socket bound where the box's forwarder would be.
#include "support/qt_capture.h"
#include "support/test_support.h"
#include "transport/zmq_manager.h"

#include <gtest/gtest.h>

namespace {

std::string loopback(int port)
{
    return "tcp://127.0.0.1:" + std::to_string(port);
}

// A subscription reaches a publisher only after a moment, so a test publishes
// until its first message lands.
TEST(PubSubRole, SubscriberGetsItsTopicsWithContentReturnsSoonWhenIdleAndFlagsAMissingPart)
{
    zmq::context_t context;
    zmq::socket_t publisher(context, zmq::socket_type::pub);
    publisher.set(zmq::sockopt::linger, 0);
    const int port = testsupport::freeTcpPort();
    publisher.bind(loopback(port));
    ZMQManager subscriber;
    subscriber.init_zmq_socket(zmq::socket_type::sub, loopback(port), 1);
    ASSERT_EQ(subscriber.set_subscribe_topic("topic_network_info"), 0);

    std::string topic = "kept";
    std::string content = "kept";
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(subscriber.recv_sub_msg(topic, content), 1);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
    EXPECT_EQ(topic + content, "keptkept");

    auto publish = [&](const std::string& name, const char* body) {
        publisher.send(zmq::buffer(name), body ? zmq::send_flags::sndmore : zmq::send_flags::none);
        if (body)
            publisher.send(zmq::buffer(std::string(body)), zmq::send_flags::none);
    };
    int result = 1;
    ASSERT_TRUE(testsupport::waitUntil([&] {
        publish("topic_other", "{\"ignored\":1}");
        publish("topic_network_info", "{\"ip\":\"10.0.0.2\"}");
        return (result = subscriber.recv_sub_msg(topic, content)) != 1;
    }));
    EXPECT_EQ(result, 0);
    EXPECT_EQ(topic, "topic_network_info");
    EXPECT_EQ(content, "{\"ip\":\"10.0.0.2\"}");
    while (subscriber.recv_sub_msg(topic, content) == 0) {
    }

    publish("topic_network_info", nullptr);
    content = "kept";
    ASSERT_TRUE(testsupport::waitUntil(
        [&] { return (result = subscriber.recv_sub_msg(topic, content)) != 1; }));
    EXPECT_EQ(result, -2);
    EXPECT_EQ(content, "kept");
}

TEST(PubSubRole, PublisherSendsTopicAndContentAsTwoPartsAndRefusesAnEmptyTopic)
{
    zmq::context_t context;
    zmq::socket_t subscriber(context, zmq::socket_type::sub);
    subscriber.set(zmq::sockopt::linger, 0);
    subscriber.set(zmq::sockopt::rcvtimeo, 20);
    subscriber.set(zmq::sockopt::subscribe, "");
    const int port = testsupport::freeTcpPort();
    subscriber.bind(loopback(port));
    ZMQManager publisher;
    publisher.init_zmq_socket(zmq::socket_type::pub, loopback(port), 1);

    zmq::message_t part;
    ASSERT_TRUE(testsupport::waitUntil([&] {
        EXPECT_EQ(publisher.send_pub_msg("topic_record_state_info", "[]"), 0);
        return subscriber.recv(part).has_value();
    }));
    EXPECT_EQ(part.to_string(), "topic_record_state_info");
    ASSERT_TRUE(part.more());
    ASSERT_TRUE(subscriber.recv(part));
    EXPECT_EQ(part.to_string(), "[]");
    EXPECT_FALSE(part.more());
    while (subscriber.recv(part)) {
    }

    EXPECT_EQ(publisher.send_pub_msg("", "{\"a\":1}"), -2);
    EXPECT_EQ(publisher.send_pub_msg("topic_marker", "m"), 0);
    ASSERT_TRUE(testsupport::waitUntil([&] { return subscriber.recv(part).has_value(); }));
    EXPECT_EQ(part.to_string(), "topic_marker") << "the refused message went out after all";
}

TEST(PubSubRole, EachRoleNamesItsEndpointAndRefusesWhatItCannotDo)
{
    ZMQManager nothing;
    ZMQManager publisher;
    ZMQManager subscriber;
    const std::string printed = testsupport::capturedStdout([&] {
        publisher.init_zmq_socket(zmq::socket_type::pub, "tcp://127.0.0.1:1", 1);
        subscriber.init_zmq_socket(zmq::socket_type::sub, "tcp://127.0.0.1:2", 1);
    });
    EXPECT_NE(printed.find("【pub】ZMQ socket connect to: tcp://127.0.0.1:1\n"), std::string::npos);
    EXPECT_NE(printed.find("【sub】ZMQ connected to: tcp://127.0.0.1:2\n"), std::string::npos);

    std::string topic;
    std::string content;
    for (ZMQManager* notSubscriber : {&nothing, &publisher}) {
        EXPECT_EQ(notSubscriber->recv_sub_msg(topic, content), -1);
        EXPECT_EQ(notSubscriber->set_subscribe_topic("t"), -1);
    }
    for (ZMQManager* notPublisher : {&nothing, &subscriber})
        EXPECT_EQ(notPublisher->send_pub_msg("t", "c"), -1);
}

} // namespace
