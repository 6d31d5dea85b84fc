// The edit, slider and confirm flows: the values they open with, their no-op
// rules, and their confirmations on the simulated device with the follow-ups
// the window has to carry out.
#include "control/modal_flows.h"
#include "control_test_kit.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace controltest;
using testsupport::waitUntil;
using PlanKind = EditConfirmPlan::Kind;

TEST(ModalOpenings, SensibleValuesAndNoDiskChoiceWhileRecording)
{
    CameraSettingsPageVM camera;
    for (const auto& [stored, shown] : {std::pair{0, 5}, {-2, 5}, {1, 1}, {30, 30}, {31, 5}}) {
        camera.lcd_sleep = stored;
        EXPECT_EQ(lcdSleepSliderOpening(&camera).value, shown) << stored;
    }
    AudioSettingsPageVM audio;
    audio.volume = 42;
    EXPECT_FALSE(audioMenuKeySliderOpening(0, audio)) << "the menu key opens no slider in encoding";
    EXPECT_EQ(*audioMenuKeySliderOpening(1, audio),
              (SliderOpening{SLIDER_OUT_AUDIO_VOLUME, 3, 42}));
    EXPECT_FALSE(recordDiskEditOpening(18, 1, 0));
    EXPECT_FALSE(recordDiskEditOpening(21, 2, 0));
    for (const auto& [storage, option] : {std::pair{0, 0}, {1, 1}, {3, 2}, {-1, 0}})
        EXPECT_EQ(recordDiskEditOpening(21, 0, storage)->actualIndex, option) << storage;
}

TEST(EditConfirmPlanRules, ValueInForceSendsNothingOthersAlwaysSend)
{
    EditConfirmContext c;
    c.work_mode = 1;
    c.system.usb_otg_on = true;
    c.camera.ptz_usb2serial = 1;
    c.camera.ptz_protocol = AppManager::uiIndexToPtzProtocol(2, 1, 1);
    c.video_out_format = c.selected_option = "1080p60";
    c.audio.ai_type = 2;
    c.selected_storage_id = c.present_storage_id = 1;
    for (const auto& [type, index] : {std::pair{EDIT_WORK_MODE, 1},
                                      {EDIT_USB_MODE, 1},
                                      {EDIT_PTZ_PROTOCOL, 2},
                                      {EDIT_VIDEO_OUT_FORMAT, 0},
                                      {EDIT_AUDIO_SOURCE, 2},
                                      {EDIT_RECORD_DISK, 1}})
        EXPECT_EQ(planEditConfirm(type, index, c).kind, PlanKind::NoOp) << type;
    for (int type : {EDIT_LANGUAGE, EDIT_TALLY_LIGHT})
        EXPECT_EQ(planEditConfirm(type, 0, c).kind, PlanKind::Call) << type;
    c.selected_storage_id = -1;
    EXPECT_EQ(planEditConfirm(EDIT_RECORD_DISK, 0, c).kind, PlanKind::NoOp);
    EXPECT_EQ(planEditConfirm(EDIT_THEME, 2, c).card.status, -2) << "two themes only";
    EXPECT_EQ(planEditConfirm(12, 0, c).kind, PlanKind::Unknown);
}

namespace {

class ModalOnDevice : public OnDevice {
protected:
    void SetUp() override
    {
        OnDevice::SetUp();
        flows.setEditPageProbe({[] { return QString(); }, [this] { return storage; }});
    }

    ModalFlows flows{app.get(), card.feedback, [] { return 0; }};
    int storage = -1;
    QSignalSpy accepted{&flows, &ModalFlows::editValueAccepted};
    QSignalSpy cleared{&flows, &ModalFlows::modalStateClearRequested};
};

} // namespace

TEST_F(ModalOnDevice, LanguageSwitchesTextsOnlyWhenTheDeviceTookIt)
{
    QSignalSpy languages(&flows, &ModalFlows::languageSwitched);
    const int before = backend.at("/system/language_id").get<int>();
    const int other = before == 0 ? 1 : 0;
    flows.enterEditMode(EDIT_LANGUAGE, 5, before);
    backend.require("status set_sys_attr_info 80002");
    flows.onEditModeConfirmed(EDIT_LANGUAGE, other);
    EXPECT_EQ(languages.count() + accepted.count(), 0);
    EXPECT_EQ(flows.editVm().actualIndex, before) << "the old value stays marked";
    EXPECT_EQ(card.state(), OPERATION_FAILED);

    backend.require("clear all");
    flows.onEditModeConfirmed(EDIT_LANGUAGE, other);
    EXPECT_EQ(languages.value(0), QList<QVariant>{other});
    EXPECT_EQ(flows.editVm().actualIndex, other);
    EXPECT_EQ(backend.at("/system/language_id"), other);
    EXPECT_EQ(card.state(), OPERATION_SUCCESS);
}

TEST_F(ModalOnDevice, RecordDiskIsCheckedBeforeItIsChosen)
{
    backend.require("unplug-disk usb");
    ASSERT_TRUE(waitUntil([&] { return app->getDiskStatus(1) == 0; }));
    storage = 1;
    flows.onEditModeConfirmed(EDIT_RECORD_DISK, 1);
    EXPECT_TRUE(card.shows("disk_status.disk_unmounted"));
    EXPECT_EQ(backend.webRequestsOf("choose_storage_path"), 0);
    storage = 3;
    flows.onEditModeConfirmed(EDIT_RECORD_DISK, 2);
    EXPECT_EQ(card.state(), OPERATION_SUCCESS);
    EXPECT_EQ(backend.at("/storage/present_storage_id"), storage);
    EXPECT_EQ(accepted.value(0), QList<QVariant>{2});
}

TEST_F(ModalOnDevice, LcdSlidersWriteTheirOwnFieldAndSleepOnlyANewValue)
{
    QSignalSpy sleeps(&flows, &ModalFlows::lcdSleepChanged);
    const int sleep = shownLcdSleepMinutes(backend.at("/lcd/LCD_sleep").get<int>());
    const int brightness = backend.at("/lcd/lcd_bright").get<int>();
    ASSERT_TRUE(waitUntil([&] {
        return shownLcdSleepMinutes(app->buildCameraSettingsPageVm(nullptr).lcd_sleep) == sleep;
    }));
    flows.onSliderModeConfirmed(SLIDER_LCD_SLEEP, sleep);
    EXPECT_EQ(backend.webRequestsOf("set_lcd_info"), 0);
    EXPECT_FALSE(card.feedback.isOperationOverlayActive());
    flows.onSliderModeConfirmed(SLIDER_LCD_SLEEP, sleep + 1);
    EXPECT_EQ(backend.at("/lcd/LCD_sleep"), sleep + 1);
    EXPECT_EQ(backend.at("/lcd/lcd_bright"), brightness) << "the sleep field is written alone";
    EXPECT_EQ(sleeps.count(), 1);
    flows.onSliderModeConfirmed(SLIDER_LCD_BRIGHTNESS, brightness + 7);
    EXPECT_EQ(backend.at("/lcd/lcd_bright"), brightness + 7);
    EXPECT_EQ(backend.at("/lcd/LCD_sleep"), sleep + 1) << "the brightness is written alone";
    EXPECT_EQ(sleeps.count(), 1);
}

TEST_F(ModalOnDevice, ConfirmationsClearTheModalOnlyWhenTheyGoThrough)
{
    QSignalSpy standby(&flows, &ModalFlows::standbyEntered);
    backend.require("status power_off 80003");
    flows.onConfirmDialogConfirmed(CONFIRM_STANDBY);
    EXPECT_EQ(card.state(), OPERATION_FAILED);
    EXPECT_EQ(cleared.count() + standby.count(), 0) << "a failed standby leaves the dialog open";
    backend.require("clear all");
    flows.onConfirmDialogConfirmed(CONFIRM_STANDBY);
    EXPECT_EQ(backend.at("/system/run_status"), 0);
    EXPECT_EQ(standby.count(), 1);
    flows.onConfirmDialogConfirmed(9);
    EXPECT_EQ(cleared.count(), 1) << "an unknown action leaves the dialog";
}
