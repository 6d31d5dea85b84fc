// The edit, slider and confirm pages opened from every card and key that has
// one: a choice reaches the device only when confirmed (a slider by a tap on
// it), and the flow returns to the page it came from.
#include "eventually.h"
#include "operation_card.h"
#include "panel_test.h"
#include "screen_analysis.h"
#include "screen_points.h"

#include "pages/page_ids.h"

#include <ostream>
#include <string>
#include <thread>
#include <vector>

namespace e2e {
namespace {

// The confirm page's Confirm button is red in both themes.
const QColor kConfirmRed("#dc2626");

// The device's uptime, far above what a restart leaves it at.
constexpr int kLongUptime = 100000;

class ModalFlows : public PanelTest {
protected:
    void openFrom(int page, const QPoint& where, int modal_page)
    {
        ASSERT_EQ(rig->pageAfter("goto " + std::to_string(page)), page);
        rig->tap(where);
        ASSERT_EQ(rig->waitForPage(modal_page), modal_page);
    }

    // Opens a flow from a card that a page makes available only with the
    // device's next report (the tally light after a manual tally mode):
    // taps until the modal page shows.
    void openWhenReady(int page, const QPoint& where, int modal_page)
    {
        ASSERT_EQ(rig->pageAfter("goto " + std::to_string(page)), page);
        // No tap passes while a card is up.
        ASSERT_TRUE(waitForCardGone(*rig)) << "a card stays up on page " << page;
        EXPECT_TRUE(eventually(
            [&] {
                rig->tap(where);
                return rig->waitForPage(modal_page, 1s) == modal_page;
            },
            10s));
        ASSERT_EQ(rig->currentPage(), modal_page) << "no modal page from page " << page;
    }

    // The value at `pointer`, which the test needs.
    json deviceValue(const std::string& pointer)
    {
        const auto value = rig->sim().get(pointer);
        EXPECT_TRUE(value.has_value()) << pointer;
        return value.value_or(json());
    }

    // Confirms the slider's value at its halfway point: the device takes
    // `value` at `pointer`, a success card tells so, and the slider stays
    // until the user leaves it for `page`.
    void expectSliderSets(int page, const std::string& pointer, const json& value)
    {
        SCOPED_TRACE("slider to " + pointer);
        ASSERT_NE(deviceValue(pointer), value) << "the device has the value already";
        const QImage opened = rig->screen().fresh();
        rig->tap(point::kSliderHalfway);
        EXPECT_TRUE(deviceReaches(*rig, pointer, value))
            << "the device has " << deviceValue(pointer).dump();
        EXPECT_TRUE(waitForCard(*rig, CardLook::Success, opened)) << "no success card";
        // The value's text lies in the card's strip and has grown with the value.
        ASSERT_TRUE(waitForLookGone(*rig, CardLook::Success, opened)) << "the card didn't go";
        EXPECT_EQ(rig->currentPage(), PAGE_GENERAL_SLIDER);
        EXPECT_EQ(rig->pageAfter("swipe down"), page);
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

struct EditCase {
    const char* what;
    int page;
    QPoint card;
    std::vector<std::string> moves; // from the value in force to the one wanted
    std::string pointer;
    json value;
};

TEST_F(ModalFlows, EveryOtherEditPageSetsTheDeviceOnConfirm)
{
    RigOptions options = encodeDevice();
    // The NDI quality can be chosen only while NDI runs.
    options.device_setup.push_back("set /video/ndi/switch 1");
    ASSERT_NO_FATAL_FAILURE(startRig(options));
    const std::vector<EditCase> cases = {
        {"fan mode",
         PAGE_SYSTEM_SETTINGS_2,
         point::kCardRight,
         {"swipe left"},
         "/system/fan_mode",
         0},
        {"USB mode",
         PAGE_SYSTEM_SETTINGS_2,
         point::kCardMiddle,
         {"swipe left"},
         "/system/usb_otg_id",
         1},
        // The arrows beside the option step like the swipes.
        {"PTZ protocol",
         PAGE_CAMERA_SETTINGS_1,
         point::kSingleCard,
         {tapAt(point::kEditNext)},
         "/ptz/protocol",
         3},
        {"tally mode",
         PAGE_CAMERA_SETTINGS_2,
         point::kCardMiddle,
         {"swipe left"},
         "/system/tally/mode_id",
         1},
        // The manual tally mode just chosen makes the light's colour choosable.
        {"tally light",
         PAGE_CAMERA_SETTINGS_2,
         point::kCardRight,
         {"swipe left"},
         "/system/tally/color_id",
         1},
        // Back from the first source to the last one, USB.
        {"audio source",
         PAGE_AUDIO_SETTINGS,
         point::kCardRight,
         {tapAt(point::kEditPrevious)},
         "/audio/all/ai_type/selected_id",
         3},
        {"NDI quality",
         PAGE_MEDIA_SETTINGS_2,
         point::kCardMiddle,
         {"swipe left"},
         "/video/ndi/mode_id",
         3},
        {"record disk",
         PAGE_MEDIA_SETTINGS_1,
         point::kCardMiddle,
         {"swipe left"},
         "/storage/present_storage_id",
         1},
        // The record page opens the same choice at the disk now in use.
        {"record page disk",
         PAGE_ENCODER_SHORTCUT_1,
         point::kRecordDisk,
         {"swipe left"},
         "/storage/present_storage_id",
         3},
    };
    for (const EditCase& c : cases) {
        SCOPED_TRACE(c.what);
        const json before = deviceValue(c.pointer);
        ASSERT_NE(before, c.value) << "the device has the value already";
        ASSERT_NO_FATAL_FAILURE(openWhenReady(c.page, c.card, PAGE_GENERAL_EDIT));
        const QImage opened = rig->screen().fresh();
        for (const std::string& move : c.moves)
            rig->send(move);
        EXPECT_EQ(rig->currentPage(), PAGE_GENERAL_EDIT);
        const QImage chosen = rig->screen().waitFor([&](const QImage& image) {
            return changedShare(opened, image, area::kContent) > 0.01;
        });
        EXPECT_GT(changedShare(opened, chosen, area::kContent), 0.01) << "the option didn't change";
        EXPECT_EQ(deviceValue(c.pointer), before) << "a choice reached the device unconfirmed";

        rig->tap(point::kEditConfirm);
        EXPECT_TRUE(deviceReaches(*rig, c.pointer, c.value))
            << "the device has " << deviceValue(c.pointer).dump();
        EXPECT_TRUE(waitForCard(*rig, CardLook::Success, chosen)) << "no success card";
        ASSERT_TRUE(waitForCardGone(*rig, chosen));
        EXPECT_EQ(rig->pageAfter("swipe down"), c.page);
    }
}

TEST_F(ModalFlows, OutputFormatTheDeviceRefusesFailsAndChangesNothing)
{
    ASSERT_NO_FATAL_FAILURE(startRig(encodeDevice()));
    // A 1080p60 input offers the 60 Hz family; the device lists fewer.
    ASSERT_NO_FATAL_FAILURE(openFrom(PAGE_VIDEO_SETTINGS_1, point::kCardLeft, PAGE_GENERAL_EDIT));
    EXPECT_EQ(rig->pageAfter("swipe left"), PAGE_GENERAL_EDIT);
    const QImage refused = rig->screen().fresh();
    rig->tap(point::kEditConfirm);
    EXPECT_TRUE(waitForCard(*rig, CardLook::Failure, refused)) << "no failure card";
    EXPECT_EQ(deviceValue("/video/output/format"), "1080p60");
    ASSERT_TRUE(waitForCardGone(*rig, refused));

    // The next one the device has: taken, and the page stays for more.
    EXPECT_EQ(rig->pageAfter("swipe left"), PAGE_GENERAL_EDIT);
    const QImage taken = rig->screen().fresh();
    rig->tap(point::kEditConfirm);
    EXPECT_TRUE(deviceReaches(*rig, "/video/output/format", "1080p30"));
    EXPECT_TRUE(waitForCard(*rig, CardLook::Success, taken)) << "no success card";
    ASSERT_TRUE(waitForCardGone(*rig, taken));
    EXPECT_EQ(rig->currentPage(), PAGE_GENERAL_EDIT);
    EXPECT_EQ(rig->pageAfter("swipe down"), PAGE_VIDEO_SETTINGS_1);
}

TEST_F(ModalFlows, SlidersSendTheValueTappedOnThem)
{
    ASSERT_NO_FATAL_FAILURE(startRig(encodeDevice()));
    // Brightness runs from 10 to 100 on the slider, from 0 on the device.
    ASSERT_NO_FATAL_FAILURE(
        openFrom(PAGE_CAMERA_SETTINGS_3, point::kCardMiddle, PAGE_GENERAL_SLIDER));
    ASSERT_NO_FATAL_FAILURE(expectSliderSets(PAGE_CAMERA_SETTINGS_3, "/lcd/lcd_bright", 45));
    // Sleep minutes run from 1 to 30.
    ASSERT_NO_FATAL_FAILURE(
        openWhenReady(PAGE_CAMERA_SETTINGS_3, point::kCardRight, PAGE_GENERAL_SLIDER));
    ASSERT_NO_FATAL_FAILURE(expectSliderSets(PAGE_CAMERA_SETTINGS_3, "/lcd/LCD_sleep", 15));
    // The encoder's volume runs from 0 to 100 and shows in dB.
    ASSERT_NO_FATAL_FAILURE(
        openWhenReady(PAGE_AUDIO_SETTINGS, point::kCardMiddle, PAGE_GENERAL_SLIDER));
    ASSERT_NO_FATAL_FAILURE(expectSliderSets(PAGE_AUDIO_SETTINGS, "/audio/all/volume", 50));
}

TEST_F(ModalFlows, DecodeMenuVolumeSliderSetsTheOutputVolume)
{
    ASSERT_NO_FATAL_FAILURE(startRig(decodeDevice()));
    ASSERT_NO_FATAL_FAILURE(openFrom(PAGE_MAIN_MENU_1, point::kMenuMiddle, PAGE_GENERAL_SLIDER));
    ASSERT_NO_FATAL_FAILURE(expectSliderSets(PAGE_MAIN_MENU_1, "/audio/all/ao_volume", 50));
}

TEST_F(ModalFlows, SystemStandbyAsksFirstAndTheWakeButtonEndsIt)
{
    ASSERT_NO_FATAL_FAILURE(startRig(encodeDevice()));
    ASSERT_NO_FATAL_FAILURE(
        openFrom(PAGE_SYSTEM_SETTINGS_3, point::kCardLeft, PAGE_GENERAL_CONFIRM));
    rig->tap(point::kDialogCancel);
    EXPECT_EQ(rig->waitForPage(PAGE_SYSTEM_SETTINGS_3), PAGE_SYSTEM_SETTINGS_3);
    rig->settle();
    EXPECT_EQ(deviceValue("/system/run_status"), 1);

    ASSERT_NO_FATAL_FAILURE(
        openFrom(PAGE_SYSTEM_SETTINGS_3, point::kCardLeft, PAGE_GENERAL_CONFIRM));
    const QImage dialog = rig->screen().fresh();
    rig->tap(point::kDialogConfirm);
    EXPECT_TRUE(deviceReaches(*rig, "/system/run_status", 0));
    const QImage standby = rig->screen().waitFor(
        [&](const QImage& image) { return changedShare(dialog, image) > 0.2; });
    ASSERT_GT(changedShare(dialog, standby), 0.2) << "no standby page";
    rig->tap(point::kWakeButton);
    EXPECT_TRUE(deviceReaches(*rig, "/system/run_status", 1));
    EXPECT_EQ(rig->waitForPage(PAGE_STATUS_1, 8s), PAGE_STATUS_1);
}

// Reboot, factory reset and the quick action's restart: each asks first and,
// confirmed, restarts the device under a loading card that stands until the
// device goes down. The panel stays behind that card, so each has a rig of its own.
struct RestartCase {
    const char* name;
    bool from_quick_actions;
    QPoint key;
};

void PrintTo(const RestartCase& c, std::ostream* os)
{
    *os << c.name;
}

class Restarts : public ModalFlows, public ::testing::WithParamInterface<RestartCase> {};

TEST_P(Restarts, AskFirstAndRestartTheDeviceOnConfirm)
{
    const RestartCase& c = GetParam();
    RigOptions options = encodeDevice();
    options.device_setup.push_back("set /system/uptime_seconds " + std::to_string(kLongUptime));
    // A setting away from its default, for the reset to restore.
    options.device_setup.push_back("set /lcd/lcd_bright 33");
    ASSERT_NO_FATAL_FAILURE(startRig(options));

    if (c.from_quick_actions) {
        ASSERT_EQ(rig->pageAfter("longpress"), PAGE_SHORTCUT);
        rig->tap(c.key);
        ASSERT_EQ(rig->waitForPage(PAGE_GENERAL_CONFIRM), PAGE_GENERAL_CONFIRM);
    } else {
        ASSERT_NO_FATAL_FAILURE(openFrom(PAGE_SYSTEM_SETTINGS_3, c.key, PAGE_GENERAL_CONFIRM));
    }
    const QImage dialog = rig->screen().fresh();
    rig->settle();
    EXPECT_GT(deviceValue("/system/uptime_seconds").get<int>(), kLongUptime - 1)
        << "the dialog restarted the device unasked";
    rig->tap(point::kDialogConfirm);
    EXPECT_TRUE(eventually(
        [&] {
            const auto uptime = rig->sim().get("/system/uptime_seconds");
            return uptime && uptime->get<int>() < kLongUptime;
        },
        8s))
        << "the device didn't restart";
    EXPECT_TRUE(waitForCard(*rig, CardLook::Loading, dialog)) << "no loading card";
    // A result card would be gone by now.
    std::this_thread::sleep_for(2500ms);
    EXPECT_TRUE(waitForCard(*rig, CardLook::Loading, dialog, 1s)) << "the loading card went";
    const bool reset = std::string(c.name) == "FactoryReset";
    EXPECT_EQ(deviceValue("/lcd/lcd_bright"), reset ? 80 : 33);
    EXPECT_TRUE(rig->panelRunning());
}

INSTANTIATE_TEST_SUITE_P(ModalFlows, Restarts,
                         ::testing::Values(RestartCase{"Reboot", false, point::kCardMiddle},
                                           RestartCase{"FactoryReset", false, point::kCardRight},
                                           RestartCase{"QuickActionRestart", true,
                                                       point::quickActionRow(2)}),
                         [](const auto& info) { return std::string(info.param.name); });

} // namespace
} // namespace e2e
