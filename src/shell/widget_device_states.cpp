// States of the whole device that take the screen from the pages: standby,
// a change of work mode, and a firmware upgrade.
#include "shell/widget.h"

#include "model/app_manager.h"
#include "pages/standby_page_widget.h"
#include "pages/status_bar_widget.h"
#include "pages/upgrade_widget.h"

void Widget::onWorkModeChanged(int new_work_mode)
{
    {
        QMutexLocker lock(&state_mutex);
        if (work_mode == new_work_mode)
            return;
        work_mode = new_work_mode;
    }
    // The home group differs per mode; start over on its first status page.
    goto_page(PAGE_STATUS_1);
}

void Widget::onRunStatusChanged(int new_run_status)
{
    {
        QMutexLocker lock(&state_mutex);
        if (run_status == new_run_status)
            return;
        run_status = new_run_status;
    }
    if (!appMgr)
        return;
    if (new_run_status != 0) {
        doStandbyExit();
        goto_page(PAGE_STATUS_1);
        return;
    }
    doStandbyEnter(appMgr->buildStandbyPageVm());
}

void Widget::doStandbyEnter(const StandbyPageVM& vm)
{
    modal_pageid = -1;
    standby_visible = true;
    modal_active = false;
    syncPageContextToAppMgr();
    if (appMgr) {
        // Dim without the screensaver; the sleep timer goes on.
        setLcdLowBrightness(false);
        restartLcdSleepTimer(appMgr->buildCameraSettingsPageVm(nullptr));
    }
    hide_screensaver();
    idle_home_time_refresh(-1);
    emit requestStandbyPageUpdate(vm);
    hideGestureGuideOverlay();
    if (standby_page) {
        standby_page->show();
        standby_page->raise();
    }
    chrome_container->hide();
    if (status_bar)
        status_bar->hide();
    updateNavDots(NavDotsState());
}

void Widget::doStandbyExit()
{
    standby_visible = false;
    syncPageContextToAppMgr();
    if (appMgr) {
        const CameraSettingsPageVM vm = appMgr->buildCameraSettingsPageVm(nullptr);
        setConfiguredLcdBrightness(vm);
        restartLcdSleepTimer(vm);
    }
    handle_screensaver_page_changed();
    if (standby_page)
        standby_page->hide();
    if (!chrome_container->isVisible()) {
        chrome_container->show();
        chrome_container->raise();
    }
    if (status_bar && !status_bar->isVisible()) {
        status_bar->show();
        status_bar->raise();
    }
    idle_home_time_refresh(-1);
}

void Widget::showUpgradeProgress(int progress)
{
    if (!upgrade_page)
        return;
    hide_screensaver();
    upgrade_page->updateFromVm(progress);
    upgrade_page->show();
    upgrade_page->raise();
    idle_home_time_refresh(-1);
}
