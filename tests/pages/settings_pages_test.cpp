// The main menu and the settings pages: the looks of their cards, which
// interlock, what a tap reports, and the pages with more than cards (device
// information, NDI name, network switches that run ahead of the backend, QR
// codes); the modal pages a setting opens: the option ring of the edit page,
// the slider with its scales, and the confirmation of a grave action; and how
// a language change reaches a page: only at its next update after the shell
// marks it dirty, so that pages nobody looks at do no work.
#include "page_test_support.h"

#include "model/view_models/settings_view_models.h"
#include "model/view_models/shortcut_view_models.h"
#include "model/view_models/status_view_models.h"
#include "pages/audio_settings_page_widget.h"
#include "pages/camera_settings_page_widget.h"
#include "pages/general_confirm_page_widget.h"
#include "pages/general_edit_page_widget.h"
#include "pages/general_slider_page_widget.h"
#include "pages/main_menu_page_widget.h"
#include "pages/media_settings_page_widget.h"
#include "pages/network_settings_page_widget.h"
#include "pages/page_ids.h"
#include "pages/shortcut_page_widget.h"
#include "pages/status_page1_widget.h"
#include "pages/system_settings_page_widget.h"
#include "pages/video_settings_page_widget.h"
#include "ui/qrcode_widget.h"

#include <QPushButton>
#include <QSlider>

#include <gtest/gtest.h>

using namespace pagetest;

namespace {

// The cards a page shows, given its record: each card's look, left to right.
struct CardCase {
    const char* what;
    QString looks;
    std::function<std::unique_ptr<SettingsCardPage>()> page;
};

template <class Page>
std::function<std::unique_ptr<SettingsCardPage>()> with(std::function<void(VmOf<Page>&)> set = {})
{
    return [set] { return pageShowing<Page>(set); };
}

// A card that looks disabled takes no tap; what a tap does is walked end to end.
TEST(SettingsCards, LooksFollowTheRecordAndDisabledOnesTakeNoTap)
{
    using Sys1 = SystemSettingsPage1Widget;
    using Cam2 = CameraSettingsPage2Widget;
    using Video1 = VideoSettingsPage1Widget;
    using Audio = Audio_settings_page_widget;
    using Media1 = MediaSettingsPage1Widget;
    const CardCase cases[] = {
        {"12 V output on", "normal normal active",
         with<Sys1>([](auto& vm) { vm.dc_out_on = true, vm.dc_out_voltage = 2; })},
        {"restart and reset look dangerous", "normal danger danger",
         with<SystemSettingsPage3Widget>()},
        {"tally light only in manual mode", "active normal disabled",
         with<Cam2>([](auto& vm) { vm.tally_on = true; })},
        {"tally light in manual mode", "active normal normal",
         with<Cam2>([](auto& vm) { vm.tally_on = true, vm.tally_mode_id = 1; })},
        {"tally off rests mode and light", "normal disabled disabled",
         with<Cam2>([](auto& vm) { vm.tally_mode_id = 1; })},
        {"mute lights while the output has no audio", "normal active normal", with<Video1>()},
        {"loop out rests format and mute", "disabled disabled active",
         with<Video1>([](auto& vm) { vm.loop_out_on = vm.audio_out_on = true; })},
        {"HDMI input level is not set here", "normal disabled normal",
         with<Audio>([](auto& vm) { vm.ai_type = 2; })},
        {"muted rests volume and source", "active disabled disabled",
         with<Audio>([](auto& vm) { vm.ai_type = 1, vm.muted = 1; })},
        {"recording holds the disk", "active disabled disabled",
         with<Media1>([](auto& vm) { vm.srt_on = true, vm.record_status = 1; })},
        {"paused recording holds the disk", "normal disabled disabled",
         with<Media1>([](auto& vm) { vm.record_status = 2; })},
        {"stopped task frees the disk", "normal normal normal",
         with<Media1>([](auto& vm) { vm.record_status = 3; })},
        {"speed test holds the disk", "normal disabled disabled",
         with<Media1>([](auto& vm) { vm.disk_speed_testing = true; })},
        {"NDI quality needs NDI", "normal disabled", with<MediaSettingsPage2Widget>()},
    };
    for (const CardCase& c : cases) {
        SCOPED_TRACE(c.what);
        const auto page = c.page();
        QStringList looks;
        for (int card = 0; card < page->cardCount(); ++card) {
            looks << page->cardState(card);
            EXPECT_EQ(page->cardButton(card)->isEnabled(), looks.last() != "disabled") << card;
        }
        EXPECT_EQ(looks.join(' '), c.looks);
    }
}

TEST(SettingsCards, DecodeModeDropsTheMuteCardAndCentresTheRest)
{
    const auto page = pageShowing<VideoSettingsPage1Widget>([](auto& vm) { vm.work_mode = 1; });
    showAndSettle(page.get());
    EXPECT_FALSE(page->cardButton(1)->isVisible());
    const QRect loop = page->cardButton(2)->geometry();
    EXPECT_EQ(page->cardButton(0)->geometry().left(), page->width() - 1 - loop.right());
}

TEST(SettingsPages, DeviceInformationAndNdiNameAreShortenedToTheirRoom)
{
    const auto info = pageShowing<SystemSettingsPage4Widget>([](auto& vm) {
        vm.device_name = "studio-encoder-number-one-left", vm.firmware_version = "V2.1";
        vm.hardware_version = "H3", vm.serial_number = "SN42";
    });
    EXPECT_EQ(info->deviceNameText(), "studio-encoder-number-o...left");
    EXPECT_EQ(info->versionText(), "FW:V2.1   HW:H3   SN:SN42");
    EXPECT_EQ(SystemSettingsPage4Widget(texts()).deviceNameText(), "Quorrel Pro")
        << "the product's name until the device reports one";

    // The NDI name breaks after twelve Latin or seven CJK characters.
    MediaSettingsPage2Widget ndi(texts());
    const std::tuple<const char*, int, const char*, const char*, QString> cases[] = {
        {"ABCDEFGHIJKL", 2, "ABCDEFGHIJKL", nullptr, "NDI\u00ae | HX2"},
        {"ABCDEFGHIJKLM", 4, "ABCDEFGHIJKL", "M", "Live"},
        {"演播室一号机位左侧", 9, "演播室一号机位", "左侧", "--"},
        {"", 1, "--", nullptr, "NDI\u00ae | HX1"}};
    for (const auto& [name, mode, first, second, quality] : cases) {
        MediaSettingsPageVM vm;
        vm.ndi_machinename = QString::fromUtf8(name), vm.ndi_mode_id = mode;
        ndi.updateFromVm(vm);
        EXPECT_EQ(ndi.ndiInfoLabel(0)->text(), QString::fromUtf8(first));
        EXPECT_EQ(ndi.ndiInfoLabel(1)->isHidden(), second == nullptr);
        if (second) {
            EXPECT_EQ(ndi.ndiInfoLabel(1)->text(), QString::fromUtf8(second));
        }
        EXPECT_EQ(ndi.ndiInfoLabel(2)->text(), quality);
    }
}

// A tap on WLAN shows the state asked for until the backend reports it or the
// request fails; the hotspot's tap holds for one refresh.
TEST(SettingsPages, NetworkSwitchesRunAheadOfTheBackend)
{
    NetworkSettingsPage2Widget page(texts());
    QSignalSpy wlan(&page, &NetworkSettingsPage2Widget::wlanClicked);
    NetworkSettingsPageVM vm;
    page.updateFromVm(vm);
    page.cardButton(0)->click();
    EXPECT_EQ(wlan.value(0), QVariantList{true}) << "the state asked for";
    for (int refresh = 0; refresh < 2; ++refresh) {
        page.updateFromVm(vm);
        EXPECT_EQ(page.cardState(0), "active") << "an old record doesn't undo the tap";
    }
    vm.wifi_on = true;
    page.updateFromVm(vm);
    EXPECT_FALSE(page.isWlanPending());
    vm.wifi_on = false;
    page.updateFromVm(vm);
    EXPECT_EQ(page.cardState(0), "normal") << "once caught up the backend rules again";
    page.cardButton(0)->click();
    page.clearSwitchPending(); // the request failed
    EXPECT_EQ(page.cardState(0), "normal");

    vm.ap_on = true;
    page.updateFromVm(vm);
    page.cardButton(1)->click();
    EXPECT_EQ(page.cardState(1), "normal");
    page.updateFromVm(vm);
    EXPECT_EQ(page.cardState(1), "normal") << "the tap holds for one refresh";
    page.updateFromVm(vm);
    EXPECT_EQ(page.cardState(1), "active");
}

TEST(SettingsPages, QrCardsForEachWayInOrAHint)
{
    NetworkSettingsPage1Widget page(texts());
    showAndSettle(&page);
    NetworkSettingsPageVM vm;
    vm.http_url = "http://10.0.0.5:8080"; // an address without a link gives no card
    page.updateFromVm(vm);
    EXPECT_TRUE(page.emptyHint()->isVisible());
    EXPECT_EQ(page.emptyHint()->text(), english("network_settings.qr_empty_hint"));

    const std::tuple<bool, bool, QVector<bool>> cases[] = {{true, false, {true, true, false}},
                                                           {true, true, {true, true, true}},
                                                           {false, true, {false, false, true}}};
    vm.ap_wifi_qr = "WIFI:S:box;T:WPA;P:secret;H:false;;";
    vm.ap_http_url = "http://170.128.88.1:80";
    for (const auto& [ap, client, cards] : cases) {
        vm.ap_on = ap, vm.client_link = client;
        page.updateFromVm(vm);
        EXPECT_FALSE(page.emptyHint()->isVisible());
        for (int card = 0; card < NetworkSettingsPage1Widget::QR_CARD_COUNT; ++card) {
            EXPECT_EQ(page.qrCard(card)->isVisible(), cards[card]) << card;
            EXPECT_EQ(page.qrCode(card)->hasValidData(), cards[card]) << "a hidden card is cleared";
        }
    }
    EXPECT_EQ(decodeQrImage(page.qrCode(2)->grab().toImage()), vm.http_url);
}

// What each item says; where it leads is walked end to end.
TEST(MainMenu, ItemsNameTheirGroupByWorkMode)
{
    MainMenuPage1Widget first(texts(), nullptr);
    MainMenuPage2Widget second(texts(), nullptr);
    const std::tuple<MainMenuPageBase*, int, QStringList> cases[] = {
        {&first, 0, {"video", "audio", "streaming"}},
        {&first, 1, {"video", "audio", "decoding"}},
        {&second, 0, {"ptz", "network", "system"}}};
    for (const auto& [page, workMode, textKeys] : cases) {
        if (page == &first)
            first.updateFromVm(workMode);
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(page->item(i).label->text(), english("mainmenu." + textKeys[i]));
    }
}

// A page whose texts follow the language: how it is updated and what it shows.
struct Renewal {
    const char* key;
    std::function<QWidget*(UITextManager*)> make;
    std::function<void(QWidget*)> update;
    std::function<QString(QWidget*)> shown;
};

template <class Page>
Renewal renewal(const char* key, std::function<void(Page&)> update,
                std::function<QString(Page&)> shown)
{
    return {key, [](UITextManager* texts) { return new Page(texts, nullptr); },
            [update](QWidget* page) { update(*static_cast<Page*>(page)); },
            [shown](QWidget* page) { return shown(*static_cast<Page*>(page)); }};
}

TEST(PageLanguage, TextsChangeAtTheNextUpdateAfterTheDirtyMarkOnly)
{
    ShortcutVM quick;
    quick.config = nlohmann::json::parse(R"({"list":[{"function":"Standby"}]})");
    const Renewal cases[] = {
        renewal<StatusPage1Widget>(
            "statusp1.label.mem", [](auto& p) { p.updateFromVm({}); },
            [](auto& p) { return byClass(&p, "v2-p1-label").value(1)->text(); }),
        renewal<SystemSettingsPage2Widget>(
            "system_settings.workmode", [](auto& p) { p.updateFromVm({}); },
            [](auto& p) { return p.cardItem(0).label->text(); }),
        // The quick list keeps its rows while the list is unchanged.
        renewal<ShortcutPageWidget>(
            "system_settings.standby", [quick](auto& p) { p.updateFromVm(quick); },
            [](auto& p) { return p.rowLabel(0)->text(); }),
        renewal<GeneralConfirmPageWidget>(
            "confirm_page.confirm",
            [](auto& p) {
                p.updateFromVm({CONFIRM_ACTION_REBOOT, 7, 0, 1});
            },
            [](auto& p) { return firstByClass<QPushButton>(&p, "confirm-confirm-btn")->text(); }),
    };
    for (const Renewal& c : cases) {
        SCOPED_TRACE(c.key);
        const auto manager = makeTextManager(kEnglish);
        std::unique_ptr<QWidget> page(c.make(manager.get()));
        c.update(page.get());
        const QString before = manager->getTextWithFallback(c.key);
        EXPECT_EQ(c.shown(page.get()), before);
        manager->switchLanguage(kChinese);
        ASSERT_NE(manager->getTextWithFallback(c.key), before);
        c.update(page.get());
        EXPECT_EQ(c.shown(page.get()), before) << "renewed without a dirty mark";
        dynamic_cast<IGestureHandler*>(page.get())->setDirty(true);
        c.update(page.get());
        EXPECT_EQ(c.shown(page.get()), manager->getTextWithFallback(c.key));
    }
}

using Edit = GeneralEditPageWidget;
using Slider = GeneralSliderPageWidget;

const QStringList kFullHd60 = {"1080p60",    "1080p59.94", "1080p30",
                               "1080p29.97", "720p60",     "720p59.94"};

// The options offered depend on the input signal, the serial adapter and the work mode.
TEST(EditPage, OffersTheOptionsTheDeviceCanTake)
{
    struct Case {
        int type;
        int width, height, fps, usb2serial, work_mode;
        QStringList options;
    };
    using L = QStringList;
    const Case cases[] = {
        {Edit::EDIT_PTZ_PROTOCOL, 0, 0, 0, 1, 0, L{"VISCA over IP", "VISCA", "PELCO D", "PELCO P"}},
        {Edit::EDIT_PTZ_PROTOCOL, 0, 0, 0, 0, 1, L{"VISCA over IP", "NDI®", "UVC"}},
        {Edit::EDIT_VO_FORMAT, 3840, 2160, 25, 0, 0,
         L{"2160p50", "2160p25", "1080p50", "1080p25", "720p50"}},
        {Edit::EDIT_VO_FORMAT, 3840, 2160, 24, 0, 0,
         L{"2160p24", "2160p23.976", "1080p24", "1080p23.976"}},
        {Edit::EDIT_VO_FORMAT, 1920, 1080, 120, 0, 0, kFullHd60},
        {Edit::EDIT_VO_FORMAT, 1920, 540, 50, 0, 0, L{"1080p50", "1080p25", "720p50"}}, // 1080i
        {Edit::EDIT_VO_FORMAT, 1280, 720, 24, 0, 0, L{"720p24"}},
        // Without a usable input: the common full HD list.
        {Edit::EDIT_VO_FORMAT, 0, 0, 0, 0, 0, kFullHd60},
        {Edit::EDIT_VO_FORMAT, 1920, 1080, 29, 0, 0, kFullHd60},
    };
    Edit page(texts());
    for (const Case& c : cases) {
        page.setVoFormatContext(c.width, c.height, c.fps, QString(), c.work_mode);
        page.setPtzProtoContext(c.usb2serial, c.work_mode);
        page.enterEditMode(c.type, PAGE_STATUS_1, 0);
        EXPECT_EQ(page.optionTexts(), c.options) << c.type << " " << c.width << "@" << c.fps;
    }
    page.setVoFormatContext(1280, 720, 24, QString(), 1);
    page.enterEditMode(Edit::EDIT_VO_FORMAT, PAGE_VIDEO_SETTINGS_1, -1);
    EXPECT_EQ(page.optionTexts().size(), 19) << "the decoder offers the fixed list";
    EXPECT_EQ(page.optionTexts().first(), "2160p60");
}

TEST(EditPage, OpensAtAndMarksOnlyTheValueInForceUntilTheDeviceTakesAnother)
{
    Edit page(texts());
    auto actualMarked = [&] {
        return stateOf(firstByClass(&page, "v2-edit-option-label"), "option-state") == "actual";
    };
    page.setVoFormatContext(1920, 1080, 60, "1080p30", 0);
    page.updateFromVm({Edit::EDIT_VO_FORMAT, PAGE_VIDEO_SETTINGS_1, -1, 0, 0});
    EXPECT_EQ(page.currentOption(), "1080p30") << "opens at the format in force";
    EXPECT_TRUE(actualMarked());
    page.setVoFormatContext(1920, 1080, 50, "1080p60", 0);
    page.updateFromVm({Edit::EDIT_VO_FORMAT, PAGE_VIDEO_SETTINGS_1, -1, 0, 0});
    EXPECT_EQ(page.actualIndex(), -1) << "a format the list doesn't offer marks nothing";
    EXPECT_FALSE(actualMarked());

    page.enterEditMode(Edit::EDIT_AUDIO_SOURCE, PAGE_AUDIO_SETTINGS, 2);
    const int count = page.optionTexts().size();
    EXPECT_TRUE(actualMarked());
    EXPECT_EQ(page.onSwipeLeft(0), -1);
    EXPECT_EQ(page.currentIndex(), 3);
    EXPECT_FALSE(actualMarked());
    page.onSwipeRight(0);

    QSignalSpy confirmed(&page, &Edit::confirmed);
    page.nextOption();
    firstByClass<QPushButton>(&page, "v2-edit-confirm-btn")->click();
    EXPECT_EQ(confirmed.value(0), (QVariantList{Edit::EDIT_AUDIO_SOURCE, 3}));
    EXPECT_EQ(page.actualIndex(), 2) << "the mark moves only when the device confirms";
    page.setActualIndex(count);
    EXPECT_EQ(page.actualIndex(), 2) << "an index outside the list is refused";
    page.setActualIndex(3);
    EXPECT_TRUE(actualMarked());

    QSignalSpy cancelled(&page, &Edit::cancelled);
    firstByClass<QPushButton>(&page, "v2-edit-cancel-btn")->click();
    EXPECT_EQ(cancelled.value(0), QVariantList{PAGE_AUDIO_SETTINGS});
    EXPECT_EQ(page.onSwipeDown(0), PAGE_AUDIO_SETTINGS);
}

TEST(EditPage, AChangedLanguageKeepsTheSelection)
{
    auto manager = makeTextManager();
    Edit page(manager.get());
    const EditModePageVM vm{Edit::EDIT_TALLY_LIGHT, PAGE_CAMERA_SETTINGS_2, 0, 0, 0};
    page.updateFromVm(vm);
    page.nextOption();
    page.updateFromVm(vm);
    EXPECT_EQ(page.currentIndex(), 0) << "a refresh opens at the value in force";
    page.nextOption();
    manager->switchLanguage(kFrench);
    page.setDirty(true);
    page.updateFromVm(vm);
    EXPECT_EQ(page.currentIndex(), 1);
    EXPECT_EQ(page.currentOption(), manager->getTextWithFallback("tally_light.red"));
    EXPECT_NE(page.currentOption(), english("tally_light.red"));
}

class SliderPage : public ::testing::Test {
protected:
    QString shown() const { return firstByClass(&page, "v2-slider-value")->text(); }
    Slider page{texts()};
    QSignalSpy confirmed{&page, &Slider::confirmed};
};

TEST_F(SliderPage, EachTypeHasItsScaleAndLimits)
{
    struct Case {
        int type, backend, shown_value;
        QString text;
        int commit, sent;
    };
    const QString minutes = english("camera_settings.min");
    const Case cases[] = {
        // Brightness shows ten above the device's value, from 10 up.
        {Slider::SLIDER_LCD_BRIGHTNESS, 50, 60, "60", 3, 0},
        {Slider::SLIDER_LCD_BRIGHTNESS, 40, 50, "50", 250, 90},
        {Slider::SLIDER_LCD_SLEEP, 45, 30, "30" + minutes, 0, 1},
        {Slider::SLIDER_LCD_SLEEP, 0, 1, "1" + minutes, 12, 12},
        // The encoder's volume reads in decibels; the device takes the slider's scale.
        {Slider::SLIDER_ENC_VOLUME, 51, 51, "+0.2 dB", 0, 0},
        {Slider::SLIDER_ENC_VOLUME, 0, 0, "-50 dB", 50, 50},
        {Slider::SLIDER_OUT_VOLUME, 40, 40, "40", 70, 70},
    };
    for (const Case& c : cases) {
        page.updateFromVm({c.type, PAGE_CAMERA_SETTINGS_3, c.backend});
        EXPECT_EQ(page.currentValue(), c.shown_value) << c.type << "/" << c.backend;
        EXPECT_EQ(page.sliderControl()->value(), c.shown_value);
        EXPECT_EQ(shown(), c.text);
        page.commitValue(c.commit);
        EXPECT_EQ(confirmed.last(), (QVariantList{c.type, c.sent}));
    }
    for (int backend = 0; backend <= 100; ++backend)
        EXPECT_EQ(Slider::dbValueToBackendValue(Slider::backendValueToDbValue(backend)), backend);
    EXPECT_DOUBLE_EQ(Slider::backendValueToDbValue(75), 5.0) << "the upper half is steeper";
    EXPECT_EQ(Slider::dbValueToDisplayText(-12.7), "-12 dB");
}

TEST_F(SliderPage, SwipesMoveTheValueWithoutCommittingIt)
{
    const std::tuple<int, int, int, int> steps[] = {
        // type, start, after a right swipe, after two left
        {Slider::SLIDER_OUT_VOLUME, 40, 45, 35},
        {Slider::SLIDER_LCD_SLEEP, 30, 30, 28},
        {Slider::SLIDER_ENC_VOLUME, 0, 1, 0}};
    for (const auto& [type, start, right, left] : steps) {
        page.enterSliderMode(type, PAGE_MAIN_MENU_1, start);
        EXPECT_EQ(page.onSwipeRight(0), -1);
        EXPECT_EQ(page.currentValue(), right) << type;
        page.onSwipeLeft(0);
        page.onSwipeLeft(0);
        EXPECT_EQ(page.currentValue(), left) << type;
    }
    EXPECT_EQ(confirmed.count(), 0) << "a swipe sends nothing";

    // A repeated record doesn't fight the finger; a new one is taken.
    const SliderModePageVM vm{Slider::SLIDER_OUT_VOLUME, PAGE_MAIN_MENU_1, 20};
    page.updateFromVm(vm);
    page.onSwipeRight(0);
    page.updateFromVm(vm);
    EXPECT_EQ(page.currentValue(), 25);
    page.updateFromVm({Slider::SLIDER_OUT_VOLUME, PAGE_MAIN_MENU_1, 60});
    EXPECT_EQ(page.currentValue(), 60);
    EXPECT_EQ(page.onSwipeDown(0), PAGE_MAIN_MENU_1);
}

TEST(ConfirmPage, NamesTheActionAndTheVoltage)
{
    GeneralConfirmPageWidget page(texts());
    const std::tuple<int, int, QString> messages[] = {
        {CONFIRM_ACTION_REBOOT, 1, english("system_settings.restart_content")},
        {CONFIRM_ACTION_STANDBY, 1, english("system_settings.standby_content")},
        {7, 1, ""}};
    for (const auto& [action, param, message] : messages) {
        page.updateFromVm({action, PAGE_SYSTEM_SETTINGS_3, 0, param});
        EXPECT_EQ(page.messageText(), message) << action;
    }
    // The DC output's message names the voltage; any parameter but 2 is the 8.4 V output.
    const std::tuple<int, const char*, int> dcOutputs[] = {{2, "12V", 2}, {0, "8.4V", 1}};
    for (const auto& [param, volts, id] : dcOutputs) {
        page.updateFromVm({CONFIRM_ACTION_DC_OUT, PAGE_SYSTEM_SETTINGS_1, 0, param});
        EXPECT_TRUE(page.messageText().contains(volts)) << page.messageText();
        EXPECT_FALSE(page.messageText().contains("{voltage}"));
        EXPECT_EQ(page.voltage(), id);
    }
}

} // namespace
