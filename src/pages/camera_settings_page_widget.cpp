#include "pages/camera_settings_page_widget.h"

#include <QVariant>

namespace {

// Tally mode in which the light colour is chosen by hand.
constexpr int kTallyModeManual = 1;

} // namespace

// ---- Page 1 ----------------------------------------------------------------

CameraSettingsPage1Widget::CameraSettingsPage1Widget(UITextManager* textManager, QWidget* parent)
    : SettingsCardPage(textManager, parent)
{
    addCard(":/icons/camera_settings/ptz_proto.svg", "camera_settings.ptz_protocol",
            &CameraSettingsPage1Widget::ptzProtocolClicked);
    layoutAllCards();
}

void CameraSettingsPage1Widget::updateFromVm(const CameraSettingsPageVM&)
{
    renewTextsIfDirty();
}

// ---- Page 2 ----------------------------------------------------------------

CameraSettingsPage2Widget::CameraSettingsPage2Widget(UITextManager* textManager, QWidget* parent)
    : SettingsCardPage(textManager, parent)
{
    tally_card = addSwitchCard(":/icons/camera_settings/tally.svg", "camera_settings.tally_enable",
                               &CameraSettingsPage2Widget::tallyEnableClicked);
    mode_card = addCard(":/icons/camera_settings/tally_mode.svg", "camera_settings.tally_mode",
                        &CameraSettingsPage2Widget::tallyModeClicked);
    light_card = addCard(":/icons/camera_settings/tally_light.svg", "camera_settings.tally_light",
                         &CameraSettingsPage2Widget::tallyLightClicked);
    layoutAllCards();
}

void CameraSettingsPage2Widget::updateFromVm(const CameraSettingsPageVM& vm)
{
    renewTextsIfDirty();
    setSwitchValue(tally_card, vm.tally_on);
    updateTallyEnableState(vm.tally_on);
    updateTallyModeBtnState(vm.tally_on);
    updateTallyLightBtnState(vm.tally_on && vm.tally_mode_id == kTallyModeManual);
}

void CameraSettingsPage2Widget::updateTallyEnableState(bool on)
{
    if (shown_tally_on == int(on)) {
        return;
    }
    shown_tally_on = int(on);
    showSwitch(tally_card, on);
}

void CameraSettingsPage2Widget::updateTallyModeBtnState(bool available)
{
    if (cardState(mode_card) == (available ? kNormal : kDisabled)) {
        return;
    }
    showAvailable(mode_card, available);
}

void CameraSettingsPage2Widget::updateTallyLightBtnState(bool available)
{
    if (cardState(light_card) == (available ? kNormal : kDisabled)) {
        return;
    }
    showAvailable(light_card, available);
}

// ---- Page 3 ----------------------------------------------------------------

CameraSettingsPage3Widget::CameraSettingsPage3Widget(UITextManager* textManager, QWidget* parent)
    : SettingsCardPage(textManager, parent)
{
    lock_card = addSwitchCard(":/icons/camera_settings/lcd_lock.svg", "camera_settings.lcd_lock",
                              &CameraSettingsPage3Widget::lcdLockClicked);
    addCard(":/icons/camera_settings/lcd_bright.svg", "camera_settings.lcd_brightness",
            &CameraSettingsPage3Widget::lcdBrightnessClicked);
    addCard(":/icons/camera_settings/lcd_sleep.svg", "camera_settings.lcd_sleep",
            &CameraSettingsPage3Widget::lcdSleepClicked);
    layoutAllCards();
}

void CameraSettingsPage3Widget::updateFromVm(const CameraSettingsPageVM& vm)
{
    renewTextsIfDirty();
    setSwitchValue(lock_card, vm.lcd_lock_on);
    updateLcdLockState(vm.lcd_lock_on);
}

void CameraSettingsPage3Widget::updateLcdLockState(bool on)
{
    if (shown_lock_on == int(on)) {
        return;
    }
    shown_lock_on = int(on);
    showSwitch(lock_card, on);
}
