// The three status pages: system, video (encoder streams or the decoder) and
// audio, each rendering its view model; and the status bar above every page:
// mode or breadcrumb, the icons packed from the right edge, and the record
// page's running time and free space.
#include "page_test_support.h"

#include "model/view_models/status_view_models.h"
#include "pages/page_ids.h"
#include "pages/status_bar_widget.h"
#include "pages/status_page1_widget.h"
#include "pages/status_page2_format.h"
#include "pages/status_page2_widget.h"
#include "pages/status_page3_widget.h"

#include <QFile>
#include <QFontMetrics>
#include <QProgressBar>
#include <QTimer>

#include <gtest/gtest.h>

using namespace pagetest;

namespace {

TEST(SystemStatusPage, ShowsLoadTemperatureAndTheLink)
{
    StatusPage1Widget page(texts(), nullptr);
    applyTheme(&page, "black");
    StatusPage1VM base;
    base.cpu_temp_c = 70, base.cpu_temp_f = 158, base.cpu_payload = 87, base.memory_percent = 41;
    base.eth_link = base.dhcp_on = true;
    base.ip_text = "192.168.1.20", base.up_mbps = 1.5, base.down_mbps = 12.25;
    base.device_name = "Encoder-Rack-07-Left-Bay";
    expectRenders<StatusPage1Widget>(
        page, base,
        {// The sent rate stands before the up arrow, the received one before the down arrow.
         {"DHCP on Ethernet",
          {},
          {{"v2-p1-temp-value", "70°C", "normal"},
           {"v2-p1-percent", "41%", nullptr, 1},
           {"v2-p1-badge-dhcp", english("statusp1.badge.dhcp")},
           {"v2-p1-bandwidth-value", "12.25"},
           {"v2-p1-bandwidth-value", "1.50", nullptr, 1},
           // A device name keeps its first fourteen and last four characters.
           {"v2-p1-device-name", "Encoder-Rack-0...-Bay"}}},
         {"hot", [](auto& vm) { vm.cpu_temp_c = 71; }, {{"v2-p1-temp-value", "71°C", "warning"}}},
         {"static on Wi-Fi",
          [](auto& vm) { vm.dhcp_on = false, vm.wifi_link = true; },
          {{"v2-p1-badge-dhcp", english("statusp1.badge.static")}}},
         {"Wi-Fi",
          [](auto& vm) { vm.eth_link = false, vm.wifi_link = true; },
          {{"v2-p1-badge-dhcp", "WiFi"}}},
         // Without a link the hotspot's name replaces the rates.
         {"hotspot",
          [](auto& vm) { vm.eth_link = false, vm.ap_on = true, vm.ap_ssid = "Studio"; },
          {{"v2-p1-badge-dhcp", "AP"},
           {"v2-p1-bandwidth-value", "SSID:Studio"},
           {"v2-p1-bandwidth-value", kHidden, nullptr, 1},
           {"v2-p1-bandwidth-arrow-up", kHidden},
           {"v2-p1-bandwidth-arrow-down", kHidden}}},
         {"hotspot without name",
          [](auto& vm) { vm.eth_link = false, vm.ap_on = true; },
          {{"v2-p1-bandwidth-value", "SSID:---"}}},
         {"offline", [](auto& vm) { vm.eth_link = false; }, {{"v2-p1-badge-static", "OFFLINE"}}}});
    EXPECT_EQ(firstByClass<QProgressBar>(&page, "v2-p1-mem-bar")->value(), 41);
}

// The timed switch turns through the status pages of the work mode, which
// has no third one when decoding (-1: it stays); a long press on any of them
// opens the quick actions.
TEST(StatusPages, TimedSwitchTurnsThroughThePagesOfTheWorkMode)
{
    StatusPage1Widget first(texts(), nullptr);
    StatusPage2Widget second(texts(), nullptr);
    StatusPage3Widget third(texts(), nullptr);
    const std::tuple<IGestureHandler*, int, int> cases[] = {
        {&first, 0, PAGE_STATUS_2}, {&second, 0, PAGE_STATUS_3}, {&third, 0, PAGE_STATUS_1},
        {&first, 1, PAGE_STATUS_2}, {&second, 1, PAGE_STATUS_1}, {&third, 1, -1}};
    for (const auto& [page, workMode, next] : cases) {
        EXPECT_EQ(page->dispatchGesture(GestureKind::AutoSwitch, workMode), std::optional(next));
        EXPECT_EQ(page->dispatchGesture(GestureKind::LongPress, workMode),
                  std::optional<int>(PAGE_SHORTCUT));
    }
}

TEST(VideoStatusPage, InputSignalReadsAsItsFormat)
{
    const std::tuple<int, int, int, int, QString> cases[] = {
        {1920, 1080, 60, 0, "1080p60"},
        {1920, 540, 50, 0, "1080i50"},
        {3840, 2160, 24, 1, "2160p23.976"},
        {1280, 720, 50, 1, "720p50"}, // no fractional rate of 50
        {1920, 1080, 59, 0, english("statusp2.not_supported")},
        {0, 1080, 60, 0, english("statusp2.no_signal")}};
    StatusPage2Widget page(texts(), nullptr);
    for (const auto& [width, height, fps, fpsdiv, shown] : cases) {
        StatusPage2VM vm;
        vm.in_width = width, vm.in_height = height, vm.in_fps = fps, vm.in_fpsdiv = fpsdiv;
        page.updateFromVm(vm);
        EXPECT_EQ(firstByClass(&page, "v2-p2-value")->text(), shown) << width << "@" << fps;
    }
    EXPECT_EQ(StatusPage2Format::videoFormatText(1600, 900, 60, 1), "1600x900@59.94");
    EXPECT_FALSE(StatusPage2Format::isSupportedInput(3840, 2160, 120));
}

TEST(VideoStatusPage, EncoderShowsLoopSoundAndBothStreamsInTurn)
{
    StatusPage2Widget page(texts(), nullptr);
    applyTheme(&page, "black");
    StatusPage2VM base;
    base.in_width = base.main_width = 1920, base.in_height = base.main_height = 1080;
    base.in_fps = base.main_framerate = 60, base.out_format = "720p50", base.audio_out_on = true;
    base.main_codec = 1, base.main_bitrate = 8000;
    base.sub_codec = 2, base.sub_width = 640, base.sub_height = 360, base.sub_bitrate = 1000;
    const QString mute = english("statusp2.label.mute");
    // Input above output; the loop and sound labels in the left column.
    expectRenders<StatusPage2Widget>(
        page, base,
        {{"main stream",
          {},
          {{"v2-p2-value", "720p50", nullptr, 1},
           {"v2-p2-status-label", nullptr, "normal"},
           {"v2-p2-status-label", mute, "normal", 1},
           {"v2-p2-codec-value", "H.265"},
           {"v2-p2-res-value", "1920x1080"},
           {"v2-p2-fps-value", "@ 60FPS"},
           {"v2-p2-bitrate-value", "8000 kbps"},
           {"v2-p2-badge-main", english("statusp2.badge.mainstream")}}},
         {"looped and muted",
          [](auto& vm) { vm.loop_out_on = true, vm.in_fpsdiv = 1, vm.audio_out_on = false; },
          {{"v2-p2-value", "1080p59.94", nullptr, 1},
           {"v2-p2-status-label", nullptr, "active-green"},
           {"v2-p2-status-label", mute, "active-red", 1}}},
         {"NDI's rate is a share",
          [](auto& vm) { vm.ndi_on = true, vm.main_bitrate = 80; },
          {{"v2-p2-bitrate-value", "80 %"}}}});

    EXPECT_TRUE(page.streamSwitchTimer()->isActive());
    QMetaObject::invokeMethod(page.streamSwitchTimer(), "timeout");
    page.updateFromVm(base); // the phase survives an update
    expectShown(&page, {{"v2-p2-badge-sub", english("statusp2.badge.substream")},
                        {"v2-p2-codec-value", "MJPEG"},
                        {"v2-p2-res-value", "640x360"},
                        {"v2-p2-bitrate-value", kHidden}}); // MJPEG has no bit rate
    QMetaObject::invokeMethod(page.streamSwitchTimer(), "timeout");
    expectShown(&page, {{"v2-p2-codec-value", "H.265"}});
}

TEST(VideoStatusPage, DecoderShowsVolumeStatusAndTheStreamSummary)
{
    StatusPage2Widget page(texts(), nullptr);
    StatusPage2VM base;
    base.work_mode = 1, base.dec_status = 1, base.dec_name = "Camera 2",
    base.out_format = "1080p60";
    base.ao_volume = 30, base.dec_video_format = " H264 ", base.dec_audio_format = "unknown";
    base.dec_width = 1920, base.dec_height = 1080, base.dec_framerate = 59.94;
    base.dec_bandwidth = 2500;
    const QString pull = QStringLiteral("pull_status.status_%1");
    // Output, loop and volume on the left; the status right of them; the
    // summary line above the stream's name.
    std::vector<Render<StatusPage2Widget>> cases = {
        {"playing",
         {},
         {{"v2-p2-value", "1080p60"},
          {"v2-p2-value", kHidden, nullptr, 1},
          {"v2-p2-status-label", "30", "active-green", 1},
          {"v2-p2-badge-main", kHidden},
          {"v2-p2-stream-name", "H264    1920x1080@59.94    2.5Mbps"},
          {"v2-p2-stream-name", "Camera 2", nullptr, 1}}},
        {"muted, unnamed, audio only",
         [](auto& vm) {
             vm.ao_volume = 0, vm.dec_name.clear(), vm.dec_video_format = "0";
             vm.dec_audio_format = "AAC", vm.dec_framerate = 0, vm.dec_bandwidth = 999;
         },
         {{"v2-p2-status-label", "0", "active-red", 1},
          {"v2-p2-stream-name", "AAC    999kbps"},
          {"v2-p2-stream-name", english("statusp2.dec_not_start"), nullptr, 1}}},
        {"not started",
         [](auto& vm) { vm.dec_status = 0; },
         {{"v2-p2-codec-value", english("statusp2.dec_not_start")},
          {"v2-p2-stream-name", kHidden},
          {"v2-p2-status-label", kHidden, nullptr, 2}}}};
    const std::pair<int, const char*> looks[] = {
        {1, "active-green"}, {2, "active-yellow"}, {11, "active-red"}, {7, "normal"}};
    for (const auto& [status, look] : looks)
        cases.push_back({look,
                         [status = status](auto& vm) { vm.dec_status = status; },
                         {{"v2-p2-status-label", english(pull.arg(status)), look, 2}}});
    expectRenders(page, base, cases);

    page.onStreamSwitchTimeout();
    EXPECT_TRUE(page.isShowingMainStream()) << "no streams to alternate when decoding";
    base.dec_video_format = QString(80, QLatin1Char('M'));
    page.updateFromVm(base);
    QLabel* summary = firstByClass(&page, "v2-p2-stream-name");
    EXPECT_TRUE(summary->text().endsWith(QChar(0x2026))) << "too long: cut at the right";
    EXPECT_LE(QFontMetrics(summary->font()).horizontalAdvance(summary->text()), summary->width());
}

TEST(AudioStatusPage, ShowsSourceCodecRatesAndTheVolumeInDecibels)
{
    StatusPage3Widget page(texts(), nullptr);
    StatusPage3VM base;
    base.audio_on = true, base.volume = 70, base.sample_rate = 6, base.bitrate = 6;
    std::vector<Render<StatusPage3Widget>> cases = {
        {"line in",
         {},
         {{"v2-p3-status-on", english("statusp3.status.on")},
          {"v2-p3-volume-value", "+4dB"},
          {"v2-p3-source-value", english("audio_source.line")},
          {"v2-p3-codec-value", "AAC"},
          {"v2-p3-samplerate-value", "96kHz"},
          {"v2-p3-bitrate-value", "256 kbps"}}},
        {"off",
         [](auto& vm) { vm.audio_on = false; },
         {{"v2-p3-status-off", english("statusp3.status.off")}}},
        // HDMI has no volume here, and its rate is what arrives.
        {"HDMI",
         [](auto& vm) { vm.ai_type = 2, vm.input_samplerate = 48000; },
         {{"v2-p3-volume-value", kHidden},
          {"v2-p3-samplerate-value", "96kHz"},
          {"v2-p3-source-value", english("audio_source.hdmi")}}},
        {"silent HDMI",
         [](auto& vm) { vm.ai_type = 2; },
         {{"v2-p3-samplerate-value", english("statusp3.no_audio")}}},
        {"HDMI unsupported",
         [](auto& vm) { vm.ai_type = 2, vm.input_samplerate = -1; },
         {{"v2-p3-samplerate-value", english("statusp3.audio_not_supported")}}},
        {"microphone, G.711, 44.1 kHz",
         [](auto& vm) { vm.ai_type = 1, vm.codec = 2, vm.sample_rate = 3, vm.bitrate = 0; },
         {{"v2-p3-source-value", english("audio_source.mic")},
          {"v2-p3-codec-value", "G.711A"},
          {"v2-p3-samplerate-value", "44.1kHz"},
          {"v2-p3-bitrate-value", "32 kbps"}}},
        {"unknown numbers",
         [](auto& vm) { vm.ai_type = 9, vm.codec = 7, vm.sample_rate = -1, vm.bitrate = 12; },
         {{"v2-p3-source-value", "Unknown"},
          {"v2-p3-codec-value", "AAC"},
          {"v2-p3-samplerate-value", "48kHz"},
          {"v2-p3-bitrate-value", "128 kbps"}}}};
    // Decibels kinked at the middle: 50 steps down to -50, 50 up to +10.
    const std::pair<int, const char*> levels[] = {
        {0, "-50dB"}, {49, "-1dB"}, {54, "0dB"}, {55, "+1dB"}, {100, "+10dB"}};
    for (const auto& [volume, db] : levels)
        cases.push_back({db,
                         [volume = volume](auto& vm) { vm.volume = volume; },
                         {{"v2-p3-volume-value", db}}});
    expectRenders(page, base, cases);

    auto volumeIcon = [&](bool on, int volume) {
        page.updateFromVm(StatusPage3VM{on, volume});
        return svgPathOf(firstByClass(&page, "v2-p3-icon", true)); // the left column's first
    };
    EXPECT_EQ(volumeIcon(true, 70), ":/icons/statusp2/sound.svg");
    EXPECT_EQ(volumeIcon(false, 70), ":/icons/statusp2/mute.svg");
    EXPECT_EQ(volumeIcon(true, 0), ":/icons/statusp2/mute.svg");
}

class StatusBar : public ::testing::Test {
protected:
    QLabel* child(const QString& name) const { return bar.findChild<QLabel*>(name); }
    bool shown(const QString& name) const { return !child(name)->isHidden(); }
    bool showsIcon(const QString& name, const QString& file) const
    {
        return showsFile(child(name), QStringLiteral(":/icons/statusbar/%1.svg").arg(file));
    }
    // A status page in encode mode with nothing running and no disk.
    static StatusBarVM idle()
    {
        StatusBarVM vm;
        vm.pageid = PAGE_STATUS_1, vm.is_status_page = true;
        return vm;
    }
    QString contextFor(const QString& breadcrumb)
    {
        StatusBarVM vm;
        vm.pageid = PAGE_SYSTEM_SETTINGS_1, vm.context_text = breadcrumb;
        bar.updateFromVm(vm);
        EXPECT_FALSE(shown("mode"));
        QLabel* context = child("context");
        EXPECT_LE(QFontMetrics(context->font()).horizontalAdvance(context->text()),
                  context->width());
        return context->text();
    }
    StatusBarWidget bar{texts(), nullptr};
};

TEST_F(StatusBar, StatusPagesShowTheWorkModeOtherPagesTheirBreadcrumb)
{
    StatusBarVM vm = idle();
    for (const char* mode : {"encode", "decode"}) {
        bar.updateFromVm(vm);
        EXPECT_TRUE(shown("mode") && shown("mode_dot") && !shown("context"));
        EXPECT_EQ(child("mode")->text(), english(QStringLiteral("statusbar.workmode.") + mode));
        vm.work_mode = 1;
    }
    EXPECT_EQ(contextFor("SYSTEM > 1/4"), "SYSTEM > 1/4");
    // Too wide, it drops its leading steps, keeping the page's own title; a
    // single step too long is cut at its start.
    const QString wide(40, QLatin1Char('W'));
    EXPECT_EQ(contextFor("Menu \u00bb " + wide + " \u00bb Brightness of the picture"),
              "Brightness of the picture");
    EXPECT_EQ(contextFor(wide + " \u00bb Camera \u00bb Brightness"), "Camera \u00bb Brightness");
    const QString cut = contextFor(wide + wide + "end");
    EXPECT_TRUE(cut.startsWith(QChar(0x2026)) && cut.endsWith("end")) << cut;
}

TEST_F(StatusBar, LinkAndDiskIconsShowTheirState)
{
    StatusBarVM vm = idle();
    bar.updateFromVm(vm);
    EXPECT_TRUE(showsIcon("wifi_icon", "wifi_off") && showsIcon("eth_icon", "eth_inactive"));
    vm.wifi_on = true;
    bar.updateFromVm(vm);
    EXPECT_TRUE(showsIcon("wifi_icon", "wifi_inactive") && showsIcon("ap_icon", "ap_inactive"));
    vm.wifi_connected = vm.eth_link = vm.ap_on = true;
    bar.updateFromVm(vm);
    EXPECT_TRUE(showsIcon("wifi_icon", "wifi_active") && showsIcon("eth_icon", "eth_active")
                && showsIcon("ap_icon", "ap_active"));

    const std::tuple<int, int, const char*> disks[] = {
        {0, 1, "sdcard_0"},    {1, 2, "udisk_30"},      {3, 3, "nas_60"},
        {0, 4, "sdcard_full"}, {1, 0, "udisk_unmount"}, {3, 9, "nas_unmount"}};
    for (const auto& [disk, level, file] : disks)
        EXPECT_EQ(bar.getStorageIconPath(disk, level),
                  QStringLiteral(":/icons/statusbar/%1.svg").arg(file));
    EXPECT_TRUE(bar.getStorageIconPath(2, 1).isEmpty() && bar.getStorageIconPath(-1, 1).isEmpty());
    for (int disk : {0, 1, 3})
        for (int level = 0; level <= 5; ++level)
            EXPECT_TRUE(QFile::exists(bar.getStorageIconPath(disk, level))) << disk << "/" << level;
}

// Which icons a status page shows, packed from the right edge in the order
// given, each left of the one before; all others hidden.
TEST_F(StatusBar, IconsPackFromTheRightWithDividersBetweenGroups)
{
    const QStringList all = QString("ap_icon wifi_icon eth_icon divider_1 nas_icon udisk_icon "
                                    "sdcard_icon divider_2 live_icon rec_icon dec_icon lock_icon")
                                .split(' ');
    const QString links = "ap_icon wifi_icon eth_icon";
    struct Case {
        const char* what;
        std::function<void(StatusBarVM&)> set;
        QString packed;
        const char* activity; // the drawing of the leftmost icon
    };
    const Case cases[] = {
        {"idle", {}, links, nullptr},
        {"disk only", [](auto& vm) { vm.disk_type = 3; }, links + " divider_1 nas_icon", nullptr},
        {"recording and streaming on the USB disk",
         [](auto& vm) { vm.disk_type = 1, vm.is_recording = vm.is_streaming = true; },
         links + " divider_1 udisk_icon divider_2 live_icon rec_icon", "rec"},
        {"recording without disk", [](auto& vm) { vm.is_recording = true; },
         links + " divider_1 rec_icon", "rec"},
        {"paused recording", [](auto& vm) { vm.record_status = 2; }, links + " divider_1 rec_icon",
         "rec_pause"},
        {"decoding shows no disk nor encoder activity",
         [](auto& vm) {
             vm.work_mode = 1, vm.disk_type = 0;
             vm.is_recording = vm.is_streaming = vm.is_decoding = true;
         },
         links + " divider_1 dec_icon", "dec"},
        {"decoder idle", [](auto& vm) { vm.work_mode = 1, vm.disk_type = 0; }, links, nullptr},
        {"locked", [](auto& vm) { vm.lcd_locked = true; }, links + " lock_icon", nullptr},
        {"not a status page",
         [](auto& vm) {
             vm.pageid = PAGE_MAIN_MENU_1, vm.is_status_page = false;
             vm.lcd_locked = vm.eth_link = vm.is_recording = true;
         },
         "", nullptr},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        StatusBarVM vm = idle();
        if (c.set)
            c.set(vm);
        bar.updateFromVm(vm);
        const QStringList packed = c.packed.split(' ', Qt::SkipEmptyParts);
        for (const QString& name : all)
            EXPECT_EQ(shown(name), packed.contains(name)) << name;
        for (int i = 1; i < packed.size() && packed[i] != "lock_icon"; ++i)
            EXPECT_LT(child(packed[i])->x(), child(packed[i - 1])->x()) << packed[i];
        EXPECT_TRUE(!c.activity || showsIcon(packed.last(), c.activity));
    }
}

TEST_F(StatusBar, RecordPageShowsRunningTimeAndFreeSpaceOfTheEncoder)
{
    const QString gigabytes = StatusBarWidget::diskCapacityText(2048);
    const std::tuple<bool, int, int, int, int, QString, QString> cases[] = {
        // record page, work mode, record status, seconds, disk; time and space, empty if hidden
        {true, 0, 1, 3661, 0, "01 : 01 : 01", gigabytes},
        {true, 0, 1, 360000, 0, "100 : 00 : 00", gigabytes},
        {true, 0, 2, 59, 0, "00 : 00 : 59", gigabytes}, // a paused task keeps its time
        {true, 0, 0, 59, 0, "", gigabytes},
        {true, 0, 1, 59, -1, "00 : 00 : 59", ""},
        {true, 1, 1, 59, 0, "00 : 00 : 59", ""}, // the decoder records nothing
        {false, 0, 1, 59, 0, "", ""}};
    for (const auto& [recordPage, workMode, status, seconds, disk, time, space] : cases) {
        StatusBarVM vm;
        vm.pageid = PAGE_ENCODER_SHORTCUT_1, vm.show_record_status = recordPage;
        vm.work_mode = workMode, vm.record_status = status, vm.record_duration = seconds;
        vm.disk_type = disk, vm.free_space = 2048;
        bar.updateFromVm(vm);
        EXPECT_EQ(shown("rec_time") ? child("rec_time")->text() : "", time);
        EXPECT_EQ(shown("free_space") ? child("free_space")->text() : "", space);
    }
    const std::pair<qint64, const char*> sizes[] = {{0, "--"},          {999, "999 MB"},
                                                    {1000, "1.0 GB"},   {102399, "100.0 GB"},
                                                    {102400, "100 GB"}, {1023000, "1.0 TB"}};
    for (const auto& [megabytes, text] : sizes)
        EXPECT_EQ(StatusBarWidget::diskCapacityText(megabytes), text) << megabytes;
}

} // namespace
