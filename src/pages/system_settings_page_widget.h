#pragma once

#include "model/view_models/settings_view_models.h"
#include "pages/i_gesture_handler.h"
#include "pages/page_ids.h"
#include "ui/components/settings_card.h"

#include <QMutex>

class QLabel;

// Language, theme and the DC output.
class SystemSettingsPage1Widget : public SettingsCardPage, public IGestureHandler {
    Q_OBJECT

public:
    SystemSettingsPage1Widget(UITextManager* textManager, QWidget* parent = nullptr);

    int onSwipeLeft(int) override { return PAGE_SYSTEM_SETTINGS_2; }
    int onEdgeSwipeToCenter(int) override { return PAGE_STATUS_1; }
    int onSwipeDown(int) override { return PAGE_MAIN_MENU_2; }
    void setDirty(bool dirty) override { markDirty(dirty); }

signals:
    void languageClicked();
    void themeClicked();
    // The output's state at the tap and its voltage id (2 is 12 V, 1 is 8.4 V).
    void dcOutClicked(bool enabled, int voltage);

public slots:
    void updateFromVm(const SystemSettingsPageVM& vm);
    void onDcOutBtnClicked();

private:
    void updateDcOutState();

    int dc_out_card = -1;
    QMutex state_mutex;
    bool dc_out_on = false;
    int dc_out_voltage = 1;
};

// Work mode, USB mode and fan mode: three entries to the edit page.
class SystemSettingsPage2Widget : public SettingsCardPage, public IGestureHandler {
    Q_OBJECT

public:
    SystemSettingsPage2Widget(UITextManager* textManager, QWidget* parent = nullptr);

    int onSwipeLeft(int) override { return PAGE_SYSTEM_SETTINGS_3; }
    int onSwipeRight(int) override { return PAGE_SYSTEM_SETTINGS_1; }
    int onEdgeSwipeToCenter(int) override { return PAGE_STATUS_1; }
    int onSwipeDown(int) override { return PAGE_MAIN_MENU_2; }
    void setDirty(bool dirty) override { markDirty(dirty); }

signals:
    void workmodeClicked();
    void usbModeClicked();
    void fanModeClicked();

public slots:
    void updateFromVm(const SystemSettingsPageVM& vm);
};

// Standby, restart and factory reset, each behind a confirm page.
class SystemSettingsPage3Widget : public SettingsCardPage, public IGestureHandler {
    Q_OBJECT

public:
    SystemSettingsPage3Widget(UITextManager* textManager, QWidget* parent = nullptr);

    int onSwipeLeft(int) override { return PAGE_SYSTEM_SETTINGS_4; }
    int onSwipeRight(int) override { return PAGE_SYSTEM_SETTINGS_2; }
    int onEdgeSwipeToCenter(int) override { return PAGE_STATUS_1; }
    int onSwipeDown(int) override { return PAGE_MAIN_MENU_2; }
    void setDirty(bool dirty) override { markDirty(dirty); }

signals:
    void standbyClicked();
    void rebootClicked();
    void resetClicked();

public slots:
    void updateFromVm(const SystemSettingsPageVM& vm);
};

// Device information: name, start time and run time, versions. No cards.
class SystemSettingsPage4Widget : public SettingsCardPage, public IGestureHandler {
    Q_OBJECT

public:
    SystemSettingsPage4Widget(UITextManager* textManager, QWidget* parent = nullptr);

    int onSwipeRight(int) override { return PAGE_SYSTEM_SETTINGS_3; }
    int onEdgeSwipeToCenter(int) override { return PAGE_STATUS_1; }
    int onSwipeDown(int) override { return PAGE_MAIN_MENU_2; }
    void setDirty(bool dirty) override { markDirty(dirty); }

    QString deviceNameText() const;
    QString startTimeText() const;
    QString runTimeText() const;
    QString versionText() const;

public slots:
    void updateFromVm(const SystemSettingsPageVM& vm);

private:
    void createComponents();
    void layoutComponents();

    QLabel* name_icon = nullptr;
    QLabel* time_icon = nullptr;
    QLabel* version_icon = nullptr;
    QLabel* name_value = nullptr;
    QLabel* time_value = nullptr;
    QLabel* separator = nullptr;
    QLabel* runtime_value = nullptr;
    QLabel* version_value = nullptr;
};
