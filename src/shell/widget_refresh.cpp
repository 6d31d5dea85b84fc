// The one-second cycle: each tick asks goto_page to show the page already on
// screen, which asks the model whether that page changed; only then does
// doPageRefresh hand the page a fresh view model.
#include "shell/widget.h"

#include "control/disk_speed_test_session.h"
#include "control/modal_flows.h"
#include "model/app_manager.h"
#include "pages/connect_app_widget.h"
#include "pages/dynamic_screensaver_widget.h"
#include "pages/i_gesture_handler.h"
#include "shell/page_groups.h"

#include <QCoreApplication>
#include <QTimer>

namespace {

QTimer* createTimer(QObject* owner, int interval, bool singleShot)
{
    auto* timer = new QTimer(owner);
    timer->setInterval(interval);
    timer->setSingleShot(singleShot);
    return timer;
}

void deleteTimer(QTimer*& timer)
{
    if (!timer)
        return;
    timer->stop();
    delete timer;
    timer = nullptr;
}

} // namespace

void Widget::init_page_refresh_timer()
{
    if (page_refresh_timer)
        return;
    page_refresh_timer = createTimer(this, kPageRefreshMs, false);
    connect(page_refresh_timer, &QTimer::timeout, this, &Widget::on_page_refresh_timeout);
    page_refresh_timer->start();
}

void Widget::deinit_page_refresh_timer()
{
    deleteTimer(page_refresh_timer);
}

void Widget::on_page_refresh_timeout()
{
    if (isScreensaverActive() && screensaver) {
        screensaver->updateFromVm(appMgr ? appMgr->buildDynamicScreensaverVm(inStandby())
                                         : DynamicScreensaverVM());
        screensaver->raise();
        return;
    }
    if (inStandby()) {
        goto_page(PAGE_STANDBY);
        return;
    }
    goto_page(modal_active ? modal_pageid : current_pageid);
}

bool Widget::pageVmChanged(int page)
{
    bool changed = false;
    const auto build = [this, &changed](auto builder) { (appMgr->*builder)(&changed); };
    switch (page) {
    case PAGE_STATUS_1:
        build(&AppManager::buildStatusPage1Vm);
        break;
    case PAGE_STATUS_2:
        build(&AppManager::buildStatusPage2Vm);
        break;
    case PAGE_STATUS_3:
        build(&AppManager::buildStatusPage3Vm);
        break;
    case PAGE_SYSTEM_SETTINGS_1:
    case PAGE_SYSTEM_SETTINGS_2:
    case PAGE_SYSTEM_SETTINGS_3:
    case PAGE_SYSTEM_SETTINGS_4:
        build(&AppManager::buildSystemSettingsPageVm);
        break;
    case PAGE_NETWORK_SETTINGS_1:
    case PAGE_NETWORK_SETTINGS_2:
    case PAGE_NETWORK_SETTINGS_3:
        build(&AppManager::buildNetworkSettingsPageVm);
        break;
    case PAGE_CAMERA_SETTINGS_1:
    case PAGE_CAMERA_SETTINGS_2:
    case PAGE_CAMERA_SETTINGS_3:
        build(&AppManager::buildCameraSettingsPageVm);
        break;
    case PAGE_VIDEO_SETTINGS_1:
    case PAGE_VIDEO_SETTINGS_2:
        build(&AppManager::buildVideoSettingsPageVm);
        break;
    case PAGE_AUDIO_SETTINGS:
        build(&AppManager::buildAudioSettingsPageVm);
        break;
    case PAGE_MEDIA_SETTINGS_1:
    case PAGE_MEDIA_SETTINGS_2:
        build(&AppManager::buildMediaSettingsPageVm);
        changed = changed || disk_speed->sessionFlag();
        break;
    case PAGE_DECODING_SETTINGS:
        build(&AppManager::buildDecodingSettingsPageVm);
        break;
    case PAGE_ENCODER_SHORTCUT_1:
        build(&AppManager::buildEncoderShortcutPageVm);
        changed = changed || disk_speed->sessionFlag();
        break;
    case PAGE_ENCODER_SHORTCUT_2:
    case PAGE_ENCODER_SHORTCUT_3:
        build(&AppManager::buildEncoderShortcutPageVm);
        break;
    case PAGE_DECODER_SHORTCUT_1:
    case PAGE_DECODER_SHORTCUT_2:
    case PAGE_DECODER_SHORTCUT_3:
        build(&AppManager::buildDecoderShortcutPageVm);
        break;
    case PAGE_CONNECT_APP:
        build(&AppManager::buildConnectAppVm);
        break;
    case PAGE_SHORTCUT:
        build(&AppManager::buildShortcutVM);
        break;
    default:
        // Menu and modal pages have no model of their own.
        break;
    }
    return changed;
}

void Widget::doPageRefresh(int pageid)
{
    if (!appMgr)
        return;
    // The connect page's exit timer depends on the model alone.
    if (pageid_to_widget(pageid) || pageid == PAGE_CONNECT_APP)
        deliverPageVm(pageid);
    force_page_refresh = false;
    // Paint now, and keep touch out of the middle of an update.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void Widget::deliverPageVm(int page)
{
    switch (page) {
    case PAGE_STATUS_1:
        emit requestStatusPage1Update(appMgr->getStatusPage1Vm());
        break;
    case PAGE_STATUS_2:
        emit requestStatusPage2Update(appMgr->getStatusPage2Vm());
        break;
    case PAGE_STATUS_3:
        emit requestStatusPage3Update(appMgr->getStatusPage3Vm());
        break;
    case PAGE_MAIN_MENU_1:
        emit requestMainMenuPage1Update(currentWorkMode());
        break;
    case PAGE_MAIN_MENU_2:
        emit requestMainMenuPage2Update(currentWorkMode());
        break;
    case PAGE_SYSTEM_SETTINGS_1:
        emit requestSystemSettingsPage1Update(appMgr->getSystemSettingsPageVm());
        break;
    case PAGE_SYSTEM_SETTINGS_2:
        emit requestSystemSettingsPage2Update(appMgr->getSystemSettingsPageVm());
        break;
    case PAGE_SYSTEM_SETTINGS_3:
        emit requestSystemSettingsPage3Update(appMgr->getSystemSettingsPageVm());
        break;
    case PAGE_SYSTEM_SETTINGS_4:
        emit requestSystemSettingsPage4Update(appMgr->getSystemSettingsPageVm());
        break;
    case PAGE_NETWORK_SETTINGS_1:
        emit requestNetworkSettingsPage1Update(appMgr->getNetworkSettingsPageVm());
        break;
    case PAGE_NETWORK_SETTINGS_2:
        emit requestNetworkSettingsPage2Update(appMgr->getNetworkSettingsPageVm());
        break;
    case PAGE_NETWORK_SETTINGS_3:
        emit requestNetworkSettingsPage3Update(appMgr->getNetworkSettingsPageVm());
        break;
    case PAGE_CAMERA_SETTINGS_1:
        emit requestCameraSettingsPage1Update(appMgr->getCameraSettingsPageVm());
        break;
    case PAGE_CAMERA_SETTINGS_2:
        emit requestCameraSettingsPage2Update(appMgr->getCameraSettingsPageVm());
        break;
    case PAGE_CAMERA_SETTINGS_3:
        emit requestCameraSettingsPage3Update(appMgr->getCameraSettingsPageVm());
        break;
    case PAGE_VIDEO_SETTINGS_1:
        emit requestVideoSettingsPage1Update(appMgr->getVideoSettingsPageVm());
        break;
    case PAGE_VIDEO_SETTINGS_2:
        emit requestVideoSettingsPage2Update(appMgr->getVideoSettingsPageVm());
        break;
    case PAGE_AUDIO_SETTINGS:
        emit requestAudioSettingsPageUpdate(appMgr->getAudioSettingsPageVm());
        break;
    case PAGE_MEDIA_SETTINGS_1:
    case PAGE_MEDIA_SETTINGS_2: {
        MediaSettingsPageVM vm = appMgr->getMediaSettingsPageVm();
        vm.disk_speed_testing = disk_speed->sessionFlag();
        if (page == PAGE_MEDIA_SETTINGS_1)
            emit requestMediaSettingsPage1Update(vm);
        else
            emit requestMediaSettingsPage2Update(vm);
        break;
    }
    case PAGE_DECODING_SETTINGS:
        emit requestDecodingSettingsPageUpdate(appMgr->getDecodingSettingsPageVm());
        break;
    case PAGE_ENCODER_SHORTCUT_1: {
        EncoderShortcutPageVM vm = appMgr->getEncoderShortcutPageVm();
        vm.disk_speed_testing = disk_speed->sessionFlag();
        emit requestEncoderShortcutPage1Update(vm);
        break;
    }
    case PAGE_ENCODER_SHORTCUT_2:
        emit requestEncoderShortcutPage2Update(appMgr->getEncoderShortcutPageVm());
        break;
    case PAGE_ENCODER_SHORTCUT_3: {
        // A push stream switch waits for this delivery to show its result.
        const EncoderShortcutPageVM vm = appMgr->getEncoderShortcutPageVm();
        finishPendingPushStreamSwitchIfReady(vm);
        emit requestEncoderShortcutPage3Update(vm);
        break;
    }
    case PAGE_DECODER_SHORTCUT_1:
        emit requestDecoderShortcutPage1Update(appMgr->getDecoderShortcutPageVm());
        break;
    case PAGE_DECODER_SHORTCUT_2:
        emit requestDecoderShortcutPage2Update(appMgr->getDecoderShortcutPageVm());
        break;
    case PAGE_DECODER_SHORTCUT_3:
        emit requestDecoderShortcutPage3Update(appMgr->getDecoderShortcutPageVm());
        break;
    case PAGE_GENERAL_EDIT:
        emit requestEditModePageUpdate(modal_flows->editVm());
        break;
    case PAGE_GENERAL_SLIDER:
        emit requestSliderModePageUpdate(modal_flows->sliderVm());
        break;
    case PAGE_GENERAL_CONFIRM:
        emit requestConfirmDialogPageUpdate(modal_flows->confirmVm());
        break;
    case PAGE_STANDBY:
        emit requestStandbyPageUpdate(appMgr->buildStandbyPageVm());
        break;
    case PAGE_CONNECT_APP: {
        const ConnectAppVM vm = appMgr->getConnectAppVm();
        if (connect_app_page)
            emit requestConnectAppUpdate(vm);
        if (!appconnect_exit_timer)
            break;
        // The page closes a while after the phone has paired; the first start
        // of the timer stands while the status stays paired.
        if (vm.connect_status != kAppConnected)
            appconnect_exit_timer->stop();
        else if (!appconnect_exit_timer->isActive())
            appconnect_exit_timer->start(kAppConnectExitMs);
        break;
    }
    case PAGE_SHORTCUT:
        emit requestShortcutUpdate(appMgr->getShortcutVm());
        break;
    default:
        break;
    }
}

void Widget::set_all_page_dirty()
{
    for (int id = 0; id < kPageCount; ++id) {
        if (auto* handler = dynamic_cast<IGestureHandler*>(pageid_to_widget(id)))
            handler->setDirty(true);
    }
}

void Widget::handleLanguageChange()
{
    set_all_page_dirty();
    force_page_refresh = true;
    // No tick reaches a page while the screensaver runs, so it is told now.
    if (isScreensaverActive() && screensaver)
        screensaver->updateFromVm(appMgr ? appMgr->buildDynamicScreensaverVm(inStandby())
                                         : DynamicScreensaverVM());
}

void Widget::init_appconnect_page_exit_timer()
{
    if (appconnect_exit_timer)
        return;
    appconnect_exit_timer = createTimer(this, kAppConnectExitMs, true);
    connect(appconnect_exit_timer, &QTimer::timeout, this, &Widget::onAppConnectExitTimeout);
}

void Widget::deinit_appconnect_page_exit_timer()
{
    deleteTimer(appconnect_exit_timer);
}

void Widget::onAppConnectExitTimeout()
{
    if (appMgr)
        appMgr->setAppConnectionStatus(0);
    if (get_current_pageid() == PAGE_CONNECT_APP)
        goto_page(PAGE_STATUS_1);
}

void Widget::init_status_switch_timer()
{
    if (!status_switch_timer) {
        status_switch_timer = createTimer(this, kStatusSwitchMs, false);
        connect(status_switch_timer, &QTimer::timeout, this, &Widget::on_status_switch_timeout);
    }
    status_switch_timer->start();
}

void Widget::deinit_status_switch_timer()
{
    deleteTimer(status_switch_timer);
}

void Widget::on_status_switch_timeout()
{
    if (!appMgr)
        return;
    if (lcdLowBrightness() != 1) {
        if (status_switch_timer)
            status_switch_timer->stop();
        return;
    }
    const int page = get_current_pageid();
    if (!isStatusPage(page)) {
        goto_page(PAGE_STATUS_1);
        return;
    }
    const int mode = currentWorkMode();
    if (mode == 0)
        goto_page((page + 1) % 3);
    else if (mode == 1 && page < PAGE_STATUS_3)
        goto_page((page + 1) % 2);
}

void Widget::refreshPage(int pageid)
{
    emit requestPageRefresh(pageid);
}
