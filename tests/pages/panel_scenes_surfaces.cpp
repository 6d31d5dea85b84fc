// The full-screen surfaces (standby, screensaver, upgrade, splash, Bluetooth
// pairing) and the two cards that the window lays over its pages.
#include "panel_scene_building.h"

#include "input/gesture_guide_overlay_component.h"
#include "model/view_models/shortcut_view_models.h"
#include "page_test_support.h"
#include "pages/auto_bt_page_widget.h"
#include "pages/dynamic_screensaver_widget.h"
#include "pages/splash_overlay_widget.h"
#include "pages/standby_page_widget.h"
#include "pages/status_page1_widget.h"
#include "pages/system_settings_page_widget.h"
#include "pages/upgrade_widget.h"
#include "ui/operation_overlay_component.h"

#include <QTimer>

namespace pagetest::scenes {

namespace {

PanelScene fullScreen(const QString& name)
{
    PanelScene scene;
    scene.name = name;
    scene.full_screen = true;
    return scene;
}

PanelScene standby()
{
    PanelScene scene = fullScreen("standby");
    scene.build = page<StandbyPageWidget>([](StandbyPageWidget& p) {
        StandbyPageVM vm;
        vm.date_text = QStringLiteral("2025-03-01");
        vm.time_text = QStringLiteral("10:24:36");
        vm.ip_text = QStringLiteral("192.168.10.125");
        p.updateFromVm(vm);
    });
    scene.states << state<StandbyPageWidget>(
        "unknown_clock", [](StandbyPageWidget& p) { p.updateFromVm(StandbyPageVM{}); });
    return scene;
}

DynamicScreensaverVM clock(int workMode, bool inStandby)
{
    DynamicScreensaverVM vm;
    vm.date_text = QStringLiteral("2025-03-01");
    vm.time_text = QStringLiteral("10:24:36");
    vm.work_mode = workMode;
    vm.standby = inStandby;
    return vm;
}

PanelScene screensaver()
{
    PanelScene scene = fullScreen("screensaver");
    scene.build = page<DynamicScreensaverWidget>([](DynamicScreensaverWidget& p) {
        p.updateFromVm(clock(0, false));
        p.start();
        // The card stays where start() puts it, so that pictures repeat.
        p.animationTimer()->stop();
    });
    scene.states << state<DynamicScreensaverWidget>("decode", [](DynamicScreensaverWidget& p) {
        p.updateFromVm(clock(1, false));
    }) << state<DynamicScreensaverWidget>("standby", [](DynamicScreensaverWidget& p) {
        p.updateFromVm(clock(0, true));
    });
    return scene;
}

PanelScene upgrade()
{
    PanelScene scene = fullScreen("upgrade");
    scene.build = page<UpgradeWidget>([](UpgradeWidget& p) { p.updateFromVm(45); });
    scene.states << state<UpgradeWidget>("rebooting", [](UpgradeWidget& p) {
        p.updateFromVm(100);
        QMetaObject::invokeMethod(p.rebootTextTimer(), "timeout");
    });
    return scene;
}

PanelScene splash()
{
    PanelScene scene = fullScreen("splash");
    scene.build = [](UITextManager*, QWidget* parent) -> QWidget* {
        return new SplashOverlayWidget(parent);
    };
    return scene;
}

PanelScene bluetooth()
{
    PanelScene scene = fullScreen("bluetooth");
    scene.build = page<AutoBtPageWidget>([](AutoBtPageWidget& p) {
        p.updateFromVm(ConnectBTVM{7, false});
    });
    scene.states = statesFor<AutoBtPageWidget, int>(
        {2, 5, 6}, [](const int& s) { return QStringLiteral("status_%1").arg(s); },
        [](AutoBtPageWidget& p, const int& s) {
            p.updateFromVm(ConnectBTVM{s, false});
        });
    return scene;
}

// --- Cards over the pages -------------------------------------------------

template <class Page> Page* pageBeneath(UITextManager* texts, QWidget* parent)
{
    auto* beneath = new Page(texts, parent);
    beneath->move(0, 30);
    return beneath;
}

void showGuide(GestureGuideOverlayComponent& guide, int type, UITextManager* texts)
{
    guide.showGuide(
        GestureGuideOverlayComponent::guideItemsForType(type),
        [texts](const QString& key) { return texts->getTextWithFallback(key); }, 0);
}

PanelScene gestureGuide()
{
    PanelScene scene;
    scene.name = "gesture_guide";
    scene.overlay = true;
    scene.bar = homeBar();
    scene.build = [](UITextManager* texts, QWidget* parent) -> QWidget* {
        pageBeneath<StatusPage1Widget>(texts, parent)->updateFromVm(StatusPage1VM{});
        auto* guide = new GestureGuideOverlayComponent(parent);
        showGuide(*guide, GESTURE_GUIDE_HOME, texts);
        return guide;
    };
    for (int type : {GESTURE_GUIDE_MAIN_MENU, GESTURE_GUIDE_CONNECT_APP, GESTURE_GUIDE_LCD_LOCKED})
        scene.states << SceneState{
            QStringLiteral("guide_%1").arg(type), [type](QWidget* guide, UITextManager* texts) {
                showGuide(*static_cast<GestureGuideOverlayComponent*>(guide), type, texts);
            }};
    return scene;
}

bool isCardMessage(const QString& key)
{
    static const QStringList kPrefixes = {QStringLiteral("point_info."),
                                          QStringLiteral("disk_status.")};
    static const QStringList kKeys = {QStringLiteral("video_settings.gsk_resolution_invalid"),
                                      QStringLiteral("video_settings.no_backdrop")};
    for (const QString& prefix : kPrefixes)
        if (key.startsWith(prefix))
            return true;
    return kKeys.contains(key);
}

// The card shows every operation message of the language file once; each
// further state is named by the message's key.
PanelScene operationCard()
{
    PanelScene scene =
        settingsScene("operation_card", PAGE_SYSTEM_SETTINGS_1, "mainmenu.system", 0, 4);
    scene.overlay = true;
    scene.build = [](UITextManager* texts, QWidget* parent) -> QWidget* {
        pageBeneath<SystemSettingsPage1Widget>(texts, parent)->updateFromVm({});
        auto* card = new OperationOverlayComponent(parent);
        card->showLoading(texts->getTextWithFallback(QStringLiteral("point_info.loading")));
        return card;
    };
    for (const QString& key : texts()->textMap().keys()) {
        if (!isCardMessage(key))
            continue;
        scene.states << SceneState{key, [key](QWidget* card, UITextManager* texts) {
                                       static_cast<OperationOverlayComponent*>(card)->showResult(
                                           false, texts->getTextWithFallback(key), 0);
                                   }};
    }
    return scene;
}

} // namespace

QVector<PanelScene> surfaceScenes()
{
    return {standby(),   screensaver(),  upgrade(),      splash(),
            bluetooth(), gestureGuide(), operationCard()};
}

} // namespace pagetest::scenes
