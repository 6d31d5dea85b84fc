// Dimming, the screensaver, standby and the upgrade screen against the
// simulated device, with the sleep timer on a hand-driven clock.
#include "control/idle_sleep_controller.h"
#include "control/manual_time_source.h"
#include "control_sim_backend.h"
#include "fake_surfaces.h"

#include <gtest/gtest.h>

using namespace controltest;
using testsupport::waitUntil;

namespace {

constexpr qint64 kMinute = 60000;

class SleepStandby : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(waitUntil([&] { return app->isDataReady(); }));
        ASSERT_TRUE(waitUntil([&] { return cameraBrightness() == 80; }));
        QObject::connect(app.get(), &AppManager::runStatusChanged, app.get(),
                         [this](int status) { idle.onRunStatusChanged(status); });
        QObject::connect(app.get(), &AppManager::upgradeProgressChanged, app.get(),
                         [this](int progress) { idle.showUpgradeProgress(progress); });
        QObject::connect(app.get(), &AppManager::workModeChanged, app.get(),
                         [this](int mode) { idle.onWorkModeChanged(mode); });
        idle.init_idle_home_timer();
        idle.init_lcd_sleep_timer();
    }

    int cameraBrightness() { return app->buildCameraSettingsPageVm(nullptr).lcd_bright; }
    // The sleep setting as the panel sees it once the poller has read it.
    void setSleepMinutes(int minutes)
    {
        backend.control("set /lcd/LCD_sleep " + std::to_string(minutes));
        ASSERT_TRUE(waitUntil(
            [&] { return app->buildCameraSettingsPageVm(nullptr).lcd_sleep == minutes; }));
    }
    int deviceBrightness() const { return backend.at("/lcd/lcd_bright").get<int>(); }

    SimBackend backend;
    std::unique_ptr<AppManager> app = backend.fullAppManager();
    ManualTimeSource time;
    FakeSurfaces surfaces;
    IdleSleepController idle{app.get(), surfaces, time};
};

} // namespace

TEST_F(SleepStandby, DimsAfterTheConfiguredMinutesAndATouchWakesIt)
{
    EXPECT_EQ(idle.lcdSleepInterval(), 5 * kMinute)
        << "before any data the panel waits five minutes";
    setSleepMinutes(1);
    idle.restartLcdSleepTimer(app->buildCameraSettingsPageVm(nullptr));
    time.advance(kMinute - 1);
    EXPECT_FALSE(idle.isLcdDimmed());
    time.advance(1);
    EXPECT_TRUE(idle.isLcdDimmed());
    EXPECT_EQ(deviceBrightness(), IdleSleepController::kDimBrightness);
    EXPECT_TRUE(idle.isScreensaverActive());
    EXPECT_FALSE(surfaces.screensaver_vm.standby);
    EXPECT_EQ(surfaces.guide_hides, 1);
    // The device reports the dim level as its brightness by now; waking must
    // still bring back the one the user set.
    ASSERT_TRUE(
        waitUntil([&] { return cameraBrightness() == IdleSleepController::kDimBrightness; }));

    EXPECT_TRUE(idle.touchBeginWakesScreen()) << "the waking touch is used up";
    EXPECT_FALSE(idle.isScreensaverActive());
    EXPECT_FALSE(surfaces.screensaver_visible);
    EXPECT_FALSE(idle.isLcdDimmed());
    EXPECT_EQ(deviceBrightness(), 80);
    EXPECT_TRUE(idle.isLcdSleepTimerActive());
    EXPECT_FALSE(idle.touchBeginWakesScreen()) << "the next touch goes to the page";
}

TEST_F(SleepStandby, RaisedSleepTimeReArmsForTheRemainder)
{
    setSleepMinutes(1);
    idle.restartLcdSleepTimer(app->buildCameraSettingsPageVm(nullptr));
    setSleepMinutes(5);
    time.advance(kMinute);
    EXPECT_FALSE(idle.isLcdDimmed());
    EXPECT_EQ(idle.lcdSleepInterval(), 4 * kMinute);
    time.advance(4 * kMinute);
    EXPECT_TRUE(idle.isLcdDimmed());
}

TEST_F(SleepStandby, ZeroMinutesNeverDims)
{
    CameraSettingsPageVM never = app->buildCameraSettingsPageVm(nullptr);
    never.lcd_sleep = 0;
    idle.restartLcdSleepTimer(never);
    EXPECT_FALSE(idle.isLcdSleepTimerActive());
    time.advance(24 * 60 * kMinute);
    EXPECT_FALSE(idle.isLcdDimmed());
    EXPECT_FALSE(idle.isScreensaverActive());
}

TEST_F(SleepStandby, FailedDimmingKeepsTheLevelAndShowsNoScreensaver)
{
    backend.control("status set_lcd_info 80002");
    time.advance(5 * kMinute);
    EXPECT_FALSE(idle.isLcdDimmed());
    EXPECT_FALSE(idle.isScreensaverActive());
    EXPECT_EQ(deviceBrightness(), 80);
}

TEST_F(SleepStandby, StandbyFromTheTopicDimsWithoutScreensaverAndForgetsTheModal)
{
    surfaces.page = 27;
    surfaces.modal_open = true;
    backend.control("standby");
    ASSERT_TRUE(waitUntil([&] { return surfaces.standby_shows == 1; }));
    EXPECT_TRUE(idle.is_standby_visible());
    EXPECT_FALSE(surfaces.modal_open);
    EXPECT_FALSE(surfaces.chrome_visible);
    EXPECT_TRUE(idle.isLcdDimmed());
    EXPECT_EQ(deviceBrightness(), IdleSleepController::kDimBrightness);
    EXPECT_FALSE(idle.isScreensaverActive());
    EXPECT_FALSE(idle.isIdleHomeTimerActive());
    EXPECT_EQ(idle.runStatus(), 0);
    EXPECT_TRUE(idle.gestureGuideRefused());

    // The sleep timer runs on; when it fires the screensaver comes over standby.
    time.advance(5 * kMinute);
    EXPECT_TRUE(idle.isScreensaverActive());
    EXPECT_TRUE(surfaces.screensaver_vm.standby);

    // The topic repeating itself changes nothing.
    idle.onRunStatusChanged(0);
    EXPECT_EQ(surfaces.standby_shows, 1);
}

TEST_F(SleepStandby, WakeButtonLeavesStandbyForHome)
{
    ASSERT_GE(app->setStandby(), 0);
    ASSERT_TRUE(waitUntil([&] { return surfaces.standby_shows == 1; }));

    backend.control("status power_on 80003");
    idle.onWakeRequested();
    EXPECT_TRUE(idle.is_standby_visible()) << "a refused wake keeps standby";

    backend.control("clear all");
    idle.onWakeRequested();
    EXPECT_FALSE(idle.is_standby_visible());
    EXPECT_TRUE(surfaces.chrome_visible);
    EXPECT_EQ(surfaces.gotos.back(), 0);
    EXPECT_EQ(backend.at("/system/run_status"), 1);
    EXPECT_FALSE(idle.isLcdDimmed());
    EXPECT_EQ(deviceBrightness(), 80);
    // The topic confirms; the second exit is harmless.
    ASSERT_TRUE(waitUntil([&] { return idle.runStatus() == 1; }));
    EXPECT_FALSE(idle.is_standby_visible());
}

TEST_F(SleepStandby, UpgradeTakesTheScreenOverEverything)
{
    ASSERT_GE(app->setStandby(), 0);
    ASSERT_TRUE(waitUntil([&] { return surfaces.standby_shows == 1; }));
    time.advance(5 * kMinute);
    ASSERT_TRUE(idle.isScreensaverActive());

    backend.control("upgrade");
    ASSERT_TRUE(waitUntil([&] { return !surfaces.upgrade_progress.empty(); }));
    EXPECT_TRUE(surfaces.upgrade_visible);
    EXPECT_TRUE(idle.gestureGuideRefused());
    EXPECT_FALSE(idle.isScreensaverActive()) << "the upgrade ends the screensaver";
    EXPECT_FALSE(idle.pageRefreshPaused());
    EXPECT_FALSE(idle.isIdleHomeTimerActive());
    ASSERT_TRUE(waitUntil([&] { return surfaces.upgrade_progress.back() >= 100; },
                          std::chrono::milliseconds(10000)));

    // Neither the screensaver nor the sleep timer come back.
    idle.show_screensaver();
    EXPECT_FALSE(idle.isScreensaverActive());
    idle.touchBeginWakesScreen();
    time.advance(60 * kMinute);
    EXPECT_FALSE(idle.isScreensaverActive());
}

TEST_F(SleepStandby, WorkModeFromTheTopicGoesHome)
{
    surfaces.page = 16;
    backend.control("workmode 1");
    ASSERT_TRUE(waitUntil([&] { return idle.workMode() == 1; }));
    EXPECT_EQ(surfaces.gotos, std::vector<int>{0});
}

TEST_F(SleepStandby, ScreensaverFollowsPageChangesOnlyWhileDimmed)
{
    EXPECT_FALSE(idle.gestureGuideRefused());
    idle.setLcdLowBrightness(true);
    ASSERT_TRUE(idle.isScreensaverActive());
    EXPECT_TRUE(idle.pageRefreshPaused());
    idle.handle_screensaver_page_changed();
    EXPECT_EQ(surfaces.screensaver_raises, 1);
    EXPECT_TRUE(idle.isScreensaverActive());

    idle.LCD_Sleep_time_refresh(); // brightness back without a touch on the saver
    idle.handle_screensaver_page_changed();
    EXPECT_FALSE(idle.isScreensaverActive());

    surfaces.splash_visible = true;
    idle.show_screensaver();
    EXPECT_FALSE(idle.isScreensaverActive()) << "no screensaver over the splash";
}
