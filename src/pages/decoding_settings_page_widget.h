#pragma once

#include "model/view_models/settings_view_models.h"
#include "pages/i_gesture_handler.h"
#include "pages/page_ids.h"
#include "ui/components/settings_card.h"

// The decoder's receiving servers: RTMP and SRT.
class Decoding_settings_page_widget : public SettingsCardPage, public IGestureHandler {
    Q_OBJECT

public:
    Decoding_settings_page_widget(UITextManager* textManager, QWidget* parent = nullptr);

    int onEdgeSwipeToCenter(int) override { return PAGE_STATUS_1; }
    int onSwipeDown(int) override { return PAGE_MAIN_MENU_1; }
    void setDirty(bool dirty) override { markDirty(dirty); }

signals:
    void rtmpServerClicked(bool enabled);
    void srtServerClicked(bool enabled);
    // Wired by the shell; the page has no card for it.
    void srtPlayClicked(bool enabled);

public slots:
    void updateFromVm(const DecodingSettingsPageVM& vm);

private:
    int rtmp_card = -1;
    int srt_card = -1;
};
