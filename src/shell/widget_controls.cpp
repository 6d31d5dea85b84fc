// The control layer inside the window: its objects, built before the pages
// (they share the window's clock and its card), and the wiring of every
// control that acts in place on its page, of the shortcut keys and of the
// slow jobs' way back to the screen.
#include "shell/widget.h"

#include "control/async_control_runner.h"
#include "control/disk_speed_test_session.h"
#include "control/idle_sleep_controller.h"
#include "control/in_place_controls.h"
#include "control/modal_flows.h"
#include "control/ndi_search_session.h"
#include "control/operation_feedback.h"
#include "pages/audio_settings_page_widget.h"
#include "pages/camera_settings_page_widget.h"
#include "pages/decoder_shortcut_page_widget.h"
#include "pages/decoding_settings_page_widget.h"
#include "pages/encoder_shortcut_page_widget.h"
#include "pages/media_settings_page_widget.h"
#include "pages/network_settings_page_widget.h"
#include "pages/shortcut_page_widget.h"
#include "pages/system_settings_page_widget.h"
#include "pages/video_settings_page_widget.h"
#include "shell/widget_surfaces.h"
#include "ui/text_manager.h"

void Widget::initAsyncWorkerWatchers()
{
    OperationTranslate translate;
    if (UITextManager* texts = text_mgr)
        translate = [texts](const QString& key) { return texts->getTextWithFallback(key); };
    const auto pageOnScreen = [this] { return get_current_pageid(); };

    surfaces = std::make_unique<WidgetSurfaces>(*this);
    // The card itself comes with the chrome (initOperationOverlay).
    feedback = std::make_unique<OperationFeedback>(nullptr, translate, control_time);
    control_runner = std::make_unique<AsyncControlRunner>(*feedback, pageOnScreen);
    in_place_controls = std::make_unique<InPlaceControls>(appMgr, *feedback, *control_runner);
    modal_flows =
        std::make_unique<ModalFlows>(appMgr, *feedback, [this] { return currentWorkMode(); });
    idle_sleep = std::make_unique<IdleSleepController>(appMgr, *surfaces, control_time);
    disk_speed =
        std::make_unique<DiskSpeedTestSession>(appMgr, *feedback, pageOnScreen, control_time);
    ndi_search = std::make_unique<NdiSearchSession>(appMgr, *feedback, pageOnScreen);
}

void Widget::connectAsyncWorkerSignals()
{
    connect(control_runner.get(), &AsyncControlRunner::refreshPageRequested, this,
            &Widget::refreshCurrentPageAfterAsyncControl);
    // The network page marks a switch as pending until its job is done; a job
    // that failed or never started must take the mark away again.
    const auto clearNetworkSwitchPending = [this](int page) {
        if (page == AsyncControlRunner::kNetworkSwitchPage && network_settings_page2)
            network_settings_page2->clearSwitchPending();
    };
    connect(control_runner.get(), &AsyncControlRunner::controlFailed, this,
            [clearNetworkSwitchPending](int page, int) { clearNetworkSwitchPending(page); });
    connect(in_place_controls.get(), &InPlaceControls::asyncRequestDropped, this,
            clearNetworkSwitchPending);
    connect(disk_speed.get(), &DiskSpeedTestSession::pageRefreshRequested, this,
            &Widget::requestPageRefresh);
    connect(ndi_search.get(), &NdiSearchSession::pageRefreshRequested, this,
            &Widget::requestPageRefresh);
    connect(feedback.get(), &OperationFeedback::guideAfterOverlayDue, this,
            [this] { showGestureGuideForPage(get_current_pageid(), true); });
}

void Widget::connectShortcutControlSignals()
{
    InPlaceControls* controls = in_place_controls.get();
    connect(shortcut_page, &ShortcutPageWidget::shortcutKeyClicked, controls,
            &InPlaceControls::shortcutKeyClicked);
    connect(controls, &InPlaceControls::lcdLockKeyPressed, this, &Widget::onLcdLockKeyPressed);
    connect(controls, &InPlaceControls::confirmDialogRequested, this, &Widget::enterConfirmDialog);
}

void Widget::connectInPlaceControlSignals()
{
    using C = InPlaceControls;
    C* c = in_place_controls.get();
    connect(system_settings_page1, &SystemSettingsPage1Widget::dcOutClicked, c, &C::dcOutClicked);
    connect(network_settings_page2, &NetworkSettingsPage2Widget::wlanClicked, c, &C::wlanClicked);
    connect(network_settings_page2, &NetworkSettingsPage2Widget::apClicked, c, &C::apClicked);
    connect(network_settings_page3, &NetworkSettingsPage3Widget::nasClicked, c, &C::nasClicked);
    connect(camera_settings_page3, &CameraSettingsPage3Widget::lcdLockClicked, this,
            &Widget::onLcdLockClicked);
    connect(camera_settings_page2, &CameraSettingsPage2Widget::tallyEnableClicked, c,
            &C::tallyEnableClicked);
    connect(video_settings_page1, &VideoSettingsPage1Widget::muteOutClicked, c, &C::muteOutClicked);
    connect(video_settings_page1, &VideoSettingsPage1Widget::loopOutClicked, c, &C::loopOutClicked);
    connect(video_settings_page2, &VideoSettingsPage2Widget::aiTrackingClicked, c,
            &C::aiTrackingClicked);
    connect(video_settings_page2, &VideoSettingsPage2Widget::greenScreenClicked, c,
            &C::greenScreenClicked);
    connect(audio_settings_page, &Audio_settings_page_widget::audioSwClicked, c,
            &C::audioSwClicked);
    connect(media_settings_page1, &MediaSettingsPage1Widget::srtSwitchClicked, c,
            &C::srtSwitchClicked);
    connect(media_settings_page1, &MediaSettingsPage1Widget::diskSpeedClicked, disk_speed.get(),
            &DiskSpeedTestSession::diskSpeedClicked);
    connect(media_settings_page2, &MediaSettingsPage2Widget::ndiSwitchClicked, c,
            &C::ndiSwitchClicked);
    connect(decoding_settings_page, &Decoding_settings_page_widget::rtmpServerClicked, c,
            &C::rtmpServerClicked);
    connect(decoding_settings_page, &Decoding_settings_page_widget::srtServerClicked, c,
            &C::srtServerClicked);
    connect(decoding_settings_page, &Decoding_settings_page_widget::srtPlayClicked, c,
            &C::srtPlayClicked);
    connect(encoder_shortcut_page1, &EncoderShortcutPage1Widget::recordClicked, c,
            &C::recordClicked);
    connect(encoder_shortcut_page1, &EncoderShortcutPage1Widget::pauseClicked, c, &C::pauseClicked);
    connect(encoder_shortcut_page2, &EncoderShortcutPage2Widget::osdItemClicked, c,
            &C::osdItemClicked);
    connect(encoder_shortcut_page3, &EncoderShortcutPage3Widget::pushStreamItemClicked, c,
            &C::pushStreamItemClicked);
    connect(decoder_shortcut_page1, &DecoderShortcutPage1Widget::pullItemClicked, c,
            &C::pullItemClicked);
    connect(decoder_shortcut_page2, &DecoderShortcutPage2Widget::uvcItemClicked, c,
            &C::uvcItemClicked);
    connect(decoder_shortcut_page3, &DecoderShortcutPage3Widget::ndiItemClicked, c,
            &C::ndiItemClicked);
}
