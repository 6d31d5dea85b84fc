// The hand-over from the splash to the first page: wait for the model's data
// (or the time limit), pick and fill the first page behind the splash, then
// uncover the window and only then accept touch.
#include "shell/widget.h"

#include "input/touch_event_handler.h"
#include "model/app_manager.h"
#include "pages/splash_overlay_widget.h"
#include "pages/status_bar_widget.h"
#include "transport/harvelin_log.h"

#include <QStackedWidget>
#include <QTimer>

void Widget::setSplashClock(Clock clock)
{
    splash_clock = std::move(clock);
    if (splash_clock)
        splash_clock_start = splash_clock();
}

void Widget::init_data_ready_check_timer()
{
    splash_elapsed.start();
    data_ready_timer = new QTimer(this);
    data_ready_timer->setInterval(kSplashPollMs);
    connect(data_ready_timer, &QTimer::timeout, this, &Widget::checkDataReady);
    data_ready_timer->start();
}

void Widget::deinit_data_ready_check_timer()
{
    if (!data_ready_timer)
        return;
    data_ready_timer->stop();
    delete data_ready_timer;
    data_ready_timer = nullptr;
}

qint64 Widget::splashElapsedMs() const
{
    if (splash_clock)
        return splash_clock() - splash_clock_start;
    return splash_elapsed.isValid() ? splash_elapsed.elapsed() : -1;
}

void Widget::checkDataReady()
{
    if (splash_wait_finished)
        return;
    if (appMgr && appMgr->isDataReady()) {
        data_ready = true;
        splash_wait_finished = true;
        if (data_ready_timer)
            data_ready_timer->stop();
        LOG_DB("Data ready before splash timeout.\n");
        hideSplashAndShowMain();
        return;
    }
    const qint64 elapsed = splashElapsedMs();
    if (elapsed < 0 || elapsed < kSplashTimeoutMs)
        return;
    data_ready = false;
    splash_wait_finished = true;
    if (data_ready_timer)
        data_ready_timer->stop();
    LOG_WAR("Splash wait timeout after %lld ms, showing main UI with default data.\n",
            static_cast<long long>(elapsed));
    hideSplashAndShowMain();
}

void Widget::hideSplashAndShowMain()
{
    LOG_DB("Data ready, hiding splash and showing main UI...\n");
    refreshInitialPageData();
    QTimer::singleShot(0, this, [this]() {
        chrome_container->show();
        chrome_container->raise();
        page_stack->show();
        status_bar->show();
        status_bar->raise();
        splash->hide();
        splash_visible = false;
        setAttribute(Qt::WA_AcceptTouchEvents);
        connectTouchEvents();
        touch_handler->attachTo(this);
        showGestureGuideForPage(get_current_pageid(), true);
    });
}

void Widget::refreshInitialPageData()
{
    if (!appMgr) {
        LOG_WAR("refreshInitialPageData: appMgr not initialized\n");
        return;
    }
    int first_use_flag = 0;
    if (appMgr->getConnectAppFirstUseFlag(first_use_flag) < 0) {
        LOG_WAR("refreshInitialPageData: getConnectAppFirstUseFlag failed\n");
        first_use_flag = 0;
    }
    const bool first_use = first_use_flag == 0;
    const int first_page = first_use ? PAGE_CONNECT_APP : PAGE_STATUS_1;

    idle_home_time_refresh(first_page);
    current_pageid = first_page;
    modal_pageid = -1;
    modal_active = false;
    syncPageContextToAppMgr();

    // The stored record may predate the first data; take it fresh.
    appMgr->buildStatusBarVm(nullptr);
    const StatusBarVM bar = buildStatusBarVmForPage(first_page);
    setLcdTouchLocked(bar.lcd_locked);
    // The phone must be able to pair on first use even if the LCD is locked.
    first_use_connect_bypass = first_use && lcd_touch_locked;
    if (status_bar)
        emit requestStatusBarUpdate(bar);

    if (first_use)
        emit requestConnectAppUpdate(appMgr->buildConnectAppVm(nullptr));
    else
        emit requestStatusPage1Update(appMgr->buildStatusPage1Vm(nullptr));

    if (QWidget* page = pageid_to_widget(first_page))
        page_stack->setCurrentWidget(page);
    updateNavDots(buildNavDotsState(first_page));
    restartLcdSleepTimer(appMgr->buildCameraSettingsPageVm(nullptr));
    LOG_DB("Initial page data refresh completed.\n");
}
