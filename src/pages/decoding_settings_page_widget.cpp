#include "pages/decoding_settings_page_widget.h"

#include <QVariant>

Decoding_settings_page_widget::Decoding_settings_page_widget(UITextManager* textManager,
                                                             QWidget* parent)
    : SettingsCardPage(textManager, parent)
{
    rtmp_card =
        addSwitchCard(":/icons/decode_settings/rtmp_switch.svg", "decoding_settings.rtmp_server",
                      &Decoding_settings_page_widget::rtmpServerClicked);
    srt_card =
        addSwitchCard(":/icons/media_settings/srt_switch.svg", "decoding_settings.srt_server",
                      &Decoding_settings_page_widget::srtServerClicked);
    layoutAllCards();
}

void Decoding_settings_page_widget::updateFromVm(const DecodingSettingsPageVM& vm)
{
    renewTextsIfDirty();
    updateSwitch(rtmp_card, vm.rtmp_on);
    updateSwitch(srt_card, vm.srt_server_on);
}
