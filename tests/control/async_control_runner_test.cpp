// Slow controls on the thread pool against the simulator: one job at a time
// behind the loading card, the finish rules, and the push stream page's wait
// for the stream topic.
#include "control/async_control_runner.h"
#include "control_test_kit.h"

#include <QSignalSpy>
#include <QThread>

#include <gtest/gtest.h>

using namespace controltest;
using testsupport::waitUntil;

namespace {

class AsyncControl : public ::testing::Test {
protected:
    std::function<int()> publish(int index, AppManager* manager = nullptr)
    {
        manager = manager ? manager : app.get();
        return [manager, index] { return manager->setEncNetStreamSwitch(index, 1); };
    }
    bool finished()
    {
        return waitUntil([&] { return !runner.isControlRequestActive(); },
                         std::chrono::milliseconds(8000));
    }
    bool publishing(int index) const
    {
        return backend.at("/stream/publish/" + std::to_string(index) + "/switch") == 1;
    }

    testsupport::SimFixture backend;
    std::unique_ptr<AppManager> app = backend.bareAppManager();
    OperationCard card;
    int page_on_screen = AsyncControlRunner::kPushStreamPage;
    AsyncControlRunner runner{card.feedback, [this] { return page_on_screen; }};
    QSignalSpy refreshes{&runner, &AsyncControlRunner::refreshPageRequested};
    QSignalSpy failures{&runner, &AsyncControlRunner::controlFailed};
};

} // namespace

TEST_F(AsyncControl, OneJobAtATimeBehindTheLoadingCard)
{
    backend.require("delay update_publish_switch 300");
    // Painting the loading card runs the event loop: a tap queued before it
    // runs inside and must already find the runner busy.
    bool queuedStarted = true;
    QMetaObject::invokeMethod(
        &runner, [&] { queuedStarted = runner.startAsyncControlRequest(publish(2), 21); },
        Qt::QueuedConnection);
    ASSERT_TRUE(runner.startAsyncControlRequest(publish(1), 21));
    EXPECT_FALSE(queuedStarted);
    EXPECT_TRUE(card.shows("point_info.loading"));
    EXPECT_FALSE(runner.startPushStreamSwitch(2, 1, publish(2)));
    EXPECT_EQ(runner.pendingPushIndex(), -1) << "a dropped tap leaves no wait behind";
    ASSERT_TRUE(finished());
    EXPECT_TRUE(card.shows("point_info.succeed"));
    EXPECT_TRUE(publishing(1));
    EXPECT_FALSE(publishing(2)) << "the dropped requests never went out";
    EXPECT_EQ(refreshes.count(), 1);
    EXPECT_EQ(refreshes.at(0).at(0).toInt(), 21);
    EXPECT_TRUE(runner.startAsyncControlRequest(publish(2), 21)) << "free again";
    ASSERT_TRUE(finished());
}

TEST_F(AsyncControl, RefusalAndTimeOutShowTheirTextsButWarningsOnlyReplaceSuccess)
{
    backend.require("status update_publish_switch 60002");
    // The SRT playback switch waits the shortest time for its reply.
    backend.require("hang play_switch 5000");
    AppManager* a = app.get();
    const std::pair<std::function<int()>, const char*> cases[] = {
        {publish(0), "point_info.stream_start_failed"},
        {[a] { return a->setDecSrtPlaySwitch(1); }, "point_info.failed"},
        {[] { return -2; }, "point_info.invalid_param"}};
    for (const auto& [job, text] : cases) {
        ASSERT_TRUE(runner.startAsyncControlRequest(job, 10, "Up to 1080p"));
        ASSERT_TRUE(finished());
        EXPECT_EQ(card.state(), OPERATION_FAILED);
        EXPECT_TRUE(card.shows(text)) << text;
    }
    ASSERT_EQ(failures.count(), 3);
    EXPECT_EQ(failures.at(0), (QList<QVariant>{10, -10}));
    EXPECT_EQ(refreshes.count(), 0) << "a failed job leaves the page as it is";

    ASSERT_TRUE(runner.startAsyncControlRequest([] { return 0; }, 16, "Up to 1080p"));
    ASSERT_TRUE(finished());
    EXPECT_EQ(card.state(), OPERATION_WARNING);
    EXPECT_EQ(card.text(), "Up to 1080p");
}

TEST_F(AsyncControl, PushStreamResultWaitsOnItsPageForTheStreamToChange)
{
    auto full = std::make_unique<AppManager>(backend.endpoints());
    ASSERT_TRUE(runner.startPushStreamSwitch(1, 1, publish(1, full.get())));
    ASSERT_TRUE(finished());
    EXPECT_TRUE(card.feedback.isOperationInProgress()) << "the card waits for the stream";
    EXPECT_EQ(refreshes.count(), 1);
    EncoderShortcutPageVM stale;
    stale.push_streams = {PushStreamItemInfo{1, "Twitch", false, 0, 0}};
    EXPECT_FALSE(runner.finishPendingPushStreamSwitchIfReady(stale));
    // The window hands the page each new VM; the topic brings the change.
    ASSERT_TRUE(waitUntil([&] {
        return runner.finishPendingPushStreamSwitchIfReady(
            full->buildEncoderShortcutPageVm(nullptr));
    }));
    EXPECT_TRUE(card.shows("point_info.succeed"));
    EXPECT_FALSE(runner.finishPendingPushStreamSwitchIfReady(full->getEncoderShortcutPageVm()))
        << "the result shows once";
}

TEST_F(AsyncControl, PushStreamResultShowsAtOnceOffItsPageOrOnFailure)
{
    backend.require("delay update_publish_switch 200");
    ASSERT_TRUE(runner.startPushStreamSwitch(0, 1, publish(0)));
    page_on_screen = 0;
    ASSERT_TRUE(finished());
    EXPECT_TRUE(card.shows("point_info.succeed"));
    EXPECT_EQ(runner.pendingPushIndex(), -1) << "nothing is left to wait for";

    backend.require("status update_publish_switch 60011");
    page_on_screen = AsyncControlRunner::kPushStreamPage;
    ASSERT_TRUE(runner.startPushStreamSwitch(2, 1, publish(2)));
    ASSERT_TRUE(finished());
    EXPECT_TRUE(card.shows("point_info.stream_limit"));
    EXPECT_EQ(runner.pendingPushIndex(), -1);
}

TEST(AsyncControlLifetime, RunnerWaitsForItsJobBeforeItGoes)
{
    OperationCard card;
    std::atomic<bool> release{false};
    std::atomic<bool> done{false};
    {
        AsyncControlRunner runner(card.feedback, [] { return 0; });
        ASSERT_TRUE(runner.startAsyncControlRequest(
            [&] {
                while (!release)
                    QThread::msleep(1);
                done = true;
                return 0;
            },
            0));
        release = true;
    }
    EXPECT_TRUE(done);
}
