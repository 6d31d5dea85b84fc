#pragma once
// The window's idle and whole-device states: return to home after idle time
// (`idle_home_timer`, `idle_home_time_refresh`, `on_idle_home_timeout`), LCD
// dimming and its sleep timer (`lcd_sleep_timer`, `lcd_sleep_elapsed`,
// `restartLcdSleepTimer`, `LCD_Sleep`, `LCD_Sleep_time_refresh`,
// `setLcdLowBrightness`, `setConfiguredLcdBrightness`), the screensaver
// (`show_screensaver`, `hide_screensaver`, `handle_screensaver_page_changed`),
// standby (`doStandbyEnter`, `doStandbyExit`, `onRunStatusChanged`, the wake
// button), `onWorkModeChanged`, and the upgrade screen
// (`showUpgradeProgress`, `hideUpgradeProgress`). Ranked from the top:
// upgrade, standby, screensaver; the higher state stops the lower ones.
#include "control/control_time.h"
#include "control/shell_surfaces.h"
#include "model/view_models/settings_view_models.h"

#include <QMutex>

#include <memory>

class AppManager;

// Milliseconds without touch after which `page` returns home; 0 for never.
int idleHomeTimeoutMsForPage(int page);

class IdleSleepController {
public:
    static constexpr int kDefaultIdleHomeMs = 60000;
    static constexpr int kConnectPageIdleHomeMs = 300000;
    static constexpr int kFirstSleepMs = 300000;
    static constexpr int kMinuteMs = 60000;
    // The fixed brightness of the dimmed panel.
    static constexpr int kDimBrightness = 5;

    IdleSleepController(AppManager* app, ShellSurfaces& surfaces,
                        ControlTimeSource& time = systemTimeSource());
    ~IdleSleepController();

    // Return to home.
    void init_idle_home_timer();
    void deinit_idle_home_timer();
    // A negative page means the page on screen.
    void idle_home_time_refresh(int page);
    void on_idle_home_timeout();
    bool isIdleHomeTimerActive() const;
    int idleHomeInterval() const;

    // Dimming.
    void init_lcd_sleep_timer();
    void deinit_lcd_sleep_timer();
    void restartLcdSleepTimer(const CameraSettingsPageVM& vm);
    void LCD_Sleep();
    void LCD_Sleep_time_refresh();
    bool setLcdLowBrightness(bool showScreensaver);
    bool setConfiguredLcdBrightness(const CameraSettingsPageVM& vm);
    bool isLcdSleepTimerActive() const;
    int lcdSleepInterval() const;
    bool isLcdDimmed() const { return lcd_low_brightness == 1; }

    // Screensaver.
    void show_screensaver();
    void hide_screensaver();
    void hide_screensaver(bool refreshSleep);
    void handle_screensaver_page_changed();
    bool isScreensaverActive() const { return screensaver_active; }
    // Step one of every touch begin: a touch on the screensaver wakes the
    // screen and is used up (true); any other touch restores the brightness
    // and re-arms the sleep timer (false).
    bool touchBeginWakesScreen();

    // Standby.
    void doStandbyEnter(const StandbyPageVM& vm);
    void doStandbyExit();
    void onRunStatusChanged(int new_run_status);
    // The standby page's wake button.
    void onWakeRequested();
    bool is_standby_visible() const;
    // Standby as entered and left here, whatever the standby widget shows:
    // during the exit the widget is still up while the state has ended.
    bool isInStandby() const { return standby_visible; }
    int runStatus() const;

    // Work mode: the window's copy, compared and stored here.
    void onWorkModeChanged(int new_work_mode);
    void setWorkMode(int mode);
    int workMode() const;

    // Upgrade.
    void showUpgradeProgress(int progress);
    void hideUpgradeProgress();

    // What the higher states take away from the lower ones: no gesture guide
    // over the upgrade screen or standby, no page refresh under the
    // screensaver (the window also refuses guides while its card stands).
    bool gestureGuideRefused() const;
    bool pageRefreshPaused() const { return screensaver_active; }

private:
    CameraSettingsPageVM cameraVm() const;

    AppManager* app;
    ShellSurfaces& surfaces;
    ControlTimeSource& time;
    std::unique_ptr<ControlTimer> idle_home_timer;
    std::unique_ptr<ControlTimer> lcd_sleep_timer;
    ControlStopwatch lcd_sleep_elapsed;
    int lcd_low_brightness = 0;
    // The brightness in force when the panel was dimmed. A backend that
    // stores the dim level as the configured one would otherwise keep the
    // panel dim after the next touch.
    int brightness_before_dim = -1;
    bool screensaver_active = false;
    bool standby_visible = false;
    mutable QMutex state_mutex;
    int run_status = 1;
    int work_mode = 0;
};
