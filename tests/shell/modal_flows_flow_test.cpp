// The edit, slider and confirm flows in the running panel: a settings card
// opens the shared modal page with the value in force, a confirmation
// changes the simulated device, and the window follows with texts, theme,
// sleep timer or standby.
#include "panel_controls.h"
#include "support/test_support.h"

#include "control/idle_sleep_controller.h"
#include "control/modal_flows.h"
#include "model/app_manager.h"
#include "pages/general_confirm_page_widget.h"
#include "pages/general_edit_page_widget.h"
#include "pages/general_slider_page_widget.h"
#include "pages/shortcut_page_widget.h"
#include "pages/standby_page_widget.h"
#include "ui/text_manager.h"

#include <gtest/gtest.h>

using namespace shelltest;

namespace {

constexpr int kChinese = 0;
constexpr int kEnglish = 1;

class ShellModalFlows : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(rig.waitForMainUi()); }
    Widget& w() { return rig.panel(); }

    // Opens the modal flow behind the card `key` of settings page `page`.
    void openFrom(int page, const char* key, int modalPage)
    {
        ASSERT_TRUE(
            showPageWhen(rig, page, [&] { return settingsCard(w(), page, key) != nullptr; }));
        tap(w(), settingsCard(w(), page, key));
        ASSERT_EQ(rig.shownPageId(), modalPage) << key;
        ASSERT_TRUE(w().isModalActive());
    }
    GeneralEditPageWidget* editPage()
    {
        return static_cast<GeneralEditPageWidget*>(w().pageid_to_widget(PAGE_GENERAL_EDIT));
    }
    QWidget* confirmPage() { return w().pageid_to_widget(PAGE_GENERAL_CONFIRM); }
    void confirmEdit() { tap(w(), buttonWithClass(editPage(), "v2-edit-confirm-btn")); }
    void confirmDialog() { tap(w(), buttonWithClass(confirmPage(), "confirm-confirm-btn")); }
    int requestsOf(const std::string& operation)
    {
        int count = 0;
        for (const auto& request : rig.simulator().webRequests())
            count += request.operation == operation ? 1 : 0;
        return count;
    }

    PanelRig rig;
};

} // namespace

TEST_F(ShellModalFlows, LanguageChoiceChangesTheDeviceAndTheTextsOnlyWhenAccepted)
{
    openFrom(PAGE_SYSTEM_SETTINGS_1, "system_settings.language", PAGE_GENERAL_EDIT);
    EXPECT_EQ(editPage()->editType(), EDIT_LANGUAGE);
    EXPECT_EQ(editPage()->actualIndex(), kEnglish);
    // A swipe on the edit page moves through the options without leaving it.
    w().swipe_right();
    ASSERT_EQ(rig.shownPageId(), PAGE_GENERAL_EDIT);
    ASSERT_EQ(editPage()->currentIndex(), kChinese);

    rig.control("status set_sys_attr_info 80002");
    confirmEdit();
    EXPECT_EQ(cardState(w()), OPERATION_FAILED);
    EXPECT_EQ(cardText(w()), text(w(), "point_info.duplicate"));
    EXPECT_EQ(w().textManager()->getCurrentLanguage(), kEnglish) << "a refusal keeps the texts";
    EXPECT_EQ(editPage()->actualIndex(), kEnglish);
    touch(w());

    rig.control("clear all");
    confirmEdit();
    EXPECT_EQ(deviceInt(rig, "/system/language_id"), kChinese);
    EXPECT_EQ(w().textManager()->getCurrentLanguage(), kChinese);
    EXPECT_EQ(editPage()->actualIndex(), kChinese);
    EXPECT_EQ(cardState(w()), OPERATION_SUCCESS);
    EXPECT_EQ(cardText(w()), text(w(), "point_info.succeed")) << "the card speaks the new language";
    EXPECT_EQ(rig.shownPageId(), PAGE_GENERAL_EDIT) << "the flow stays open after a confirmation";
    rig.screenshot("edit_language_chinese");

    touch(w());
    tap(w(), buttonWithClass(editPage(), "v2-edit-cancel-btn"));
    EXPECT_EQ(rig.shownPageId(), PAGE_SYSTEM_SETTINGS_1);
    EXPECT_FALSE(w().isModalActive());
}

TEST_F(ShellModalFlows, ThemeChoiceRestylesTheWindow)
{
    const QString black = w().styleSheet();
    openFrom(PAGE_SYSTEM_SETTINGS_1, "system_settings.theme", PAGE_GENERAL_EDIT);
    EXPECT_EQ(editPage()->actualIndex(), 0);
    w().swipe_left();
    ASSERT_EQ(editPage()->currentIndex(), 1);
    confirmEdit();
    EXPECT_EQ(deviceInt(rig, "/lcd/lcd_theme_id"), 1);
    EXPECT_EQ(w().themeIndex(), 1);
    EXPECT_NE(w().styleSheet(), black);
    EXPECT_EQ(cardState(w()), OPERATION_SUCCESS);
    rig.screenshot("edit_theme_blue");
}

TEST_F(ShellModalFlows, ChoosingTheValueInForceSendsNothing)
{
    openFrom(PAGE_SYSTEM_SETTINGS_2, "system_settings.workmode", PAGE_GENERAL_EDIT);
    EXPECT_EQ(editPage()->actualIndex(), 0);
    confirmEdit();
    EXPECT_FALSE(cardVisible(w()));
    EXPECT_EQ(requestsOf("change_workmode"), 0);
}

TEST_F(ShellModalFlows, RecordDiskChoiceMovesTheRecordingToAnotherDisk)
{
    openFrom(PAGE_MEDIA_SETTINGS_1, "media_settings.disk_select", PAGE_GENERAL_EDIT);
    EXPECT_EQ(editPage()->actualIndex(), 0);
    w().swipe_left();
    ASSERT_EQ(editPage()->currentStorageId(), 1);
    confirmEdit();
    EXPECT_EQ(cardState(w()), OPERATION_SUCCESS);
    EXPECT_EQ(deviceInt(rig, "/storage/present_storage_id"), 1);
}

TEST_F(ShellModalFlows, SleepSliderReArmsTheSleepTimer)
{
    openFrom(PAGE_CAMERA_SETTINGS_3, "camera_settings.lcd_sleep", PAGE_GENERAL_SLIDER);
    auto* slider = static_cast<GeneralSliderPageWidget*>(w().pageid_to_widget(PAGE_GENERAL_SLIDER));
    EXPECT_EQ(slider->sliderType(), SLIDER_LCD_SLEEP);
    EXPECT_EQ(slider->backendValue(), 5);
    w().onSliderReleaseReq(slider->sliderControl(), 1);
    EXPECT_EQ(deviceInt(rig, "/lcd/LCD_sleep"), 1);
    EXPECT_EQ(cardState(w()), OPERATION_SUCCESS);
    // The timer is re-armed from the model's value, which follows the
    // device within a poll; from then on every touch arms one minute.
    ASSERT_TRUE(rig.tickUntil(
        [&] { return w().appManager()->buildCameraSettingsPageVm(nullptr).lcd_sleep == 1; }));
    touch(w());
    EXPECT_TRUE(w().idleSleep()->isLcdSleepTimerActive());
    EXPECT_EQ(w().idleSleep()->lcdSleepInterval(), 60000);
}

TEST_F(ShellModalFlows, RebootKeepsTheLoadingCardUntilTheDeviceGoesDown)
{
    openFrom(PAGE_SYSTEM_SETTINGS_3, "system_settings.reboot", PAGE_GENERAL_CONFIRM);
    confirmDialog();
    EXPECT_EQ(requestsOf("set_reboot_info"), 1);
    EXPECT_TRUE(w().isOperationInProgress());
    EXPECT_FALSE(w().isModalActive());
    // With the modal state gone, the next tick brings the page beneath back.
    rig.tick();
    EXPECT_EQ(rig.shownPageId(), PAGE_SYSTEM_SETTINGS_3);
    EXPECT_TRUE(w().isOperationInProgress());
    rig.screenshot("confirm_rebooting");
}

TEST_F(ShellModalFlows, StandbyFromTheDialogAndBackWithTheWakeButton)
{
    openFrom(PAGE_SYSTEM_SETTINGS_3, "system_settings.standby", PAGE_GENERAL_CONFIRM);
    confirmDialog();
    EXPECT_EQ(deviceInt(rig, "/system/run_status"), 0);
    EXPECT_TRUE(w().is_standby_visible()) << "the dialog enters standby at once";
    EXPECT_FALSE(w().isModalActive());
    EXPECT_EQ(w().lcdLowBrightness(), 1);
    // The topic confirms; the repeated entry changes nothing. Waiting for it
    // also keeps a late standby topic from landing after the wake below.
    ASSERT_TRUE(testsupport::waitUntil([&] { return w().appManager()->getRunStatus() == 0; }));
    rig.tick();
    EXPECT_TRUE(w().is_standby_visible());

    touch(w());
    tap(w(), w().standbyPage()->findChild<QPushButton*>());
    EXPECT_FALSE(w().is_standby_visible());
    EXPECT_EQ(rig.shownPageId(), PAGE_STATUS_1);
    EXPECT_EQ(deviceInt(rig, "/system/run_status"), 1);
    EXPECT_EQ(w().lcdLowBrightness(), 0);
}

TEST_F(ShellModalFlows, PowerDialogsAskFirstAndReturnWhereTheyCameFrom)
{
    ASSERT_TRUE(showPageWhen(rig, PAGE_SYSTEM_SETTINGS_1, [&] {
        return settingsCardLook(w(), PAGE_SYSTEM_SETTINGS_1, "system_settings.dc_out") == "normal";
    }));
    tap(w(), settingsCard(w(), PAGE_SYSTEM_SETTINGS_1, "system_settings.dc_out"));
    ASSERT_EQ(rig.shownPageId(), PAGE_GENERAL_CONFIRM);
    EXPECT_EQ(w().modalFlows()->confirmVm().actionType, CONFIRM_DC_OUT);
    EXPECT_EQ(deviceInt(rig, "/system/dc_out/switch"), 0) << "nothing before the answer";
    confirmDialog();
    EXPECT_EQ(deviceInt(rig, "/system/dc_out/switch"), 1);
    EXPECT_EQ(cardState(w()), OPERATION_SUCCESS);
    rig.tick();
    EXPECT_EQ(rig.shownPageId(), PAGE_SYSTEM_SETTINGS_1);
    touch(w());

    // The restart key of the shortcut list asks too, and a cancel goes back.
    w().goto_page(PAGE_SHORTCUT);
    auto* list = static_cast<ShortcutPageWidget*>(w().pageid_to_widget(PAGE_SHORTCUT));
    emit list->shortcutKeyClicked("Restart");
    ASSERT_EQ(rig.shownPageId(), PAGE_GENERAL_CONFIRM);
    EXPECT_EQ(w().modalFlows()->confirmVm().actionType, CONFIRM_REBOOT);
    tap(w(), buttonWithClass(confirmPage(), "confirm-cancel-btn"));
    EXPECT_EQ(rig.shownPageId(), PAGE_SHORTCUT);
    EXPECT_EQ(requestsOf("set_reboot_info"), 0);
}
