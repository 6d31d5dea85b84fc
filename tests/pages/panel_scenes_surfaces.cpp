// The full-screen surfaces (standby, screensaver, upgrade, splash, Bluetooth
// pairing) and the two cards that the window lays over its pages.
#include "panel_scenes.h"

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
    StandbyPageVM vm;
    vm.date_text = "2025-03-01", vm.time_text = "10:24:36", vm.ip_text = "192.168.10.125";
    return showing<StandbyPageWidget>(fullScreen("standby"), vm,
                                      {{"unknown_clock", [](auto& vm) { vm = {}; }}});
}

PanelScene screensaver()
{
    DynamicScreensaverVM vm;
    vm.date_text = "2025-03-01", vm.time_text = "10:24:36";
    PanelScene scene =
        showing<DynamicScreensaverWidget>(fullScreen("screensaver"), vm,
                                          {{"decode", [](auto& vm) { vm.work_mode = 1; }},
                                           {"standby", [](auto& vm) { vm.standby = true; }}});
    scene.build = page<DynamicScreensaverWidget>([vm](DynamicScreensaverWidget& p) {
        p.updateFromVm(vm);
        p.start();
        // The card stays where start() puts it, so that pictures repeat.
        p.animationTimer()->stop();
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
    Variants<ConnectBTVM> variants;
    for (int status : {2, 5, 6})
        variants.push_back(
            {QStringLiteral("status_%1").arg(status), [status](auto& vm) { vm.status = status; }});
    return showing<AutoBtPageWidget>(fullScreen("bluetooth"), ConnectBTVM{7, false}, variants);
}

// An overlay scene: `Page` beneath, showing an empty record, and the card.
template <class Page, class Card>
PanelScene overlay(PanelScene scene, std::function<void(Card&, UITextManager*)> show)
{
    scene.overlay = true;
    scene.build = [show](UITextManager* texts, QWidget* parent) -> QWidget* {
        auto* beneath = new Page(texts, parent);
        beneath->move(0, 30);
        beneath->updateFromVm({});
        auto* card = new Card(parent);
        show(*card, texts);
        return card;
    };
    return scene;
}

void showGuide(GestureGuideOverlayComponent& guide, int type, UITextManager* texts)
{
    guide.showGuide(
        GestureGuideOverlayComponent::guideItemsForType(type),
        [texts](const QString& key) { return texts->getTextWithFallback(key); }, 0);
}

PanelScene gestureGuide()
{
    using Guide = GestureGuideOverlayComponent;
    PanelScene base;
    base.name = "gesture_guide";
    base.bar = homeBar();
    PanelScene scene =
        overlay<StatusPage1Widget, Guide>(base, [](Guide& guide, UITextManager* texts) {
            showGuide(guide, GESTURE_GUIDE_HOME, texts);
        });
    for (int type : {GESTURE_GUIDE_MAIN_MENU, GESTURE_GUIDE_CONNECT_APP, GESTURE_GUIDE_LCD_LOCKED})
        scene.states << SceneState{QStringLiteral("guide_%1").arg(type),
                                   [type](QWidget* guide, UITextManager* texts) {
                                       showGuide(*static_cast<Guide*>(guide), type, texts);
                                   }};
    return scene;
}

bool isCardMessage(const QString& key)
{
    return key.startsWith(QStringLiteral("point_info."))
           || key.startsWith(QStringLiteral("disk_status."))
           || key == QStringLiteral("video_settings.gsk_resolution_invalid")
           || key == QStringLiteral("video_settings.no_backdrop");
}

// The card shows every operation message of the language file once; each
// further state is named by the message's key.
PanelScene operationCard()
{
    using Card = OperationOverlayComponent;
    PanelScene scene = overlay<SystemSettingsPage1Widget, Card>(
        settingsScene("operation_card", PAGE_SYSTEM_SETTINGS_1, "mainmenu.system", 0, 4),
        [](Card& card, UITextManager* texts) {
            card.showLoading(texts->getTextWithFallback(QStringLiteral("point_info.loading")));
        });
    for (const QString& key : texts()->textMap().keys())
        if (isCardMessage(key))
            scene.states << SceneState{key, [key](QWidget* card, UITextManager* texts) {
                                           static_cast<Card*>(card)->showResult(
                                               false, texts->getTextWithFallback(key), 0);
                                       }};
    return scene;
}

} // namespace

QVector<PanelScene> surfaceScenes()
{
    return {standby(),   screensaver(),  upgrade(),      splash(),
            bluetooth(), gestureGuide(), operationCard()};
}

} // namespace pagetest::scenes
