// The wiring of the window: the model's state signals, the page deliveries,
// touch, the navigation signals of the pages and the modal pages' answers.
#include "shell/widget.h"

#include "control/idle_sleep_controller.h"
#include "input/touch_event_handler.h"
#include "model/app_manager.h"
#include "pages/audio_settings_page_widget.h"
#include "pages/camera_settings_page_widget.h"
#include "pages/connect_app_widget.h"
#include "pages/decoder_shortcut_page_widget.h"
#include "pages/decoding_settings_page_widget.h"
#include "pages/encoder_shortcut_page_widget.h"
#include "pages/general_confirm_page_widget.h"
#include "pages/general_edit_page_widget.h"
#include "pages/general_slider_page_widget.h"
#include "pages/main_menu_page_widget.h"
#include "pages/media_settings_page_widget.h"
#include "pages/network_settings_page_widget.h"
#include "pages/shortcut_page_widget.h"
#include "pages/standby_page_widget.h"
#include "pages/status_bar_widget.h"
#include "pages/status_page1_widget.h"
#include "pages/status_page2_widget.h"
#include "pages/status_page3_widget.h"
#include "pages/system_settings_page_widget.h"
#include "pages/video_settings_page_widget.h"
#include "ui/text_manager.h"

void Widget::connectCoreSignals()
{
    connect(appMgr, &AppManager::systemLanguageChanged, text_mgr,
            &UITextManager::onSystemLanguageChanged);
    connect(text_mgr, &UITextManager::languageChanged, this, &Widget::handleLanguageChange);
    connect(appMgr, &AppManager::workModeChanged, this, &Widget::onWorkModeChanged);
    connect(appMgr, &AppManager::runStatusChanged, this, &Widget::onRunStatusChanged);
    connect(appMgr, &AppManager::upgradeProgressChanged, this, &Widget::showUpgradeProgress);
    connect(this, &Widget::requestPageRefresh, this, &Widget::doPageRefresh);
    connect(this, &Widget::requestPageSwitch, this, &Widget::doPageSwitch);
    connect(this, &Widget::requestStandbyEnter, this, &Widget::doStandbyEnter);
    connect(this, &Widget::requestStandbyExit, this, &Widget::doStandbyExit);
}

void Widget::connectModalSignals()
{
    connect(general_edit_page, &GeneralEditPageWidget::confirmed, this,
            &Widget::onEditModeConfirmed);
    connect(general_edit_page, &GeneralEditPageWidget::cancelled, this,
            &Widget::onEditModeCancelled);
    connect(general_confirm_page, &GeneralConfirmPageWidget::confirmed, this,
            &Widget::onConfirmDialogConfirmed);
    connect(general_confirm_page, &GeneralConfirmPageWidget::cancelled, this,
            &Widget::onConfirmDialogCancelled);
    // The slider page is left by gesture only; it has no cancel of its own.
    connect(general_slider_page, &GeneralSliderPageWidget::confirmed, this,
            &Widget::onSliderModeConfirmed);
    connectModalFlowSignals();
}

void Widget::connectPageUpdateSignals()
{
    connect(this, &Widget::requestStatusBarUpdate, status_bar, &StatusBarWidget::updateFromVm);
    connect(this, &Widget::requestStandbyPageUpdate, standby_page,
            &StandbyPageWidget::updateFromVm);
    connect(this, &Widget::requestStatusPage1Update, status_page1,
            &StatusPage1Widget::updateFromVm);
    connect(this, &Widget::requestStatusPage2Update, status_page2,
            &StatusPage2Widget::updateFromVm);
    connect(this, &Widget::requestStatusPage3Update, status_page3,
            &StatusPage3Widget::updateFromVm);
    connect(this, &Widget::requestMainMenuPage1Update, main_menu_page1,
            &MainMenuPage1Widget::updateFromVm);
    connect(this, &Widget::requestMainMenuPage2Update, main_menu_page2,
            &MainMenuPage2Widget::updateFromVm);
    connect(this, &Widget::requestSystemSettingsPage1Update, system_settings_page1,
            &SystemSettingsPage1Widget::updateFromVm);
    connect(this, &Widget::requestSystemSettingsPage2Update, system_settings_page2,
            &SystemSettingsPage2Widget::updateFromVm);
    connect(this, &Widget::requestSystemSettingsPage3Update, system_settings_page3,
            &SystemSettingsPage3Widget::updateFromVm);
    connect(this, &Widget::requestSystemSettingsPage4Update, system_settings_page4,
            &SystemSettingsPage4Widget::updateFromVm);
    connect(this, &Widget::requestNetworkSettingsPage1Update, network_settings_page1,
            &NetworkSettingsPage1Widget::updateFromVm);
    connect(this, &Widget::requestNetworkSettingsPage2Update, network_settings_page2,
            &NetworkSettingsPage2Widget::updateFromVm);
    connect(this, &Widget::requestNetworkSettingsPage3Update, network_settings_page3,
            &NetworkSettingsPage3Widget::updateFromVm);
    connect(this, &Widget::requestCameraSettingsPage1Update, camera_settings_page1,
            &CameraSettingsPage1Widget::updateFromVm);
    connect(this, &Widget::requestCameraSettingsPage2Update, camera_settings_page2,
            &CameraSettingsPage2Widget::updateFromVm);
    connect(this, &Widget::requestCameraSettingsPage3Update, camera_settings_page3,
            &CameraSettingsPage3Widget::updateFromVm);
    connect(this, &Widget::requestVideoSettingsPage1Update, video_settings_page1,
            &VideoSettingsPage1Widget::updateFromVm);
    connect(this, &Widget::requestVideoSettingsPage2Update, video_settings_page2,
            &VideoSettingsPage2Widget::updateFromVm);
    connect(this, &Widget::requestAudioSettingsPageUpdate, audio_settings_page,
            &Audio_settings_page_widget::updateFromVm);
    connect(this, &Widget::requestMediaSettingsPage1Update, media_settings_page1,
            &MediaSettingsPage1Widget::updateFromVm);
    connect(this, &Widget::requestMediaSettingsPage2Update, media_settings_page2,
            &MediaSettingsPage2Widget::updateFromVm);
    connect(this, &Widget::requestDecodingSettingsPageUpdate, decoding_settings_page,
            &Decoding_settings_page_widget::updateFromVm);
    connect(this, &Widget::requestEncoderShortcutPage1Update, encoder_shortcut_page1,
            &EncoderShortcutPage1Widget::updateFromVm);
    connect(this, &Widget::requestEncoderShortcutPage2Update, encoder_shortcut_page2,
            &EncoderShortcutPage2Widget::updateFromVm);
    connect(this, &Widget::requestEncoderShortcutPage3Update, encoder_shortcut_page3,
            &EncoderShortcutPage3Widget::updateFromVm);
    connect(this, &Widget::requestDecoderShortcutPage1Update, decoder_shortcut_page1,
            &DecoderShortcutPage1Widget::updateFromVm);
    connect(this, &Widget::requestDecoderShortcutPage2Update, decoder_shortcut_page2,
            &DecoderShortcutPage2Widget::updateFromVm);
    connect(this, &Widget::requestDecoderShortcutPage3Update, decoder_shortcut_page3,
            &DecoderShortcutPage3Widget::updateFromVm);
    connect(this, &Widget::requestEditModePageUpdate, general_edit_page,
            &GeneralEditPageWidget::updateFromVm);
    connect(this, &Widget::requestSliderModePageUpdate, general_slider_page,
            &GeneralSliderPageWidget::updateFromVm);
    connect(this, &Widget::requestConfirmDialogPageUpdate, general_confirm_page,
            &GeneralConfirmPageWidget::updateFromVm);
    connect(this, &Widget::requestConnectAppUpdate, connect_app_page,
            &ConnectAppWidget::updateFromVm);
    connect(this, &Widget::requestShortcutUpdate, shortcut_page, &ShortcutPageWidget::updateFromVm);

    connect(connect_app_page, &ConnectAppWidget::resetConnectStatus, this, [this]() {
        if (appMgr)
            appMgr->setAppConnectionStatus(0);
    });
    connect(connect_app_page, &ConnectAppWidget::appFirstUseCompletedRequested, this, [this]() {
        if (!appMgr)
            return;
        int flag = 0;
        appMgr->getConnectAppFirstUseFlag(flag);
        if (flag == 0)
            appMgr->setConnectAppFirstUseFlag(1);
    });
}

void Widget::connect_submenu_click()
{
    connectEditModeSignals();
    connectConfirmDialogSignals();
    connectSliderModeSignals();
    connectPageNavigationSignals();
    connectShortcutControlSignals();
    connectInPlaceControlSignals();
}

void Widget::connectPageNavigationSignals()
{
    connect(main_menu_page1, &MainMenuPage1Widget::menuItemClicked, this,
            &Widget::onMainMenuItemClicked);
    connect(main_menu_page2, &MainMenuPage2Widget::menuItemClicked, this,
            &Widget::onMainMenuItemClicked);
    connect(standby_page, &StandbyPageWidget::wakeRequested, this,
            [this]() { idle_sleep->onWakeRequested(); });
}

void Widget::connectTouchEvents()
{
    connect(touch_handler, &TouchEventHandler::buttonTapDetected, this, &Widget::onButtonTapReq);
    connect(touch_handler, &TouchEventHandler::longPressDetected, this, &Widget::onLongPressReq);
    connect(touch_handler, &TouchEventHandler::buttonLongPressDetected, this,
            &Widget::onButtonLongPressReq);
    connect(touch_handler, &TouchEventHandler::swipeLeftDetected, this, &Widget::onSwipeLeftReq);
    connect(touch_handler, &TouchEventHandler::swipeRightDetected, this, &Widget::onSwipeRightReq);
    connect(touch_handler, &TouchEventHandler::edgeSwipeToCenterDetected, this,
            &Widget::onEdgeSwipeToCenterReq);
    connect(touch_handler, &TouchEventHandler::swipeUpDetected, this, &Widget::onSwipeUpReq);
    connect(touch_handler, &TouchEventHandler::swipeDownDetected, this, &Widget::onSwipeDownReq);
    connect(touch_handler, &TouchEventHandler::sliderValueChangedDetected, this,
            &Widget::onSliderValueChangedReq);
    connect(touch_handler, &TouchEventHandler::sliderTapDetected, this, &Widget::onSliderTapReq);
    connect(touch_handler, &TouchEventHandler::sliderReleaseDetected, this,
            &Widget::onSliderReleaseReq);
    connect(touch_handler, &TouchEventHandler::touchBeginDetected, this, &Widget::onTouchBeginReq);
    connect(this, &Widget::lcdLockedSwipeGuideRequested, this,
            [this]() { showGestureGuideForPage(get_current_pageid(), false); });
}
