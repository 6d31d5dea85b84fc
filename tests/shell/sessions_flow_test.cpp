// The two long sessions in the running panel: the disk speed test, which
// outlives navigation and ends without a card when the disk changes, and the
// NDI source search that starts when its page comes on screen.
#include "panel_controls.h"

#include "control/disk_speed_test_session.h"
#include "control/ndi_search_session.h"
#include "model/app_manager.h"

#include <gtest/gtest.h>

using namespace shelltest;

namespace {

RigOptions drivenClock()
{
    RigOptions options;
    options.manual_time = true;
    return options;
}

class ShellDiskSpeed : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(rig.waitForMainUi());
        // The device measures nothing until a test says what it found.
        rig.control("set /storage/measured_speeds/0 0.0");
        QObject::connect(
            &w(), &Widget::requestMediaSettingsPage1Update, &w(),
            [this](const MediaSettingsPageVM& vm) { shown_testing = vm.disk_speed_testing; });
    }
    Widget& w() { return rig.panel(); }
    DiskSpeedTestSession& session() { return *w().diskSpeedSession(); }

    // Taps the speed card of the media page and waits for the device to take
    // the request.
    void startTest()
    {
        ASSERT_TRUE(showPageWhen(rig, PAGE_MEDIA_SETTINGS_1, [&] {
            return w().appManager()->buildMediaSettingsPageVm(nullptr).present_storage_id == 0
                   && w().appManager()->getDiskStatus(0) == 1;
        }));
        tap(w(), settingsCard(w(), PAGE_MEDIA_SETTINGS_1, "media_settings.disk_speed"));
        EXPECT_TRUE(w().isOperationInProgress());
        ASSERT_TRUE(testsupport::waitUntil(
            [&] { return cardText(w()) == text(w(), "point_info.disk_speed_started"); }));
        EXPECT_TRUE(session().isDiskSpeedTestActive());
        EXPECT_EQ(deviceInt(rig, "/storage/speed_test/storage_id"), 0);
    }
    void deviceMeasures(const char* speed)
    {
        rig.control(std::string("set /storage/disks/0/write_speed ") + speed);
        ASSERT_TRUE(rig.tickUntil([&] { return w().appManager()->getDiskWriteSpeed(0) > 0; }));
    }

    PanelRig rig{drivenClock()};
    bool shown_testing = false;
};

} // namespace

TEST_F(ShellDiskSpeed, TestSurvivesNavigationAndItsResultWaitsOutTheGate)
{
    startTest();
    rig.tick();
    EXPECT_TRUE(shown_testing) << "the media page shows the test running";

    touch(w());
    w().goto_page(PAGE_MAIN_MENU_1);
    w().goto_page(PAGE_STATUS_1);
    EXPECT_TRUE(session().isDiskSpeedTestActive()) << "a running test survives navigation";
    rig.clock().advance(DiskSpeedTestSession::kPollDelayMs);
    EXPECT_TRUE(session().isDiskSpeedTestActive()) << "no speed yet: it polls on";
    EXPECT_FALSE(cardVisible(w()));

    deviceMeasures("118.5");
    rig.clock().advance(DiskSpeedTestSession::kPollDelayMs);
    EXPECT_FALSE(session().isDiskSpeedTestActive());
    EXPECT_EQ(cardState(w()), OPERATION_SUCCESS);
    EXPECT_EQ(cardText(w()), "118.50 MB/s");
    EXPECT_EQ(rig.shownPageId(), PAGE_STATUS_1) << "the result comes on whatever page is shown";
    rig.screenshot("card_disk_speed");

    rig.clock().advance(DiskSpeedTestSession::kResultGateMs - 1);
    touch(w());
    EXPECT_TRUE(cardVisible(w())) << "a touch inside the gate is swallowed";
    rig.clock().advance(1);
    touch(w());
    EXPECT_FALSE(cardVisible(w()));
}

TEST_F(ShellDiskSpeed, ChangingTheDiskEndsTheTestWithoutACard)
{
    startTest();
    touch(w());
    rig.control("set /storage/present_storage_id 1");
    ASSERT_TRUE(rig.tickUntil([&] { return w().appManager()->getPresentStorageIdCached() == 1; }));
    deviceMeasures("42.0");
    rig.clock().advance(DiskSpeedTestSession::kPollDelayMs);
    EXPECT_FALSE(session().isDiskSpeedTestActive());
    EXPECT_FALSE(session().sessionFlag());
    EXPECT_FALSE(cardVisible(w())) << "a speed for a disk no longer chosen would mislead";
    rig.tick();
    EXPECT_FALSE(shown_testing);
}

TEST(ShellNdiSearch, StartsWhenItsPageComesOnScreenAndNotOnEveryTick)
{
    PanelRig rig;
    ASSERT_TRUE(rig.waitForMainUi());
    Widget& w = rig.panel();
    rig.control("workmode 1");
    ASSERT_TRUE(rig.tickUntil([&] { return w.workMode() == 1; }));
    const auto searches = [&] {
        int count = 0;
        for (const auto& request : rig.simulator().webRequests())
            count += request.operation == "ndi_find" ? 1 : 0;
        return count;
    };

    // The device takes its time to answer, so that the first card can be read.
    rig.control("delay ndi_find 400");
    w.goto_page(PAGE_DECODER_SHORTCUT_3);
    EXPECT_TRUE(w.ndiSearchSession()->isRunning());
    EXPECT_EQ(cardText(w), text(w, "point_info.ndi_search_started"));
    ASSERT_TRUE(testsupport::waitUntil([&] { return !w.ndiSearchSession()->isRunning(); }));
    EXPECT_EQ(cardState(w), OPERATION_SUCCESS);
    EXPECT_EQ(cardText(w), text(w, "point_info.ndi_search_finished"));
    EXPECT_EQ(searches(), 1);
    // The sources found show up on the page.
    EXPECT_TRUE(rig.tickUntil([&] { return listRow(w, PAGE_DECODER_SHORTCUT_3, 0) != nullptr; }));
    EXPECT_EQ(searches(), 1) << "the refresh ticks start no search";

    touch(w);
    w.goto_page(PAGE_DECODER_SHORTCUT_2);
    w.goto_page(PAGE_DECODER_SHORTCUT_3);
    ASSERT_TRUE(testsupport::waitUntil([&] { return !w.ndiSearchSession()->isRunning(); }));
    EXPECT_EQ(searches(), 2) << "coming back searches again";
}
