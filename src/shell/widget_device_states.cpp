// Idle time, dimming, the screensaver, standby, work mode and the upgrade
// screen: the window's side of IdleSleepController, which holds the timers,
// the state flags and their precedence.
#include "shell/widget.h"

#include "control/idle_sleep_controller.h"

int Widget::idleHomeTimeoutMsForPage(int page)
{
    return ::idleHomeTimeoutMsForPage(page);
}

void Widget::init_idle_home_timer()
{
    idle_sleep->init_idle_home_timer();
}

void Widget::deinit_idle_home_timer()
{
    idle_sleep->deinit_idle_home_timer();
}

void Widget::idle_home_time_refresh(int page)
{
    idle_sleep->idle_home_time_refresh(page);
}

void Widget::on_idle_home_timeout()
{
    idle_sleep->on_idle_home_timeout();
}

void Widget::init_lcd_sleep_timer()
{
    idle_sleep->init_lcd_sleep_timer();
}

void Widget::deinit_lcd_sleep_timer()
{
    idle_sleep->deinit_lcd_sleep_timer();
}

void Widget::restartLcdSleepTimer(const CameraSettingsPageVM& vm)
{
    idle_sleep->restartLcdSleepTimer(vm);
}

void Widget::LCD_Sleep()
{
    idle_sleep->LCD_Sleep();
}

void Widget::LCD_Sleep_time_refresh()
{
    idle_sleep->LCD_Sleep_time_refresh();
}

bool Widget::setLcdLowBrightness(bool showScreensaver)
{
    return idle_sleep->setLcdLowBrightness(showScreensaver);
}

bool Widget::setConfiguredLcdBrightness(const CameraSettingsPageVM& vm)
{
    return idle_sleep->setConfiguredLcdBrightness(vm);
}

int Widget::lcdLowBrightness() const
{
    return idle_sleep->isLcdDimmed() ? 1 : 0;
}

void Widget::show_screensaver()
{
    idle_sleep->show_screensaver();
}

void Widget::hide_screensaver()
{
    idle_sleep->hide_screensaver();
}

void Widget::hide_screensaver(bool refreshSleep)
{
    idle_sleep->hide_screensaver(refreshSleep);
}

void Widget::handle_screensaver_page_changed()
{
    idle_sleep->handle_screensaver_page_changed();
}

bool Widget::isScreensaverActive() const
{
    return idle_sleep->isScreensaverActive();
}

void Widget::onWorkModeChanged(int new_work_mode)
{
    idle_sleep->onWorkModeChanged(new_work_mode);
}

int Widget::currentWorkMode() const
{
    return idle_sleep->workMode();
}

void Widget::onRunStatusChanged(int new_run_status)
{
    idle_sleep->onRunStatusChanged(new_run_status);
}

void Widget::doStandbyEnter(const StandbyPageVM& vm)
{
    idle_sleep->doStandbyEnter(vm);
}

void Widget::doStandbyExit()
{
    idle_sleep->doStandbyExit();
}

bool Widget::is_standby_visible() const
{
    return idle_sleep->is_standby_visible();
}

bool Widget::inStandby() const
{
    return idle_sleep->isInStandby();
}

void Widget::showUpgradeProgress(int progress)
{
    idle_sleep->showUpgradeProgress(progress);
}

void Widget::hideUpgradeProgress()
{
    idle_sleep->hideUpgradeProgress();
}
