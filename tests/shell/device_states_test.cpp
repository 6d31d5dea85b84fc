// Whole-device states reported by the simulated backend: standby covers the
// pages and takes gestures away, an upgrade covers everything, and idle time
// returns a page home on a per-page schedule.
#include "shell_rig.h"

#include "control/idle_sleep_controller.h"
#include "pages/dynamic_screensaver_widget.h"
#include "pages/standby_page_widget.h"
#include "pages/status_bar_widget.h"
#include "pages/upgrade_widget.h"

#include <QPushButton>
#include <QSignalSpy>
#include <gtest/gtest.h>

using shelltest::PanelRig;

namespace {

class ShellDeviceStates : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(rig.waitForMainUi()); }
    Widget& w() { return rig.panel(); }
    PanelRig rig;
};

} // namespace

TEST_F(ShellDeviceStates, StandbyCoversThePagesUntilTheWakeButton)
{
    w().goto_page(PAGE_MAIN_MENU_1);
    rig.control("standby");
    ASSERT_TRUE(rig.tickUntil([&] { return w().is_standby_visible(); }));
    EXPECT_TRUE(w().standbyPage()->isVisible());
    EXPECT_FALSE(w().chromeContainer()->isVisible());
    EXPECT_FALSE(w().statusBar()->isVisible());
    EXPECT_FALSE(w().idleSleep()->isIdleHomeTimerActive());
    EXPECT_EQ(w().lcdLowBrightness(), 1) << "standby dims the LCD";
    rig.screenshot("standby");

    // Gestures don't reach the page beneath.
    w().swipe_left();
    w().swipe_down();
    EXPECT_EQ(w().currentPageId(), PAGE_MAIN_MENU_1);
    rig.tick();
    EXPECT_TRUE(w().is_standby_visible());

    QPushButton* wake = w().standbyPage()->findChild<QPushButton*>();
    ASSERT_NE(wake, nullptr);
    wake->click();
    EXPECT_FALSE(w().is_standby_visible());
    EXPECT_TRUE(w().chromeContainer()->isVisible());
    EXPECT_EQ(rig.shownPageId(), PAGE_STATUS_1);
    EXPECT_EQ(w().lcdLowBrightness(), 0);
    EXPECT_EQ(rig.simulator().state().at("/system/run_status").get<int>(), 1);
}

TEST_F(ShellDeviceStates, AnUpgradeCoversEverything)
{
    rig.control("upgrade");
    ASSERT_TRUE(testsupport::waitUntil([&] { return w().upgradePage()->isVisible(); }));
    EXPECT_FALSE(w().idleSleep()->isIdleHomeTimerActive());
    rig.screenshot("upgrade");
    // No guide comes over it.
    w().showGestureGuideForPage(PAGE_STATUS_1, false);
    EXPECT_FALSE(w().gestureGuideOverlay()->isVisible());
}

TEST_F(ShellDeviceStates, IdleTimeReturnsHomeOnAPerPageSchedule)
{
    IdleSleepController* idle = w().idleSleep();
    w().goto_page(PAGE_STATUS_2);
    EXPECT_FALSE(idle->isIdleHomeTimerActive()) << "home pages don't time out";
    w().goto_page(PAGE_ENCODER_SHORTCUT_1);
    EXPECT_FALSE(idle->isIdleHomeTimerActive()) << "neither does the record page";
    w().goto_page(PAGE_ENCODER_SHORTCUT_2);
    ASSERT_TRUE(idle->isIdleHomeTimerActive());
    EXPECT_EQ(idle->idleHomeInterval(), 60000);
    w().goto_page(PAGE_CONNECT_APP);
    EXPECT_EQ(idle->idleHomeInterval(), 300000);

    w().goto_page(PAGE_SYSTEM_SETTINGS_2);
    w().on_idle_home_timeout();
    EXPECT_EQ(rig.shownPageId(), PAGE_STATUS_1);
}

TEST_F(ShellDeviceStates, TheScreensaverTakesTheTouchThatEndsIt)
{
    ASSERT_TRUE(w().setLcdLowBrightness(true));
    ASSERT_TRUE(w().isScreensaverActive());
    EXPECT_TRUE(w().screensaverPage()->isVisible());
    rig.screenshot("screensaver");
    QSignalSpy deliveries(&w(), &Widget::requestStatusPage1Update);
    rig.tick();
    EXPECT_EQ(deliveries.count(), 0) << "no page refresh under the screensaver";

    w().onTouchBeginReq();
    EXPECT_FALSE(w().isScreensaverActive());
    EXPECT_FALSE(w().screensaverPage()->isVisible());
    EXPECT_EQ(w().lcdLowBrightness(), 0);
}
