// The subscriber and publisher roles' own refusals. Their two-part messages
// over real sockets carry every topic of the simulator to the panel's topic
// worker, which the link and simulator suites test.
#include "support/qt_capture.h"
#include "support/test_support.h"
#include "transport/zmq_manager.h"

#include <gtest/gtest.h>

namespace {

TEST(PubSubRole, PublisherRefusesAnEmptyTopicAndSendsNothing)
{
    zmq::context_t context;
    zmq::socket_t subscriber(context, zmq::socket_type::sub);
    subscriber.set(zmq::sockopt::linger, 0);
    subscriber.set(zmq::sockopt::rcvtimeo, 20);
    subscriber.set(zmq::sockopt::subscribe, "");
    const std::string endpoint = "tcp://127.0.0.1:" + std::to_string(testsupport::freeTcpPort());
    subscriber.bind(endpoint);
    ZMQManager publisher;
    testsupport::capturedStdout(
        [&] { publisher.init_zmq_socket(zmq::socket_type::pub, endpoint, 1); });

    // A subscription reaches a publisher only after a moment.
    zmq::message_t part;
    ASSERT_TRUE(testsupport::waitUntil([&] {
        publisher.send_pub_msg("topic_first", "1");
        return subscriber.recv(part).has_value();
    }));
    while (subscriber.recv(part)) {
    }
    EXPECT_EQ(publisher.send_pub_msg("", "{\"a\":1}"), -2);
    EXPECT_EQ(publisher.send_pub_msg("topic_marker", "m"), 0);
    ASSERT_TRUE(testsupport::waitUntil([&] { return subscriber.recv(part).has_value(); }));
    EXPECT_EQ(part.to_string(), "topic_marker") << "the refused message went out after all";
}

TEST(PubSubRole, EachRoleRefusesWhatItCannotDo)
{
    ZMQManager nothing;
    ZMQManager publisher;
    ZMQManager subscriber;
    testsupport::capturedStdout([&] {
        publisher.init_zmq_socket(zmq::socket_type::pub, "tcp://127.0.0.1:1", 1);
        subscriber.init_zmq_socket(zmq::socket_type::sub, "tcp://127.0.0.1:2", 1);
    });
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
