// Time without touch in the running panel, on a clock that only the test
// moves: pages fall back home, the LCD dims under the screensaver after the
// configured minutes, standby and the upgrade screen take over the window.
#include "panel_controls.h"

#include "control/idle_sleep_controller.h"
#include "control/modal_openings.h"
#include "model/app_manager.h"
#include "pages/dynamic_screensaver_widget.h"
#include "pages/upgrade_widget.h"

#include <QLabel>
#include <gtest/gtest.h>

using namespace shelltest;

namespace {

constexpr qint64 kMinute = 60000;

RigOptions drivenClock()
{
    RigOptions options;
    options.manual_time = true;
    return options;
}

class ShellIdleStates : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(rig.waitForMainUi()); }
    Widget& w() { return rig.panel(); }
    IdleSleepController& idle() { return *w().idleSleep(); }

    // The sleep setting as the panel's model has read it back.
    void setSleepMinutes(int minutes)
    {
        rig.control("set /lcd/LCD_sleep " + std::to_string(minutes));
        ASSERT_TRUE(rig.tickUntil([&] {
            return w().appManager()->buildCameraSettingsPageVm(nullptr).lcd_sleep == minutes;
        }));
    }
    int deviceBrightness() { return deviceInt(rig, "/lcd/lcd_bright"); }

    PanelRig rig{drivenClock()};
};

} // namespace

TEST_F(ShellIdleStates, ShortSleepSettingDimsUnderTheScreensaverAndATouchWakes)
{
    setSleepMinutes(1);
    touch(w());
    EXPECT_EQ(idle().lcdSleepInterval(), kMinute) << "every touch arms the configured time";
    rig.clock().advance(kMinute - 1);
    EXPECT_EQ(w().lcdLowBrightness(), 0);

    rig.clock().advance(1);
    EXPECT_EQ(w().lcdLowBrightness(), 1);
    EXPECT_TRUE(w().isScreensaverActive());
    EXPECT_TRUE(w().screensaverPage()->isVisible());
    EXPECT_EQ(deviceBrightness(), IdleSleepController::kDimBrightness);
    rig.screenshot("screensaver_after_one_minute");

    touch(w());
    EXPECT_FALSE(w().isScreensaverActive());
    EXPECT_FALSE(w().screensaverPage()->isVisible());
    EXPECT_EQ(w().lcdLowBrightness(), 0);
    EXPECT_EQ(deviceBrightness(), 80) << "the configured brightness comes back";
}

TEST_F(ShellIdleStates, SleepTimeRaisedMeanwhileWaitsForTheRest)
{
    setSleepMinutes(1);
    touch(w());
    rig.clock().advance(kMinute / 2);
    setSleepMinutes(5);
    rig.clock().advance(kMinute / 2);
    EXPECT_EQ(w().lcdLowBrightness(), 0) << "the raised time counts from the last touch";
    EXPECT_EQ(idle().lcdSleepInterval(), 4 * kMinute);
    rig.clock().advance(4 * kMinute);
    EXPECT_EQ(w().lcdLowBrightness(), 1);
}

TEST_F(ShellIdleStates, PagesFallBackHomeAfterTheirIdleTime)
{
    w().goto_page(PAGE_ENCODER_SHORTCUT_2);
    rig.clock().advance(kMinute - 1);
    EXPECT_EQ(rig.shownPageId(), PAGE_ENCODER_SHORTCUT_2);
    rig.clock().advance(1);
    EXPECT_EQ(rig.shownPageId(), PAGE_STATUS_1);

    // A modal flow is left without an answer.
    w().enterEditMode(EDIT_LANGUAGE, PAGE_SYSTEM_SETTINGS_1, 1);
    ASSERT_TRUE(w().isModalActive());
    rig.clock().advance(kMinute);
    EXPECT_EQ(rig.shownPageId(), PAGE_STATUS_1);
    EXPECT_FALSE(w().isModalActive());

    // The home pages and the record page stay.
    for (int page : {PAGE_STATUS_2, PAGE_ENCODER_SHORTCUT_1}) {
        w().goto_page(page);
        rig.clock().advance(10 * kMinute);
        EXPECT_EQ(rig.shownPageId(), page);
    }
}

TEST_F(ShellIdleStates, StandbyDimsAtOnceAndGetsItsScreensaverWhenTheSleepTimeIsUp)
{
    setSleepMinutes(1);
    touch(w());
    rig.control("standby");
    ASSERT_TRUE(rig.tickUntil([&] { return w().is_standby_visible(); }));
    EXPECT_EQ(w().lcdLowBrightness(), 1);
    EXPECT_FALSE(w().isScreensaverActive()) << "standby dims without the screensaver";

    rig.clock().advance(kMinute);
    EXPECT_TRUE(w().isScreensaverActive()) << "the sleep timer goes on in standby";
    rig.screenshot("standby_screensaver");

    rig.control("wake");
    ASSERT_TRUE(rig.tickUntil([&] { return !w().is_standby_visible(); }));
    EXPECT_EQ(rig.shownPageId(), PAGE_STATUS_1);
    EXPECT_EQ(w().lcdLowBrightness(), 0);
    EXPECT_FALSE(w().isScreensaverActive());
}

TEST_F(ShellIdleStates, UpgradeRunsToTheRebootingTextAndRefusesTheScreensaver)
{
    w().goto_page(PAGE_MAIN_MENU_1);
    rig.control("upgrade 50");
    UpgradeWidget* upgrade = w().upgradePage();
    ASSERT_TRUE(testsupport::waitUntil([&] { return upgrade->isVisible(); }));
    EXPECT_FALSE(idle().isIdleHomeTimerActive());
    ASSERT_TRUE(testsupport::waitUntil([&] { return upgrade->isRebooting(); }));
    auto* status = upgrade->findChild<QLabel*>("upgradeStatus");
    ASSERT_NE(status, nullptr);
    EXPECT_EQ(status->text(), text(w(), "upgrade.rebooting"));
    rig.screenshot("upgrade_rebooting");

    w().show_screensaver();
    EXPECT_FALSE(w().isScreensaverActive());
    rig.clock().advance(10 * kMinute);
    EXPECT_EQ(w().lcdLowBrightness(), 0) << "no dimming over the upgrade";
    EXPECT_TRUE(upgrade->isVisible());
}
