#pragma once
// How the window opens its three shared modal pages: the kinds of edit,
// slider and confirm flows, and the value a flow opens with, from the state
// the originating page shows.
#include "model/view_models/settings_view_models.h"
#include "model/view_models/shell_view_models.h"

#include <optional>

enum EditModeType : int {
    EDIT_LANGUAGE = 0,
    EDIT_THEME = 1,
    EDIT_WORK_MODE = 2,
    EDIT_FAN_MODE = 3,
    EDIT_USB_MODE = 4,
    EDIT_PTZ_PROTOCOL = 5,
    EDIT_TALLY_MODE = 6,
    EDIT_TALLY_LIGHT = 7,
    EDIT_VIDEO_OUT_FORMAT = 8,
    EDIT_AUDIO_SOURCE = 9,
    EDIT_NDI_QUALITY = 10,
    EDIT_RECORD_DISK = 11,
};

enum SliderModeType : int {
    SLIDER_LCD_BRIGHTNESS = 0,
    SLIDER_LCD_SLEEP = 1,
    SLIDER_ENC_AUDIO_VOLUME = 2,
    SLIDER_OUT_AUDIO_VOLUME = 3,
};

enum ConfirmDialogAction : int {
    CONFIRM_REBOOT = 1,
    CONFIRM_RESET = 2,
    CONFIRM_STANDBY = 3,
    CONFIRM_DC_OUT = 4,
};

// The modal pages in the window's page table.
enum ModalPage : int {
    MODAL_PAGE_EDIT = 27,
    MODAL_PAGE_SLIDER = 28,
    MODAL_PAGE_CONFIRM = 29,
};

struct EditOpening {
    int editType = 0;
    int returnPage = 0;
    int actualIndex = 0;
    bool operator==(const EditOpening& o) const
    {
        return editType == o.editType && returnPage == o.returnPage && actualIndex == o.actualIndex;
    }
};

struct SliderOpening {
    int sliderType = 0;
    int returnPage = 0;
    int value = 0;
    bool operator==(const SliderOpening& o) const
    {
        return sliderType == o.sliderType && returnPage == o.returnPage && value == o.value;
    }
};

// Brightness and sleep values shown without a model.
inline constexpr int kDefaultLcdBrightness = 50;
inline constexpr int kDefaultLcdSleepMinutes = 5;
inline constexpr int kMaxLcdSleepMinutes = 30;

// Sleep minutes as the slider shows them: nothing sensible (0 or above 30)
// counts as the default.
int shownLcdSleepMinutes(int lcdSleep);
// The record disk list: 0 SD card, 1 USB disk, 2 NAS.
int recordDiskOptionIndex(int storageId);

// A null VM stands for a panel without model.
EditOpening usbModeEditOpening(const SystemSettingsPageVM* vm);
EditOpening tallyModeEditOpening(const CameraSettingsPageVM* vm);
EditOpening tallyLightEditOpening(const CameraSettingsPageVM* vm);
EditOpening audioSourceEditOpening(const AudioSettingsPageVM& vm);
EditOpening ndiQualityEditOpening(const MediaSettingsPageVM& vm);
// No choice of disk while a recording runs or is paused.
std::optional<EditOpening> recordDiskEditOpening(int returnPage, int recordStatus,
                                                 int presentStorageId);
SliderOpening lcdBrightnessSliderOpening(const CameraSettingsPageVM* vm);
SliderOpening lcdSleepSliderOpening(const CameraSettingsPageVM* vm);
SliderOpening encVolumeSliderOpening(const AudioSettingsPageVM& vm);
// The "AUDIO" key of the main menu opens the output volume outside encode
// mode only; in that mode the audio VM's volume is the output's.
std::optional<SliderOpening> audioMenuKeySliderOpening(int workMode, const AudioSettingsPageVM& vm);
