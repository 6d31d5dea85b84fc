#include "control/idle_sleep_controller.h"

#include "model/app_manager.h"

namespace {

constexpr int kHomePage = 0;

} // namespace

int idleHomeTimeoutMsForPage(int page)
{
    switch (page) {
    case 0: // the status pages are home
    case 1:
    case 2:
    case 21: // the record page watches a recording
    case 30: // standby
        return 0;
    case 32: // the connect page waits for the phone
    case 33:
        return IdleSleepController::kConnectPageIdleHomeMs;
    default:
        return IdleSleepController::kDefaultIdleHomeMs;
    }
}

IdleSleepController::IdleSleepController(AppManager* app, ShellSurfaces& surfaces,
                                         ControlTimeSource& time)
    : app(app), surfaces(surfaces), time(time), lcd_sleep_elapsed(time)
{
}

IdleSleepController::~IdleSleepController() = default;

void IdleSleepController::init_idle_home_timer()
{
    idle_home_timer = time.createSingleShot([this] { on_idle_home_timeout(); });
    idle_home_timer->start(kDefaultIdleHomeMs);
    idle_home_time_refresh(kHomePage);
}

void IdleSleepController::deinit_idle_home_timer()
{
    if (idle_home_timer)
        idle_home_timer->stop();
    idle_home_timer.reset();
}

void IdleSleepController::idle_home_time_refresh(int page)
{
    if (!idle_home_timer)
        return;
    if (page < 0)
        page = surfaces.currentPageId();
    if (is_standby_visible() || surfaces.isUpgradeVisible()) {
        idle_home_timer->stop();
        return;
    }
    const int ms = idleHomeTimeoutMsForPage(page);
    if (ms < 1)
        idle_home_timer->stop();
    else
        idle_home_timer->start(ms);
}

void IdleSleepController::on_idle_home_timeout()
{
    if (is_standby_visible() || surfaces.isUpgradeVisible()) {
        idle_home_time_refresh(-1);
        return;
    }
    const int page = surfaces.currentPageId();
    if (idleHomeTimeoutMsForPage(page) < 1) {
        idle_home_time_refresh(page);
        return;
    }
    surfaces.gotoPage(kHomePage);
}

bool IdleSleepController::isIdleHomeTimerActive() const
{
    return idle_home_timer && idle_home_timer->isActive();
}

int IdleSleepController::idleHomeInterval() const
{
    return idle_home_timer ? idle_home_timer->interval() : 0;
}

void IdleSleepController::init_lcd_sleep_timer()
{
    lcd_sleep_timer = time.createSingleShot([this] { LCD_Sleep(); });
    lcd_sleep_elapsed.restart();
    lcd_sleep_timer->start(kFirstSleepMs);
}

void IdleSleepController::deinit_lcd_sleep_timer()
{
    if (lcd_sleep_timer)
        lcd_sleep_timer->stop();
    lcd_sleep_timer.reset();
}

void IdleSleepController::restartLcdSleepTimer(const CameraSettingsPageVM& vm)
{
    if (!lcd_sleep_timer)
        return;
    if (vm.lcd_sleep < 1) {
        lcd_sleep_timer->stop();
        return;
    }
    lcd_sleep_elapsed.restart();
    lcd_sleep_timer->start(vm.lcd_sleep * kMinuteMs);
}

CameraSettingsPageVM IdleSleepController::cameraVm() const
{
    return app ? app->buildCameraSettingsPageVm(nullptr) : CameraSettingsPageVM();
}

void IdleSleepController::LCD_Sleep()
{
    if (!app || surfaces.isUpgradeVisible())
        return;
    const CameraSettingsPageVM vm = cameraVm();
    if (vm.lcd_sleep < 1)
        return;
    const qint64 due = static_cast<qint64>(vm.lcd_sleep) * kMinuteMs;
    if (!lcd_sleep_elapsed.isValid() || lcd_sleep_elapsed.elapsed() >= due) {
        setLcdLowBrightness(true);
        return;
    }
    // The sleep time was raised after the timer started: wait for the rest.
    if (lcd_sleep_timer)
        lcd_sleep_timer->start(static_cast<int>(due - lcd_sleep_elapsed.elapsed()));
}

void IdleSleepController::LCD_Sleep_time_refresh()
{
    const CameraSettingsPageVM vm = cameraVm();
    restartLcdSleepTimer(vm);
    if (lcd_low_brightness == 1)
        setConfiguredLcdBrightness(vm);
}

bool IdleSleepController::setLcdLowBrightness(bool showScreensaver)
{
    if (!app)
        return false;
    if (lcd_low_brightness != 1) {
        const int configured = cameraVm().lcd_bright;
        if (app->setLcdSleep(1, kDimBrightness) < 0)
            return false;
        lcd_low_brightness = 1;
        brightness_before_dim = configured;
    }
    if (showScreensaver)
        show_screensaver();
    return true;
}

bool IdleSleepController::setConfiguredLcdBrightness(const CameraSettingsPageVM& vm)
{
    if (!app)
        return false;
    int brightness = vm.lcd_bright;
    if (lcd_low_brightness == 1 && brightness == kDimBrightness && brightness_before_dim >= 0)
        brightness = brightness_before_dim;
    if (app->setLcdSleep(1, brightness) < 0)
        return false;
    lcd_low_brightness = 0;
    brightness_before_dim = -1;
    return true;
}

bool IdleSleepController::isLcdSleepTimerActive() const
{
    return lcd_sleep_timer && lcd_sleep_timer->isActive();
}

int IdleSleepController::lcdSleepInterval() const
{
    return lcd_sleep_timer ? lcd_sleep_timer->interval() : 0;
}

void IdleSleepController::show_screensaver()
{
    if (!surfaces.hasScreensaver() || surfaces.isSplashVisible() || surfaces.isUpgradeVisible())
        return;
    surfaces.hideGestureGuideOverlay();
    const DynamicScreensaverVM vm =
        app ? app->buildDynamicScreensaverVm(standby_visible) : DynamicScreensaverVM();
    surfaces.startScreensaver(vm);
    screensaver_active = true;
}

void IdleSleepController::hide_screensaver()
{
    if (screensaver_active || surfaces.isScreensaverVisible()) {
        surfaces.stopScreensaver();
        screensaver_active = false;
    }
}

void IdleSleepController::hide_screensaver(bool refreshSleep)
{
    hide_screensaver();
    if (refreshSleep)
        LCD_Sleep_time_refresh();
}

void IdleSleepController::handle_screensaver_page_changed()
{
    if (!screensaver_active)
        return;
    if (lcd_low_brightness != 1)
        hide_screensaver();
    else
        surfaces.raiseScreensaver();
}

bool IdleSleepController::touchBeginWakesScreen()
{
    LCD_Sleep_time_refresh();
    if (!screensaver_active)
        return false;
    hide_screensaver();
    idle_home_time_refresh(-1);
    return true;
}

void IdleSleepController::doStandbyEnter(const StandbyPageVM& vm)
{
    surfaces.clearModalState();
    standby_visible = true;
    surfaces.syncPageContextToAppMgr();
    if (app) {
        setLcdLowBrightness(false);
        restartLcdSleepTimer(cameraVm());
    }
    hide_screensaver();
    idle_home_time_refresh(-1);
    surfaces.hideGestureGuideOverlay();
    surfaces.showStandbyPage(vm);
}

void IdleSleepController::doStandbyExit()
{
    standby_visible = false;
    surfaces.syncPageContextToAppMgr();
    if (app) {
        const CameraSettingsPageVM vm = cameraVm();
        setConfiguredLcdBrightness(vm);
        restartLcdSleepTimer(vm);
    }
    handle_screensaver_page_changed();
    surfaces.hideStandbyPage();
    idle_home_time_refresh(-1);
}

void IdleSleepController::onRunStatusChanged(int new_run_status)
{
    {
        QMutexLocker lock(&state_mutex);
        if (run_status == new_run_status)
            return;
        run_status = new_run_status;
    }
    if (!app)
        return;
    if (new_run_status != 0) {
        doStandbyExit();
        surfaces.gotoPage(kHomePage);
    } else {
        doStandbyEnter(app->buildStandbyPageVm());
    }
}

void IdleSleepController::onWakeRequested()
{
    if (!app || app->exitStandby() < 0)
        return;
    doStandbyExit();
    surfaces.gotoPage(kHomePage);
}

bool IdleSleepController::is_standby_visible() const
{
    return standby_visible || surfaces.isStandbyWidgetVisible();
}

int IdleSleepController::runStatus() const
{
    QMutexLocker lock(&state_mutex);
    return run_status;
}

void IdleSleepController::onWorkModeChanged(int new_work_mode)
{
    {
        QMutexLocker lock(&state_mutex);
        if (work_mode == new_work_mode)
            return;
        work_mode = new_work_mode;
    }
    surfaces.gotoPage(kHomePage);
}

void IdleSleepController::setWorkMode(int mode)
{
    QMutexLocker lock(&state_mutex);
    work_mode = mode;
}

int IdleSleepController::workMode() const
{
    QMutexLocker lock(&state_mutex);
    return work_mode;
}

void IdleSleepController::showUpgradeProgress(int progress)
{
    if (!surfaces.hasUpgradeWidget())
        return;
    hide_screensaver();
    surfaces.showUpgradePage(progress);
    idle_home_time_refresh(-1);
}

bool IdleSleepController::gestureGuideRefused() const
{
    return surfaces.isUpgradeVisible() || is_standby_visible();
}

void IdleSleepController::hideUpgradeProgress()
{
    surfaces.hideUpgradePage();
    idle_home_time_refresh(-1);
}
