// The edit, slider and confirm pages opened from the settings and the quick
// action list: a choice reaches the device only when confirmed, and the flow
// returns to the page it came from.
#include "eventually.h"
#include "operation_card.h"
#include "panel_test.h"
#include "screen_analysis.h"
#include "screen_points.h"

#include "pages/page_ids.h"

namespace e2e {
namespace {

// The confirm page's Confirm button is red in both themes.
const QColor kConfirmRed("#dc2626");

class ModalFlows : public PanelTest {
protected:
    void openFrom(int page, const QPoint& where, int modal_page)
    {
        ASSERT_EQ(rig->pageAfter("goto " + std::to_string(page)), page);
        rig->tap(where);
        ASSERT_EQ(rig->waitForPage(modal_page), modal_page);
    }
};

TEST_F(ModalFlows, EditPageChoosesLanguageAndThemeOnConfirmOnly)
{
    ASSERT_NO_FATAL_FAILURE(startRig(encodeDevice()));

    // Leaving without confirming changes nothing.
    ASSERT_NO_FATAL_FAILURE(openFrom(PAGE_SYSTEM_SETTINGS_1, point::kCardLeft, PAGE_GENERAL_EDIT));
    EXPECT_EQ(rig->pageAfter("swipe left"), PAGE_GENERAL_EDIT);
    EXPECT_EQ(rig->pageAfter("swipe down"), PAGE_SYSTEM_SETTINGS_1);
    rig->settle();
    EXPECT_EQ(rig->sim().get("/system/language_id"), json(0));

    // The next option, confirmed: English. The page stays open for another
    // choice until the user leaves it.
    ASSERT_NO_FATAL_FAILURE(openFrom(PAGE_SYSTEM_SETTINGS_1, point::kCardLeft, PAGE_GENERAL_EDIT));
    const QImage first_option = rig->screen().fresh();
    EXPECT_EQ(rig->pageAfter("swipe left"), PAGE_GENERAL_EDIT);
    const QImage second_option = rig->screen().fresh();
    EXPECT_GT(changedShare(first_option, second_option, area::kContent), 0.01)
        << "the option didn't change";
    rig->tap(point::kEditConfirm);
    EXPECT_TRUE(deviceReaches(*rig, "/system/language_id", 1));
    EXPECT_TRUE(waitForCard(*rig, CardLook::Success, second_option)) << "no success card";
    EXPECT_EQ(rig->currentPage(), PAGE_GENERAL_EDIT);
    ASSERT_TRUE(waitForCardGone(*rig, second_option));
    EXPECT_EQ(rig->pageAfter("swipe down"), PAGE_SYSTEM_SETTINGS_1);

    // The blue theme recolours the whole strip at once.
    ASSERT_NO_FATAL_FAILURE(
        openFrom(PAGE_SYSTEM_SETTINGS_1, point::kCardMiddle, PAGE_GENERAL_EDIT));
    EXPECT_EQ(rig->pageAfter("swipe left"), PAGE_GENERAL_EDIT);
    const QImage black = rig->screen().fresh();
    rig->tap(point::kEditConfirm);
    EXPECT_TRUE(deviceReaches(*rig, "/lcd/lcd_theme_id", 1));
    const QImage blue = rig->screen().waitFor(
        [&](const QImage& image) { return changedShare(black, image) > 0.5; });
    EXPECT_GT(changedShare(black, blue), 0.5) << "the theme didn't change the screen";
    EXPECT_FALSE(isBlank(blue));
}

TEST_F(ModalFlows, WorkModeEditSwitchesTheDeviceToDecode)
{
    ASSERT_NO_FATAL_FAILURE(startRig(encodeDevice()));
    const QImage home = rig->screen().fresh();
    ASSERT_NO_FATAL_FAILURE(openFrom(PAGE_SYSTEM_SETTINGS_2, point::kCardLeft, PAGE_GENERAL_EDIT));
    EXPECT_EQ(rig->pageAfter("swipe left"), PAGE_GENERAL_EDIT);
    rig->tap(point::kEditConfirm);
    EXPECT_TRUE(deviceReaches(*rig, "/system/workmode_id", 1, 15s));
    EXPECT_EQ(rig->waitForPage(PAGE_STATUS_1, 10s), PAGE_STATUS_1);
    ASSERT_TRUE(waitForCardGone(*rig, home));
    EXPECT_EQ(rig->pageAfter("swipe right"), PAGE_DECODER_SHORTCUT_1);
}

TEST_F(ModalFlows, ConfirmPageGuardsTheDcOutput)
{
    ASSERT_NO_FATAL_FAILURE(startRig(encodeDevice()));
    const QRect confirm_button(point::kDialogConfirm.x() - 75, point::kDialogConfirm.y() - 20, 150,
                               40);

    // Cancel goes back and leaves the output off.
    ASSERT_EQ(rig->pageAfter("goto 5"), PAGE_SYSTEM_SETTINGS_1);
    const QImage settings = rig->screen().fresh();
    ASSERT_NO_FATAL_FAILURE(
        openFrom(PAGE_SYSTEM_SETTINGS_1, point::kCardRight, PAGE_GENERAL_CONFIRM));
    const QImage dialog = rig->screen().fresh();
    EXPECT_GT(pixelsNear(dialog, confirm_button, kConfirmRed), 2000) << "no red Confirm button";
    // No swipe leaves the dialog.
    EXPECT_EQ(rig->pageAfter("swipe down"), PAGE_GENERAL_CONFIRM);
    EXPECT_EQ(rig->pageAfter("swipe left"), PAGE_GENERAL_CONFIRM);
    rig->tap(point::kDialogCancel);
    EXPECT_EQ(rig->waitForPage(PAGE_SYSTEM_SETTINGS_1), PAGE_SYSTEM_SETTINGS_1);
    rig->settle();
    EXPECT_EQ(rig->sim().get("/system/dc_out/switch"), json(0));

    // Confirm turns it on; turning it off asks nothing.
    ASSERT_NO_FATAL_FAILURE(
        openFrom(PAGE_SYSTEM_SETTINGS_1, point::kCardRight, PAGE_GENERAL_CONFIRM));
    rig->tap(point::kDialogConfirm);
    EXPECT_TRUE(deviceReaches(*rig, "/system/dc_out/switch", 1));
    EXPECT_EQ(rig->waitForPage(PAGE_SYSTEM_SETTINGS_1), PAGE_SYSTEM_SETTINGS_1);
    ASSERT_TRUE(waitForCardGone(*rig, settings));
    rig->tap(point::kCardRight);
    EXPECT_TRUE(deviceReaches(*rig, "/system/dc_out/switch", 0));
    EXPECT_EQ(rig->currentPage(), PAGE_SYSTEM_SETTINGS_1);
}

TEST_F(ModalFlows, SliderMovesTheShownValueAndSendsNothingWhenLeft)
{
    ASSERT_NO_FATAL_FAILURE(startRig(encodeDevice()));
    const auto brightness = rig->sim().get("/lcd/lcd_bright");
    ASSERT_TRUE(brightness.has_value());

    ASSERT_NO_FATAL_FAILURE(
        openFrom(PAGE_CAMERA_SETTINGS_3, point::kCardMiddle, PAGE_GENERAL_SLIDER));
    const QImage opened = rig->screen().fresh();
    EXPECT_EQ(rig->pageAfter("swipe right"), PAGE_GENERAL_SLIDER);
    const QImage raised = rig->screen().fresh();
    EXPECT_GT(changedShare(opened, raised, area::kContent), 0.005) << "the value didn't move";
    // Only a touch on the slider commits; leaving sends nothing.
    EXPECT_EQ(rig->pageAfter("swipe down"), PAGE_CAMERA_SETTINGS_3);
    rig->settle();
    EXPECT_EQ(rig->sim().get("/lcd/lcd_bright"), brightness);
}

TEST_F(ModalFlows, QuickActionsLockTheScreenAndAskBeforeStandbyAndRestart)
{
    ASSERT_NO_FATAL_FAILURE(startRig(encodeDevice()));
    const QImage home = rig->screen().fresh();

    // Lock: straight away, then a long press unlocks.
    EXPECT_EQ(rig->pageAfter("longpress"), PAGE_SHORTCUT);
    rig->tap(point::quickActionRow(0));
    EXPECT_TRUE(deviceReaches(*rig, "/lcd/lock_stat", 1));
    EXPECT_EQ(rig->waitForPage(PAGE_STATUS_1), PAGE_STATUS_1);
    ASSERT_TRUE(waitForCardGone(*rig, home));
    rig->send("longpress");
    EXPECT_TRUE(deviceReaches(*rig, "/lcd/lock_stat", 0));
    ASSERT_TRUE(waitForCardGone(*rig, home));

    // Restart asks first; Cancel goes back to the list.
    EXPECT_EQ(rig->pageAfter("longpress"), PAGE_SHORTCUT);
    rig->tap(point::quickActionRow(2));
    EXPECT_EQ(rig->waitForPage(PAGE_GENERAL_CONFIRM), PAGE_GENERAL_CONFIRM);
    rig->tap(point::kDialogCancel);
    EXPECT_EQ(rig->waitForPage(PAGE_SHORTCUT), PAGE_SHORTCUT);

    // Standby asks first; Confirm puts the device to standby.
    rig->tap(point::quickActionRow(1));
    EXPECT_EQ(rig->waitForPage(PAGE_GENERAL_CONFIRM), PAGE_GENERAL_CONFIRM);
    const QImage dialog = rig->screen().fresh();
    rig->tap(point::kDialogConfirm);
    EXPECT_TRUE(deviceReaches(*rig, "/system/run_status", 0));
    const QImage standby = rig->screen().waitFor(
        [&](const QImage& image) { return changedShare(dialog, image) > 0.2; });
    EXPECT_GT(changedShare(dialog, standby), 0.2) << "no standby page";
    EXPECT_TRUE(rig->sim().ok("wake"));
    EXPECT_EQ(rig->waitForPage(PAGE_STATUS_1, 8s), PAGE_STATUS_1);
}

} // namespace
} // namespace e2e
