// The disk speed test and the NDI source search against the simulated
// device: their cards, the generations that make late results stale, and
// the end of a test when the disk changes.
#include "control/disk_speed_test_session.h"
#include "control/ndi_search_session.h"
#include "control_test_kit.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace controltest;
using testsupport::waitUntil;

namespace {

constexpr int kPoll = DiskSpeedTestSession::kPollDelayMs;

class DiskSpeed : public OnDevice {
protected:
    void SetUp() override
    {
        OnDevice::SetUp();
        app->setCurrentPageContext(page_on_screen, -1);
        ASSERT_TRUE(waitUntil([&] {
            return app->buildMediaSettingsPageVm(nullptr).present_storage_id == 0
                   && app->getDiskStatus(0) == 1;
        }));
        // The device measures nothing until the test says so.
        backend.require("set /storage/measured_speeds/0 0.0");
    }
    // Clicked, and the device took the request: the session polls.
    void startAndWaitForPolling()
    {
        session.diskSpeedClicked();
        ASSERT_TRUE(waitUntil([&] {
            return !session.isDiskSpeedTestActive() || card.shows("point_info.disk_speed_started");
        }));
        ASSERT_TRUE(session.isDiskSpeedTestActive());
    }
    QString deviceMeasures(double speed)
    {
        backend.require("set /storage/disks/0/write_speed " + std::to_string(speed));
        EXPECT_TRUE(waitUntil([&] { return app->getDiskWriteSpeed(0) > 0; }));
        return QStringLiteral("%1 MB/s").arg(speed, 0, 'f', 2);
    }

    int page_on_screen = 18;
    DiskSpeedTestSession session{app.get(), card.feedback, [this] { return page_on_screen; },
                                 card.time};
    QSignalSpy refreshes{&session, &DiskSpeedTestSession::pageRefreshRequested};
};

} // namespace

TEST_F(DiskSpeed, MeasurementSurvivesNavigationAndShowsOnAnyPage)
{
    startAndWaitForPolling();
    EXPECT_TRUE(session.sessionFlag());
    EXPECT_EQ(backend.at("/storage/speed_test/storage_id"), 0);
    card.time.advance(kPoll);
    EXPECT_TRUE(session.isDiskSpeedTestActive()) << "no speed yet: the session polls on";

    const int generation = session.generation();
    page_on_screen = 3;
    session.onPageSwitched();
    EXPECT_EQ(session.generation(), generation) << "a running test survives navigation";
    const QString speed = deviceMeasures(118.5);
    refreshes.clear();
    card.time.advance(kPoll);
    EXPECT_FALSE(session.isDiskSpeedTestActive());
    EXPECT_FALSE(session.sessionFlag());
    EXPECT_EQ(card.state(), OPERATION_SUCCESS);
    EXPECT_EQ(card.text(), speed) << "on whatever page is shown";
    EXPECT_EQ(refreshes.count(), 0) << "page 3 shows no disk";

    const int idle = session.generation();
    session.onPageSwitched();
    EXPECT_EQ(session.generation(), idle + 1) << "idle, leftovers go stale";
}

TEST_F(DiskSpeed, ChangingTheRecordDiskEndsTheTestWithoutACard)
{
    startAndWaitForPolling();
    ASSERT_GE(app->setChooseStoragePath(1), 0);
    ASSERT_TRUE(waitUntil([&] { return app->getPresentStorageIdCached() == 1; }));
    deviceMeasures(42.0);
    card.overlay->hideOverlay();
    card.time.advance(kPoll);
    EXPECT_FALSE(session.isDiskSpeedTestActive());
    EXPECT_FALSE(session.sessionFlag());
    EXPECT_FALSE(card.feedback.isOperationOverlayActive());
}

TEST_F(DiskSpeed, SecondStartMakesTheFirstStale)
{
    startAndWaitForPolling();
    const int first = session.generation();
    backend.require("delay test_storage_speed 200");
    session.diskSpeedClicked();
    EXPECT_GT(session.generation(), first);
    session.finishDiskSpeedTestRequest(-3, 0, first);
    EXPECT_TRUE(card.feedback.isOperationInProgress()) << "the first one's answer is stale";
    ASSERT_TRUE(waitUntil([&] { return !card.feedback.isOperationInProgress(); }));
    // The device still runs the first measurement and refuses a second.
    EXPECT_TRUE(card.shows("point_info.storage_busy"));
    EXPECT_FALSE(session.isDiskSpeedTestActive());
}

TEST_F(DiskSpeed, RefusedStartOrNothingToMeasureEndsTheSessionAtOnce)
{
    backend.require("status test_storage_speed 100016");
    session.diskSpeedClicked();
    ASSERT_TRUE(waitUntil([&] { return !session.isDiskSpeedTestActive(); }));
    EXPECT_TRUE(card.shows("point_info.storage_speed_test_failed"));
    EXPECT_FALSE(session.sessionFlag());
    ASSERT_GE(refreshes.count(), 1);
    EXPECT_EQ(refreshes.last().at(0).toInt(), page_on_screen);
    card.overlay->hideOverlay();

    ASSERT_GE(app->setRecordTaskEnable("sdcard_0", 1), 0);
    ASSERT_TRUE(
        waitUntil([&] { return app->buildMediaSettingsPageVm(nullptr).record_status == 1; }));
    const int requests = backend.webRequestsOf("test_storage_speed");
    session.diskSpeedClicked();
    EXPECT_FALSE(card.feedback.isOperationOverlayActive()) << "a tap while recording does nothing";

    ASSERT_GE(app->setRecordTaskEnable("sdcard_0", 0), 0);
    backend.require("unplug-disk sd");
    ASSERT_TRUE(waitUntil([&] {
        return app->buildMediaSettingsPageVm(nullptr).record_status == 0
               && app->getDiskStatus(0) == 0;
    }));
    session.diskSpeedClicked();
    EXPECT_TRUE(card.shows("point_info.disk_invalid"));
    EXPECT_EQ(backend.webRequestsOf("test_storage_speed"), requests);
}

namespace {

class NdiSearch : public OnDevice {
protected:
    void SetUp() override
    {
        OnDevice::SetUp();
        backend.require("workmode 1");
    }
    bool done() const { return !search.isRunning(); }

    int page_on_screen = NdiSearchSession::kNdiSourcePage;
    NdiSearchSession search{app.get(), card.feedback, [this] { return page_on_screen; }};
    QSignalSpy refreshes{&search, &NdiSearchSession::pageRefreshRequested};
};

} // namespace

TEST_F(NdiSearch, OneSearchPerEntryEndingInItsCardOrItsRefusal)
{
    search.onPageShown(26, 24);
    EXPECT_TRUE(card.shows("point_info.ndi_search_started"));
    search.onPageShown(26, 26);
    search.startDecNdiFindAsync();
    ASSERT_TRUE(waitUntil([&] { return done(); }));
    EXPECT_EQ(backend.webRequestsOf("ndi_find"), 1) << "one search at a time, none on a re-show";
    EXPECT_TRUE(card.shows("point_info.ndi_search_finished"));
    EXPECT_TRUE(card.overlay->isAutoHidePending());
    EXPECT_EQ(refreshes.value(0), QList<QVariant>{26});

    backend.require("status ndi_find 140005");
    search.onPageShown(26, 3);
    ASSERT_TRUE(waitUntil([&] { return done(); }));
    EXPECT_TRUE(card.shows("point_info.streamplay_failed"));
    // No answer at all counts as the end; the page left meanwhile isn't refreshed.
    backend.require("hang ndi_find 3000");
    page_on_screen = 25;
    search.onPageShown(26, 25);
    ASSERT_TRUE(waitUntil([&] { return done(); }, std::chrono::milliseconds(8000)));
    EXPECT_TRUE(card.shows("point_info.ndi_search_finished"));
    EXPECT_EQ(refreshes.count(), 1);
}
