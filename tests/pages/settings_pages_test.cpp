// The settings pages: the looks of their cards, which interlock, what a tap
// reports, and the pages with more than cards (device information, NDI name,
// network switches that run ahead of the backend, QR codes).
#include "page_test_support.h"

#include "model/view_models/settings_view_models.h"
#include "pages/audio_settings_page_widget.h"
#include "pages/camera_settings_page_widget.h"
#include "pages/decoding_settings_page_widget.h"
#include "pages/media_settings_page_widget.h"
#include "pages/network_settings_page_widget.h"
#include "pages/system_settings_page_widget.h"
#include "pages/video_settings_page_widget.h"
#include "ui/qrcode_widget.h"

#include <QPushButton>

#include <gtest/gtest.h>

using namespace pagetest;

namespace {

struct CardCase {
    const char* what;
    QString looks; // each card's look, left to right
    int tap;
    const char* signal;
    QVariantList args;
    std::function<std::unique_ptr<SettingsCardPage>()> page;
};

template <class Page>
std::function<std::unique_ptr<SettingsCardPage>()> with(std::function<void(VmOf<Page>&)> set = {})
{
    return [set] { return pageShowing<Page>(set); };
}

// A card that looks disabled takes no tap; every other one raises its signal
// with the state it shows.
TEST(SettingsCards, LooksFollowTheRecordAndTapsReportTheStateShown)
{
    using Sys1 = SystemSettingsPage1Widget;
    using Cam2 = CameraSettingsPage2Widget;
    using Video1 = VideoSettingsPage1Widget;
    using Audio = Audio_settings_page_widget;
    using Media1 = MediaSettingsPage1Widget;
    const CardCase cases[] = {
        {"12 V output on", "normal normal active", 2, "dcOutClicked", QVariantList{true, 2},
         with<Sys1>([](auto& vm) { vm.dc_out_on = true, vm.dc_out_voltage = 2; })},
        {"8.4 V output off", "normal normal normal", 2, "dcOutClicked", QVariantList{false, 1},
         with<Sys1>()},
        {"language", "normal normal normal", 0, "languageClicked", QVariantList(), with<Sys1>()},
        {"fan mode", "normal normal normal", 2, "fanModeClicked", QVariantList(),
         with<SystemSettingsPage2Widget>()},
        {"restart and reset look dangerous", "normal danger danger", 2, "resetClicked",
         QVariantList(), with<SystemSettingsPage3Widget>()},
        {"tally light only in manual mode", "active normal disabled", 0, "tallyEnableClicked",
         QVariantList{true}, with<Cam2>([](auto& vm) { vm.tally_on = true; })},
        {"tally light in manual mode", "active normal normal", 2, "tallyLightClicked",
         QVariantList(), with<Cam2>([](auto& vm) { vm.tally_on = true, vm.tally_mode_id = 1; })},
        {"tally off rests mode and light", "normal disabled disabled", 0, "tallyEnableClicked",
         QVariantList{false}, with<Cam2>([](auto& vm) { vm.tally_mode_id = 1; })},
        {"LCD lock", "active normal normal", 0, "lcdLockClicked", QVariantList{true},
         with<CameraSettingsPage3Widget>([](auto& vm) { vm.lcd_lock_on = true; })},
        {"mute lights while the output has no audio", "normal active normal", 1, "muteOutClicked",
         QVariantList{false}, with<Video1>()},
        {"loop out rests format and mute", "disabled disabled active", 2, "loopOutClicked",
         QVariantList{true},
         with<Video1>([](auto& vm) { vm.loop_out_on = vm.audio_out_on = true; })},
        {"green screen", "active normal", 1, "greenScreenClicked", QVariantList{false},
         with<VideoSettingsPage2Widget>([](auto& vm) { vm.ai_tracking_on = true; })},
        {"HDMI input level is not set here", "normal disabled normal", 2, "encSourceClicked",
         QVariantList(), with<Audio>([](auto& vm) { vm.ai_type = 2; })},
        {"microphone level", "normal normal normal", 1, "encVolumeClicked", QVariantList(),
         with<Audio>([](auto& vm) { vm.ai_type = 1; })},
        {"muted rests volume and source", "active disabled disabled", 0, "audioSwClicked",
         QVariantList{true}, with<Audio>([](auto& vm) { vm.ai_type = 1, vm.muted = 1; })},
        {"recording holds the disk", "active disabled disabled", 0, "srtSwitchClicked",
         QVariantList{true},
         with<Media1>([](auto& vm) { vm.srt_on = true, vm.record_status = 1; })},
        {"paused recording holds the disk", "normal disabled disabled", 0, "srtSwitchClicked",
         QVariantList{false}, with<Media1>([](auto& vm) { vm.record_status = 2; })},
        {"stopped task frees the disk", "normal normal normal", 2, "diskSpeedClicked",
         QVariantList(), with<Media1>([](auto& vm) { vm.record_status = 3; })},
        {"speed test holds the disk", "normal disabled disabled", 0, "srtSwitchClicked",
         QVariantList{false}, with<Media1>([](auto& vm) { vm.disk_speed_testing = true; })},
        {"idle disk", "normal normal normal", 1, "diskSelectClicked", QVariantList(),
         with<Media1>()},
        {"NDI quality needs NDI", "normal disabled", 0, "ndiSwitchClicked", QVariantList{false},
         with<MediaSettingsPage2Widget>()},
        {"decoding servers", "normal active", 1, "srtServerClicked", QVariantList{true},
         with<Decoding_settings_page_widget>([](auto& vm) { vm.srt_server_on = true; })},
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
        const auto spy = spyOn(page.get(), c.signal);
        page->cardButton(c.tap)->click();
        EXPECT_EQ(spy->value(0), c.args);
        EXPECT_EQ(spy->count(), 1);
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
    const auto wlan = spyOn(&page, "wlanClicked");
    NetworkSettingsPageVM vm;
    page.updateFromVm(vm);
    page.cardButton(0)->click();
    EXPECT_EQ(wlan->value(0), QVariantList{true}) << "the state asked for";
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

} // namespace
