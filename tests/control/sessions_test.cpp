// The disk speed test and the NDI search against the simulated device: the
// session's cards, its generations, and its end when the disk changes.
#include "control/disk_speed_test_session.h"
#include "control/manual_time_source.h"
#include "control/ndi_search_session.h"
#include "control_sim_backend.h"
#include "control_test_kit.h"

#include <QLabel>
#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace controltest;
using testsupport::waitUntil;

namespace {

class SessionTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(waitUntil([&] { return app->isDataReady(); }));
    }

    QString shownText() const { return host.overlay->textLabel()->text(); }
    bool showing(const QString& text) const
    {
        return feedback.isOperationOverlayActive() && shownText() == text;
    }

    SimBackend backend;
    std::unique_ptr<AppManager> app = backend.fullAppManager();
    OverlayHost host;
    ManualTimeSource time;
    OperationFeedback feedback{host.overlay, englishTranslate(), time};
    int page_on_screen = 18;
};

class DiskSpeed : public SessionTest {
protected:
    void SetUp() override
    {
        SessionTest::SetUp();
        app->setCurrentPageContext(18, -1);
        ASSERT_TRUE(waitUntil([&] {
            return app->buildMediaSettingsPageVm(nullptr).present_storage_id == 0
                   && app->getDiskStatus(0) == 1;
        }));
        // The device measures nothing until the test says so.
        backend.control("set /storage/measured_speeds/0 0.0");
    }
    // Clicked, and the backend took the request: the session polls.
    void startAndWaitForPolling()
    {
        session.diskSpeedClicked();
        ASSERT_TRUE(waitUntil([&] { return !session.isDiskSpeedTestActive() || polling(); }));
        ASSERT_TRUE(polling());
    }
    bool polling() const
    {
        return session.isDiskSpeedTestActive() && showing(english("point_info.disk_speed_started"));
    }
    void deviceMeasures(double speed)
    {
        backend.control("set /storage/disks/0/write_speed " + std::to_string(speed));
        ASSERT_TRUE(waitUntil([&] { return app->getDiskWriteSpeed(0) > 0; }));
    }

    DiskSpeedTestSession session{app.get(), feedback, [this] { return page_on_screen; }, time};
    QSignalSpy refreshes{&session, &DiskSpeedTestSession::pageRefreshRequested};
};

} // namespace

TEST_F(DiskSpeed, MeasuredSpeedStaysUntilATouchAfterItsGate)
{
    startAndWaitForPolling();
    EXPECT_TRUE(session.sessionFlag());
    EXPECT_EQ(backend.at("/storage/speed_test/storage_id"), 0);

    time.advance(DiskSpeedTestSession::kPollDelayMs);
    EXPECT_TRUE(session.isDiskSpeedTestActive()) << "no speed yet: the session polls on";

    deviceMeasures(118.5);
    time.advance(DiskSpeedTestSession::kPollDelayMs);
    EXPECT_FALSE(session.isDiskSpeedTestActive());
    EXPECT_FALSE(session.sessionFlag());
    EXPECT_EQ(host.overlay->state(), OPERATION_SUCCESS);
    EXPECT_EQ(shownText(), "118.50 MB/s");
    EXPECT_FALSE(host.overlay->isAutoHidePending());
    ASSERT_GE(refreshes.count(), 1);
    EXPECT_EQ(refreshes.last().at(0).toInt(), 18);

    time.advance(DiskSpeedTestSession::kResultGateMs - 1);
    EXPECT_TRUE(feedback.consumeTouchBeginForOperationOverlay());
    EXPECT_TRUE(showing("118.50 MB/s")) << "an early touch is swallowed";
    time.advance(1);
    EXPECT_TRUE(feedback.consumeTouchBeginForOperationOverlay());
    EXPECT_FALSE(feedback.isOperationOverlayActive());
}

TEST_F(DiskSpeed, ChangingTheRecordDiskEndsTheSessionWithoutACard)
{
    startAndWaitForPolling();
    ASSERT_GE(app->setChooseStoragePath(1), 0);
    ASSERT_TRUE(waitUntil([&] { return app->getPresentStorageIdCached() == 1; }));
    deviceMeasures(42.0);
    host.overlay->hideOverlay();
    time.advance(DiskSpeedTestSession::kPollDelayMs);
    EXPECT_FALSE(session.isDiskSpeedTestActive());
    EXPECT_FALSE(session.sessionFlag());
    EXPECT_FALSE(feedback.isOperationOverlayActive());
}

TEST_F(DiskSpeed, TestSurvivesNavigationAndItsCardShowsOnAnyPage)
{
    startAndWaitForPolling();
    const int generation = session.generation();
    page_on_screen = 3;
    session.onPageSwitched();
    EXPECT_EQ(session.generation(), generation);
    deviceMeasures(42.5);
    time.advance(DiskSpeedTestSession::kPollDelayMs);
    EXPECT_TRUE(showing("42.50 MB/s"));
    const int refreshesBefore = refreshes.count();
    session.refreshCurrentDiskControlPage();
    EXPECT_EQ(refreshes.count(), refreshesBefore) << "page 3 shows no disk";

    session.onPageSwitched();
    EXPECT_EQ(session.generation(), generation + 2) << "idle: leftovers go stale";
}

TEST_F(DiskSpeed, SecondStartMakesTheFirstStale)
{
    startAndWaitForPolling();
    const int first = session.generation();
    backend.control("delay test_storage_speed 200");
    session.diskSpeedClicked();
    EXPECT_GT(session.generation(), first);
    EXPECT_TRUE(feedback.isOperationInProgress());
    // The first session's result can't end the second.
    session.finishDiskSpeedTestRequest(-3, 0, first);
    EXPECT_TRUE(feedback.isOperationInProgress());
    ASSERT_TRUE(waitUntil([&] { return !feedback.isOperationInProgress(); }));
    // The device still runs the first measurement and refuses a second.
    EXPECT_EQ(shownText(), english("point_info.storage_busy"));
    EXPECT_FALSE(session.isDiskSpeedTestActive());
}

TEST_F(DiskSpeed, RefusedStartShowsItsTextAndEndsTheSession)
{
    backend.control("status test_storage_speed 100016");
    session.diskSpeedClicked();
    ASSERT_TRUE(waitUntil([&] { return !session.isDiskSpeedTestActive(); }));
    EXPECT_EQ(host.overlay->state(), OPERATION_FAILED);
    EXPECT_EQ(shownText(), english("point_info.storage_speed_test_failed"));
    EXPECT_FALSE(session.sessionFlag());
    EXPECT_EQ(session.disk(), -1);
    EXPECT_GE(refreshes.count(), 1);
}

TEST_F(DiskSpeed, NothingToMeasureWhileRecordingOrWithoutADisk)
{
    ASSERT_GE(app->setRecordTaskEnable("sdcard_0", 1), 0);
    ASSERT_TRUE(
        waitUntil([&] { return app->buildMediaSettingsPageVm(nullptr).record_status == 1; }));
    session.diskSpeedClicked();
    EXPECT_FALSE(feedback.isOperationOverlayActive());
    EXPECT_FALSE(session.isDiskSpeedTestActive());
    EXPECT_EQ(backend.requestsOf("test_storage_speed"), 0);

    ASSERT_GE(app->setRecordTaskEnable("sdcard_0", 0), 0);
    backend.control("unplug-disk sd");
    ASSERT_TRUE(waitUntil([&] {
        return app->buildMediaSettingsPageVm(nullptr).record_status == 0
               && app->getDiskStatus(0) == 0;
    }));
    session.diskSpeedClicked();
    EXPECT_EQ(shownText(), english("point_info.disk_invalid"));
    EXPECT_EQ(backend.requestsOf("test_storage_speed"), 0);
}

TEST(DiskSpeedWithoutModel, StartFailsAtOnce)
{
    OverlayHost host;
    ManualTimeSource time;
    OperationFeedback feedback(host.overlay, englishTranslate(), time);
    DiskSpeedTestSession session(
        nullptr, feedback, [] { return 18; }, time);
    session.diskSpeedClicked();
    EXPECT_FALSE(feedback.isOperationOverlayActive());
    session.pollDiskSpeed(0, -1);
    time.advance(DiskSpeedTestSession::kPollDelayMs);
    EXPECT_EQ(host.overlay->state(), OPERATION_FAILED) << "a poll without model ends the session";
}

namespace {

class NdiSearch : public SessionTest {
protected:
    void SetUp() override
    {
        SessionTest::SetUp();
        backend.control("workmode 1");
        page_on_screen = 26;
    }
    bool done() const { return !search.isRunning(); }

    NdiSearchSession search{app.get(), feedback, [this] { return page_on_screen; }};
    QSignalSpy refreshes{&search, &NdiSearchSession::pageRefreshRequested};
};

} // namespace

TEST_F(NdiSearch, EnteringThePageSearchesOnceAndReportsTheEnd)
{
    search.onPageShown(26, 24);
    EXPECT_TRUE(search.isRunning());
    EXPECT_TRUE(showing(english("point_info.ndi_search_started")));
    search.onPageShown(26, 26);
    search.startDecNdiFindAsync();
    ASSERT_TRUE(waitUntil([&] { return done(); }));
    EXPECT_EQ(backend.requestsOf("ndi_find"), 1) << "one search at a time, none on a re-show";
    EXPECT_TRUE(showing(english("point_info.ndi_search_finished")));
    EXPECT_EQ(host.overlay->state(), OPERATION_SUCCESS);
    EXPECT_TRUE(host.overlay->isAutoHidePending());
    ASSERT_EQ(refreshes.count(), 1);
    EXPECT_EQ(refreshes.at(0).at(0).toInt(), 26);

    // The device finds its sources shortly after; the page lists them.
    app->setCurrentPageContext(26, -1);
    EXPECT_TRUE(
        waitUntil([&] { return app->buildDecoderShortcutPageVm(nullptr).ndi_items.size() == 3; }));
}

TEST_F(NdiSearch, RefusalShowsItsTextAndNoAnswerCountsAsTheEnd)
{
    backend.control("status ndi_find 140005");
    search.onPageShown(26, 3);
    ASSERT_TRUE(waitUntil([&] { return done(); }));
    EXPECT_EQ(host.overlay->state(), OPERATION_FAILED);
    EXPECT_EQ(shownText(), english("point_info.streamplay_failed"));
    EXPECT_EQ(refreshes.count(), 0);

    backend.control("hang ndi_find 3000");
    page_on_screen = 25;
    search.onPageShown(26, 25);
    ASSERT_TRUE(waitUntil([&] { return done(); }, std::chrono::milliseconds(8000)));
    EXPECT_TRUE(showing(english("point_info.ndi_search_finished")));
    EXPECT_EQ(refreshes.count(), 0) << "the page was left meanwhile";
}
