// Every widget that a page shows names its look by a `class`; a class without
// a rule for that widget's type in a theme silently falls back to Qt's grey
// default. This walks real pages through their typical states and checks each
// styled child against both sheets.
#include "page_test_support.h"

#include "model/view_models/settings_view_models.h"
#include "model/view_models/shell_view_models.h"
#include "model/view_models/shortcut_view_models.h"
#include "model/view_models/status_view_models.h"
#include "pages/audio_settings_page_widget.h"
#include "pages/auto_bt_page_widget.h"
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
#include "ui/components/nav_dots_component.h"
#include "ui/components/submenu_arrows_component.h"
#include "ui/panel_resources.h"

#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <set>

using namespace pagetest;

namespace {

// Classes that take their parent's look on purpose, and the never shown
// slider of the shortcut page.
const std::set<QString> kUnstyled{"ctr-btn-label",    "status-dec-icon",
                                  "status-live-icon", "status-net-ele",
                                  "status-rec-icon",  "v2-p2-status-label-inactive",
                                  "shortcut"};

// class -> the widget types that a sheet styles under that class.
using SheetRules = std::map<QString, std::set<QString>>;

SheetRules rulesOf(const QString& theme)
{
    initPanelResources();
    QFile file(QStringLiteral(":/themes/%1.qss").arg(theme));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << theme.toStdString();
    static const QRegularExpression selector(QStringLiteral(R"re((\w+)\[class="([^"]+)"\])re"));
    SheetRules rules;
    auto it = selector.globalMatch(QString::fromUtf8(file.readAll()));
    while (it.hasNext()) {
        const auto match = it.next();
        rules[match.captured(2)].insert(match.captured(1));
    }
    return rules;
}

// Collects, across every state a test drives the pages through, each styled
// widget whose class has no rule for its type in one of the themes.
class ThemeCoverage {
public:
    ThemeCoverage() : themes{{"black", rulesOf("black")}, {"blue", rulesOf("blue")}} {}

    void check(const QWidget* root)
    {
        QList<const QWidget*> widgets{root};
        for (const QWidget* child : root->findChildren<QWidget*>())
            widgets << child;
        for (const QWidget* widget : widgets) {
            const QString className = widget->property("class").toString();
            if (className.isEmpty() || kUnstyled.count(className))
                continue;
            ++styled_seen;
            for (const auto& [theme, rules] : themes)
                if (!styles(rules, className, widget))
                    missing.insert(QStringLiteral("%1: %2[class=\"%3\"]")
                                       .arg(theme, widget->metaObject()->className(), className));
        }
    }

    int styledSeen() const { return styled_seen; }
    const std::set<QString>& gaps() const { return missing; }

private:
    static bool styles(const SheetRules& rules, const QString& className, const QWidget* widget)
    {
        const auto rule = rules.find(className);
        if (rule == rules.end())
            return false;
        for (const QString& type : rule->second)
            if (widget->inherits(type.toLatin1().constData()))
                return true;
        return false;
    }

    std::map<QString, SheetRules> themes;
    std::set<QString> missing;
    int styled_seen = 0;
};

QList<DecoderShortcutItemInfo> decoderRows()
{
    QList<DecoderShortcutItemInfo> rows;
    for (int status : {0, 1, 2, 7, 11}) {
        DecoderShortcutItemInfo item;
        item.id = status;
        item.name = QStringLiteral("Source %1").arg(status);
        item.is_on = status == 1;
        item.status = status;
        rows << item;
    }
    return rows;
}

EncoderShortcutPageVM encoderLists()
{
    EncoderShortcutPageVM vm;
    for (int status : {0, 1, 5, 9}) {
        OsdItemInfo osd;
        osd.id = status;
        osd.name = QStringLiteral("Layout %1").arg(status);
        osd.switch_on = status == 1;
        osd.status = status;
        vm.osd_items << osd;
        PushStreamItemInfo push;
        push.index = status;
        push.name = QStringLiteral("Push %1").arg(status);
        push.switch_on = status == 1;
        push.status = status;
        vm.push_streams << push;
    }
    return vm;
}

void applyNetworkStates(StatusPage1Widget& page, ThemeCoverage& coverage)
{
    StatusPage1VM vm;
    vm.cpu_temp_c = 80;
    page.updateFromVm(vm); // offline
    coverage.check(&page);
    vm.eth_link = true;
    vm.dhcp_on = true;
    page.updateFromVm(vm);
    coverage.check(&page);
}

} // namespace

TEST(PageThemeCoverage, EveryClassOnTheStatusAndMenuPagesHasARuleForItsWidget)
{
    ThemeCoverage coverage;
    UITextManager* tm = texts();

    StatusBarWidget bar(tm, nullptr);
    StatusBarVM barVm;
    barVm.disk_type = 1;
    barVm.disk_icon_level = 2;
    barVm.is_recording = true;
    barVm.is_streaming = true;
    barVm.lcd_locked = true;
    bar.updateFromVm(barVm);
    coverage.check(&bar);

    StatusPage1Widget page1(tm, nullptr);
    applyNetworkStates(page1, coverage);

    StatusPage2Widget page2(tm, nullptr);
    StatusPage2VM video;
    video.loop_out_on = true;
    page2.updateFromVm(video);
    page2.onStreamSwitchTimeout(); // the sub stream's badge
    coverage.check(&page2);
    video.work_mode = 1;
    video.dec_status = 2;
    page2.updateFromVm(video);
    coverage.check(&page2);

    StatusPage3Widget page3(tm, nullptr);
    StatusPage3VM audio;
    page3.updateFromVm(audio); // off
    coverage.check(&page3);
    audio.audio_on = true;
    audio.volume = 60;
    page3.updateFromVm(audio);
    coverage.check(&page3);

    MainMenuPage1Widget menu1(tm, nullptr);
    menu1.updateFromVm(1);
    coverage.check(&menu1);
    MainMenuPage2Widget menu2(tm, nullptr);
    coverage.check(&menu2);

    QWidget window;
    NavDotsComponent dots(&window);
    dots.updateState(NavDotsState{true, 0, 1, 3});
    SubmenuArrowsComponent arrows(&window);
    arrows.updateState(true, true, false);
    coverage.check(&window);

    EXPECT_GT(coverage.styledSeen(), 150);
    for (const QString& gap : coverage.gaps())
        ADD_FAILURE() << "no rule for " << gap.toStdString();
}

TEST(PageThemeCoverage, EveryClassOnTheShortcutConnectAndFullScreenPagesHasARule)
{
    ThemeCoverage coverage;
    UITextManager* tm = texts();

    EncoderShortcutPage1Widget record(tm);
    EncoderShortcutPageVM recordVm;
    recordVm.record_status = 2;
    recordVm.disk_type = 0;
    recordVm.disk_icon_level = 3;
    record.updateFromVm(recordVm);
    coverage.check(&record);
    EncoderShortcutPage2Widget osd(tm);
    osd.updateFromVm(encoderLists());
    coverage.check(&osd);
    EncoderShortcutPage3Widget streams(tm);
    streams.updateFromVm(EncoderShortcutPageVM{}); // the empty hint
    coverage.check(&streams);
    streams.updateFromVm(encoderLists());
    coverage.check(&streams);

    DecoderShortcutPageVM sources;
    sources.net_items = decoderRows();
    sources.ndi_items = decoderRows();
    DecoderShortcutPage1Widget pull(tm);
    pull.updateFromVm(sources);
    coverage.check(&pull);
    DecoderShortcutPage2Widget uvc(tm);
    uvc.updateFromVm(sources); // no USB cameras: the hint
    coverage.check(&uvc);
    DecoderShortcutPage3Widget ndi(tm);
    ndi.updateFromVm(sources);
    coverage.check(&ndi);

    ShortcutPageWidget quick(tm);
    ShortcutVM quickVm;
    quickVm.config = nlohmann::json::parse(
        R"({"list":[{"function":"LockLcd"},{"function":"Standby"},{"function":"ShutDown"},)"
        R"({"function":"Restart"}]})");
    quick.updateFromVm(quickVm);
    coverage.check(&quick);

    ConnectAppWidget connect(tm);
    ConnectAppVM connectVm;
    connectVm.ap_on = 1;
    connectVm.ap_ssid = "Unit";
    connectVm.ap_psk = "secret99";
    connect.updateFromVm(connectVm);
    coverage.check(&connect);
    connectVm.connect_status = 4;
    connect.updateFromVm(connectVm);
    coverage.check(&connect);

    StandbyPageWidget standby(tm);
    standby.updateFromVm(StandbyPageVM{});
    coverage.check(&standby);
    DynamicScreensaverWidget saver(tm);
    saver.updateFromVm(DynamicScreensaverVM{});
    coverage.check(&saver);
    UpgradeWidget upgrade(tm);
    upgrade.updateFromVm(30);
    coverage.check(&upgrade);
    AutoBtPageWidget bluetooth(tm);
    bluetooth.updateFromVm(ConnectBTVM{7, false});
    coverage.check(&bluetooth);
    SplashOverlayWidget splash;
    coverage.check(&splash);

    EXPECT_GT(coverage.styledSeen(), 100);
    for (const QString& gap : coverage.gaps())
        ADD_FAILURE() << "no rule for " << gap.toStdString();
}

TEST(PageThemeCoverage, EveryClassOnTheSettingsAndModalPagesHasARule)
{
    ThemeCoverage coverage;
    UITextManager* tm = texts();
    std::vector<std::unique_ptr<QWidget>> pages;
    pages.emplace_back(new SystemSettingsPage1Widget(tm));
    pages.emplace_back(new SystemSettingsPage2Widget(tm));
    pages.emplace_back(new SystemSettingsPage3Widget(tm));
    pages.emplace_back(new SystemSettingsPage4Widget(tm));
    pages.emplace_back(new NetworkSettingsPage2Widget(tm));
    pages.emplace_back(new CameraSettingsPage1Widget(tm));
    pages.emplace_back(new CameraSettingsPage2Widget(tm));
    pages.emplace_back(new CameraSettingsPage3Widget(tm));
    pages.emplace_back(new VideoSettingsPage1Widget(tm));
    pages.emplace_back(new VideoSettingsPage2Widget(tm));
    pages.emplace_back(new Audio_settings_page_widget(tm));
    pages.emplace_back(new MediaSettingsPage1Widget(tm));
    pages.emplace_back(new MediaSettingsPage2Widget(tm));
    pages.emplace_back(new Decoding_settings_page_widget(tm));
    pages.emplace_back(new GeneralEditPageWidget(tm));
    pages.emplace_back(new GeneralSliderPageWidget(tm));
    pages.emplace_back(new GeneralConfirmPageWidget(tm));

    NetworkSettingsPageVM network;
    network.ap_on = true;
    network.ap_wifi_qr = QStringLiteral("WIFI:S:Unit;T:WPA;P:secret99;H:false;;");
    auto* qrPage = new NetworkSettingsPage1Widget(tm);
    qrPage->updateFromVm(network);
    pages.emplace_back(qrPage);
    auto* nasPage = new NetworkSettingsPage3Widget(tm);
    nasPage->updateFromVm(network);
    pages.emplace_back(nasPage);

    for (const auto& page : pages)
        coverage.check(page.get());

    EXPECT_GT(coverage.styledSeen(), 100);
    for (const QString& gap : coverage.gaps())
        ADD_FAILURE() << "no rule for " << gap.toStdString();
}
