#pragma once

#include "model/view_models/settings_view_models.h"
#include "pages/i_gesture_handler.h"
#include "pages/page_ids.h"
#include "ui/components/settings_card.h"

// Output format, output mute and loop out. A looped-through output carries
// the input's own format, so the format choice (and in encode mode the mute)
// rests while loop out is on. Decode mode has no mute card.
class VideoSettingsPage1Widget : public SettingsCardPage, public IGestureHandler {
    Q_OBJECT

public:
    VideoSettingsPage1Widget(UITextManager* textManager, QWidget* parent = nullptr);

    int onSwipeLeft(int workmode) override
    {
        return workmode == 0 ? PAGE_VIDEO_SETTINGS_2 : PAGE_NONE;
    }
    int onEdgeSwipeToCenter(int) override { return PAGE_STATUS_1; }
    int onSwipeDown(int) override { return PAGE_MAIN_MENU_1; }
    void setDirty(bool dirty) override { markDirty(dirty); }

signals:
    void voFormatClicked();
    // `enabled` is whether the output carries audio at the tap.
    void muteOutClicked(bool enabled);
    void loopOutClicked(bool enabled);

public slots:
    void updateFromVm(const VideoSettingsPageVM& vm);

private:
    void layoutComponents();

    int format_card = -1;
    int mute_card = -1;
    int loop_card = -1;
    int work_mode = -1;
};

// AI tracking and green screen, encode mode only.
class VideoSettingsPage2Widget : public SettingsCardPage, public IGestureHandler {
    Q_OBJECT

public:
    VideoSettingsPage2Widget(UITextManager* textManager, QWidget* parent = nullptr);

    int onSwipeRight(int) override { return PAGE_VIDEO_SETTINGS_1; }
    int onEdgeSwipeToCenter(int) override { return PAGE_STATUS_1; }
    int onSwipeDown(int) override { return PAGE_MAIN_MENU_1; }
    void setDirty(bool dirty) override { markDirty(dirty); }

signals:
    void aiTrackingClicked(bool enabled);
    void greenScreenClicked(bool enabled);

public slots:
    void updateFromVm(const VideoSettingsPageVM& vm);

private:
    int ai_card = -1;
    int gsk_card = -1;
};
