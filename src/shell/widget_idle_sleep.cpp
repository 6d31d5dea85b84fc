// Doing nothing has two consequences: a page other than home falls back to
// the first status page, and after the configured minutes the LCD dims under
// the screensaver. Any touch undoes both.
#include "shell/widget.h"

#include "model/app_manager.h"
#include "pages/dynamic_screensaver_widget.h"
#include "pages/upgrade_widget.h"

#include <QTimer>

namespace {

constexpr int kMsPerMinute = 60000;

} // namespace

int Widget::idleHomeTimeoutMsForPage(int page)
{
    switch (page) {
    case PAGE_STATUS_1:
    case PAGE_STATUS_2:
    case PAGE_STATUS_3:
    case PAGE_ENCODER_SHORTCUT_1:
    case PAGE_STANDBY:
        return 0;
    case PAGE_CONNECT_APP:
    case 33:
        return kIdleHomeConnectMs;
    default:
        return kIdleHomeMs;
    }
}

void Widget::init_idle_home_timer()
{
    if (idle_home_timer)
        return;
    idle_home_timer = new QTimer(this);
    idle_home_timer->setSingleShot(true);
    idle_home_timer->setInterval(kIdleHomeMs);
    connect(idle_home_timer, &QTimer::timeout, this, &Widget::on_idle_home_timeout);
    idle_home_time_refresh(PAGE_STATUS_1);
}

void Widget::deinit_idle_home_timer()
{
    if (!idle_home_timer)
        return;
    idle_home_timer->stop();
    delete idle_home_timer;
    idle_home_timer = nullptr;
}

void Widget::idle_home_time_refresh(int page)
{
    if (!idle_home_timer)
        return;
    if (page < 0)
        page = get_current_pageid();
    if (is_standby_visible() || (upgrade_page && upgrade_page->isVisible())) {
        idle_home_timer->stop();
        return;
    }
    const int ms = idleHomeTimeoutMsForPage(page);
    if (ms < 1)
        idle_home_timer->stop();
    else
        idle_home_timer->start(ms);
}

void Widget::on_idle_home_timeout()
{
    if (is_standby_visible() || (upgrade_page && upgrade_page->isVisible())) {
        idle_home_time_refresh(-1);
        return;
    }
    const int page = get_current_pageid();
    if (idleHomeTimeoutMsForPage(page) < 1) {
        idle_home_time_refresh(page);
        return;
    }
    goto_page(PAGE_STATUS_1);
}

void Widget::init_lcd_sleep_timer()
{
    if (lcd_sleep_timer)
        return;
    lcd_sleep_timer = new QTimer(this);
    lcd_sleep_timer->setSingleShot(true);
    connect(lcd_sleep_timer, &QTimer::timeout, this, &Widget::LCD_Sleep);
    lcd_sleep_elapsed.restart();
    lcd_sleep_timer->start(kFirstLcdSleepMs);
}

void Widget::deinit_lcd_sleep_timer()
{
    if (!lcd_sleep_timer)
        return;
    lcd_sleep_timer->stop();
    delete lcd_sleep_timer;
    lcd_sleep_timer = nullptr;
}

void Widget::restartLcdSleepTimer(const CameraSettingsPageVM& vm)
{
    if (!lcd_sleep_timer)
        return;
    if (vm.lcd_sleep < 1) {
        lcd_sleep_timer->stop();
        return;
    }
    lcd_sleep_elapsed.restart();
    lcd_sleep_timer->start(vm.lcd_sleep * kMsPerMinute);
}

void Widget::LCD_Sleep()
{
    if (!appMgr || (upgrade_page && upgrade_page->isVisible()))
        return;
    const CameraSettingsPageVM vm = appMgr->buildCameraSettingsPageVm(nullptr);
    if (vm.lcd_sleep < 1)
        return;
    const qint64 sleep_ms = static_cast<qint64>(vm.lcd_sleep) * kMsPerMinute;
    if (!lcd_sleep_elapsed.isValid() || lcd_sleep_elapsed.elapsed() >= sleep_ms) {
        setLcdLowBrightness(true);
        return;
    }
    // The setting was raised since the timer started: wait out the rest.
    if (lcd_sleep_timer)
        lcd_sleep_timer->start(static_cast<int>(sleep_ms - lcd_sleep_elapsed.elapsed()));
}

bool Widget::setLcdLowBrightness(bool showScreensaver)
{
    if (!appMgr)
        return false;
    if (lcd_low_brightness != 1) {
        if (appMgr->setLcdSleep(1, kDimBrightness) < 0)
            return false;
        lcd_low_brightness = 1;
    }
    if (showScreensaver)
        show_screensaver();
    return true;
}

bool Widget::setConfiguredLcdBrightness(const CameraSettingsPageVM& vm)
{
    if (!appMgr || appMgr->setLcdSleep(1, vm.lcd_bright) < 0)
        return false;
    lcd_low_brightness = 0;
    return true;
}

void Widget::LCD_Sleep_time_refresh()
{
    if (!appMgr)
        return;
    const CameraSettingsPageVM vm = appMgr->buildCameraSettingsPageVm(nullptr);
    restartLcdSleepTimer(vm);
    if (lcd_low_brightness == 1)
        setConfiguredLcdBrightness(vm);
}

void Widget::show_screensaver()
{
    if (!screensaver || splash_visible || (upgrade_page && upgrade_page->isVisible()))
        return;
    hideGestureGuideOverlay();
    screensaver->updateFromVm(appMgr ? appMgr->buildDynamicScreensaverVm(standby_visible)
                                     : DynamicScreensaverVM());
    screensaver->start();
    screensaver_active = true;
}

void Widget::hide_screensaver()
{
    if (!screensaver)
        return;
    if (screensaver_active || screensaver->isVisible()) {
        screensaver->stop();
        screensaver_active = false;
    }
}

void Widget::handle_screensaver_page_changed()
{
    if (!screensaver_active)
        return;
    if (lcd_low_brightness != 1)
        hide_screensaver();
    else if (screensaver)
        screensaver->raise();
}
