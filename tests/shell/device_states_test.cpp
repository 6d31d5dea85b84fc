// Idle states and long sessions as the window carries them: the screensaver
// pauses the refresh, idle time leaves a modal flow, and the sessions start
// from their pages.
#include "panel_window.h"

#include "control/idle_sleep_controller.h"
#include "control/modal_openings.h"
#include "control/ndi_search_session.h"
#include "pages/dynamic_screensaver_widget.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

using namespace shelltest;

namespace {

PanelOptions drivenClock()
{
    PanelOptions options;
    options.manual_time = true;
    return options;
}

class ShellDeviceStates : public PanelTest {
protected:
    ShellDeviceStates() : PanelTest(drivenClock()) {}
};

} // namespace

TEST_F(ShellDeviceStates, NoPageRefreshUnderTheScreensaver)
{
    ASSERT_TRUE(w().setLcdLowBrightness(true));
    ASSERT_TRUE(w().screensaverPage()->isVisible());
    QSignalSpy deliveries(&w(), &Widget::requestStatusPage1Update);
    QSignalSpy bar(&w(), &Widget::requestStatusBarUpdate);
    panel.tick();
    EXPECT_EQ(deliveries.count() + bar.count(), 0);
}

TEST_F(ShellDeviceStates, IdleTimeLeavesAModalFlowForHome)
{
    w().enterEditMode(EDIT_LANGUAGE, PAGE_SYSTEM_SETTINGS_1, 1);
    ASSERT_TRUE(w().isModalActive());
    panel.clock().advance(IdleSleepController::kDefaultIdleHomeMs);
    EXPECT_EQ(panel.shownPageId(), PAGE_STATUS_1);
    EXPECT_FALSE(w().isModalActive());
}

TEST_F(ShellDeviceStates, DiskSpeedTestStartsFromTheMediaPageWhichShowsItRunning)
{
    bool shownTesting = false;
    QObject::connect(&w(), &Widget::requestMediaSettingsPage1Update, &w(),
                     [&](const MediaSettingsPageVM& vm) { shownTesting = vm.disk_speed_testing; });
    w().goto_page(PAGE_MEDIA_SETTINGS_1);
    ASSERT_TRUE(panel.tickUntil([&] { return w().appManager()->getDiskStatus(0) == 1; }));
    panel.tap(settingsCard(w(), PAGE_MEDIA_SETTINGS_1, "media_settings.disk_speed"));
    ASSERT_TRUE(
        testsupport::waitUntil([&] { return panel.cardShows("point_info.disk_speed_started"); }));
    panel.tick();
    EXPECT_TRUE(shownTesting);
}

TEST_F(ShellDeviceStates, NdiSearchStartsWhenItsPageComesOnScreenNotOnEveryTick)
{
    panel.sim().require("workmode 1");
    ASSERT_TRUE(panel.tickUntil([&] { return w().workMode() == 1; }));
    const auto searches = [&] { return panel.sim().webRequestsOf("ndi_find"); };
    panel.sim().require("delay ndi_find 400"); // so that the first card can be read
    w().goto_page(PAGE_DECODER_SHORTCUT_3);
    EXPECT_TRUE(panel.cardShows("point_info.ndi_search_started"));
    ASSERT_TRUE(testsupport::waitUntil([&] { return !w().ndiSearchSession()->isRunning(); }));
    panel.tick();
    panel.tick();
    EXPECT_EQ(searches(), 1);

    w().onTouchBeginReq();
    w().goto_page(PAGE_DECODER_SHORTCUT_2);
    w().goto_page(PAGE_DECODER_SHORTCUT_3);
    ASSERT_TRUE(testsupport::waitUntil([&] { return !w().ndiSearchSession()->isRunning(); }));
    EXPECT_EQ(searches(), 2) << "coming back searches again";
}
