// Construction of the window: the model, the surfaces and their stacking, the
// page table, the theme, and the teardown in reverse.
#include "shell/widget.h"

#include "control/async_control_runner.h"
#include "control/disk_speed_test_session.h"
#include "control/idle_sleep_controller.h"
#include "control/in_place_controls.h"
#include "control/modal_flows.h"
#include "control/ndi_search_session.h"
#include "control/operation_feedback.h"
#include "input/touch_event_handler.h"
#include "model/app_manager.h"
#include "pages/audio_settings_page_widget.h"
#include "pages/camera_settings_page_widget.h"
#include "pages/connect_app_widget.h"
#include "pages/decoder_shortcut_page_widget.h"
#include "pages/decoding_settings_page_widget.h"
#include "pages/dynamic_screensaver_widget.h"
#include "pages/encoder_shortcut_page_widget.h"
#include "pages/general_confirm_page_widget.h"
#include "pages/general_edit_page_widget.h"
#include "pages/general_slider_page_widget.h"
#include "pages/main_menu_page_widget.h"
#include "pages/media_settings_page_widget.h"
#include "pages/network_settings_page_widget.h"
#include "pages/shortcut_page_widget.h"
#include "pages/splash_overlay_widget.h"
#include "pages/standby_page_widget.h"
#include "pages/status_bar_widget.h"
#include "pages/status_page1_widget.h"
#include "pages/status_page2_widget.h"
#include "pages/status_page3_widget.h"
#include "pages/system_settings_page_widget.h"
#include "pages/upgrade_widget.h"
#include "pages/video_settings_page_widget.h"
#include "shell/widget_surfaces.h"
#include "transport/harvelin_log.h"
#include "ui/text_manager.h"

#include <QFile>
#include <QPushButton>
#include <QStackedWidget>

namespace {

// The stack order: the pages by id up to the last shortcut page, then the
// shortcut list, the connect page and the three modal pages.
template <class Page> Page* addStackedPage(QStackedWidget* stack, UITextManager* texts)
{
    auto* page = new Page(texts, stack);
    stack->addWidget(page);
    return page;
}

} // namespace

Widget::Widget(QWidget* parent, ControlTimeSource* time)
    : QWidget(parent), control_time(time ? *time : systemTimeSource())
{
    appMgr = new AppManager(this);
    touch_handler = new TouchEventHandler(this);
    text_mgr = new UITextManager(this, 0);
    initAsyncWorkerWatchers();
    ui_init();
}

Widget::~Widget()
{
    // A speed test still measuring has nothing left to report. Jobs that
    // still run on the pool must end before the model they call goes; the
    // speed test's start request is waited for when its session is destroyed.
    cancelDiskSpeedTestSession();
    ndi_search->waitForJob();
    control_runner->waitForJob();
    ui_deinit();
}

void Widget::ui_init()
{
    setGeometry(0, 0, kWindowWidth, kWindowHeight);
    setCursor(Qt::BlankCursor);
    initSplashScreen();
    // Shown before the pages are built, so that the logo is up at once.
    show();
    init_main_stacked_widgets();
    init_overlay_widgets();
    initThemeFromConfig();
    bind_pageid_and_widget();
    disableAllButtonFocus();
    connectCoreSignals();
    connectModalSignals();
    connectPageUpdateSignals();
    connectAsyncWorkerSignals();
    init_appconnect_page_exit_timer();
    connect_submenu_click();
    init_page_refresh_timer();
    init_idle_home_timer();
    init_lcd_sleep_timer();
    init_data_ready_check_timer();
    initTestCommandInterface();
}

void Widget::initSplashScreen()
{
    splash = new SplashOverlayWidget(this);
    splash->raise();
    splash->show();
    splash_visible = true;
}

void Widget::init_main_stacked_widgets()
{
    chrome_container = new QWidget(this);
    chrome_container->setAttribute(Qt::WA_StyledBackground);
    chrome_container->setProperty("class", "widget1");
    chrome_container->setGeometry(0, 0, kWindowWidth, kWindowHeight);
    chrome_container->hide();

    page_stack = new QStackedWidget(chrome_container);
    page_stack->setProperty("class", "widget1");
    page_stack->setGeometry(0, kStatusBarHeight, kWindowWidth, kWindowHeight - kStatusBarHeight);
    page_stack->hide();

    status_page1 = addStackedPage<StatusPage1Widget>(page_stack, text_mgr);
    status_page2 = addStackedPage<StatusPage2Widget>(page_stack, text_mgr);
    status_page3 = addStackedPage<StatusPage3Widget>(page_stack, text_mgr);
    main_menu_page1 = addStackedPage<MainMenuPage1Widget>(page_stack, text_mgr);
    main_menu_page2 = addStackedPage<MainMenuPage2Widget>(page_stack, text_mgr);
    system_settings_page1 = addStackedPage<SystemSettingsPage1Widget>(page_stack, text_mgr);
    system_settings_page2 = addStackedPage<SystemSettingsPage2Widget>(page_stack, text_mgr);
    system_settings_page3 = addStackedPage<SystemSettingsPage3Widget>(page_stack, text_mgr);
    system_settings_page4 = addStackedPage<SystemSettingsPage4Widget>(page_stack, text_mgr);
    network_settings_page1 = addStackedPage<NetworkSettingsPage1Widget>(page_stack, text_mgr);
    network_settings_page2 = addStackedPage<NetworkSettingsPage2Widget>(page_stack, text_mgr);
    network_settings_page3 = addStackedPage<NetworkSettingsPage3Widget>(page_stack, text_mgr);
    camera_settings_page1 = addStackedPage<CameraSettingsPage1Widget>(page_stack, text_mgr);
    camera_settings_page2 = addStackedPage<CameraSettingsPage2Widget>(page_stack, text_mgr);
    camera_settings_page3 = addStackedPage<CameraSettingsPage3Widget>(page_stack, text_mgr);
    video_settings_page1 = addStackedPage<VideoSettingsPage1Widget>(page_stack, text_mgr);
    video_settings_page2 = addStackedPage<VideoSettingsPage2Widget>(page_stack, text_mgr);
    audio_settings_page = addStackedPage<Audio_settings_page_widget>(page_stack, text_mgr);
    media_settings_page1 = addStackedPage<MediaSettingsPage1Widget>(page_stack, text_mgr);
    media_settings_page2 = addStackedPage<MediaSettingsPage2Widget>(page_stack, text_mgr);
    decoding_settings_page = addStackedPage<Decoding_settings_page_widget>(page_stack, text_mgr);
    encoder_shortcut_page1 = addStackedPage<EncoderShortcutPage1Widget>(page_stack, text_mgr);
    encoder_shortcut_page2 = addStackedPage<EncoderShortcutPage2Widget>(page_stack, text_mgr);
    encoder_shortcut_page3 = addStackedPage<EncoderShortcutPage3Widget>(page_stack, text_mgr);
    decoder_shortcut_page1 = addStackedPage<DecoderShortcutPage1Widget>(page_stack, text_mgr);
    decoder_shortcut_page2 = addStackedPage<DecoderShortcutPage2Widget>(page_stack, text_mgr);
    decoder_shortcut_page3 = addStackedPage<DecoderShortcutPage3Widget>(page_stack, text_mgr);
    shortcut_page = addStackedPage<ShortcutPageWidget>(page_stack, text_mgr);
    connect_app_page = addStackedPage<ConnectAppWidget>(page_stack, text_mgr);
    general_edit_page = addStackedPage<GeneralEditPageWidget>(page_stack, text_mgr);
    general_slider_page = addStackedPage<GeneralSliderPageWidget>(page_stack, text_mgr);
    general_confirm_page = addStackedPage<GeneralConfirmPageWidget>(page_stack, text_mgr);
}

void Widget::init_overlay_widgets()
{
    init_content_chrome_widgets();
    init_fullscreen_overlay_widgets();
}

void Widget::init_content_chrome_widgets()
{
    status_bar = new StatusBarWidget(text_mgr, chrome_container);
    status_bar->hide();
    initOperationOverlay();
    initGestureGuideOverlay();
    initNavDots();
    initSubmenuArrowButtons();
}

void Widget::init_fullscreen_overlay_widgets()
{
    standby_page = new StandbyPageWidget(text_mgr, this);
    standby_page->hide();
    upgrade_page = new UpgradeWidget(text_mgr, this);
    upgrade_page->setGeometry(0, 0, kWindowWidth, kWindowHeight);
    upgrade_page->hide();
    screensaver = new DynamicScreensaverWidget(text_mgr, this);
    screensaver->setGeometry(0, 0, kWindowWidth, kWindowHeight);
    screensaver->hide();
}

void Widget::initThemeFromConfig()
{
    int theme = appMgr ? appMgr->getThemeID() : 0;
    // Only "black" (0) and "blue" (1) exist; a failed read is negative.
    if (static_cast<unsigned>(theme) >= 2u)
        theme = 0;
    theme_index = theme;
    apply_stylesheet(theme == 1 ? QStringLiteral("blue") : QStringLiteral("black"));
}

void Widget::apply_stylesheet(const QString& name)
{
    const QString path = QStringLiteral(":/themes/%1.qss").arg(name);
    QFile file(path);
    if (!file.open(QFile::ReadOnly)) {
        LOG_WAR("Failed to open style sheet file: %s\n", qPrintable(path));
        return;
    }
    const QByteArray content = file.readAll();
    const int end = content.indexOf('\0');
    setStyleSheet(QString::fromLatin1(end < 0 ? content : content.left(end)));
    file.close();
}

void Widget::bind_pageid_and_widget()
{
    page_table.fill(nullptr);
    const std::pair<int, QWidget*> entries[] = {
        {PAGE_STATUS_1, status_page1},
        {PAGE_STATUS_2, status_page2},
        {PAGE_STATUS_3, status_page3},
        {PAGE_MAIN_MENU_1, main_menu_page1},
        {PAGE_MAIN_MENU_2, main_menu_page2},
        {PAGE_SYSTEM_SETTINGS_1, system_settings_page1},
        {PAGE_SYSTEM_SETTINGS_2, system_settings_page2},
        {PAGE_SYSTEM_SETTINGS_3, system_settings_page3},
        {PAGE_SYSTEM_SETTINGS_4, system_settings_page4},
        {PAGE_NETWORK_SETTINGS_1, network_settings_page1},
        {PAGE_NETWORK_SETTINGS_2, network_settings_page2},
        {PAGE_NETWORK_SETTINGS_3, network_settings_page3},
        {PAGE_CAMERA_SETTINGS_1, camera_settings_page1},
        {PAGE_CAMERA_SETTINGS_2, camera_settings_page2},
        {PAGE_CAMERA_SETTINGS_3, camera_settings_page3},
        {PAGE_VIDEO_SETTINGS_1, video_settings_page1},
        {PAGE_VIDEO_SETTINGS_2, video_settings_page2},
        {PAGE_AUDIO_SETTINGS, audio_settings_page},
        {PAGE_MEDIA_SETTINGS_1, media_settings_page1},
        {PAGE_MEDIA_SETTINGS_2, media_settings_page2},
        {PAGE_DECODING_SETTINGS, decoding_settings_page},
        {PAGE_ENCODER_SHORTCUT_1, encoder_shortcut_page1},
        {PAGE_ENCODER_SHORTCUT_2, encoder_shortcut_page2},
        {PAGE_ENCODER_SHORTCUT_3, encoder_shortcut_page3},
        {PAGE_DECODER_SHORTCUT_1, decoder_shortcut_page1},
        {PAGE_DECODER_SHORTCUT_2, decoder_shortcut_page2},
        {PAGE_DECODER_SHORTCUT_3, decoder_shortcut_page3},
        {PAGE_GENERAL_EDIT, general_edit_page},
        {PAGE_GENERAL_SLIDER, general_slider_page},
        {PAGE_GENERAL_CONFIRM, general_confirm_page},
        {PAGE_STANDBY, standby_page},
        {PAGE_CONNECT_APP, connect_app_page},
        {PAGE_SHORTCUT, shortcut_page},
    };
    for (const auto& [id, page] : entries)
        page_table[static_cast<std::size_t>(id)] = page;
}

QWidget* Widget::pageid_to_widget(int pageid) const
{
    if (pageid < 0 || pageid >= kPageCount)
        return nullptr;
    return page_table[static_cast<std::size_t>(pageid)];
}

void Widget::disableAllButtonFocus()
{
    // No keys exist; a focus frame would only be a stray mark on the strip.
    for (QPushButton* button : findChildren<QPushButton*>())
        button->setFocusPolicy(Qt::NoFocus);
}

void Widget::ui_deinit()
{
    deinit_page_refresh_timer();
    deinit_idle_home_timer();
    deinit_lcd_sleep_timer();
    if (screensaver)
        screensaver->stop();
    deinit_appconnect_page_exit_timer();
    deinit_data_ready_check_timer();
    QObject::disconnect(this, nullptr, nullptr, nullptr);
    deinitTestCommandInterface();
}

int Widget::workMode() const
{
    return currentWorkMode();
}
