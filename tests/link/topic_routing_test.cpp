// The topic receive loop over real sockets: a publisher bound where the box's
// proxy would be, the worker's loop on a thread of its own.
#include "link_env.h"

#include <gtest/gtest.h>

#include <thread>

namespace linktest {
namespace {

using std::chrono::milliseconds;

struct Route {
    const std::string& topic;
    std::string payload;
    std::function<bool(const ZmqSubCache&)> arrived;
};

// One message per subscribed topic, each recognisable in the cache only when
// its own parser handled it.
const std::vector<Route>& routes()
{
    using C = const ZmqSubCache&;
    static const std::vector<Route> table = {
        {ZMQ_Topic::TOPIC_NETWORK_INFO, R"({"data":{"ip":"192.168.1.20"}})",
         [](C c) { return c.ip == "192.168.1.20"; }},
        {ZMQ_Topic::TOPIC_MISC_CPU_MEMORY_INFO, R"({"data":{"cpu_info":{"cpu_temp":70}}})",
         [](C c) { return c.cpu_temp == 70; }},
        {ZMQ_Topic::TOPIC_STORAGE_INFO, R"([{"index":0,"status":1,"totalspace":9}])",
         [](C c) { return c.disk_total[0] == 9; }},
        {ZMQ_Topic::TOPIC_SYSTEM_STATE_INFO, R"({"workmode_id":1})",
         [](C c) { return c.workmode_id == 1; }},
        {ZMQ_Topic::TOPIC_UPGRADE_PROGRESS_INFO, R"({"upgrade_progress":40})",
         [](C c) { return c.upgrade_progress == 40; }},
        {ZMQ_Topic::TOPIC_VIDEO_INPUT_INFO, R"({"width":3840})",
         [](C c) { return c.video_width == 3840; }},
        {ZMQ_Topic::TOPIC_RECORD_STATE_INFO, R"([{"taskId":"sdcard_0","status":1}])",
         [](C c) { return c.record_active; }},
        {ZMQ_Topic::TOPIC_NET_STREAM_INFO, R"([{"index":2,"switch":1,"status":1}])",
         [](C c) { return c.stream_active; }},
        {ZMQ_Topic::TOPIC_OSD_STATE_INFO, R"([{"id":5,"switch":1}])",
         [](C c) { return !c.osd_items.empty() && c.osd_items[0].id == 5; }},
    };
    return table;
}

// The same payload with its root turned from object to array or back.
std::string wrongShape(const std::string& payload)
{
    return payload[0] == '[' ? R"({"data":)" + payload + "}" : "[" + payload + "]";
}

class TopicRoutingTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        env.start();
        publisher.set(zmq::sockopt::linger, 0);
        publisher.bind(env.endpoints.topics_sub);
        loop = std::thread([this] { env.worker->process(); });
    }
    void TearDown() override { stopLoop(); }

    void stopLoop()
    {
        env.worker->stop();
        if (loop.joinable())
            loop.join();
    }

    void publish(const std::string& topic, const std::string& content)
    {
        publisher.send(zmq::buffer(topic), zmq::send_flags::sndmore);
        publisher.send(zmq::buffer(content), zmq::send_flags::none);
    }

    // A subscription takes a moment to reach the publisher and messages sent
    // before then are lost, so the first message is repeated until it lands.
    bool publishUntil(const Route& route)
    {
        return testsupport::waitUntil([&] {
            publish(route.topic, route.payload);
            return testsupport::waitUntil([&] { return route.arrived(cache()); }, milliseconds(50));
        });
    }

    ZmqSubCache cache() const { return env.worker->getSubCache(); }

    LinkEnv env;
    zmq::context_t context;
    zmq::socket_t publisher{context, zmq::socket_type::pub};
    std::thread loop;
};

TEST_F(TopicRoutingTest, EachSubscribedTopicReachesItsOwnPartOfTheCache)
{
    ASSERT_TRUE(publishUntil(routes().front()));
    for (const Route& route : routes()) {
        publish(route.topic, route.payload);
        EXPECT_TRUE(testsupport::waitUntil([&] { return route.arrived(cache()); })) << route.topic;
    }
    const ZmqSubCache c = cache();
    for (const bool ready :
         {c.network_ready, c.cpu_memory_ready, c.storage_ready, c.video_input_ready, c.record_ready,
          c.net_stream_ready, c.osd_ready, c.system_state_ready})
        EXPECT_TRUE(ready);
}

TEST_F(TopicRoutingTest, BrokenAndForeignMessagesChangeNothingAndTheLoopGoesOn)
{
    const Route sentinel{ZMQ_Topic::TOPIC_VIDEO_INPUT_INFO, R"({"width":1})",
                         [](const ZmqSubCache& c) { return c.video_width == 1; }};
    ASSERT_TRUE(publishUntil(sentinel));
    for (const Route& route : routes()) {
        publish(route.topic, "not json");
        publish(route.topic, wrongShape(route.payload));
        publisher.send(zmq::buffer(route.topic), zmq::send_flags::none); // no content part
    }
    publish(ZMQ_Topic::TOPIC_LOG_INFO, routes().front().payload); // not subscribed
    // A value of the wrong type throws in the parser; the loop pauses and reads on.
    publish(ZMQ_Topic::TOPIC_STORAGE_INFO, R"([{"index":0,"status":1,"write_speed":"fast"}])");
    publish(sentinel.topic, R"({"width":2})");
    ASSERT_TRUE(testsupport::waitUntil([&] { return cache().video_width == 2; }));

    const ZmqSubCache c = cache();
    for (const Route& route : routes())
        EXPECT_FALSE(route.arrived(c)) << route.topic;
    for (const bool ready : {c.network_ready, c.cpu_memory_ready, c.storage_ready, c.record_ready,
                             c.net_stream_ready, c.osd_ready, c.system_state_ready})
        EXPECT_FALSE(ready);
    EXPECT_EQ(c.upgrade_progress, ZmqSubCache().upgrade_progress);
}

TEST_F(TopicRoutingTest, StopEndsTheLoopWithinItsShortReceive)
{
    const auto start = std::chrono::steady_clock::now();
    stopLoop();
    EXPECT_LT(std::chrono::steady_clock::now() - start, milliseconds(1000));
    // A stopped worker leaves process at once.
    env.worker->process();
    EXPECT_LT(std::chrono::steady_clock::now() - start, milliseconds(1000));
}

} // namespace
} // namespace linktest
