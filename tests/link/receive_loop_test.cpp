// The topic receive loop end to end: a publisher bound where the box's proxy
// would be, the worker's loop on a thread of its own.
#include "link_env.h"

#include <QObject>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

namespace linktest {
namespace {

using std::chrono::milliseconds;

// Stands where the box's topic proxy binds.
class TopicPublisher {
public:
    explicit TopicPublisher(const std::string& endpoint) : socket(context, zmq::socket_type::pub)
    {
        socket.set(zmq::sockopt::linger, 0);
        socket.bind(endpoint);
    }

    void publish(const std::string& topic, const std::string& content)
    {
        socket.send(zmq::buffer(topic), zmq::send_flags::sndmore);
        socket.send(zmq::buffer(content), zmq::send_flags::none);
    }

    void publishSinglePart(const std::string& topic)
    {
        socket.send(zmq::buffer(topic), zmq::send_flags::none);
    }

    // Publishes until `seen` holds: a subscription takes a moment to reach
    // the publisher, and messages sent before that are lost by design.
    bool publishUntil(const std::string& topic, const std::string& content,
                      const std::function<bool()>& seen)
    {
        return testsupport::waitUntil([&] {
            if (seen())
                return true;
            publish(topic, content);
            return testsupport::waitUntil(seen, milliseconds(50));
        });
    }

private:
    zmq::context_t context;
    zmq::socket_t socket;
};

class ReceiveLoopTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        env.start();
        publisher = std::make_unique<TopicPublisher>(env.endpoints.topics_sub);
        loop = std::thread([this] { env.worker->process(); });
    }

    void TearDown() override { stopLoop(); }

    void stopLoop()
    {
        env.worker->stop();
        if (loop.joinable())
            loop.join();
    }

    ZmqSubCache cache() const { return env.worker->getSubCache(); }

    LinkEnv env;
    std::unique_ptr<TopicPublisher> publisher;
    std::thread loop;
};

TEST_F(ReceiveLoopTest, TopicMessagesReachTheCache)
{
    ASSERT_TRUE(publisher->publishUntil(ZMQ_Topic::TOPIC_NETWORK_INFO,
                                        R"({"data":{"ip":"192.168.1.20"}})",
                                        [&] { return cache().network_ready; }));
    EXPECT_EQ(cache().ip, "192.168.1.20");

    // Once subscribed, single messages of the other topics arrive in order.
    publisher->publish(ZMQ_Topic::TOPIC_STORAGE_INFO, R"([{"index":0,"status":1,"totalspace":9}])");
    publisher->publish(ZMQ_Topic::TOPIC_MISC_CPU_MEMORY_INFO,
                       R"({"data":{"cpu_info":{"cpu_temp":70}}})");
    publisher->publish(ZMQ_Topic::TOPIC_VIDEO_INPUT_INFO, R"({"width":3840})");
    publisher->publish(ZMQ_Topic::TOPIC_RECORD_STATE_INFO, R"([{"taskId":"sdcard_0","status":1}])");
    publisher->publish(ZMQ_Topic::TOPIC_NET_STREAM_INFO, R"([{"index":2,"switch":1,"status":1}])");
    publisher->publish(ZMQ_Topic::TOPIC_OSD_STATE_INFO, R"([{"id":5,"switch":1}])");
    ASSERT_TRUE(testsupport::waitUntil([&] { return cache().osd_ready; }));
    const ZmqSubCache c = cache();
    EXPECT_EQ(c.disk_total[0], 9);
    EXPECT_EQ(c.cpu_temp, 70);
    EXPECT_EQ(c.video_width, 3840);
    EXPECT_TRUE(c.record_active);
    EXPECT_TRUE(c.stream_active);
    EXPECT_EQ(c.osd_items.at(0).id, 5);
}

TEST_F(ReceiveLoopTest, SignalsArriveQueuedOnTheReceiverThread)
{
    std::vector<int> modes;
    std::vector<int> progress;
    QObject receiver;
    QObject::connect(env.worker.get(), &ZmqSubWorker::workModeUpdate, &receiver,
                     [&](int mode) { modes.push_back(mode); });
    QObject::connect(env.worker.get(), &ZmqSubWorker::upgradeProgressUpdate, &receiver,
                     [&](int value) { progress.push_back(value); });

    ASSERT_TRUE(publisher->publishUntil(ZMQ_Topic::TOPIC_SYSTEM_STATE_INFO,
                                        R"({"workmode_id":1,"language_id":0,"run_status":1})",
                                        [&] { return !modes.empty(); }));
    publisher->publish(ZMQ_Topic::TOPIC_UPGRADE_PROGRESS_INFO, R"({"upgrade_progress":40})");
    publisher->publish(ZMQ_Topic::TOPIC_UPGRADE_PROGRESS_INFO, R"({"upgrade_progress":40})");
    publisher->publish(ZMQ_Topic::TOPIC_SYSTEM_STATE_INFO, R"({"workmode_id":0})");
    ASSERT_TRUE(testsupport::waitUntil([&] { return modes.size() >= 2; }));
    EXPECT_EQ(modes.front(), 1);
    EXPECT_EQ(modes.back(), 0);
    EXPECT_EQ(progress, std::vector<int>({40}));
}

TEST_F(ReceiveLoopTest, UnsubscribedTopicsAndBrokenMessagesAreSkipped)
{
    ASSERT_TRUE(publisher->publishUntil(ZMQ_Topic::TOPIC_VIDEO_INPUT_INFO, R"({"width":1})",
                                        [&] { return cache().video_input_ready; }));
    publisher->publish(ZMQ_Topic::TOPIC_LOG_INFO, R"({"data":{"ip":"1.1.1.1"}})");
    publisher->publishSinglePart(ZMQ_Topic::TOPIC_NETWORK_INFO);
    publisher->publish(ZMQ_Topic::TOPIC_NETWORK_INFO, "not json");
    publisher->publish(ZMQ_Topic::TOPIC_VIDEO_INPUT_INFO, R"({"width":2})");
    ASSERT_TRUE(testsupport::waitUntil([&] { return cache().video_width == 2; }));
    EXPECT_FALSE(cache().network_ready);
}

TEST_F(ReceiveLoopTest, StopEndsTheLoopPromptly)
{
    ASSERT_TRUE(publisher->publishUntil(ZMQ_Topic::TOPIC_VIDEO_INPUT_INFO, R"({"width":1})",
                                        [&] { return cache().video_input_ready; }));
    const auto start = std::chrono::steady_clock::now();
    stopLoop();
    // The idle receive returns every 100 ms; a generous bound, not a benchmark.
    EXPECT_LT(std::chrono::steady_clock::now() - start, milliseconds(1000));
}

TEST(ReceiveLoopLifecycleTest, StoppedWorkerLeavesProcessAtOnce)
{
    LinkEnv env;
    env.start();
    env.worker->stop();
    const auto start = std::chrono::steady_clock::now();
    env.worker->process();
    EXPECT_LT(std::chrono::steady_clock::now() - start, milliseconds(1000));
}

} // namespace
} // namespace linktest
