// The LCD lock as the user meets it: pages sent home, swipes counted towards
// the unlock guide, taps dropped, and the long press that unlocks, each
// change made in the simulated backend.
#include "shell_rig.h"

#include "pages/standby_page_widget.h"
#include "ui/operation_overlay_component.h"
#include "ui/text_manager.h"

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <gtest/gtest.h>

using shelltest::PanelRig;

namespace {

class ShellLcdLock : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(rig.waitForMainUi());
        lockInBackend(true);
    }

    Widget& w() { return rig.panel(); }

    void lockInBackend(bool locked)
    {
        rig.control(std::string("set /lcd/lock_stat ") + (locked ? "1" : "0"));
        ASSERT_TRUE(rig.tickUntil([&] { return w().is_lcd_touch_locked() == locked; }));
    }

    int backendLock() { return rig.simulator().state().at("/lcd/lock_stat").get<int>(); }

    QString cardText() { return w().operationOverlay()->textLabel()->text(); }
    QString text(const char* key) { return w().textManager()->getTextWithFallback(key); }

    PanelRig rig;
};

} // namespace

TEST_F(ShellLcdLock, EveryPageButTheFirstStatusPageIsReplaced)
{
    for (int page : {PAGE_MAIN_MENU_1, PAGE_SYSTEM_SETTINGS_2, PAGE_CONNECT_APP, PAGE_STATUS_2,
                     PAGE_SHORTCUT}) {
        w().goto_page(page);
        EXPECT_EQ(rig.shownPageId(), PAGE_STATUS_1) << page;
    }
    rig.screenshot("lock_status_page1");
    // Dimmed, the status pages stay reachable.
    ASSERT_TRUE(w().setLcdLowBrightness(false));
    w().goto_page(PAGE_STATUS_2);
    EXPECT_EQ(rig.shownPageId(), PAGE_STATUS_2);
    w().goto_page(PAGE_MAIN_MENU_1);
    EXPECT_EQ(rig.shownPageId(), PAGE_STATUS_1);
}

TEST_F(ShellLcdLock, EverySecondSwipeShowsTheUnlockGuideAndNoneNavigates)
{
    GestureGuideOverlayComponent* guide = w().gestureGuideOverlay();
    w().swipe_up();
    EXPECT_FALSE(guide->isVisible());
    EXPECT_EQ(w().lcdLockedSwipeCount(), 1);
    w().swipe_left();
    EXPECT_TRUE(guide->isVisible());
    // The unlock guide has a single item, however the counters stand.
    EXPECT_EQ(guide->itemWidgets().size(), 1);
    EXPECT_EQ(w().lcdLockedSwipeCount(), 0);
    rig.screenshot("lock_unlock_guide");
    w().hideGestureGuideOverlay();
    w().edge_swipe_to_center();
    EXPECT_FALSE(guide->isVisible());
    EXPECT_EQ(rig.shownPageId(), PAGE_STATUS_1);
    // The guide request counted nothing in the backend.
    EXPECT_EQ(rig.simulator().state().at("/lcd/gesture_guide/shown_counts/6").get<int>(), 0);
}

TEST_F(ShellLcdLock, TapsAreDroppedWhileLocked)
{
    QPushButton probe(rig.shownPage());
    probe.setGeometry(0, 0, 10, 10);
    probe.show();
    QSignalSpy clicks(&probe, &QPushButton::clicked);
    w().button_tap(&probe);
    QCoreApplication::processEvents();
    EXPECT_EQ(clicks.count(), 0);

    lockInBackend(false);
    w().button_tap(&probe);
    EXPECT_TRUE(testsupport::waitUntil([&] { return clicks.count() == 1; }));
}

TEST_F(ShellLcdLock, LongPressUnlocksAndTheNextLockCountsAfresh)
{
    w().swipe_up();
    ASSERT_EQ(w().lcdLockedSwipeCount(), 1);
    w().long_press(QPointF(10, 10));
    EXPECT_FALSE(w().is_lcd_touch_locked());
    EXPECT_EQ(backendLock(), 0);
    EXPECT_TRUE(w().isOperationOverlayActive());
    EXPECT_EQ(cardText(), text("point_info.unlock"));
    rig.screenshot("lock_unlocked_card");

    // A touch dismisses the card; gestures work again.
    w().onTouchBeginReq();
    EXPECT_FALSE(w().isOperationOverlayActive());
    w().swipe_up();
    EXPECT_EQ(rig.shownPageId(), PAGE_MAIN_MENU_1);

    w().goto_page(PAGE_STATUS_1);
    lockInBackend(true);
    EXPECT_EQ(w().lcdLockedSwipeCount(), 0);
}

TEST_F(ShellLcdLock, AFailedUnlockKeepsTheLockAndSaysWhy)
{
    rig.control("status set_lcd_info 1");
    w().long_press(QPointF(320, 86));
    EXPECT_TRUE(w().is_lcd_touch_locked());
    EXPECT_EQ(backendLock(), 1);
    EXPECT_TRUE(w().isOperationOverlayActive());
    EXPECT_NE(cardText(), text("point_info.unlock"));
    EXPECT_EQ(w().operationOverlay()->state(), OPERATION_FAILED);
}

TEST_F(ShellLcdLock, TheCameraPageAndTheShortcutKeyLockAndUnlock)
{
    lockInBackend(false);
    w().goto_page(PAGE_CAMERA_SETTINGS_3);
    ASSERT_EQ(rig.shownPageId(), PAGE_CAMERA_SETTINGS_3);
    auto* camera = rig.shownPage();
    ASSERT_TRUE(QMetaObject::invokeMethod(camera, "lcdLockClicked", Q_ARG(bool, false)));
    EXPECT_EQ(backendLock(), 1);
    EXPECT_EQ(rig.shownPageId(), PAGE_STATUS_1);
    EXPECT_EQ(cardText(), text("point_info.lock"));
    w().onTouchBeginReq();

    // The lock from the backend holds from the next tick on.
    ASSERT_TRUE(rig.tickUntil([&] { return w().is_lcd_touch_locked(); }));
    w().long_press(QPointF(320, 86));
    EXPECT_EQ(backendLock(), 0);
    w().onTouchBeginReq();

    w().goto_page(PAGE_SHORTCUT);
    ASSERT_EQ(rig.shownPageId(), PAGE_SHORTCUT);
    ASSERT_TRUE(QMetaObject::invokeMethod(rig.shownPage(), "shortcutKeyClicked",
                                          Q_ARG(QString, QStringLiteral("LockLcd"))));
    EXPECT_EQ(backendLock(), 1);
    EXPECT_EQ(rig.shownPageId(), PAGE_STATUS_1);
    EXPECT_EQ(cardText(), text("point_info.lock"));
}

TEST_F(ShellLcdLock, StandbyKeepsItsOwnButtonTappableAndLongPressStillUnlocks)
{
    rig.control("standby");
    ASSERT_TRUE(rig.tickUntil([&] { return w().is_standby_visible(); }));
    rig.screenshot("standby_locked");
    QPushButton* wake = nullptr;
    for (QPushButton* b : w().standbyPage()->findChildren<QPushButton*>())
        wake = b;
    ASSERT_NE(wake, nullptr);
    QSignalSpy clicks(wake, &QPushButton::clicked);
    w().button_tap(wake);
    EXPECT_TRUE(testsupport::waitUntil([&] { return clicks.count() == 1; }));

    rig.control("standby");
    ASSERT_TRUE(rig.tickUntil([&] { return w().is_standby_visible(); }));
    // The lock is tested before standby: the long press unlocks there too.
    w().long_press(QPointF(320, 86));
    EXPECT_EQ(backendLock(), 0);
}
