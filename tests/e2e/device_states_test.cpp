// States of the whole device that take the screen or the touch away from
// the pages: standby, the LCD lock, the firmware upgrade, a work mode change,
// the first use with its connect page, and the gesture guides a new device
// shows; and losses the device reports on its own (Wi-Fi, a disk).
#include "eventually.h"
#include "operation_card.h"
#include "panel_test.h"
#include "screen_analysis.h"
#include "screen_points.h"

#include "pages/page_ids.h"

namespace e2e {
namespace {

// A full-screen state (standby, upgrade, a guide) replaces most of the strip.
constexpr double kScreenReplaced = 0.2;

class DeviceStates : public PanelTest {
protected:
    // A fresh picture that differs from `reference` in more than `share` of the strip.
    QImage pictureUnlike(const QImage& reference, double share = kScreenReplaced)
    {
        return rig->screen().waitFor(
            [&](const QImage& image) { return changedShare(reference, image) > share; });
    }
};

TEST_F(DeviceStates, StandbyFromTheDeviceHoldsGesturesUntilTheWakeButton)
{
    ASSERT_NO_FATAL_FAILURE(startRig(encodeDevice()));
    const QImage running = rig->screen().fresh();

    ASSERT_TRUE(rig->sim().ok("standby"));
    const QImage standby = pictureUnlike(running);
    ASSERT_GT(changedShare(running, standby), kScreenReplaced) << "the standby page never came";
    EXPECT_FALSE(isBlank(standby));
    // Gestures don't reach the page behind the standby page.
    EXPECT_EQ(rig->pageAfter("swipe left"), PAGE_STATUS_1);
    EXPECT_EQ(rig->pageAfter("swipe up"), PAGE_STATUS_1);

    // The wake button asks the device to run again, and the pages come back.
    rig->tap(point::kWakeButton);
    EXPECT_TRUE(deviceReaches(*rig, "/system/run_status", 1));
    const QImage awake = pictureUnlike(standby);
    EXPECT_GT(changedShare(standby, awake), kScreenReplaced);
    EXPECT_EQ(rig->waitForPage(PAGE_STATUS_1), PAGE_STATUS_1);
    EXPECT_EQ(rig->pageAfter("swipe left"), PAGE_STATUS_2);
}

TEST_F(DeviceStates, StandbyEndedByTheDeviceReturnsToTheFirstStatusPage)
{
    ASSERT_NO_FATAL_FAILURE(startRig(encodeDevice()));
    ASSERT_EQ(rig->pageAfter("goto 5"), PAGE_SYSTEM_SETTINGS_1);
    const QImage settings = rig->screen().fresh();

    ASSERT_TRUE(rig->sim().ok("standby"));
    const QImage standby = pictureUnlike(settings);
    ASSERT_GT(changedShare(settings, standby), kScreenReplaced);

    ASSERT_TRUE(rig->sim().ok("wake"));
    EXPECT_EQ(rig->waitForPage(PAGE_STATUS_1, 8s), PAGE_STATUS_1);
    const QImage awake = pictureUnlike(standby);
    EXPECT_GT(changedShare(standby, awake), kScreenReplaced);
    EXPECT_EQ(rig->pageAfter("swipe up"), PAGE_MAIN_MENU_1);
}

TEST_F(DeviceStates, LcdLockFromCameraSettingsHoldsThePanelUntilALongPress)
{
    ASSERT_NO_FATAL_FAILURE(startRig(encodeDevice()));
    const QImage home = rig->screen().fresh();
    ASSERT_EQ(rig->pageAfter("goto 14"), PAGE_CAMERA_SETTINGS_3);
    const QImage unlocked = rig->screen().fresh();

    // Locking from its own settings page sends the panel home and says so.
    rig->tap(point::kCardLeft);
    EXPECT_TRUE(deviceReaches(*rig, "/lcd/lock_stat", 1));
    EXPECT_EQ(rig->waitForPage(PAGE_STATUS_1), PAGE_STATUS_1);
    EXPECT_TRUE(waitForCard(*rig, CardLook::Success, unlocked)) << "no card for the lock";
    // Gestures during the card are dropped by the card itself; wait for it to go.
    ASSERT_TRUE(waitForCardGone(*rig, home));

    // Locked: no page but the first status page, and no swipe navigates.
    EXPECT_EQ(rig->pageAfter("goto 3"), PAGE_STATUS_1);
    EXPECT_EQ(rig->pageAfter("swipe left"), PAGE_STATUS_1);
    const QImage before_guide = rig->screen().fresh();
    // Every second swipe on a locked screen tells how to unlock.
    EXPECT_EQ(rig->pageAfter("swipe up"), PAGE_STATUS_1);
    const QImage guide = pictureUnlike(before_guide);
    EXPECT_GT(changedShare(before_guide, guide), kScreenReplaced) << "no unlock guide";
    rig->send("guide hide");

    // A long press anywhere unlocks, through the device.
    const QImage still_locked = rig->screen().fresh();
    rig->longPress(QPoint(500, 120));
    EXPECT_TRUE(deviceReaches(*rig, "/lcd/lock_stat", 0));
    EXPECT_TRUE(waitForCard(*rig, CardLook::Success, still_locked)) << "no card for the unlock";
    ASSERT_TRUE(waitForCardGone(*rig, still_locked));
    EXPECT_EQ(rig->pageAfter("swipe left"), PAGE_STATUS_2);
    EXPECT_EQ(rig->pageAfter("goto 3"), PAGE_MAIN_MENU_1);
}

TEST_F(DeviceStates, LcdLockedByTheDeviceReachesThePanel)
{
    ASSERT_NO_FATAL_FAILURE(startRig(encodeDevice()));
    ASSERT_EQ(rig->pageAfter("goto 9"), PAGE_NETWORK_SETTINGS_1);

    ASSERT_TRUE(rig->sim().set("/lcd/lock_stat", 1));
    // The lock arrives with the model's next refresh; from then on every
    // page request ends on the first status page.
    EXPECT_TRUE(eventually([&] { return rig->pageAfter("goto 3") == PAGE_STATUS_1; }, 8s));
    EXPECT_EQ(rig->pageAfter("swipe up"), PAGE_STATUS_1);

    ASSERT_TRUE(rig->sim().set("/lcd/lock_stat", 0));
    EXPECT_TRUE(eventually([&] { return rig->pageAfter("goto 3") == PAGE_MAIN_MENU_1; }, 8s));
}

TEST_F(DeviceStates, WorkModeChangedByTheDeviceReshapesTheHomeGroup)
{
    ASSERT_NO_FATAL_FAILURE(startRig(encodeDevice()));
    ASSERT_EQ(rig->pageAfter("goto 3"), PAGE_MAIN_MENU_1);

    ASSERT_TRUE(rig->sim().ok("workmode 1"));
    EXPECT_EQ(rig->waitForPage(PAGE_STATUS_1, 8s), PAGE_STATUS_1);
    EXPECT_EQ(rig->pageAfter("swipe right"), PAGE_DECODER_SHORTCUT_1);

    ASSERT_TRUE(rig->sim().ok("workmode 0"));
    EXPECT_EQ(rig->waitForPage(PAGE_STATUS_1, 8s), PAGE_STATUS_1);
    EXPECT_EQ(rig->pageAfter("swipe right"), PAGE_ENCODER_SHORTCUT_1);
}

TEST_F(DeviceStates, FirmwareUpgradeCoversTheScreenAndShowsProgress)
{
    ASSERT_NO_FATAL_FAILURE(startRig(encodeDevice()));
    const QImage running = rig->screen().fresh();

    ASSERT_TRUE(rig->sim().ok("upgrade 10"));
    const QImage upgrading = pictureUnlike(running);
    ASSERT_GT(changedShare(running, upgrading), kScreenReplaced) << "no upgrade screen";
    EXPECT_FALSE(isBlank(upgrading));
    // The progress moves on with every report of the device.
    const QImage later = rig->screen().waitFor(
        [&](const QImage& image) { return changedShare(upgrading, image) > 0.002; });
    EXPECT_GT(changedShare(upgrading, later), 0.002) << "the progress didn't move";
    EXPECT_TRUE(rig->panelRunning());
}

TEST_F(DeviceStates, AppConnectionClosesTheConnectPage)
{
    ASSERT_NO_FATAL_FAILURE(startRig(encodeDevice()));
    ASSERT_EQ(rig->pageAfter("swipe down"), PAGE_CONNECT_APP);

    // The phone app reports it has paired: the page closes by itself and
    // tells the device the pairing screen is done.
    ASSERT_TRUE(rig->sim().ok("app-status 4"));
    EXPECT_EQ(rig->waitForPage(PAGE_STATUS_1, 10s), PAGE_STATUS_1);
    EXPECT_TRUE(deviceReaches(*rig, "/system/app_connection_status", 0));
}

TEST_F(DeviceStates, FirstUseStartsOnTheConnectPageAndEndsWhenThePhoneIsSetUp)
{
    RigOptions options = encodeDevice();
    options.device_setup.push_back("set /system/app_first_use_flag 0");
    ASSERT_NO_FATAL_FAILURE(startRig(options));
    ASSERT_EQ(rig->currentPage(), PAGE_CONNECT_APP);
    const QImage code = rig->screen().fresh();

    // The phone connects: its progress replaces the QR code. Leaving the
    // page tells the device the pairing screen is gone.
    ASSERT_TRUE(rig->sim().ok("app-status 1"));
    const QImage connected = pictureUnlike(code, 0.02);
    EXPECT_GT(changedShare(code, connected), 0.02) << "the page doesn't show the phone";
    EXPECT_EQ(rig->pageAfter("swipe up"), PAGE_STATUS_1);
    EXPECT_TRUE(deviceReaches(*rig, "/system/app_connection_status", 0));

    // Set up to the end: the first use is over for good.
    EXPECT_EQ(rig->pageAfter("swipe down"), PAGE_CONNECT_APP);
    ASSERT_TRUE(rig->sim().ok("app-status 4"));
    EXPECT_TRUE(deviceReaches(*rig, "/system/app_first_use_flag", 1));
    EXPECT_EQ(rig->waitForPage(PAGE_STATUS_1, 10s), PAGE_STATUS_1);
}

TEST_F(DeviceStates, FirstUseOnALockedPanelStillOffersTheConnectPage)
{
    RigOptions options = encodeDevice();
    options.device_setup.push_back("set /system/app_first_use_flag 0");
    options.device_setup.push_back("set /lcd/lock_stat 1");
    ASSERT_NO_FATAL_FAILURE(startRig(options));
    // The phone must be able to pair, so the lock lets the connect page be;
    // it holds the swipes there as everywhere.
    ASSERT_EQ(rig->currentPage(), PAGE_CONNECT_APP);
    EXPECT_EQ(rig->pageAfter("swipe up"), PAGE_CONNECT_APP);
    // Any other page is the first status page, and once the connect page
    // is left the lock holds for it too.
    EXPECT_EQ(rig->pageAfter("goto 3"), PAGE_STATUS_1);
    EXPECT_EQ(rig->pageAfter("goto 32"), PAGE_STATUS_1);
}

TEST_F(DeviceStates, WifiDroppedAndRejoinedByTheDeviceShowsInTheStatusBar)
{
    ASSERT_NO_FATAL_FAILURE(startRig(encodeDevice()));
    const QImage connected = rig->screen().fresh();
    ASSERT_TRUE(rig->sim().ok("wifi-drop"));
    const QImage dropped = rig->screen().waitFor([&](const QImage& image) {
        return changedShare(connected, image, area::kStatusBar) > 0.005;
    });
    EXPECT_GT(changedShare(connected, dropped, area::kStatusBar), 0.005)
        << "the status bar doesn't show the lost Wi-Fi";

    ASSERT_TRUE(rig->sim().ok("wifi-up"));
    const QImage rejoined = rig->screen().waitFor([&](const QImage& image) {
        return changedShare(dropped, image, area::kStatusBar) > 0.005;
    });
    EXPECT_GT(changedShare(dropped, rejoined, area::kStatusBar), 0.005)
        << "the status bar doesn't show the Wi-Fi back";
    EXPECT_TRUE(rig->panelRunning());
}

TEST_F(DeviceStates, DiskPulledDuringARecordingEndsItOnTheRecordPage)
{
    ASSERT_NO_FATAL_FAILURE(startRig(encodeDevice()));
    const QRect buttons(106, point::kPageTop + 14, 428, 76);
    ASSERT_EQ(rig->pageAfter("goto 21"), PAGE_ENCODER_SHORTCUT_1);
    ASSERT_TRUE(waitForCardGone(*rig));
    rig->tap(point::kRecordButton);
    ASSERT_TRUE(deviceReaches(*rig, "/record/tasks/0/status", 1));
    ASSERT_TRUE(waitForCardGone(*rig));
    const QImage recording = rig->screen().fresh();

    // The device ends the task; the record page turns back to idle.
    ASSERT_TRUE(rig->sim().ok("unplug-disk sd"));
    EXPECT_TRUE(
        eventually([&] { return rig->sim().get("/record/tasks/0/status") != json(1); }, 8s));
    const QImage ended = rig->screen().waitFor(
        [&](const QImage& image) { return changedShare(recording, image, buttons) > 0.02; });
    EXPECT_GT(changedShare(recording, ended, buttons), 0.02) << "the page still shows a recording";
    EXPECT_TRUE(rig->panelRunning());
}

TEST_F(DeviceStates, IdlePanelReturnsHomeAndDimsUntilTouched)
{
    // The shortest sleep time the device offers is one minute.
    RigOptions options = encodeDevice();
    options.device_setup.push_back("set /lcd/LCD_sleep 1");
    ASSERT_NO_FATAL_FAILURE(startRig(options));
    const QImage home = rig->screen().fresh();
    const auto brightness = rig->sim().get("/lcd/lcd_bright");
    ASSERT_TRUE(brightness.has_value());
    ASSERT_EQ(rig->pageAfter("goto 5"), PAGE_SYSTEM_SETTINGS_1);

    // A minute without a touch: the settings page gives way to the first
    // status page, the LCD is dimmed and the screensaver covers the strip.
    EXPECT_TRUE(eventually([&] { return rig->currentPage() == PAGE_STATUS_1; }, 75s, 500ms));
    EXPECT_TRUE(deviceReaches(*rig, "/lcd/lcd_bright", 5, 20s)) << "the LCD wasn't dimmed";
    const QImage saver = pictureUnlike(home);
    ASSERT_GT(changedShare(home, saver), kScreenReplaced) << "no screensaver";

    // The touch that wakes the panel restores the brightness and does nothing else.
    rig->send("touchbegin");
    EXPECT_TRUE(deviceReaches(*rig, "/lcd/lcd_bright", *brightness)) << "the brightness stays dim";
    const QImage awake = pictureUnlike(saver);
    EXPECT_GT(changedShare(saver, awake), kScreenReplaced) << "the screensaver stays";
    EXPECT_EQ(rig->currentPage(), PAGE_STATUS_1);
    EXPECT_EQ(rig->pageAfter("swipe left"), PAGE_STATUS_2);
}

TEST_F(DeviceStates, GestureGuidesOfANewDeviceAreShownOnceAndCounted)
{
    RigOptions options = encodeDevice();
    options.gesture_guides = true;
    ASSERT_NO_FATAL_FAILURE(startRig(options));

    // The home guide comes with the first page and is counted in the device.
    EXPECT_TRUE(deviceReaches(*rig, "/lcd/gesture_guide/shown_counts/0", 1));
    const QImage with_guide = rig->screen().fresh();
    // Any touch takes it away and does nothing else.
    rig->send("touchbegin");
    const QImage without_guide = pictureUnlike(with_guide);
    EXPECT_GT(changedShare(with_guide, without_guide), kScreenReplaced) << "no home guide";
    EXPECT_EQ(rig->currentPage(), PAGE_STATUS_1);

    // The menu has a guide of its own.
    EXPECT_EQ(rig->pageAfter("swipe up"), PAGE_MAIN_MENU_1);
    EXPECT_TRUE(deviceReaches(*rig, "/lcd/gesture_guide/shown_counts/1", 1));
    rig->send("guide hide");

    // Back home, the guide already shown in this run stays away.
    EXPECT_EQ(rig->pageAfter("swipe down"), PAGE_STATUS_1);
    EXPECT_EQ(rig->pageAfter("swipe left"), PAGE_STATUS_2);
    rig->settle();
    EXPECT_EQ(rig->sim().get("/lcd/gesture_guide/shown_counts/0"), json(1));
}

} // namespace
} // namespace e2e
