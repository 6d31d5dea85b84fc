#pragma once

#include "model/view_models/settings_view_models.h"
#include "pages/i_gesture_handler.h"
#include "pages/page_ids.h"
#include "ui/components/settings_card.h"

class QLabel;

// SRT server, record disk and disk speed test. The disk can't change while
// a record runs or a speed test is under way.
class MediaSettingsPage1Widget : public SettingsCardPage, public IGestureHandler {
    Q_OBJECT

public:
    MediaSettingsPage1Widget(UITextManager* textManager, QWidget* parent = nullptr);

    int onSwipeLeft(int workmode) override
    {
        return workmode == 0 ? PAGE_MEDIA_SETTINGS_2 : PAGE_NONE;
    }
    int onEdgeSwipeToCenter(int) override { return PAGE_STATUS_1; }
    int onSwipeDown(int) override { return PAGE_MAIN_MENU_1; }
    void setDirty(bool dirty) override { markDirty(dirty); }

signals:
    void srtSwitchClicked(bool enabled);
    void diskSelectClicked();
    void diskSpeedClicked();

public slots:
    void updateFromVm(const MediaSettingsPageVM& vm);

private:
    int srt_card = -1;
    int disk_card = -1;
    int speed_card = -1;
};

// NDI output: the switch, its quality, and a card that names the stream.
class MediaSettingsPage2Widget : public SettingsCardPage, public IGestureHandler {
    Q_OBJECT

public:
    MediaSettingsPage2Widget(UITextManager* textManager, QWidget* parent = nullptr);

    int onSwipeRight(int) override { return PAGE_MEDIA_SETTINGS_1; }
    int onEdgeSwipeToCenter(int) override { return PAGE_STATUS_1; }
    int onSwipeDown(int) override { return PAGE_MAIN_MENU_1; }
    void setDirty(bool dirty) override { markDirty(dirty); }

    QPushButton* ndiInfoButton() const { return ndi_info_btn; }
    QLabel* ndiInfoLabel(int line) const;

signals:
    void ndiSwitchClicked(bool enabled);
    void ndiQualityClicked();

public slots:
    void updateFromVm(const MediaSettingsPageVM& vm);

private:
    void createNdiInfoSection();
    void layoutComponents();
    void updateNdiInfoSection(const MediaSettingsPageVM& vm);

    int ndi_card = -1;
    int quality_card = -1;
    QPushButton* ndi_info_btn = nullptr;
    QLabel* ndi_name_label = nullptr;
    QLabel* ndi_name_rest_label = nullptr;
    QLabel* ndi_mode_label = nullptr;
};
