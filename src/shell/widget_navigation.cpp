// Every page change passes through goto_page: the lock gate, the change
// detection against the model, and the switch itself in doPageSwitch.
#include "shell/widget.h"

#include "control/disk_speed_test_session.h"
#include "control/modal_openings.h"
#include "model/app_manager.h"
#include "pages/connect_app_widget.h"
#include "pages/shortcut_page_widget.h"
#include "shell/page_groups.h"
#include "transport/harvelin_log.h"

#include <QStackedWidget>
#include <QTimer>

int Widget::get_current_pageid() const
{
    if (modal_active && modal_pageid >= 0)
        return modal_pageid;
    return current_pageid;
}

int Widget::getPageGroupCount(int page) const
{
    return pageGroupCount(page, currentWorkMode());
}

int Widget::getPageIndexInGroup(int page) const
{
    return pageIndexInGroup(page, currentWorkMode());
}

int Widget::getMixedHomePageCount() const
{
    return mixedHomePageCount(currentWorkMode());
}

int Widget::getMixedHomePageIndex(int page) const
{
    return mixedHomePageIndex(page, currentWorkMode());
}

int Widget::getSettingsMenuReturnPage(int page)
{
    return settingsMenuReturnPage(page);
}

void Widget::goto_page(int pageid)
{
    if (pageid == PAGE_SHORTCUT && shortcut_page) {
        // Coming back from the list's own confirm dialog must not overwrite
        // the page the list returns to.
        const int cur = get_current_pageid();
        if (cur != PAGE_SHORTCUT && cur != PAGE_GENERAL_CONFIRM)
            shortcut_page->onReturnPage(cur);
    }
    QWidget* target = pageid_to_widget(pageid);
    if (!target || !appMgr)
        return;
    if (pageid == PAGE_STANDBY) {
        emit requestPageRefresh(PAGE_STANDBY);
        return;
    }
    const bool already_shown = page_stack->currentWidget() == target;
    if (pageid == PAGE_DECODER_SHORTCUT_3 && !already_shown)
        startDecNdiFindAsync();

    const bool changed = pageVmChanged(pageid);
    bool bar_changed = false;
    StatusBarVM bar = appMgr->buildStatusBarVm(&bar_changed);
    setLcdTouchLocked(lockStateFromModel(bar.lcd_locked));
    bar.lcd_locked = lcd_touch_locked;

    const bool dimmed_status_page = lcdLowBrightness() == 1 && isStatusPage(pageid);
    if (dimmed_status_page) {
        first_use_connect_bypass = false;
    } else if (lcd_touch_locked) {
        if (pageid == PAGE_STATUS_1) {
            first_use_connect_bypass = false;
        } else if (!(pageid == PAGE_CONNECT_APP && first_use_connect_bypass)) {
            goto_page(PAGE_STATUS_1);
            return;
        }
    } else if (pageid != PAGE_CONNECT_APP) {
        first_use_connect_bypass = false;
    }

    if (!already_shown || force_page_refresh || bar_changed) {
        fillStatusBarPageFields(bar, pageid);
        emit requestStatusBarUpdate(bar);
    }

    if (!already_shown) {
        emit requestPageSwitch(pageid);
        emit requestPageRefresh(pageid);
        return;
    }
    if (force_page_refresh || changed)
        emit requestPageRefresh(pageid);
    showGestureGuideForPage(pageid, true);
}

void Widget::doPageSwitch(int pageid)
{
    QWidget* target = pageid_to_widget(pageid);
    if (!target || !page_stack)
        return;
    if (current_pageid == PAGE_CONNECT_APP && pageid != PAGE_CONNECT_APP) {
        first_use_connect_bypass = false;
        if (appconnect_exit_timer)
            appconnect_exit_timer->stop();
        if (appMgr)
            appMgr->setAppConnectionStatus(0);
        if (connect_app_page)
            connect_app_page->app_connect_hint(0);
    }
    QWidget* before = page_stack->currentWidget();
    if (isModalPage(pageid)) {
        if (before != target)
            page_stack->setCurrentWidget(target);
        modal_pageid = pageid;
        modal_active = true;
    } else {
        // A running speed test survives navigation; an idle one's leftovers
        // become stale.
        if (current_pageid != pageid)
            disk_speed->onPageSwitched();
        if (before != target)
            page_stack->setCurrentWidget(target);
        current_pageid = pageid;
        modal_pageid = -1;
        modal_active = false;
    }
    syncPageContextToAppMgr();
    handle_screensaver_page_changed();
    if (before != page_stack->currentWidget() && gesture_guide && gesture_guide->isVisible())
        hideGestureGuideOverlay();
    updateDisplayedPageChrome(pageid);
    showGestureGuideForPage(pageid, true);
    idle_home_time_refresh(pageid);
}

void Widget::syncPageContextToAppMgr()
{
    if (!appMgr)
        return;
    const int page = inStandby() ? static_cast<int>(PAGE_STANDBY) : current_pageid;
    const int modal = modal_active ? modal_pageid : -1;
    appMgr->setCurrentPageContext(page, modal);
}

void Widget::onMainMenuItemClicked(const QString& menuKey)
{
    if (menuKey == QLatin1String("VIDEO")) {
        goto_page(PAGE_VIDEO_SETTINGS_1);
    } else if (menuKey == QLatin1String("AUDIO")) {
        if (currentWorkMode() == 0) {
            goto_page(PAGE_AUDIO_SETTINGS);
        } else if (appMgr) {
            // Outside encoding the audio entry is the output volume alone.
            const auto slider = audioMenuKeySliderOpening(
                currentWorkMode(), appMgr->buildAudioSettingsPageVm(nullptr));
            if (slider)
                enterSliderMode(slider->sliderType, slider->returnPage, slider->value);
        }
    } else if (menuKey == QLatin1String("STREAMING")) {
        goto_page(PAGE_MEDIA_SETTINGS_1);
    } else if (menuKey == QLatin1String("DECODING")) {
        goto_page(PAGE_DECODING_SETTINGS);
    } else if (menuKey == QLatin1String("CAMERA")) {
        goto_page(PAGE_CAMERA_SETTINGS_1);
    } else if (menuKey == QLatin1String("NETWORK")) {
        goto_page(PAGE_NETWORK_SETTINGS_1);
    } else if (menuKey == QLatin1String("SYSTEM")) {
        goto_page(PAGE_SYSTEM_SETTINGS_1);
    } else {
        LOG_WAR("Unknown menu key: %s\n", qPrintable(menuKey));
    }
}
