#include "pages/video_settings_page_widget.h"

#include <QVariant>

// ---- Page 1 ----------------------------------------------------------------

VideoSettingsPage1Widget::VideoSettingsPage1Widget(UITextManager* textManager, QWidget* parent)
    : SettingsCardPage(textManager, parent)
{
    format_card = addCard(":/icons/statusp2/vo.svg", "video_settings.vo_format",
                          &VideoSettingsPage1Widget::voFormatClicked);
    mute_card = addSwitchCard(":/icons/statusp2/mute.svg", "video_settings.mute_out",
                              &VideoSettingsPage1Widget::muteOutClicked);
    loop_card = addSwitchCard(":/icons/statusp2/loop.svg", "video_settings.loop_out",
                              &VideoSettingsPage1Widget::loopOutClicked);
    layoutComponents();
}

void VideoSettingsPage1Widget::layoutComponents()
{
    if (work_mode == 1) {
        layoutCards({format_card, loop_card});
    } else {
        layoutAllCards();
    }
}

void VideoSettingsPage1Widget::updateFromVm(const VideoSettingsPageVM& vm)
{
    renewTextsIfDirty();
    if (vm.work_mode != work_mode) {
        work_mode = vm.work_mode;
        layoutComponents();
    }

    showAvailable(format_card, !vm.loop_out_on);

    setSwitchValue(mute_card, vm.audio_out_on);
    if (vm.work_mode == 0 && vm.loop_out_on) {
        setCardLook(mute_card, kDisabled, 0);
    } else {
        // The card reads "mute": it lights up when the output carries no audio.
        setCardLook(mute_card, vm.audio_out_on ? kNormal : kActive, 1);
    }

    updateSwitch(loop_card, vm.loop_out_on);
}

// ---- Page 2 ----------------------------------------------------------------

VideoSettingsPage2Widget::VideoSettingsPage2Widget(UITextManager* textManager, QWidget* parent)
    : SettingsCardPage(textManager, parent)
{
    ai_card = addSwitchCard(":/icons/video_settings/ai.svg", "video_settings.ai_function",
                            &VideoSettingsPage2Widget::aiTrackingClicked);
    gsk_card = addSwitchCard(":/icons/video_settings/gsk.svg", "video_settings.green_screen",
                             &VideoSettingsPage2Widget::greenScreenClicked);
    layoutAllCards();
}

void VideoSettingsPage2Widget::updateFromVm(const VideoSettingsPageVM& vm)
{
    renewTextsIfDirty();
    updateSwitch(ai_card, vm.ai_tracking_on);
    updateSwitch(gsk_card, vm.gsk_on);
}
