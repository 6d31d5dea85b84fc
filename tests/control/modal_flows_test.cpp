// The edit, slider and confirm flows: the values they open with, their
// no-op rules, and their confirmations on the simulated device with the
// follow-ups the window has to carry out.
#include "control/manual_time_source.h"
#include "control/modal_flows.h"
#include "control_sim_backend.h"
#include "control_test_kit.h"

#include <QLabel>
#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace controltest;
using testsupport::waitUntil;
using PlanKind = EditConfirmPlan::Kind;

TEST(ModalOpenings, SleepAndBrightnessShowSensibleValues)
{
    CameraSettingsPageVM camera;
    camera.lcd_bright = 70;
    for (const auto& [stored, shown] :
         std::vector<std::pair<int, int>>{{0, 5}, {-2, 5}, {1, 1}, {30, 30}, {31, 5}, {60, 5}}) {
        camera.lcd_sleep = stored;
        EXPECT_EQ(lcdSleepSliderOpening(&camera), (SliderOpening{SLIDER_LCD_SLEEP, 14, shown}))
            << stored;
    }
    EXPECT_EQ(lcdSleepSliderOpening(nullptr).value, 5);
    EXPECT_EQ(lcdBrightnessSliderOpening(&camera).value, 70);
    EXPECT_EQ(lcdBrightnessSliderOpening(nullptr).value, 50);
}

TEST(ModalOpenings, RecordDiskChoiceIsClosedWhileRecording)
{
    EXPECT_FALSE(recordDiskEditOpening(18, 1, 0));
    EXPECT_FALSE(recordDiskEditOpening(21, 2, 0));
    for (const auto& [storage, option] :
         std::vector<std::pair<int, int>>{{0, 0}, {1, 1}, {3, 2}, {-1, 0}, {2, 0}}) {
        const auto opening = recordDiskEditOpening(21, 0, storage);
        ASSERT_TRUE(opening);
        EXPECT_EQ(*opening, (EditOpening{EDIT_RECORD_DISK, 21, option})) << storage;
    }
}

TEST(ModalOpenings, ValuesComeFromTheOriginatingPage)
{
    SystemSettingsPageVM system;
    system.usb_otg_on = true;
    EXPECT_EQ(usbModeEditOpening(&system), (EditOpening{EDIT_USB_MODE, 6, 1}));
    EXPECT_EQ(usbModeEditOpening(nullptr).actualIndex, 0);
    CameraSettingsPageVM camera;
    camera.tally_mode_id = 2;
    camera.tally_color_id = 1;
    EXPECT_EQ(tallyModeEditOpening(&camera), (EditOpening{EDIT_TALLY_MODE, 13, 2}));
    EXPECT_EQ(tallyLightEditOpening(&camera), (EditOpening{EDIT_TALLY_LIGHT, 13, 1}));
    EXPECT_EQ(tallyLightEditOpening(nullptr).actualIndex, 0);
    AudioSettingsPageVM audio;
    audio.ai_type = 3;
    audio.volume = 42;
    EXPECT_EQ(audioSourceEditOpening(audio), (EditOpening{EDIT_AUDIO_SOURCE, 17, 3}));
    EXPECT_EQ(encVolumeSliderOpening(audio), (SliderOpening{SLIDER_ENC_AUDIO_VOLUME, 17, 42}));
    MediaSettingsPageVM media;
    media.ndi_mode_id = 4;
    EXPECT_EQ(ndiQualityEditOpening(media), (EditOpening{EDIT_NDI_QUALITY, 19, 3}));
    // The menu's audio key is the output volume, and only in decode mode.
    EXPECT_FALSE(audioMenuKeySliderOpening(0, audio));
    EXPECT_EQ(*audioMenuKeySliderOpening(1, audio),
              (SliderOpening{SLIDER_OUT_AUDIO_VOLUME, 3, 42}));
}

TEST(ModalRecords, EachFlowRemembersWhereToReturn)
{
    OperationFeedback feedback(nullptr, nullptr);
    int workMode = 1;
    ModalFlows flows(nullptr, feedback, [&] { return workMode; });
    EXPECT_EQ(flows.enterConfirmDialog(CONFIRM_DC_OUT, 5, 2, 2), MODAL_PAGE_CONFIRM);
    EXPECT_EQ(flows.confirmVm(), (ConfirmDialogPageVM{4, 5, 2, 2}));
    EXPECT_EQ(flows.modalReturnPage(), 5);
    EXPECT_EQ(flows.modalReturnArg(), 2);

    EXPECT_EQ(flows.enterEditMode(EDIT_VIDEO_OUT_FORMAT, 15, -1), MODAL_PAGE_EDIT);
    EXPECT_EQ(flows.editVm(), (EditModePageVM{8, 15, -1, 0, 1}));
    EXPECT_EQ(flows.modalReturnArg(), 0);

    EXPECT_EQ(flows.enterSliderMode(SLIDER_OUT_AUDIO_VOLUME, 3, 40), MODAL_PAGE_SLIDER);
    EXPECT_EQ(flows.sliderVm(), (SliderModePageVM{3, 3, 40}));
    EXPECT_EQ(flows.modalReturnPage(), 3);
}

TEST(EditConfirmPlanRules, ValueInForceSendsNothing)
{
    EditConfirmContext c;
    c.work_mode = 1;
    c.system.usb_otg_on = true;
    c.camera.ptz_usb2serial = 1;
    c.camera.ptz_protocol = AppManager::uiIndexToPtzProtocol(2, 1, 1);
    c.video_out_format = "1080p60";
    c.selected_option = "1080p60";
    c.audio.ai_type = 2;
    c.selected_storage_id = 1;
    c.present_storage_id = 1;
    const std::vector<std::pair<int, int>> inForce = {
        {EDIT_WORK_MODE, 1},        {EDIT_USB_MODE, 1},     {EDIT_PTZ_PROTOCOL, 2},
        {EDIT_VIDEO_OUT_FORMAT, 0}, {EDIT_AUDIO_SOURCE, 2}, {EDIT_RECORD_DISK, 1}};
    for (const auto& [type, index] : inForce)
        EXPECT_EQ(planEditConfirm(type, index, c).kind, PlanKind::NoOp) << type;
    // The others send their value every time.
    for (int type : {EDIT_LANGUAGE, EDIT_THEME, EDIT_FAN_MODE, EDIT_TALLY_MODE, EDIT_TALLY_LIGHT,
                     EDIT_NDI_QUALITY})
        EXPECT_EQ(planEditConfirm(type, 0, c).kind, PlanKind::Call) << type;
    c.selected_storage_id = -1;
    EXPECT_EQ(planEditConfirm(EDIT_RECORD_DISK, 0, c).kind, PlanKind::NoOp);
    EXPECT_EQ(planEditConfirm(12, 0, c).kind, PlanKind::Unknown);
    EXPECT_EQ(planEditConfirm(-1, 0, c).kind, PlanKind::Unknown);
}

TEST(EditConfirmPlanRules, CardsInsteadOfImpossibleCalls)
{
    EditConfirmContext c;
    const EditConfirmPlan theme = planEditConfirm(EDIT_THEME, 2, c);
    EXPECT_EQ(theme.kind, PlanKind::Card);
    EXPECT_EQ(theme.card.status, -2);

    c.selected_storage_id = 3;
    c.present_storage_id = 0;
    for (const auto& [status, key] :
         std::vector<std::pair<int, QString>>{{0, "disk_status.disk_unmounted"},
                                              {2, "disk_status.disk_full"},
                                              {5, "disk_status.disk_fs_unsupported"},
                                              {-1, "disk_status.disk_other_error"}}) {
        c.disk_status = [status = status](int) { return status; };
        const EditConfirmPlan plan = planEditConfirm(EDIT_RECORD_DISK, 2, c);
        EXPECT_EQ(plan.kind, PlanKind::Card) << status;
        EXPECT_EQ(plan.card.text.key, key);
    }
    c.disk_status = [](int id) { return id == 3 ? 1 : 0; };
    EXPECT_EQ(planEditConfirm(EDIT_RECORD_DISK, 2, c).kind, PlanKind::Call);
}

namespace {

class ModalOnDevice : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(waitUntil([&] { return app->isDataReady(); }));
        flows.setEditPageProbe({[this] { return option; }, [this] { return storage; }});
    }
    QString shownText() const { return host.overlay->textLabel()->text(); }
    int requests(const char* op) const { return backend.requestsOf(op); }

    SimBackend backend;
    std::unique_ptr<AppManager> app = backend.fullAppManager();
    OverlayHost host;
    ManualTimeSource time;
    OperationFeedback feedback{host.overlay, englishTranslate(), time};
    int work_mode = 0;
    ModalFlows flows{app.get(), feedback, [this] { return work_mode; }};
    QString option;
    int storage = -1;
    QSignalSpy accepted{&flows, &ModalFlows::editValueAccepted};
    QSignalSpy cleared{&flows, &ModalFlows::modalStateClearRequested};
};

} // namespace

TEST_F(ModalOnDevice, LanguageSwitchesTextsOnlyWhenTheDeviceTookIt)
{
    QSignalSpy languages(&flows, &ModalFlows::languageSwitched);
    flows.enterEditMode(EDIT_LANGUAGE, 5, 1);
    backend.control("status set_sys_attr_info 80002");
    flows.onEditModeConfirmed(EDIT_LANGUAGE, 0);
    EXPECT_EQ(languages.count(), 0);
    EXPECT_EQ(accepted.count(), 0);
    EXPECT_EQ(flows.editVm().actualIndex, 1) << "the old value stays marked";
    EXPECT_EQ(host.overlay->state(), OPERATION_FAILED);

    backend.control("clear all");
    flows.onEditModeConfirmed(EDIT_LANGUAGE, 0);
    ASSERT_EQ(languages.count(), 1);
    EXPECT_EQ(languages.at(0).at(0).toInt(), 0);
    EXPECT_EQ(accepted.count(), 1);
    EXPECT_EQ(flows.editVm().actualIndex, 0);
    EXPECT_EQ(backend.at("/system/language_id"), 0);
    EXPECT_EQ(host.overlay->state(), OPERATION_SUCCESS);
}

TEST_F(ModalOnDevice, ThemeIsSavedThenApplied)
{
    QSignalSpy themes(&flows, &ModalFlows::themeSwitched);
    flows.onEditModeConfirmed(EDIT_THEME, 1);
    ASSERT_EQ(themes.count(), 1);
    EXPECT_EQ(themes.at(0).at(0).toInt(), 1);
    EXPECT_EQ(backend.at("/lcd/lcd_theme_id"), 1);
    flows.onEditModeConfirmed(EDIT_THEME, 5);
    EXPECT_EQ(themes.count(), 1);
    EXPECT_EQ(shownText(), english("point_info.invalid_param"));
}

TEST_F(ModalOnDevice, ValuesInForceSendNothingAndShowNoCard)
{
    option = QString::fromStdString(backend.at("/video/output/format").get<std::string>());
    ASSERT_TRUE(waitUntil([&] {
        return app->buildVideoSettingsPageVm(nullptr).out_format == option
               && app->getPresentStorageIdCached() == 0;
    }));
    storage = 0;
    flows.onEditModeConfirmed(EDIT_WORK_MODE, 0);
    flows.onEditModeConfirmed(EDIT_VIDEO_OUT_FORMAT, 1);
    flows.onEditModeConfirmed(EDIT_RECORD_DISK, 0);
    EXPECT_FALSE(feedback.isOperationOverlayActive());
    EXPECT_EQ(requests("change_workmode"), 0);
    EXPECT_EQ(requests("set_output_info"), 0);
    EXPECT_EQ(requests("choose_storage_path"), 0);
    EXPECT_EQ(accepted.count(), 0);

    option = "720p60";
    flows.onEditModeConfirmed(EDIT_VIDEO_OUT_FORMAT, 4);
    EXPECT_EQ(backend.at("/video/output/format"), "720p60");
    EXPECT_EQ(requests("set_output_info"), 1);
    EXPECT_EQ(host.overlay->state(), OPERATION_SUCCESS);
}

TEST_F(ModalOnDevice, RecordDiskIsCheckedBeforeItIsChosen)
{
    ASSERT_TRUE(waitUntil([&] { return app->getPresentStorageIdCached() == 0; }));
    backend.control("unplug-disk usb");
    ASSERT_TRUE(waitUntil([&] { return app->getDiskStatus(1) == 0; }));
    storage = 1;
    flows.onEditModeConfirmed(EDIT_RECORD_DISK, 1);
    EXPECT_EQ(host.overlay->state(), OPERATION_FAILED);
    EXPECT_EQ(shownText(), english("disk_status.disk_unmounted"));
    EXPECT_EQ(requests("choose_storage_path"), 0);

    storage = 3;
    flows.onEditModeConfirmed(EDIT_RECORD_DISK, 2);
    EXPECT_EQ(host.overlay->state(), OPERATION_SUCCESS);
    EXPECT_EQ(backend.at("/storage/present_storage_id"), 3);
    EXPECT_EQ(requests("choose_storage_path"), 1);
    ASSERT_EQ(accepted.count(), 1);
    EXPECT_EQ(accepted.at(0).at(0).toInt(), 2);
}

TEST_F(ModalOnDevice, SleepSliderChangesOnlyANewValueAndReArmsTheTimer)
{
    QSignalSpy sleeps(&flows, &ModalFlows::lcdSleepChanged);
    ASSERT_TRUE(waitUntil([&] { return app->buildCameraSettingsPageVm(nullptr).lcd_sleep == 5; }));
    flows.onSliderModeConfirmed(SLIDER_LCD_SLEEP, 5);
    EXPECT_EQ(requests("set_lcd_info"), 0);
    EXPECT_FALSE(feedback.isOperationOverlayActive());

    flows.onSliderModeConfirmed(SLIDER_LCD_SLEEP, 12);
    EXPECT_EQ(backend.at("/lcd/LCD_sleep"), 12);
    EXPECT_EQ(requests("set_lcd_info"), 1);
    EXPECT_EQ(backend.at("/lcd/lcd_bright"), 80) << "the sleep field is written alone";
    EXPECT_EQ(sleeps.count(), 1);

    flows.onSliderModeConfirmed(SLIDER_LCD_BRIGHTNESS, 33);
    EXPECT_EQ(backend.at("/lcd/lcd_bright"), 33);
    flows.onSliderModeConfirmed(SLIDER_OUT_AUDIO_VOLUME, 15);
    EXPECT_EQ(backend.at("/audio/all/ao_volume"), 15);
    flows.onSliderModeConfirmed(SLIDER_ENC_AUDIO_VOLUME, 25);
    EXPECT_EQ(backend.at("/audio/all/volume"), 25);
    EXPECT_EQ(sleeps.count(), 1);
}

TEST_F(ModalOnDevice, StandbyLeavesTheDialogOnlyOnSuccess)
{
    QSignalSpy standby(&flows, &ModalFlows::standbyEntered);
    backend.control("status power_off 80003");
    flows.onConfirmDialogConfirmed(CONFIRM_STANDBY);
    EXPECT_EQ(host.overlay->state(), OPERATION_FAILED);
    EXPECT_EQ(cleared.count(), 0);
    EXPECT_EQ(standby.count(), 0);

    backend.control("clear all");
    flows.onConfirmDialogConfirmed(CONFIRM_STANDBY);
    EXPECT_EQ(backend.at("/system/run_status"), 0);
    EXPECT_EQ(cleared.count(), 1);
    EXPECT_EQ(standby.count(), 1);
}

TEST_F(ModalOnDevice, RebootKeepsTheLoadingCardAndDcOutReportsItsResult)
{
    flows.onConfirmDialogConfirmed(CONFIRM_DC_OUT);
    EXPECT_EQ(cleared.count(), 1);
    EXPECT_EQ(backend.at("/system/dc_out/switch"), 1);
    EXPECT_EQ(host.overlay->state(), OPERATION_SUCCESS);

    flows.onConfirmDialogConfirmed(CONFIRM_REBOOT);
    EXPECT_EQ(cleared.count(), 2);
    EXPECT_EQ(requests("set_reboot_info"), 1);
    EXPECT_TRUE(feedback.isOperationInProgress()) << "the card stands until the device goes down";

    flows.onConfirmDialogConfirmed(9);
    EXPECT_EQ(cleared.count(), 2);
}
