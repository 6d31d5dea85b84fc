// Which control of a settings page opens which modal flow, with the value in
// force as its starting point.
#include "shell/widget.h"

#include "control/modal_openings.h"
#include "model/app_manager.h"
#include "pages/audio_settings_page_widget.h"
#include "pages/camera_settings_page_widget.h"
#include "pages/encoder_shortcut_page_widget.h"
#include "pages/general_edit_page_widget.h"
#include "pages/media_settings_page_widget.h"
#include "pages/system_settings_page_widget.h"
#include "pages/video_settings_page_widget.h"
#include "ui/text_manager.h"

#include <optional>

void Widget::connectEditModeSignals()
{
    const auto open = [this](const std::optional<EditOpening>& o) {
        if (o)
            enterEditMode(o->editType, o->returnPage, o->actualIndex);
    };
    connect(system_settings_page1, &SystemSettingsPage1Widget::languageClicked, this, [this] {
        enterEditMode(EDIT_LANGUAGE, PAGE_SYSTEM_SETTINGS_1,
                      text_mgr ? text_mgr->getCurrentLanguage() : 0);
    });
    connect(system_settings_page1, &SystemSettingsPage1Widget::themeClicked, this,
            [this] { enterEditMode(EDIT_THEME, PAGE_SYSTEM_SETTINGS_1, theme_index); });
    connect(system_settings_page2, &SystemSettingsPage2Widget::workmodeClicked, this,
            [this] { enterEditMode(EDIT_WORK_MODE, PAGE_SYSTEM_SETTINGS_2, currentWorkMode()); });
    connect(system_settings_page2, &SystemSettingsPage2Widget::usbModeClicked, this, [this, open] {
        if (!appMgr) {
            open(usbModeEditOpening(nullptr));
            return;
        }
        const SystemSettingsPageVM vm = appMgr->buildSystemSettingsPageVm(nullptr);
        open(usbModeEditOpening(&vm));
    });
    connect(system_settings_page2, &SystemSettingsPage2Widget::fanModeClicked, this, [this] {
        if (appMgr)
            enterEditMode(EDIT_FAN_MODE, PAGE_SYSTEM_SETTINGS_2,
                          AppManager::fanModeToUiIndex(appMgr->getFanMode()));
    });
    connect(camera_settings_page1, &CameraSettingsPage1Widget::ptzProtocolClicked, this, [this] {
        if (!appMgr)
            return;
        const CameraSettingsPageVM vm = appMgr->buildCameraSettingsPageVm(nullptr);
        const int mode = currentWorkMode();
        // The page lists the protocols of this port and mode; tell it first.
        general_edit_page->setPtzProtoContext(vm.ptz_usb2serial, mode);
        enterEditMode(EDIT_PTZ_PROTOCOL, PAGE_CAMERA_SETTINGS_1,
                      AppManager::ptzProtocolToUiIndex(vm.ptz_protocol, vm.ptz_usb2serial, mode));
    });
    const auto cameraVm = [this]() -> std::optional<CameraSettingsPageVM> {
        if (!appMgr)
            return std::nullopt;
        return appMgr->buildCameraSettingsPageVm(nullptr);
    };
    connect(camera_settings_page2, &CameraSettingsPage2Widget::tallyModeClicked, this,
            [open, cameraVm] {
                const auto vm = cameraVm();
                open(tallyModeEditOpening(vm ? &*vm : nullptr));
            });
    connect(camera_settings_page2, &CameraSettingsPage2Widget::tallyLightClicked, this,
            [open, cameraVm] {
                const auto vm = cameraVm();
                open(tallyLightEditOpening(vm ? &*vm : nullptr));
            });
    connect(video_settings_page1, &VideoSettingsPage1Widget::voFormatClicked, this, [this] {
        if (!appMgr)
            return;
        const VideoSettingsPageVM vm = appMgr->buildVideoSettingsPageVm(nullptr);
        // -1: the page finds the format in force among its options by text.
        general_edit_page->setVoFormatContext(vm.in_width, vm.in_height, vm.in_fps, vm.out_format,
                                              currentWorkMode());
        enterEditMode(EDIT_VIDEO_OUT_FORMAT, PAGE_VIDEO_SETTINGS_1, -1);
    });
    connect(audio_settings_page, &Audio_settings_page_widget::encSourceClicked, this, [this, open] {
        if (appMgr)
            open(audioSourceEditOpening(appMgr->buildAudioSettingsPageVm(nullptr)));
    });
    connect(media_settings_page1, &MediaSettingsPage1Widget::diskSelectClicked, this, [this, open] {
        if (!appMgr)
            return;
        const MediaSettingsPageVM vm = appMgr->buildMediaSettingsPageVm(nullptr);
        open(recordDiskEditOpening(PAGE_MEDIA_SETTINGS_1, vm.record_status, vm.present_storage_id));
    });
    connect(media_settings_page2, &MediaSettingsPage2Widget::ndiQualityClicked, this, [this, open] {
        if (appMgr)
            open(ndiQualityEditOpening(appMgr->buildMediaSettingsPageVm(nullptr)));
    });
    connect(encoder_shortcut_page1, &EncoderShortcutPage1Widget::diskSelectClicked, this,
            [this, open] {
                if (!appMgr)
                    return;
                // The record page judges the recording by its own state.
                const int recording = appMgr->buildEncoderShortcutPageVm(nullptr).record_status;
                const MediaSettingsPageVM media = appMgr->buildMediaSettingsPageVm(nullptr);
                open(recordDiskEditOpening(PAGE_ENCODER_SHORTCUT_1, recording,
                                           media.present_storage_id));
            });
}

void Widget::connectSliderModeSignals()
{
    const auto open = [this](const std::optional<SliderOpening>& o) {
        if (o)
            enterSliderMode(o->sliderType, o->returnPage, o->value);
    };
    const auto cameraSlider = [this, open](SliderOpening (*opening)(const CameraSettingsPageVM*)) {
        if (!appMgr) {
            open(opening(nullptr));
            return;
        }
        const CameraSettingsPageVM vm = appMgr->buildCameraSettingsPageVm(nullptr);
        open(opening(&vm));
    };
    connect(camera_settings_page3, &CameraSettingsPage3Widget::lcdBrightnessClicked, this,
            [cameraSlider] { cameraSlider(&lcdBrightnessSliderOpening); });
    connect(camera_settings_page3, &CameraSettingsPage3Widget::lcdSleepClicked, this,
            [cameraSlider] { cameraSlider(&lcdSleepSliderOpening); });
    connect(audio_settings_page, &Audio_settings_page_widget::encVolumeClicked, this, [this, open] {
        if (appMgr)
            open(encVolumeSliderOpening(appMgr->buildAudioSettingsPageVm(nullptr)));
    });
}

void Widget::connectConfirmDialogSignals()
{
    const auto confirm = [this](int action) {
        return [this, action] { enterConfirmDialog(action, PAGE_SYSTEM_SETTINGS_3, 0, 1); };
    };
    connect(system_settings_page3, &SystemSettingsPage3Widget::standbyClicked, this,
            confirm(CONFIRM_STANDBY));
    connect(system_settings_page3, &SystemSettingsPage3Widget::rebootClicked, this,
            confirm(CONFIRM_REBOOT));
    connect(system_settings_page3, &SystemSettingsPage3Widget::resetClicked, this,
            confirm(CONFIRM_RESET));
}
