// The LCD lock as the window keeps it: pages sent home, swipes counted
// towards the unlock guide, taps dropped, the long press that unlocks, and
// the lock's own controls, each change made in the simulated backend.
#include "panel_window.h"

#include "pages/standby_page_widget.h"

#include <QSignalSpy>
#include <QStackedWidget>
#include <gtest/gtest.h>

using namespace shelltest;

namespace {

class ShellLcdLock : public PanelTest {
protected:
    void SetUp() override
    {
        PanelTest::SetUp();
        lockInBackend(true);
    }
    void lockInBackend(bool locked)
    {
        panel.sim().require(std::string("set /lcd/lock_stat ") + (locked ? "1" : "0"));
        ASSERT_TRUE(panel.tickUntil([&] { return w().is_lcd_touch_locked() == locked; }));
    }
    int backendLock() { return panel.deviceInt("/lcd/lock_stat"); }
};

} // namespace

TEST_F(ShellLcdLock, EveryPageButTheFirstStatusPageIsReplacedUnlessDimmed)
{
    w().goto_page(PAGE_STATUS_2);
    EXPECT_EQ(panel.shownPageId(), PAGE_STATUS_1);
    ASSERT_TRUE(w().setLcdLowBrightness(false));
    w().goto_page(PAGE_STATUS_2);
    EXPECT_EQ(panel.shownPageId(), PAGE_STATUS_2) << "dimmed, the status pages stay reachable";
    w().goto_page(PAGE_MAIN_MENU_1);
    EXPECT_EQ(panel.shownPageId(), PAGE_STATUS_1);
}

TEST_F(ShellLcdLock, EverySecondSwipeShowsTheUnlockGuideAndTapsAreDropped)
{
    GestureGuideOverlayComponent* guide = w().gestureGuideOverlay();
    for (int swipe = 1; swipe <= 3; ++swipe) {
        w().swipe_up();
        EXPECT_EQ(guide->isVisible(), swipe == 2) << swipe;
        w().hideGestureGuideOverlay();
    }
    EXPECT_EQ(panel.shownPageId(), PAGE_STATUS_1);
    EXPECT_EQ(panel.deviceInt("/lcd/gesture_guide/shown_counts/6"), 0) << "the hint isn't counted";

    QPushButton probe(w().pageStack()->currentWidget());
    QSignalSpy clicks(&probe, &QPushButton::clicked);
    panel.tap(&probe);
    EXPECT_EQ(clicks.count(), 0);
    lockInBackend(false);
    panel.tap(&probe);
    EXPECT_EQ(clicks.count(), 1);
}

TEST_F(ShellLcdLock, LongPressUnlocksUnlessTheDeviceRefuses)
{
    panel.sim().require("status set_lcd_info 1");
    w().long_press(QPointF(320, 86));
    EXPECT_TRUE(w().is_lcd_touch_locked());
    EXPECT_EQ(backendLock(), 1);
    EXPECT_TRUE(w().isOperationOverlayActive());
    EXPECT_FALSE(panel.cardShows("point_info.unlock"));
    w().onTouchBeginReq();

    panel.sim().require("clear all");
    w().swipe_up();
    ASSERT_EQ(w().lcdLockedSwipeCount(), 1);
    w().long_press(QPointF(10, 10));
    EXPECT_FALSE(w().is_lcd_touch_locked());
    EXPECT_EQ(backendLock(), 0);
    w().onTouchBeginReq();
    lockInBackend(true);
    EXPECT_EQ(w().lcdLockedSwipeCount(), 0) << "the next lock counts afresh";
}

TEST_F(ShellLcdLock, LockFromTheCameraPageHoldsWhileTheModelLagsBehind)
{
    lockInBackend(false);
    w().goto_page(PAGE_CAMERA_SETTINGS_3);
    ASSERT_TRUE(QMetaObject::invokeMethod(w().pageid_to_widget(PAGE_CAMERA_SETTINGS_3),
                                          "lcdLockClicked", Q_ARG(bool, false)));
    EXPECT_EQ(backendLock(), 1);
    EXPECT_EQ(panel.shownPageId(), PAGE_STATUS_1);
    EXPECT_TRUE(panel.cardShows("point_info.lock"));
    w().onTouchBeginReq();
    // A report of the old state within the grace time doesn't undo the lock;
    // a report that lasts beyond it wins.
    panel.sim().require("set /lcd/lock_stat 0");
    ASSERT_TRUE(testsupport::waitUntil(
        [&] { return !w().appManager()->buildCameraSettingsPageVm(nullptr).lcd_lock_on; }));
    panel.tick();
    EXPECT_TRUE(w().is_lcd_touch_locked());
    ASSERT_TRUE(panel.tickUntil([&] { return !w().is_lcd_touch_locked(); },
                                std::chrono::milliseconds(Widget::kLockConfirmGraceMs + 3000)));
}

TEST_F(ShellLcdLock, StandbyKeepsItsWakeButtonAndALongPressStillUnlocks)
{
    panel.sim().require("standby");
    ASSERT_TRUE(panel.tickUntil([&] { return w().is_standby_visible(); }));
    w().long_press(QPointF(320, 86));
    EXPECT_EQ(backendLock(), 0) << "the lock is judged before standby";
    w().onTouchBeginReq();
    auto* wake = w().standbyPage()->findChild<QPushButton*>();
    ASSERT_NE(wake, nullptr);
    QSignalSpy clicks(wake, &QPushButton::clicked);
    panel.tap(wake);
    EXPECT_EQ(clicks.count(), 1);
}

TEST(ShellLcdLockGuide, NoGuideOverTheUnlockCardButThePagesGuideWhenItGoes)
{
    PanelOptions options;
    options.guides = true;
    options.prepare = [](testsupport::SimFixture& sim) {
        sim.require(
            R"(set /lcd/gesture_guide {"force_show":0,"shown_counts":[0,0,0,0,0,0,0],"max_count":3})");
        sim.require("set /lcd/lock_stat 1");
    };
    PanelWindow panel(options);
    ASSERT_TRUE(panel.waitForMainUi());
    Widget& w = panel.w();
    GestureGuideOverlayComponent* guide = w.gestureGuideOverlay();
    panel.tick();
    EXPECT_FALSE(guide->isVisible()) << "while locked only the unlock hint, on request";
    w.long_press(QPointF(320, 86));
    ASSERT_TRUE(panel.cardShows("point_info.unlock"));
    panel.tick();
    EXPECT_FALSE(guide->isVisible()) << "the card comes first";
    w.hideOperationOverlay();
    EXPECT_TRUE(guide->isVisible());
    EXPECT_EQ(
        panel.deviceInt("/lcd/gesture_guide/shown_counts/" + std::to_string(GESTURE_GUIDE_HOME)),
        1);
}
