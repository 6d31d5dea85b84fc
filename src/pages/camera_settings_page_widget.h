#pragma once

#include "model/view_models/settings_view_models.h"
#include "pages/i_gesture_handler.h"
#include "pages/page_ids.h"
#include "ui/components/settings_card.h"

// The PTZ protocol entry.
class CameraSettingsPage1Widget : public SettingsCardPage, public IGestureHandler {
    Q_OBJECT

public:
    CameraSettingsPage1Widget(UITextManager* textManager, QWidget* parent = nullptr);

    int onSwipeLeft(int) override { return PAGE_CAMERA_SETTINGS_2; }
    int onEdgeSwipeToCenter(int) override { return PAGE_STATUS_1; }
    int onSwipeDown(int) override { return PAGE_MAIN_MENU_2; }
    void setDirty(bool dirty) override { markDirty(dirty); }

signals:
    void ptzProtocolClicked();

public slots:
    void updateFromVm(const CameraSettingsPageVM& vm);
};

// Tally: the switch, and its mode and light, which only mean something while
// tally is on (the light only in manual mode).
class CameraSettingsPage2Widget : public SettingsCardPage, public IGestureHandler {
    Q_OBJECT

public:
    CameraSettingsPage2Widget(UITextManager* textManager, QWidget* parent = nullptr);

    int onSwipeLeft(int) override { return PAGE_CAMERA_SETTINGS_3; }
    int onSwipeRight(int) override { return PAGE_CAMERA_SETTINGS_1; }
    int onEdgeSwipeToCenter(int) override { return PAGE_STATUS_1; }
    int onSwipeDown(int) override { return PAGE_MAIN_MENU_2; }
    void setDirty(bool dirty) override { markDirty(dirty); }

signals:
    void tallyEnableClicked(bool enabled);
    void tallyModeClicked();
    void tallyLightClicked();

public slots:
    void updateFromVm(const CameraSettingsPageVM& vm);

private:
    void updateTallyEnableState(bool on);
    void updateTallyModeBtnState(bool available);
    void updateTallyLightBtnState(bool available);

    int tally_card = -1;
    int mode_card = -1;
    int light_card = -1;
    // -1 until the first record: the first one always draws.
    int shown_tally_on = -1;
};

// The screen itself: touch lock, brightness and sleep time.
class CameraSettingsPage3Widget : public SettingsCardPage, public IGestureHandler {
    Q_OBJECT

public:
    CameraSettingsPage3Widget(UITextManager* textManager, QWidget* parent = nullptr);

    int onSwipeRight(int) override { return PAGE_CAMERA_SETTINGS_2; }
    int onEdgeSwipeToCenter(int) override { return PAGE_STATUS_1; }
    int onSwipeDown(int) override { return PAGE_MAIN_MENU_2; }
    void setDirty(bool dirty) override { markDirty(dirty); }

signals:
    void lcdLockClicked(bool enabled);
    void lcdBrightnessClicked();
    void lcdSleepClicked();

public slots:
    void updateFromVm(const CameraSettingsPageVM& vm);

private:
    void updateLcdLockState(bool on);

    int lock_card = -1;
    int shown_lock_on = -1;
};
