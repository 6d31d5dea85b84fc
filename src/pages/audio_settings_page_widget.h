#pragma once

#include "model/view_models/settings_view_models.h"
#include "pages/i_gesture_handler.h"
#include "pages/page_ids.h"
#include "ui/components/settings_card.h"

// The encoder's audio: on/off, volume and source. Volume and source rest
// while the audio is muted; the volume also for the inputs whose level the
// device doesn't set.
class Audio_settings_page_widget : public SettingsCardPage, public IGestureHandler {
    Q_OBJECT

public:
    Audio_settings_page_widget(UITextManager* textManager, QWidget* parent = nullptr);

    int onEdgeSwipeToCenter(int) override { return PAGE_STATUS_1; }
    int onSwipeDown(int) override { return PAGE_MAIN_MENU_1; }
    void setDirty(bool dirty) override { markDirty(dirty); }

signals:
    // `isMuted` at the tap; it is also the switch state to ask for.
    void audioSwClicked(bool isMuted);
    void encVolumeClicked();
    void encSourceClicked();

public slots:
    void updateFromVm(const AudioSettingsPageVM& vm);

private:
    int switch_card = -1;
    int volume_card = -1;
    int source_card = -1;
};
