// Return to home, dimming, the screensaver, standby and the upgrade screen on
// a hand-driven clock, against the simulated device.
#include "control/idle_sleep_controller.h"
#include "control_test_kit.h"
#include "fake_surfaces.h"

#include <gtest/gtest.h>

using namespace controltest;
using testsupport::waitUntil;

namespace {

constexpr qint64 kMinute = 60000;

class IdleSleep : public OnDevice {
protected:
    void SetUp() override
    {
        OnDevice::SetUp();
        QObject::connect(app.get(), &AppManager::runStatusChanged, app.get(),
                         [this](int status) { idle.onRunStatusChanged(status); });
        QObject::connect(app.get(), &AppManager::upgradeProgressChanged, app.get(),
                         [this](int progress) { idle.showUpgradeProgress(progress); });
        idle.init_idle_home_timer();
        idle.init_lcd_sleep_timer();
    }
    CameraSettingsPageVM cameraVm() { return app->buildCameraSettingsPageVm(nullptr); }
    // The sleep setting as the panel sees it once the poller has read it.
    void setSleepMinutes(int minutes)
    {
        backend.require("set /lcd/LCD_sleep " + std::to_string(minutes));
        ASSERT_TRUE(waitUntil([&] { return cameraVm().lcd_sleep == minutes; }));
        idle.restartLcdSleepTimer(cameraVm());
    }
    int brightness() const { return backend.at("/lcd/lcd_bright").get<int>(); }
    bool standbyFromTheTopic()
    {
        backend.require("standby");
        return waitUntil([&] { return surfaces.standby_entries == 1; });
    }

    const int configured_brightness = brightness();
    FakeSurfaces surfaces;
    IdleSleepController idle{app.get(), surfaces, card.time};
};

} // namespace

TEST_F(IdleSleep, EachPageFallsBackHomeAfterItsOwnTimeAndTouchesStartItAgain)
{
    const std::pair<int, qint64> pages[] = {{5, kMinute}, {32, 5 * kMinute}, {1, 0}, {21, 0}};
    for (const auto& [page, wait] : pages) {
        surfaces.gotos.clear();
        surfaces.page = page;
        idle.idle_home_time_refresh(page); // the window's page switch
        card.time.advance(wait ? wait - 1000 : 60 * kMinute);
        idle.idle_home_time_refresh(-1); // a touch begin
        card.time.advance(wait ? wait - 1 : 60 * kMinute);
        EXPECT_TRUE(surfaces.gotos.empty()) << page;
        card.time.advance(1);
        EXPECT_EQ(surfaces.gotos, std::vector<int>(wait ? 1 : 0, 0)) << page;
    }
    surfaces.page = 16;
    idle.idle_home_time_refresh(16);
    surfaces.page = 1; // home meanwhile, without a refresh
    card.time.advance(kMinute);
    EXPECT_FALSE(idle.isIdleHomeTimerActive());
    EXPECT_EQ(surfaces.gotos, std::vector<int>{});
}

TEST_F(IdleSleep, DimsAfterTheConfiguredTimeAndATouchBringsTheBrightnessBack)
{
    EXPECT_EQ(idle.lcdSleepInterval(), 5 * kMinute) << "before any data the panel waits 5 minutes";
    setSleepMinutes(1);
    card.time.advance(kMinute - 1);
    EXPECT_FALSE(idle.isLcdDimmed());
    card.time.advance(1);
    EXPECT_TRUE(idle.isLcdDimmed());
    EXPECT_EQ(brightness(), IdleSleepController::kDimBrightness);
    EXPECT_TRUE(surfaces.screensaver_visible);
    EXPECT_EQ(surfaces.guide_hides, 1);
    // The device reports the dim level as its brightness by now; waking must
    // still bring back the one the user set.
    ASSERT_TRUE(
        waitUntil([&] { return cameraVm().lcd_bright == IdleSleepController::kDimBrightness; }));
    EXPECT_TRUE(idle.touchBeginWakesScreen()) << "the waking touch is used up";
    EXPECT_FALSE(surfaces.screensaver_visible);
    EXPECT_EQ(brightness(), configured_brightness);
    EXPECT_FALSE(idle.touchBeginWakesScreen()) << "the next touch goes to the page";
}

TEST_F(IdleSleep, RaisedSleepTimeWaitsForTheRestZeroNeverDimsAndFailureChangesNothing)
{
    setSleepMinutes(1);
    backend.require("set /lcd/LCD_sleep 5");
    ASSERT_TRUE(waitUntil([&] { return cameraVm().lcd_sleep == 5; }));
    card.time.advance(kMinute);
    EXPECT_FALSE(idle.isLcdDimmed());
    EXPECT_EQ(idle.lcdSleepInterval(), 4 * kMinute);
    card.time.advance(4 * kMinute);
    EXPECT_TRUE(idle.isLcdDimmed());
    idle.touchBeginWakesScreen();

    backend.require("status set_lcd_info 80002");
    card.time.advance(5 * kMinute);
    EXPECT_FALSE(idle.isLcdDimmed());
    EXPECT_FALSE(idle.isScreensaverActive()) << "no screensaver when dimming failed";
    EXPECT_EQ(brightness(), configured_brightness);

    CameraSettingsPageVM never = cameraVm();
    never.lcd_sleep = 0;
    idle.restartLcdSleepTimer(never);
    EXPECT_FALSE(idle.isLcdSleepTimerActive()) << "zero minutes never dims";
}

TEST_F(IdleSleep, StandbyDimsForgetsTheModalAndGetsTheScreensaverLater)
{
    surfaces.modal_open = true;
    ASSERT_TRUE(standbyFromTheTopic());
    EXPECT_FALSE(surfaces.modal_open);
    EXPECT_TRUE(idle.isLcdDimmed());
    EXPECT_FALSE(idle.isScreensaverActive());
    EXPECT_FALSE(idle.isIdleHomeTimerActive());
    EXPECT_TRUE(idle.gestureGuideRefused());
    card.time.advance(5 * kMinute); // the sleep timer runs on in standby
    EXPECT_TRUE(surfaces.screensaver_vm.standby);
    idle.onRunStatusChanged(0);
    EXPECT_EQ(surfaces.standby_entries, 1) << "the same status again changes nothing";
}

TEST_F(IdleSleep, WakeButtonLeavesStandbyForHomeUnlessTheDeviceRefuses)
{
    ASSERT_TRUE(standbyFromTheTopic());
    backend.require("status power_on 80003");
    idle.onWakeRequested();
    EXPECT_TRUE(idle.is_standby_visible());
    backend.require("clear all");
    idle.onWakeRequested();
    EXPECT_FALSE(idle.is_standby_visible());
    EXPECT_EQ(surfaces.gotos, std::vector<int>{0});
    EXPECT_EQ(backend.at("/system/run_status"), 1);
    EXPECT_EQ(brightness(), configured_brightness);
    ASSERT_TRUE(waitUntil([&] { return idle.runStatus() == 1; }));
    EXPECT_FALSE(idle.is_standby_visible()) << "the topic's second exit is harmless";
}

TEST_F(IdleSleep, UpgradeTakesTheScreenOverEverythingForGood)
{
    ASSERT_TRUE(standbyFromTheTopic());
    card.time.advance(5 * kMinute);
    ASSERT_TRUE(idle.isScreensaverActive());
    backend.require("upgrade");
    ASSERT_TRUE(waitUntil([&] { return !surfaces.upgrade_progress.empty(); }));
    EXPECT_FALSE(idle.isScreensaverActive());
    EXPECT_FALSE(idle.isIdleHomeTimerActive());
    idle.show_screensaver();
    idle.touchBeginWakesScreen();
    card.time.advance(60 * kMinute);
    EXPECT_FALSE(idle.isScreensaverActive()) << "neither screensaver nor sleep timer come back";
    idle.idle_home_time_refresh(16);
    EXPECT_FALSE(idle.isIdleHomeTimerActive());
}

TEST_F(IdleSleep, ScreensaverFollowsPageChangesOnlyWhileDimmed)
{
    ASSERT_TRUE(idle.setLcdLowBrightness(true));
    EXPECT_TRUE(idle.pageRefreshPaused());
    idle.handle_screensaver_page_changed();
    EXPECT_EQ(surfaces.screensaver_raises, 1);
    idle.LCD_Sleep_time_refresh(); // brightness back without a touch on the saver
    idle.handle_screensaver_page_changed();
    EXPECT_FALSE(idle.isScreensaverActive());
    surfaces.splash_visible = true;
    idle.show_screensaver();
    EXPECT_FALSE(idle.isScreensaverActive()) << "no screensaver over the splash";
}
