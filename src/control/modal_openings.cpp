#include "control/modal_openings.h"

#include "model/app_manager.h"

namespace {

constexpr int kSystemSettings2 = 6;
constexpr int kCameraSettings2 = 13;
constexpr int kCameraSettings3 = 14;
constexpr int kAudioSettings = 17;
constexpr int kMediaSettings2 = 19;
constexpr int kMainMenu1 = 3;
constexpr int kEncodeMode = 0;

constexpr int kStorageUsb = 1;
constexpr int kStorageNas = 3;

} // namespace

int shownLcdSleepMinutes(int lcdSleep)
{
    return (lcdSleep <= 0 || lcdSleep > kMaxLcdSleepMinutes) ? kDefaultLcdSleepMinutes : lcdSleep;
}

int recordDiskOptionIndex(int storageId)
{
    if (storageId == kStorageUsb)
        return 1;
    if (storageId == kStorageNas)
        return 2;
    return 0;
}

EditOpening usbModeEditOpening(const SystemSettingsPageVM* vm)
{
    return {EDIT_USB_MODE, kSystemSettings2, vm && vm->usb_otg_on ? 1 : 0};
}

EditOpening tallyModeEditOpening(const CameraSettingsPageVM* vm)
{
    return {EDIT_TALLY_MODE, kCameraSettings2, vm ? vm->tally_mode_id : 0};
}

EditOpening tallyLightEditOpening(const CameraSettingsPageVM* vm)
{
    return {EDIT_TALLY_LIGHT, kCameraSettings2, vm ? vm->tally_color_id : 0};
}

EditOpening audioSourceEditOpening(const AudioSettingsPageVM& vm)
{
    return {EDIT_AUDIO_SOURCE, kAudioSettings, vm.ai_type};
}

EditOpening ndiQualityEditOpening(const MediaSettingsPageVM& vm)
{
    return {EDIT_NDI_QUALITY, kMediaSettings2, AppManager::ndiQualityToUiIndex(vm.ndi_mode_id)};
}

std::optional<EditOpening> recordDiskEditOpening(int returnPage, int recordStatus,
                                                 int presentStorageId)
{
    if (recordStatus == 1 || recordStatus == 2)
        return std::nullopt;
    return EditOpening{EDIT_RECORD_DISK, returnPage, recordDiskOptionIndex(presentStorageId)};
}

SliderOpening lcdBrightnessSliderOpening(const CameraSettingsPageVM* vm)
{
    return {SLIDER_LCD_BRIGHTNESS, kCameraSettings3, vm ? vm->lcd_bright : kDefaultLcdBrightness};
}

SliderOpening lcdSleepSliderOpening(const CameraSettingsPageVM* vm)
{
    return {SLIDER_LCD_SLEEP, kCameraSettings3,
            vm ? shownLcdSleepMinutes(vm->lcd_sleep) : kDefaultLcdSleepMinutes};
}

SliderOpening encVolumeSliderOpening(const AudioSettingsPageVM& vm)
{
    return {SLIDER_ENC_AUDIO_VOLUME, kAudioSettings, vm.volume};
}

std::optional<SliderOpening> audioMenuKeySliderOpening(int workMode, const AudioSettingsPageVM& vm)
{
    if (workMode == kEncodeMode)
        return std::nullopt;
    return SliderOpening{SLIDER_OUT_AUDIO_VOLUME, kMainMenu1, vm.volume};
}
