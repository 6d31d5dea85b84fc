#include "pages/audio_settings_page_widget.h"

#include <QVariant>

namespace {

// Audio sources (HDMI, USB and the like) whose level comes with the signal.
bool sourceHasFixedLevel(int aiType)
{
    return aiType == 2 || aiType == 3 || aiType == 4;
}

} // namespace

Audio_settings_page_widget::Audio_settings_page_widget(UITextManager* textManager, QWidget* parent)
    : SettingsCardPage(textManager, parent)
{
    switch_card = addSwitchCard(":/icons/statusp2/sound.svg", "audio_settings.audio_sw",
                                &Audio_settings_page_widget::audioSwClicked);
    volume_card = addCard(":/icons/statusp2/sound.svg", "audio_settings.audio_volume",
                          &Audio_settings_page_widget::encVolumeClicked);
    source_card = addCard(":/icons/statusp3/audio_source.svg", "audio_settings.audio_source",
                          &Audio_settings_page_widget::encSourceClicked);
    layoutAllCards();
}

void Audio_settings_page_widget::updateFromVm(const AudioSettingsPageVM& vm)
{
    renewTextsIfDirty();
    const bool muted = vm.muted != 0;
    setCardIcon(switch_card, muted ? ":/icons/statusp2/mute.svg" : ":/icons/statusp2/sound.svg");
    updateSwitch(switch_card, muted);
    showAvailable(volume_card, !muted && !sourceHasFixedLevel(vm.ai_type));
    showAvailable(source_card, !muted);
}
