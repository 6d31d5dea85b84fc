// The home row (status and shortcut pages in both work modes), the quick
// action list and the app connect page.
#include "panel_scene_building.h"

#include "model/view_models/shortcut_view_models.h"
#include "pages/connect_app_widget.h"
#include "pages/decoder_shortcut_page_widget.h"
#include "pages/encoder_shortcut_page_widget.h"
#include "pages/shortcut_page_widget.h"
#include "pages/status_page1_widget.h"
#include "pages/status_page2_widget.h"
#include "pages/status_page3_widget.h"

namespace pagetest::scenes {

namespace {

constexpr int kEncodeHomeCount = 6;
constexpr int kDecodeHomeCount = 5;

PanelScene homeScene(const QString& name, int pageId, int index, int workMode = 0)
{
    PanelScene scene;
    scene.name = name;
    scene.bar = homeBar(workMode);
    scene.bar.pageid = pageId;
    scene.dots = dotsAt(pageId, index, workMode == 0 ? kEncodeHomeCount : kDecodeHomeCount);
    return scene;
}

PanelScene shortcutScene(const QString& name, int pageId, const char* contextKey, int index,
                         int workMode)
{
    PanelScene scene = homeScene(name, pageId, index, workMode);
    scene.bar = contextBar(pageId, workMode);
    scene.context_keys = QStringList{QString::fromLatin1(contextKey)};
    return scene;
}

// --- Status pages ---------------------------------------------------------

StatusPage1VM systemStatus()
{
    StatusPage1VM vm;
    vm.cpu_temp_c = 52;
    vm.cpu_temp_f = 126;
    vm.cpu_payload = 37;
    vm.memory_percent = 62;
    vm.device_name = QStringLiteral("Studio-B-Encoder");
    vm.dhcp_on = true;
    vm.eth_link = true;
    vm.ip_text = QStringLiteral("192.168.10.125");
    vm.up_mbps = 3.42;
    vm.down_mbps = 12.85;
    return vm;
}

PanelScene status1()
{
    PanelScene scene = homeScene("status_1", PAGE_STATUS_1, 3);
    scene.build =
        page<StatusPage1Widget>([](StatusPage1Widget& p) { p.updateFromVm(systemStatus()); });
    auto variant = [](const QString& name, std::function<void(StatusPage1VM&)> change) {
        return state<StatusPage1Widget>(name, [change](StatusPage1Widget& p) {
            StatusPage1VM vm = systemStatus();
            change(vm);
            p.updateFromVm(vm);
        });
    };
    scene.states << variant("static_hot", [](StatusPage1VM& vm) {
        vm.dhcp_on = false;
        vm.cpu_temp_c = 84;
        vm.cpu_temp_f = 183;
        vm.cpu_payload = 100;
        vm.memory_percent = 100;
    }) << variant("wifi", [](StatusPage1VM& vm) {
        vm.eth_link = false;
        vm.wifi_link = true;
        vm.ip_text = QStringLiteral("10.20.130.201");
        vm.up_mbps = 105.5;
        vm.down_mbps = 988.25;
    }) << variant("access_point", [](StatusPage1VM& vm) {
        vm.eth_link = false;
        vm.ap_on = true;
        vm.ip_text = QStringLiteral("170.128.88.1");
        vm.ap_ssid = QStringLiteral("Studio-B-Hotspot-24");
    }) << variant("offline", [](StatusPage1VM& vm) {
        vm.eth_link = false;
        vm.ip_text.clear();
    }) << variant("longest_names", [](StatusPage1VM& vm) {
        vm.device_name = QStringLiteral("Main-Stage-Encoder1");
    }) << variant("chinese_name", [](StatusPage1VM& vm) {
        vm.device_name = QStringLiteral("演播室二号编码器");
    });
    return scene;
}

StatusPage2VM videoStatus()
{
    StatusPage2VM vm;
    vm.in_width = 1920;
    vm.in_height = 1080;
    vm.in_fps = 60;
    vm.out_format = QStringLiteral("1080p60");
    vm.audio_out_on = true;
    vm.main_codec = 1;
    vm.main_width = 1920;
    vm.main_height = 1080;
    vm.main_framerate = 60;
    vm.main_bitrate = 8000;
    vm.sub_codec = 0;
    vm.sub_width = 640;
    vm.sub_height = 360;
    vm.sub_framerate = 30;
    vm.sub_bitrate = 1000;
    return vm;
}

PanelScene status2()
{
    PanelScene scene = homeScene("status_2", PAGE_STATUS_2, 4);
    scene.build =
        page<StatusPage2Widget>([](StatusPage2Widget& p) { p.updateFromVm(videoStatus()); });
    auto variant = [](const QString& name, std::function<void(StatusPage2VM&)> change) {
        return state<StatusPage2Widget>(name, [change](StatusPage2Widget& p) {
            StatusPage2VM vm = videoStatus();
            change(vm);
            p.updateFromVm(vm);
        });
    };
    scene.states << state<StatusPage2Widget>("sub_stream", [](StatusPage2Widget& p) {
        p.onStreamSwitchTimeout();
    }) << variant("uhd_input", [](StatusPage2VM& vm) {
        vm.in_width = vm.main_width = 3840;
        vm.in_height = vm.main_height = 2160;
        vm.in_fpsdiv = 1;
        vm.out_format = QStringLiteral("2160p59.94");
        vm.main_bitrate = 40000;
    }) << variant("no_signal", [](StatusPage2VM& vm) {
        vm.in_width = 0;
    }) << variant("not_supported", [](StatusPage2VM& vm) {
        vm.in_fps = 59;
    }) << variant("loop_out_muted", [](StatusPage2VM& vm) {
        vm.loop_out_on = true;
        vm.audio_out_on = false;
    }) << variant("ndi", [](StatusPage2VM& vm) {
        vm.ndi_on = true;
        vm.main_bitrate = 80;
    });
    return scene;
}

StatusPage2VM decoderStatus(int status)
{
    StatusPage2VM vm;
    vm.work_mode = 1;
    vm.out_format = QStringLiteral("1080p60");
    vm.ao_volume = 80;
    vm.dec_status = status;
    vm.dec_name = QStringLiteral("Stage-Left-Camera-SRT");
    vm.dec_video_format = QStringLiteral("H265");
    vm.dec_audio_format = QStringLiteral("AAC");
    vm.dec_width = 1920;
    vm.dec_height = 1080;
    vm.dec_framerate = 59.94;
    vm.dec_bandwidth = 8500;
    return vm;
}

PanelScene status2Decode()
{
    PanelScene scene = homeScene("status_2_decode", PAGE_STATUS_2, 4, 1);
    scene.build =
        page<StatusPage2Widget>([](StatusPage2Widget& p) { p.updateFromVm(decoderStatus(1)); });
    QVector<int> statuses;
    for (int status = 0; status <= 12; ++status)
        statuses << status;
    scene.states = statesFor<StatusPage2Widget, int>(
        statuses, [](const int& s) { return QStringLiteral("status_%1").arg(s); },
        [](StatusPage2Widget& p, const int& s) { p.updateFromVm(decoderStatus(s)); });
    scene.states << state<StatusPage2Widget>("muted_unnamed", [](StatusPage2Widget& p) {
        StatusPage2VM vm = decoderStatus(4);
        vm.ao_volume = 0;
        vm.dec_name.clear();
        p.updateFromVm(vm);
    });
    return scene;
}

StatusPage3VM audioStatus(int source)
{
    StatusPage3VM vm;
    vm.audio_on = true;
    vm.volume = 75;
    vm.bitrate = 4;
    vm.sample_rate = 4;
    vm.ai_type = source;
    vm.input_samplerate = 48000;
    return vm;
}

PanelScene status3()
{
    PanelScene scene = homeScene("status_3", PAGE_STATUS_3, 5);
    scene.build =
        page<StatusPage3Widget>([](StatusPage3Widget& p) { p.updateFromVm(audioStatus(0)); });
    scene.states = statesFor<StatusPage3Widget, int>(
        {1, 2, 3, 4}, [](const int& s) { return QStringLiteral("source_%1").arg(s); },
        [](StatusPage3Widget& p, const int& s) { p.updateFromVm(audioStatus(s)); });
    scene.states << state<StatusPage3Widget>("off_quiet", [](StatusPage3Widget& p) {
        StatusPage3VM vm = audioStatus(1);
        vm.audio_on = false;
        vm.volume = 0;
        vm.codec = 2;
        vm.bitrate = 0;
        vm.sample_rate = 0;
        p.updateFromVm(vm);
    }) << state<StatusPage3Widget>("hdmi_silent", [](StatusPage3Widget& p) {
        StatusPage3VM vm = audioStatus(2);
        vm.input_samplerate = 0;
        p.updateFromVm(vm);
    }) << state<StatusPage3Widget>("hdmi_unsupported", [](StatusPage3Widget& p) {
        StatusPage3VM vm = audioStatus(2);
        vm.input_samplerate = -1;
        p.updateFromVm(vm);
    });
    return scene;
}

// --- Encoder shortcut pages ----------------------------------------------

EncoderShortcutPageVM recordState(int recordStatus)
{
    EncoderShortcutPageVM vm;
    vm.record_status = recordStatus;
    vm.any_disk_present = true;
    vm.disk_type = 0;
    vm.disk_icon_level = 3;
    return vm;
}

PanelScene record()
{
    PanelScene scene =
        shortcutScene("record", PAGE_ENCODER_SHORTCUT_1, "statusbar.context.record_ctrl", 2, 0);
    scene.bar.show_record_status = true;
    scene.bar.record_status = 1;
    scene.bar.record_duration = 5025;
    scene.bar.free_space = 120000;
    scene.build = page<EncoderShortcutPage1Widget>(
        [](EncoderShortcutPage1Widget& p) { p.updateFromVm(recordState(1)); });
    scene.states = statesFor<EncoderShortcutPage1Widget, int>(
        {0, 2}, [](const int& s) { return QStringLiteral("record_status_%1").arg(s); },
        [](EncoderShortcutPage1Widget& p, const int& s) { p.updateFromVm(recordState(s)); });
    scene.states << state<EncoderShortcutPage1Widget>("speed_test",
                                                      [](EncoderShortcutPage1Widget& p) {
                                                          EncoderShortcutPageVM vm = recordState(0);
                                                          vm.disk_speed_testing = true;
                                                          p.updateFromVm(vm);
                                                      });
    return scene;
}

const QStringList kLayoutNames = {"Scoreboard", "Lower Third", "Logo Bug",
                                  "Interview",  "Countdown",   "Sponsor Loop"};

EncoderShortcutPageVM osdLayouts()
{
    EncoderShortcutPageVM vm = recordState(0);
    const QVector<int> statuses = {1, 0, 2, 3, 4, 5};
    for (int i = 0; i < statuses.size(); ++i) {
        OsdItemInfo item;
        item.id = i;
        item.name = kLayoutNames.at(i);
        item.status = statuses.at(i);
        item.switch_on = item.status == 1;
        vm.osd_items << item;
    }
    return vm;
}

PanelScene osd()
{
    PanelScene scene =
        shortcutScene("osd", PAGE_ENCODER_SHORTCUT_2, "statusbar.context.osd_ctrl", 0, 0);
    scene.build = page<EncoderShortcutPage2Widget>(
        [](EncoderShortcutPage2Widget& p) { p.updateFromVm(osdLayouts()); });
    scene.states << state<EncoderShortcutPage2Widget>(
        "empty", [](EncoderShortcutPage2Widget& p) { p.updateFromVm(recordState(0)); });
    return scene;
}

const QStringList kStreamNames = {"YouTube Live", "Facebook",     "Twitch",    "SRT Studio B",
                                  "RTMP Backup",  "Vimeo Events", "LinkedIn",  "CDN Main",
                                  "CDN Backup",   "Church Feed",  "Office TV", "Archive"};

// Twelve push streams, the most a list shows, with the statuses from `first`.
EncoderShortcutPageVM pushStreams(int first)
{
    EncoderShortcutPageVM vm = recordState(0);
    for (int i = 0; i < kStreamNames.size(); ++i) {
        PushStreamItemInfo item;
        item.index = i;
        item.name = kStreamNames.at(i);
        item.status = (first + i) % 13;
        item.switch_on = item.status != 0;
        vm.push_streams << item;
    }
    return vm;
}

PanelScene pushStreamScene()
{
    PanelScene scene = shortcutScene("push_streams", PAGE_ENCODER_SHORTCUT_3,
                                     "statusbar.context.stream_ctrl", 1, 0);
    scene.build = page<EncoderShortcutPage3Widget>(
        [](EncoderShortcutPage3Widget& p) { p.updateFromVm(pushStreams(1)); });
    scene.states << state<EncoderShortcutPage3Widget>(
        "status_0", [](EncoderShortcutPage3Widget& p) { p.updateFromVm(pushStreams(0)); })
                 << state<EncoderShortcutPage3Widget>("empty", [](EncoderShortcutPage3Widget& p) {
                        p.updateFromVm(recordState(0));
                    });
    return scene;
}

// --- Decoder shortcut pages ----------------------------------------------

// Twelve sources named `prefix` N, with the statuses from `first`.
QList<DecoderShortcutItemInfo> sources(const QString& prefix, int first)
{
    QList<DecoderShortcutItemInfo> rows;
    for (int i = 0; i < 12; ++i) {
        DecoderShortcutItemInfo item;
        item.id = i;
        item.name = QStringLiteral("%1 %2").arg(prefix).arg(i + 1);
        item.status = (first + i) % 13;
        item.is_on = item.status != 0 && item.status != 7;
        rows << item;
    }
    return rows;
}

DecoderShortcutPageVM decoderSources(int first)
{
    DecoderShortcutPageVM vm;
    vm.net_items = sources(QStringLiteral("SRT Cam"), first);
    vm.uvc_items = sources(QStringLiteral("USB Cam"), first);
    vm.ndi_items = sources(QStringLiteral("NDI-PTZ"), first);
    return vm;
}

template <class Page>
PanelScene decoderScene(const QString& name, int pageId, const char* contextKey, int index)
{
    PanelScene scene = shortcutScene(name, pageId, contextKey, index, 1);
    scene.build = page<Page>([](Page& p) { p.updateFromVm(decoderSources(1)); });
    scene.states << state<Page>("statuses_from_0", [](Page& p) {
        p.updateFromVm(decoderSources(0));
    }) << state<Page>("empty", [](Page& p) { p.updateFromVm(DecoderShortcutPageVM{}); });
    return scene;
}

// --- Quick actions and app connection --------------------------------------

PanelScene quickActions()
{
    PanelScene scene;
    scene.name = "shortcuts";
    scene.bar = contextBar(PAGE_SHORTCUT);
    scene.build = page<ShortcutPageWidget>([](ShortcutPageWidget& p) {
        ShortcutVM vm;
        vm.config =
            nlohmann::json::parse(R"({"list":[{"function":"LockLcd"},{"function":"Standby"},)"
                                  R"({"function":"ShutDown"},{"function":"Restart"}]})");
        vm.count = 4;
        p.updateFromVm(vm);
    });
    return scene;
}

ConnectAppVM pairing(int connectStatus)
{
    ConnectAppVM vm;
    vm.ap_on = 1;
    vm.ap_ssid = "Vantor-5F2A";
    vm.ap_psk = "8k3Lq9Zt";
    vm.connect_status = connectStatus;
    return vm;
}

PanelScene connectApp()
{
    PanelScene scene;
    scene.name = "connect_app";
    scene.bar = contextBar(PAGE_CONNECT_APP);
    scene.build = page<ConnectAppWidget>([](ConnectAppWidget& p) { p.updateFromVm(pairing(0)); });
    scene.states = statesFor<ConnectAppWidget, int>(
        {1, 2, 4}, [](const int& s) { return QStringLiteral("connect_status_%1").arg(s); },
        [](ConnectAppWidget& p, const int& s) { p.updateFromVm(pairing(s)); });
    scene.states << state<ConnectAppWidget>("wifi_joined", [](ConnectAppWidget& p) {
        ConnectAppVM vm = pairing(3);
        vm.wifi_status = 4;
        vm.ip = "192.168.10.125";
        p.updateFromVm(vm);
    }) << state<ConnectAppWidget>("hotspot_off", [](ConnectAppWidget& p) {
        ConnectAppVM vm = pairing(0);
        vm.ap_on = 0;
        p.updateFromVm(vm);
    });
    return scene;
}

} // namespace

QVector<PanelScene> homeScenes()
{
    return {status1(),
            status2(),
            status3(),
            record(),
            osd(),
            pushStreamScene(),
            status2Decode(),
            decoderScene<DecoderShortcutPage1Widget>("pull_sources", PAGE_DECODER_SHORTCUT_1,
                                                     "statusbar.context.pull_ctrl", 2),
            decoderScene<DecoderShortcutPage2Widget>("uvc_sources", PAGE_DECODER_SHORTCUT_2,
                                                     "statusbar.context.uvc_ctrl", 1),
            decoderScene<DecoderShortcutPage3Widget>("ndi_sources", PAGE_DECODER_SHORTCUT_3,
                                                     "statusbar.context.ndi_ctrl", 0),
            quickActions(),
            connectApp()};
}

} // namespace pagetest::scenes
