// Slow controls on the thread pool against the simulator: the loading card,
// one job at a time, the finish rules, the push stream page's wait for the
// topic.
#include "control/async_control_runner.h"
#include "control/manual_time_source.h"
#include "control_sim_backend.h"
#include "control_test_kit.h"

#include <QLabel>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <atomic>

using namespace controltest;
using testsupport::waitUntil;

namespace {

constexpr int kPushPage = AsyncControlRunner::kPushStreamPage;

class AsyncControl : public ::testing::Test {
protected:
    void SetUp() override { app = backend.bareAppManager(); }

    std::function<int()> pushSwitch(int index, int on)
    {
        AppManager* manager = app.get();
        return [manager, index, on] { return manager->setEncNetStreamSwitch(index, on); };
    }
    bool finished() const { return !runner.isControlRequestActive(); }
    QString shownText() const { return host.overlay->textLabel()->text(); }
    bool publishOn(int index) const
    {
        return backend.at("/stream/publish/" + std::to_string(index) + "/switch") == 1;
    }

    SimBackend backend;
    std::unique_ptr<AppManager> app;
    OverlayHost host;
    ManualTimeSource time;
    OperationFeedback feedback{host.overlay, englishTranslate(), time};
    int page_on_screen = 21;
    AsyncControlRunner runner{feedback, [this] { return page_on_screen; }};
    QSignalSpy refreshes{&runner, &AsyncControlRunner::refreshPageRequested};
    QSignalSpy failures{&runner, &AsyncControlRunner::controlFailed};
};

} // namespace

TEST_F(AsyncControl, SlowJobShowsLoadingDropsASecondRequestAndEndsWithItsResult)
{
    backend.control("delay update_publish_switch 300");
    ASSERT_TRUE(runner.startAsyncControlRequest(pushSwitch(1, 1), 21));
    EXPECT_TRUE(feedback.isOperationInProgress());
    EXPECT_EQ(shownText(), english("point_info.loading"));

    EXPECT_FALSE(runner.startAsyncControlRequest(pushSwitch(2, 1), 21));
    EXPECT_FALSE(runner.startPushStreamSwitch(2, 1, pushSwitch(2, 1)));
    EXPECT_EQ(runner.pendingPushIndex(), -1);

    ASSERT_TRUE(waitUntil([&] { return finished(); }));
    EXPECT_EQ(host.overlay->state(), OPERATION_SUCCESS);
    EXPECT_EQ(shownText(), english("point_info.succeed"));
    EXPECT_TRUE(publishOn(1));
    EXPECT_FALSE(publishOn(2)) << "the dropped request never went out";
    ASSERT_EQ(refreshes.count(), 1);
    EXPECT_EQ(refreshes.at(0).at(0).toInt(), 21);
    EXPECT_EQ(failures.count(), 0);

    ASSERT_TRUE(runner.startAsyncControlRequest(pushSwitch(2, 1), 21)) << "free again";
    ASSERT_TRUE(waitUntil([&] { return finished(); }));
    EXPECT_TRUE(publishOn(2));
}

TEST_F(AsyncControl, RequestQueuedBehindTheFirstIsRefusedWhileItsCardPaints)
{
    // Painting the loading card runs the event loop; a click queued before
    // the card appeared runs inside it and must find the runner busy.
    int second = -1;
    QMetaObject::invokeMethod(
        &runner, [&] { second = runner.startAsyncControlRequest(pushSwitch(2, 1), 21) ? 1 : 0; },
        Qt::QueuedConnection);
    ASSERT_TRUE(runner.startAsyncControlRequest(pushSwitch(1, 1), 21));
    EXPECT_EQ(second, 0);
    ASSERT_TRUE(waitUntil([&] { return finished(); }));
    EXPECT_TRUE(publishOn(1));
    EXPECT_FALSE(publishOn(2));
}

TEST_F(AsyncControl, FailureShowsItsMappedTextAndReportsThePage)
{
    backend.control("status update_publish_switch 60002");
    ASSERT_TRUE(runner.startAsyncControlRequest(pushSwitch(0, 1), 10, "never shown"));
    ASSERT_TRUE(waitUntil([&] { return finished(); }));
    EXPECT_EQ(host.overlay->state(), OPERATION_FAILED);
    EXPECT_EQ(shownText(), english("point_info.stream_start_failed"));
    ASSERT_EQ(failures.count(), 1);
    EXPECT_EQ(failures.at(0).at(0).toInt(), 10);
    EXPECT_EQ(failures.at(0).at(1).toInt(), -10);
    EXPECT_EQ(refreshes.count(), 0) << "a failed job leaves the page as it is";
}

TEST_F(AsyncControl, TimeoutShowsTheCommonFailure)
{
    backend.control("hang play_switch 5000");
    AppManager* manager = app.get();
    // The SRT playback switch waits the shortest time for its reply.
    ASSERT_TRUE(
        runner.startAsyncControlRequest([manager] { return manager->setDecSrtPlaySwitch(1); }, 20));
    ASSERT_TRUE(waitUntil([&] { return finished(); }, std::chrono::milliseconds(8000)));
    EXPECT_EQ(host.overlay->state(), OPERATION_FAILED);
    EXPECT_EQ(shownText(), english("point_info.failed"));
}

TEST_F(AsyncControl, WarningReplacesTheSuccessTextOnly)
{
    ASSERT_TRUE(runner.startAsyncControlRequest([] { return 0; }, 16, "Up to 1080p"));
    ASSERT_TRUE(waitUntil([&] { return finished(); }));
    EXPECT_EQ(host.overlay->state(), OPERATION_WARNING);
    EXPECT_EQ(shownText(), "Up to 1080p");

    ASSERT_TRUE(runner.startAsyncControlRequest([] { return -2; }, 16, "Up to 1080p"));
    ASSERT_TRUE(waitUntil([&] { return finished(); }));
    EXPECT_EQ(host.overlay->state(), OPERATION_FAILED);
    EXPECT_EQ(shownText(), english("point_info.invalid_param"));
}

TEST_F(AsyncControl, PushStreamResultWaitsForTheTopicWhileItsPageStays)
{
    auto full = backend.fullAppManager();
    AppManager* manager = full.get();
    page_on_screen = kPushPage;
    ASSERT_TRUE(runner.startPushStreamSwitch(
        1, 1, [manager] { return manager->setEncNetStreamSwitch(1, 1); }));
    EXPECT_EQ(runner.pendingPushIndex(), 1);
    EXPECT_EQ(runner.pendingPushTarget(), 1);
    ASSERT_TRUE(waitUntil([&] { return finished(); }));
    EXPECT_TRUE(feedback.isOperationInProgress()) << "the card waits for the stream to change";
    ASSERT_EQ(refreshes.count(), 1);
    EXPECT_EQ(refreshes.at(0).at(0).toInt(), kPushPage);

    EncoderShortcutPageVM stale;
    stale.push_streams = {PushStreamItemInfo{1, "Twitch", false, 0, 0}};
    EXPECT_FALSE(runner.finishPendingPushStreamSwitchIfReady(stale));
    EXPECT_TRUE(feedback.isOperationInProgress());

    // The window delivers each new VM of the page; the topic brings the change.
    ASSERT_TRUE(waitUntil([&] {
        return runner.finishPendingPushStreamSwitchIfReady(
            manager->buildEncoderShortcutPageVm(nullptr));
    }));
    EXPECT_EQ(host.overlay->state(), OPERATION_SUCCESS);
    EXPECT_EQ(runner.pendingPushIndex(), -1);
    EXPECT_FALSE(runner.finishPendingPushStreamSwitchIfReady(manager->getEncoderShortcutPageVm()))
        << "the result shows once";
}

TEST_F(AsyncControl, PushStreamResultShowsAtOnceWhenThePageWasLeft)
{
    backend.control("delay update_publish_switch 200");
    page_on_screen = kPushPage;
    ASSERT_TRUE(runner.startPushStreamSwitch(0, 1, pushSwitch(0, 1)));
    page_on_screen = 0;
    ASSERT_TRUE(waitUntil([&] { return finished(); }));
    EXPECT_EQ(host.overlay->state(), OPERATION_SUCCESS);
    EXPECT_EQ(runner.pendingPushIndex(), -1) << "nothing is left to wait for";
    EncoderShortcutPageVM vm;
    vm.push_streams = {PushStreamItemInfo{0, "YouTube Live", true, 1, 0}};
    EXPECT_FALSE(runner.finishPendingPushStreamSwitchIfReady(vm));
}

TEST_F(AsyncControl, FailedPushStreamForgetsItsWait)
{
    backend.control("status update_publish_switch 60011");
    page_on_screen = kPushPage;
    ASSERT_TRUE(runner.startPushStreamSwitch(2, 1, pushSwitch(2, 1)));
    ASSERT_TRUE(waitUntil([&] { return finished(); }));
    EXPECT_EQ(shownText(), english("point_info.stream_limit"));
    EXPECT_EQ(runner.pendingPushIndex(), -1);
    EXPECT_EQ(runner.pendingPushTarget(), -1);
}

TEST(AsyncControlLifetime, DestructorWaitsForTheRunningJob)
{
    OverlayHost host;
    OperationFeedback feedback(host.overlay, englishTranslate());
    std::atomic<bool> done{false};
    std::atomic<bool> release{false};
    {
        AsyncControlRunner runner(feedback, [] { return 0; });
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

TEST(AsyncRefresh, PagesRebuildTheirOwnModel)
{
    EXPECT_EQ(asyncRefreshModelForPage(20), AsyncRefreshModel::Decoding);
    for (int page : {21, 22, 23})
        EXPECT_EQ(asyncRefreshModelForPage(page), AsyncRefreshModel::EncoderShortcut) << page;
    for (int page : {24, 25, 26})
        EXPECT_EQ(asyncRefreshModelForPage(page), AsyncRefreshModel::DecoderShortcut) << page;
    for (int page : {-1, 10, 16, 27})
        EXPECT_EQ(asyncRefreshModelForPage(page), AsyncRefreshModel::None) << page;
}
