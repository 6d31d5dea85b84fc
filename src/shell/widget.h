#pragma once

#include "input/gesture_guide_overlay_component.h"
#include "input/test_command_target.h"
#include "model/view_models/view_models.h"
#include "pages/page_ids.h"

#include <QElapsedTimer>
#include <QPointF>
#include <QPushButton>
#include <QSlider>
#include <QString>
#include <QWidget>

#include <array>
#include <functional>
#include <memory>

class AppManager;
class AsyncControlRunner;
class Audio_settings_page_widget;
class CameraSettingsPage1Widget;
class CameraSettingsPage2Widget;
class CameraSettingsPage3Widget;
class ConnectAppWidget;
class ControlTimeSource;
class DecoderShortcutPage1Widget;
class DecoderShortcutPage2Widget;
class DecoderShortcutPage3Widget;
class Decoding_settings_page_widget;
class DiskSpeedTestSession;
class DynamicScreensaverWidget;
class EncoderShortcutPage1Widget;
class EncoderShortcutPage2Widget;
class EncoderShortcutPage3Widget;
class GeneralConfirmPageWidget;
class GeneralEditPageWidget;
class GeneralSliderPageWidget;
class IdleSleepController;
class InPlaceControls;
class MainMenuPage1Widget;
class MainMenuPage2Widget;
class MediaSettingsPage1Widget;
class MediaSettingsPage2Widget;
class ModalFlows;
class NavDotsComponent;
class NdiSearchSession;
class NetworkSettingsPage1Widget;
class NetworkSettingsPage2Widget;
class NetworkSettingsPage3Widget;
class OperationFeedback;
class OperationOverlayComponent;
class QStackedWidget;
class QTimer;
class ShortcutPageWidget;
class SplashOverlayWidget;
class StandbyPageWidget;
class StatusBarWidget;
class StatusPage1Widget;
class StatusPage2Widget;
class StatusPage3Widget;
class SubmenuArrowsComponent;
class SystemSettingsPage1Widget;
class SystemSettingsPage2Widget;
class SystemSettingsPage3Widget;
class SystemSettingsPage4Widget;
class TouchEventHandler;
class UITextManager;
class UpgradeWidget;
class VantorTestCommandInterface;
class VideoSettingsPage1Widget;
class VideoSettingsPage2Widget;
class WidgetSurfaces;
enum class GestureKind;

// The panel's one window and the controller of what is on screen: it owns the
// model, the pages, the overlays and every timer of the shell, and decides
// which page shows. Pages only answer where a gesture leads and render the
// view models this class hands them; the model is asked once a second whether
// the page on screen changed.
//
// The implementation is split by concern: widget_init (construction, surfaces,
// page table, teardown), widget_startup (splash and first page),
// widget_navigation and widget_chrome (page changes, status bar, dots,
// arrows), widget_refresh (the one-second cycle), widget_gestures and
// widget_lcd_lock (touch dispatch and its gates), widget_guide (gesture guide),
// widget_controls (the control layer's objects and the page controls),
// widget_feedback (operation card and slow jobs), widget_device_states (idle,
// sleep, standby, upgrade), widget_modal and widget_modal_openings (the shared
// modal pages), widget_sessions (disk speed test, NDI search) and
// widget_test_commands (scripted input). What controls, cards, modal flows and
// device states do is decided in the control layer (src/control); the window
// owns those objects, lends them its surfaces and forwards to them.
class Widget : public QWidget, public TestCommandTarget {
    Q_OBJECT

public:
    // Milliseconds from any fixed origin; only differences are used.
    using Clock = std::function<qint64()>;

    static constexpr int kWindowWidth = 640;
    static constexpr int kWindowHeight = 172;
    static constexpr int kStatusBarHeight = 30;
    static constexpr int kSplashPollMs = 100;
    static constexpr qint64 kSplashTimeoutMs = 5000;
    static constexpr int kPageRefreshMs = 1000;
    static constexpr int kStatusSwitchMs = 6000;
    static constexpr int kAppConnectExitMs = 2000;
    static constexpr int kGuideDisplayMs = 6000;
    // Connect status reported once the phone app has paired.
    static constexpr int kAppConnected = 4;
    static constexpr int kStatusLocked = 4;
    static constexpr int kStatusUnlocked = 5;
    // How long a lock change may take to show in the model's state.
    static constexpr qint64 kLockConfirmGraceMs = 3000;

    // `time` drives the shell's idle, sleep and session timers; null is Qt's
    // own clock. Tests pass a hand-driven one; it must outlive the window.
    explicit Widget(QWidget* parent = nullptr, ControlTimeSource* time = nullptr);
    ~Widget() override;

    // --- start-up and teardown (widget_init, widget_startup) ---
    void ui_init();
    void ui_deinit();
    void initSplashScreen();
    void init_main_stacked_widgets();
    void init_overlay_widgets();
    void init_content_chrome_widgets();
    void init_fullscreen_overlay_widgets();
    void initThemeFromConfig();
    void apply_stylesheet(const QString& name);
    void bind_pageid_and_widget();
    void disableAllButtonFocus();
    void init_data_ready_check_timer();
    void deinit_data_ready_check_timer();
    void hideSplashAndShowMain();
    void refreshInitialPageData();
    QWidget* pageid_to_widget(int pageid) const;

    // --- navigation (widget_navigation, widget_chrome) ---
    void goto_page(int pageid) override;
    int get_current_pageid() const override;
    int getPageGroupCount(int page) const;
    int getPageIndexInGroup(int page) const;
    int getMixedHomePageCount() const;
    int getMixedHomePageIndex(int page) const;
    static int getSettingsMenuReturnPage(int page);
    NavDotsState buildNavDotsState(int page) const;
    void updateNavDots(const NavDotsState& state);
    void updateSubmenuArrowButtons(int page);
    void updateDisplayedPageChrome(int page);
    QString getPageContextText(int page) const;
    QString getModalPageContextText(int page) const;
    StatusBarVM buildStatusBarVmForPage(int page) const;
    void syncPageContextToAppMgr();

    // --- refresh cycle (widget_refresh) ---
    void init_page_refresh_timer();
    void deinit_page_refresh_timer();
    void init_appconnect_page_exit_timer();
    void deinit_appconnect_page_exit_timer();
    void init_status_switch_timer();
    void deinit_status_switch_timer();
    void set_all_page_dirty();
    void refreshPage(int pageid) override;

    // --- gestures and the LCD lock (widget_gestures, widget_lcd_lock) ---
    void swipe_left() override;
    void swipe_right() override;
    void swipe_up() override;
    void swipe_down() override;
    void edge_swipe_to_center() override;
    void long_press(const QPointF& pos) override;
    void button_long_press(QPushButton* btn);
    void button_tap(QPushButton* btn) override;
    QPushButton* testButtonAt(const QPoint& point) override;
    void slider_tap(const QPoint& point) override;
    bool is_lcd_touch_locked() const { return lcd_touch_locked; }
    void setLcdTouchLocked(bool locked);
    bool handleLcdLockedSwipe();
    bool is_standby_visible() const;
    bool isButtonInStandbyPage(QPushButton* btn) const;
    void consumeCurrentTouchSequence();
    bool consumeTouchBeginForOperationOverlay();
    void connectTouchEvents();

    // --- gesture guide (widget_guide) ---
    void showGestureGuideForPage(int page, bool autoShow);
    void rebuildGestureGuideItems(int type);
    GestureGuideItems getGestureGuideItemsForType(int type) const;

    // --- operation card and slow jobs (widget_feedback) ---
    void showOperationLoading();
    void showOperationResult(int status);
    void showOperationResult(bool ok);
    void showOperationResult(bool ok, const QString& text);
    void showOperationWarning(const QString& text);
    void hideOperationOverlay();
    bool isOperationOverlayActive() const;
    bool isOperationInProgress() const;
    void updateOperationOverlayLayout(const QString& text);
    bool startAsyncControlRequest(std::function<int()> job, int refreshPage,
                                  const QString& warningText = QString());
    void refreshCurrentPageAfterAsyncControl(int page);
    bool finishPendingPushStreamSwitchIfReady(const EncoderShortcutPageVM& vm);

    // --- idle, sleep, standby, upgrade (widget_device_states) ---
    void init_idle_home_timer();
    void deinit_idle_home_timer();
    void idle_home_time_refresh(int page);
    static int idleHomeTimeoutMsForPage(int page);
    void init_lcd_sleep_timer();
    void deinit_lcd_sleep_timer();
    void restartLcdSleepTimer(const CameraSettingsPageVM& vm);
    void LCD_Sleep_time_refresh();
    bool setLcdLowBrightness(bool showScreensaver);
    bool setConfiguredLcdBrightness(const CameraSettingsPageVM& vm);
    void show_screensaver();
    void hide_screensaver();
    void hide_screensaver(bool refreshSleep);
    void handle_screensaver_page_changed();
    void hideUpgradeProgress();
    bool isScreensaverActive() const;

    // --- modal pages (widget_modal, widget_modal_openings) ---
    void enterEditMode(int editType, int returnPage, int actualIndex);
    void enterSliderMode(int sliderType, int returnPage, int value);
    void enterConfirmDialog(int actionType, int returnPage, int returnIndex, int param);

    // --- disk speed test and NDI search (widget_sessions) ---
    void invalidateDiskSpeedPoll();
    void cancelDiskSpeedTestSession();
    bool isDiskSpeedTestActive() const;
    void startDecNdiFindAsync();

    // --- test commands (widget_test_commands) ---
    void initTestCommandInterface();
    void deinitTestCommandInterface();

    // Replaces the clock of the splash wait from now on; tests drive the time
    // limit with it.
    void setSplashClock(Clock clock);

    // Read access for the start-up code of the program, the tests and tools.
    AppManager* appManager() const { return appMgr; }
    UITextManager* textManager() const { return text_mgr; }
    TouchEventHandler* touchHandler() const { return touch_handler; }
    VantorTestCommandInterface* testCommandInterface() const { return test_interface; }
    QStackedWidget* pageStack() const { return page_stack; }
    QWidget* chromeContainer() const { return chrome_container; }
    StatusBarWidget* statusBar() const { return status_bar; }
    SplashOverlayWidget* splashOverlay() const { return splash; }
    NavDotsComponent* navDots() const { return nav_dots; }
    SubmenuArrowsComponent* submenuArrows() const { return submenu_arrows; }
    GestureGuideOverlayComponent* gestureGuideOverlay() const { return gesture_guide; }
    OperationOverlayComponent* operationOverlay() const { return operation_overlay; }
    StandbyPageWidget* standbyPage() const { return standby_page; }
    UpgradeWidget* upgradePage() const { return upgrade_page; }
    DynamicScreensaverWidget* screensaverPage() const { return screensaver; }
    QTimer* pageRefreshTimer() const { return page_refresh_timer; }
    QTimer* dataReadyTimer() const { return data_ready_timer; }
    QTimer* appConnectExitTimer() const { return appconnect_exit_timer; }
    // The control layer's objects that the window owns.
    OperationFeedback* operationFeedback() const { return feedback.get(); }
    AsyncControlRunner* controlRunner() const { return control_runner.get(); }
    InPlaceControls* inPlaceControls() const { return in_place_controls.get(); }
    ModalFlows* modalFlows() const { return modal_flows.get(); }
    IdleSleepController* idleSleep() const { return idle_sleep.get(); }
    DiskSpeedTestSession* diskSpeedSession() const { return disk_speed.get(); }
    NdiSearchSession* ndiSearchSession() const { return ndi_search.get(); }
    bool isSplashVisible() const { return splash_visible; }
    bool isDataReadyReported() const { return data_ready; }
    bool isSplashWaitFinished() const { return splash_wait_finished; }
    bool isModalActive() const { return modal_active; }
    bool isFirstUseConnectBypass() const { return first_use_connect_bypass; }
    bool isForcePageRefresh() const { return force_page_refresh; }
    int lcdLockedSwipeCount() const { return lcd_locked_swipe_count; }
    int lcdLowBrightness() const;
    int workMode() const;
    int themeIndex() const { return theme_index; }
    int currentPageId() const { return current_pageid; }
    int modalPageId() const { return modal_pageid; }
    int modalReturnPage() const;
    const QSet<int>& guidesSeen() const;

signals:
    void requestStatusBarUpdate(const StatusBarVM& vm);
    void requestStandbyPageUpdate(const StandbyPageVM& vm);
    void requestStatusPage1Update(const StatusPage1VM& vm);
    void requestStatusPage2Update(const StatusPage2VM& vm);
    void requestStatusPage3Update(const StatusPage3VM& vm);
    void requestMainMenuPage1Update(int workmode);
    void requestMainMenuPage2Update(int workmode);
    void requestSystemSettingsPage1Update(const SystemSettingsPageVM& vm);
    void requestSystemSettingsPage2Update(const SystemSettingsPageVM& vm);
    void requestSystemSettingsPage3Update(const SystemSettingsPageVM& vm);
    void requestSystemSettingsPage4Update(const SystemSettingsPageVM& vm);
    void requestNetworkSettingsPage1Update(const NetworkSettingsPageVM& vm);
    void requestNetworkSettingsPage2Update(const NetworkSettingsPageVM& vm);
    void requestNetworkSettingsPage3Update(const NetworkSettingsPageVM& vm);
    void requestCameraSettingsPage1Update(const CameraSettingsPageVM& vm);
    void requestCameraSettingsPage2Update(const CameraSettingsPageVM& vm);
    void requestCameraSettingsPage3Update(const CameraSettingsPageVM& vm);
    void requestVideoSettingsPage1Update(const VideoSettingsPageVM& vm);
    void requestVideoSettingsPage2Update(const VideoSettingsPageVM& vm);
    void requestAudioSettingsPageUpdate(const AudioSettingsPageVM& vm);
    void requestMediaSettingsPage1Update(const MediaSettingsPageVM& vm);
    void requestMediaSettingsPage2Update(const MediaSettingsPageVM& vm);
    void requestDecodingSettingsPageUpdate(const DecodingSettingsPageVM& vm);
    void requestEncoderShortcutPage1Update(const EncoderShortcutPageVM& vm);
    void requestEncoderShortcutPage2Update(const EncoderShortcutPageVM& vm);
    void requestEncoderShortcutPage3Update(const EncoderShortcutPageVM& vm);
    void requestDecoderShortcutPage1Update(const DecoderShortcutPageVM& vm);
    void requestDecoderShortcutPage2Update(const DecoderShortcutPageVM& vm);
    void requestDecoderShortcutPage3Update(const DecoderShortcutPageVM& vm);
    void requestEditModePageUpdate(const EditModePageVM& vm);
    void requestSliderModePageUpdate(const SliderModePageVM& vm);
    void requestConfirmDialogPageUpdate(const ConfirmDialogPageVM& vm);
    void requestConnectAppUpdate(const ConnectAppVM& vm);
    void requestShortcutUpdate(const ShortcutVM& vm);

    void requestPageRefresh(int pageid);
    void requestPageSwitch(int pageid);
    void requestStandbyEnter(const StandbyPageVM& vm);
    void requestStandbyExit();
    void lcdLockedSwipeGuideRequested();

public slots:
    void doPageRefresh(int pageid);
    void doPageSwitch(int pageid);
    void doStandbyEnter(const StandbyPageVM& vm);
    void doStandbyExit();
    void handleLanguageChange();
    void onWorkModeChanged(int new_work_mode);
    void onRunStatusChanged(int new_run_status);
    void showUpgradeProgress(int progress);
    void onMainMenuItemClicked(const QString& menuKey);
    void checkDataReady();
    void on_page_refresh_timeout();
    void on_status_switch_timeout();
    void on_idle_home_timeout();
    void LCD_Sleep();
    void onOperationHideTimeout();
    void hideGestureGuideOverlay() override;
    void onEditModeConfirmed(int editType, int index);
    void onSliderModeConfirmed(int sliderType, int value);
    void onConfirmDialogConfirmed(int actionType);
    void onEditModeCancelled(int returnPage);
    void onSliderModeCancelled(int returnPage);
    void onConfirmDialogCancelled(int returnPage);

    void onButtonTapReq(QPushButton* btn);
    void onLongPressReq(const QPointF& pos);
    void onButtonLongPressReq(QPushButton* btn);
    void onSwipeLeftReq();
    void onSwipeRightReq();
    void onEdgeSwipeToCenterReq();
    void onSwipeUpReq();
    void onSwipeDownReq();
    void onSliderValueChangedReq(QSlider* slider, int value);
    void onSliderTapReq(QSlider* slider, int value);
    void onSliderReleaseReq(QSlider* slider, int value);
    void onTouchBeginReq() override;

private:
    friend class WidgetSurfaces;

    // widget_init, widget_connections, widget_controls, widget_modal_openings
    void connectCoreSignals();
    void connectModalSignals();
    void connectPageUpdateSignals();
    void connect_submenu_click();
    void connectPageNavigationSignals();
    void connectShortcutControlSignals();
    void connectInPlaceControlSignals();
    void connectEditModeSignals();
    void connectSliderModeSignals();
    void connectConfirmDialogSignals();
    void initAsyncWorkerWatchers();
    void connectAsyncWorkerSignals();
    void connectModalFlowSignals();
    void clearModalState();
    void initOperationOverlay();
    void initGestureGuideOverlay();
    void initNavDots();
    void initSubmenuArrowButtons();
    void onSubmenuLeftArrowClicked();
    void onSubmenuRightArrowClicked();

    // widget_chrome
    // The page's own part of the status bar record: id, breadcrumb, flags.
    void fillStatusBarPageFields(StatusBarVM& vm, int page) const;

    // widget_refresh
    bool pageVmChanged(int page);
    void deliverPageVm(int page);
    void onAppConnectExitTimeout();

    // widget_gestures
    bool swipeGatesPass();
    void dispatchGestureToCurrentPage(GestureKind kind, QPushButton* btn = nullptr);
    bool sliderGatesPass(QSlider* slider) const;

    // widget_lcd_lock
    void unlockLcdByLongPress();
    void onLcdLockClicked(bool enabled);
    void onLcdLockKeyPressed();
    bool changeLcdLock(bool locked);
    // The lock state to take from the model's `modelLocked`: right after a
    // change was accepted, the model may still report the old state until
    // its next poll, and must not undo the change on screen.
    bool lockStateFromModel(bool modelLocked);

    int currentWorkMode() const;
    // Standby as the state controller holds it (see IdleSleepController).
    bool inStandby() const;
    qint64 splashElapsedMs() const;

    VantorTestCommandInterface* test_interface = nullptr;
    AppManager* appMgr = nullptr;
    TouchEventHandler* touch_handler = nullptr;
    UITextManager* text_mgr = nullptr;

    int theme_index = 0;

    SplashOverlayWidget* splash = nullptr;
    QTimer* data_ready_timer = nullptr;
    QElapsedTimer splash_elapsed;
    Clock splash_clock;
    qint64 splash_clock_start = 0;
    bool data_ready = false;
    bool splash_wait_finished = false;

    QWidget* chrome_container = nullptr;
    QStackedWidget* page_stack = nullptr;
    std::array<QWidget*, kPageCount> page_table{};

    int current_pageid = 0;
    int modal_pageid = -1;
    bool modal_active = false;
    bool lcd_touch_locked = false;
    int lcd_locked_swipe_count = 0;
    int lcd_lock_awaited = -1; // state set but not yet reported back, or -1
    QElapsedTimer lcd_lock_awaited_since;
    bool splash_visible = true;
    bool force_page_refresh = false;
    bool first_use_connect_bypass = false;

    QTimer* page_refresh_timer = nullptr;
    QTimer* status_switch_timer = nullptr;
    QTimer* appconnect_exit_timer = nullptr;

    OperationOverlayComponent* operation_overlay = nullptr;

    // The control layer. Destroyed, in reverse order, before the Qt children
    // (the model among them), so that no job or timer outlives what it uses.
    ControlTimeSource& control_time;
    std::unique_ptr<WidgetSurfaces> surfaces;
    std::unique_ptr<OperationFeedback> feedback;
    std::unique_ptr<AsyncControlRunner> control_runner;
    std::unique_ptr<InPlaceControls> in_place_controls;
    std::unique_ptr<ModalFlows> modal_flows;
    std::unique_ptr<IdleSleepController> idle_sleep;
    std::unique_ptr<DiskSpeedTestSession> disk_speed;
    std::unique_ptr<NdiSearchSession> ndi_search;

    GestureGuideOverlayComponent* gesture_guide = nullptr;
    std::unique_ptr<GestureGuideCounter> guide_counter;
    NavDotsComponent* nav_dots = nullptr;
    SubmenuArrowsComponent* submenu_arrows = nullptr;

    StatusBarWidget* status_bar = nullptr;
    StatusPage1Widget* status_page1 = nullptr;
    StatusPage2Widget* status_page2 = nullptr;
    StatusPage3Widget* status_page3 = nullptr;
    MainMenuPage1Widget* main_menu_page1 = nullptr;
    MainMenuPage2Widget* main_menu_page2 = nullptr;
    SystemSettingsPage1Widget* system_settings_page1 = nullptr;
    SystemSettingsPage2Widget* system_settings_page2 = nullptr;
    SystemSettingsPage3Widget* system_settings_page3 = nullptr;
    SystemSettingsPage4Widget* system_settings_page4 = nullptr;
    NetworkSettingsPage1Widget* network_settings_page1 = nullptr;
    NetworkSettingsPage2Widget* network_settings_page2 = nullptr;
    NetworkSettingsPage3Widget* network_settings_page3 = nullptr;
    CameraSettingsPage1Widget* camera_settings_page1 = nullptr;
    CameraSettingsPage2Widget* camera_settings_page2 = nullptr;
    CameraSettingsPage3Widget* camera_settings_page3 = nullptr;
    VideoSettingsPage1Widget* video_settings_page1 = nullptr;
    VideoSettingsPage2Widget* video_settings_page2 = nullptr;
    Audio_settings_page_widget* audio_settings_page = nullptr;
    MediaSettingsPage1Widget* media_settings_page1 = nullptr;
    MediaSettingsPage2Widget* media_settings_page2 = nullptr;
    Decoding_settings_page_widget* decoding_settings_page = nullptr;
    EncoderShortcutPage1Widget* encoder_shortcut_page1 = nullptr;
    EncoderShortcutPage2Widget* encoder_shortcut_page2 = nullptr;
    EncoderShortcutPage3Widget* encoder_shortcut_page3 = nullptr;
    DecoderShortcutPage1Widget* decoder_shortcut_page1 = nullptr;
    DecoderShortcutPage2Widget* decoder_shortcut_page2 = nullptr;
    DecoderShortcutPage3Widget* decoder_shortcut_page3 = nullptr;
    ShortcutPageWidget* shortcut_page = nullptr;
    ConnectAppWidget* connect_app_page = nullptr;
    GeneralEditPageWidget* general_edit_page = nullptr;
    GeneralSliderPageWidget* general_slider_page = nullptr;
    GeneralConfirmPageWidget* general_confirm_page = nullptr;
    StandbyPageWidget* standby_page = nullptr;
    UpgradeWidget* upgrade_page = nullptr;
    DynamicScreensaverWidget* screensaver = nullptr;
};
