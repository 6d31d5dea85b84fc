// The home row (status and shortcut pages in both work modes), the quick
// action list and the app connect page.
#include "panel_scenes.h"

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

PanelScene homeScene(const QString& name, int pageId, int index, int workMode = 0)
{
    PanelScene scene;
    scene.name = name;
    scene.bar = homeBar(workMode);
    scene.bar.pageid = pageId;
    scene.dots = dotsAt(pageId, index, workMode == 0 ? 6 : 5);
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

PanelScene status1()
{
    StatusPage1VM vm;
    vm.cpu_temp_c = 52, vm.cpu_temp_f = 126, vm.cpu_payload = 37, vm.memory_percent = 62;
    vm.device_name = "Studio-B-Encoder";
    vm.dhcp_on = vm.eth_link = true;
    vm.ip_text = "192.168.10.125";
    vm.up_mbps = 3.42, vm.down_mbps = 12.85;
    Variants<StatusPage1VM> variants = {
        {"static_hot",
         [](auto& vm) {
             vm.dhcp_on = false, vm.cpu_temp_c = 84, vm.cpu_temp_f = 183;
             vm.cpu_payload = vm.memory_percent = 100;
         }},
        {"wifi",
         [](auto& vm) {
             vm.eth_link = false, vm.wifi_link = true, vm.ip_text = "10.20.130.201";
             vm.up_mbps = 105.5, vm.down_mbps = 988.25;
         }},
        {"access_point",
         [](auto& vm) {
             vm.eth_link = false, vm.ap_on = true, vm.ip_text = "170.128.88.1";
             vm.ap_ssid = "Studio-B-Hotspot-24";
         }},
        {"offline", [](auto& vm) { vm.eth_link = false, vm.ip_text.clear(); }},
        {"longest_names", [](auto& vm) { vm.device_name = "Main-Stage-Encoder1"; }},
        {"chinese_name", [](auto& vm) { vm.device_name = "演播室二号编码器"; }}};
    return showing<StatusPage1Widget>(homeScene("status_1", PAGE_STATUS_1, 3), vm, variants);
}

PanelScene status2()
{
    StatusPage2VM vm;
    vm.in_width = vm.main_width = 1920, vm.in_height = vm.main_height = 1080;
    vm.in_fps = vm.main_framerate = 60, vm.out_format = "1080p60", vm.audio_out_on = true;
    vm.main_codec = 1, vm.main_bitrate = 8000;
    vm.sub_codec = 0, vm.sub_width = 640, vm.sub_height = 360, vm.sub_framerate = 30;
    vm.sub_bitrate = 1000;
    Variants<StatusPage2VM> variants = {
        {"uhd_input",
         [](auto& vm) {
             vm.in_width = vm.main_width = 3840, vm.in_height = vm.main_height = 2160;
             vm.in_fpsdiv = 1, vm.out_format = "2160p59.94", vm.main_bitrate = 40000;
         }},
        {"no_signal", [](auto& vm) { vm.in_width = 0; }},
        {"not_supported", [](auto& vm) { vm.in_fps = 59; }},
        {"loop_out_muted", [](auto& vm) { vm.loop_out_on = true, vm.audio_out_on = false; }},
        {"ndi", [](auto& vm) { vm.ndi_on = true, vm.main_bitrate = 80; }}};
    PanelScene scene =
        showing<StatusPage2Widget>(homeScene("status_2", PAGE_STATUS_2, 4), vm, variants);
    // The further states show the sub stream's phase.
    scene.states.prepend(state<StatusPage2Widget>(
        "sub_stream", [](StatusPage2Widget& p) { p.onStreamSwitchTimeout(); }));
    return scene;
}

PanelScene status2Decode()
{
    StatusPage2VM vm;
    vm.work_mode = 1, vm.out_format = "1080p60", vm.ao_volume = 80;
    vm.dec_status = 1, vm.dec_name = "Stage-Left-Camera-SRT";
    vm.dec_video_format = "H265", vm.dec_audio_format = "AAC";
    vm.dec_width = 1920, vm.dec_height = 1080, vm.dec_framerate = 59.94, vm.dec_bandwidth = 8500;
    Variants<StatusPage2VM> variants;
    for (int status = 0; status <= 12; ++status)
        variants.push_back({QStringLiteral("status_%1").arg(status),
                            [status](auto& vm) { vm.dec_status = status; }});
    variants.push_back({"muted_unnamed", [](auto& vm) {
                            vm.dec_status = 4, vm.ao_volume = 0, vm.dec_name.clear();
                        }});
    return showing<StatusPage2Widget>(homeScene("status_2_decode", PAGE_STATUS_2, 4, 1), vm,
                                      variants);
}

PanelScene status3()
{
    StatusPage3VM vm;
    vm.audio_on = true, vm.volume = 75, vm.bitrate = vm.sample_rate = 4;
    vm.input_samplerate = 48000;
    Variants<StatusPage3VM> variants;
    for (int source = 1; source <= 4; ++source)
        variants.push_back(
            {QStringLiteral("source_%1").arg(source), [source](auto& vm) { vm.ai_type = source; }});
    variants.push_back({"off_quiet", [](auto& vm) {
                            vm.ai_type = 1, vm.audio_on = false, vm.codec = 2;
                            vm.volume = vm.bitrate = vm.sample_rate = 0;
                        }});
    for (int rate : {0, -1})
        variants.push_back({rate == 0 ? "hdmi_silent" : "hdmi_unsupported",
                            [rate](auto& vm) { vm.ai_type = 2, vm.input_samplerate = rate; }});
    return showing<StatusPage3Widget>(homeScene("status_3", PAGE_STATUS_3, 5), vm, variants);
}

EncoderShortcutPageVM recordState(int recordStatus)
{
    EncoderShortcutPageVM vm;
    vm.record_status = recordStatus, vm.any_disk_present = true;
    vm.disk_type = 0, vm.disk_icon_level = 3;
    return vm;
}

PanelScene record()
{
    PanelScene scene =
        shortcutScene("record", PAGE_ENCODER_SHORTCUT_1, "statusbar.context.record_ctrl", 2, 0);
    scene.bar.show_record_status = true, scene.bar.record_status = 1;
    scene.bar.record_duration = 5025, scene.bar.free_space = 120000;
    return showing<EncoderShortcutPage1Widget>(
        scene, recordState(1),
        {{"record_status_0", [](auto& vm) { vm.record_status = 0; }},
         {"record_status_2", [](auto& vm) { vm.record_status = 2; }},
         {"speed_test", [](auto& vm) { vm.record_status = 0, vm.disk_speed_testing = true; }}});
}

EncoderShortcutPageVM osdLayouts()
{
    EncoderShortcutPageVM vm = recordState(0);
    const QStringList names = {"Scoreboard", "Lower Third", "Logo Bug",
                               "Interview",  "Countdown",   "Sponsor Loop"};
    const QVector<int> statuses = {1, 0, 2, 3, 4, 5};
    for (int i = 0; i < names.size(); ++i)
        vm.osd_items << OsdItemInfo{i, names.at(i), statuses.at(i) == 1, statuses.at(i)};
    return vm;
}

// Twelve push streams, the most a list shows, with the statuses from `first`.
EncoderShortcutPageVM pushStreams(int first)
{
    EncoderShortcutPageVM vm = recordState(0);
    const QStringList names = {"YouTube Live", "Facebook",     "Twitch",    "SRT Studio B",
                               "RTMP Backup",  "Vimeo Events", "LinkedIn",  "CDN Main",
                               "CDN Backup",   "Church Feed",  "Office TV", "Archive"};
    for (int i = 0; i < names.size(); ++i)
        vm.push_streams << PushStreamItemInfo{i, names.at(i), (first + i) % 13 != 0,
                                              (first + i) % 13};
    return vm;
}

// Twelve sources per list, named by their kind, with the statuses from `first`.
DecoderShortcutPageVM decoderSources(int first)
{
    DecoderShortcutPageVM vm;
    for (int i = 0; i < 12; ++i) {
        DecoderShortcutItemInfo item;
        item.id = i, item.status = (first + i) % 13;
        item.is_on = item.status != 0 && item.status != 7;
        item.name = QStringLiteral("SRT Cam %1").arg(i + 1);
        vm.net_items << item;
        item.name = QStringLiteral("USB Cam %1").arg(i + 1);
        vm.uvc_items << item;
        item.name = QStringLiteral("NDI-PTZ %1").arg(i + 1);
        vm.ndi_items << item;
    }
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

PanelScene quickActions()
{
    PanelScene scene;
    scene.name = "shortcuts";
    scene.bar = contextBar(PAGE_SHORTCUT);
    ShortcutVM vm;
    vm.config = nlohmann::json::parse(R"({"list":[{"function":"LockLcd"},{"function":"Standby"},)"
                                      R"({"function":"ShutDown"},{"function":"Restart"}]})");
    vm.count = 4;
    return showing<ShortcutPageWidget>(scene, vm);
}

PanelScene connectApp()
{
    PanelScene scene;
    scene.name = "connect_app";
    scene.bar = contextBar(PAGE_CONNECT_APP);
    ConnectAppVM vm;
    vm.ap_on = 1, vm.ap_ssid = "Vantor-5F2A", vm.ap_psk = "8k3Lq9Zt";
    Variants<ConnectAppVM> variants;
    for (int status : {1, 2, 4})
        variants.push_back({QStringLiteral("connect_status_%1").arg(status),
                            [status](auto& vm) { vm.connect_status = status; }});
    variants.push_back({"wifi_joined", [](auto& vm) {
                            vm.connect_status = 3, vm.wifi_status = 4, vm.ip = "192.168.10.125";
                        }});
    variants.push_back({"hotspot_off", [](auto& vm) { vm.ap_on = 0; }});
    return showing<ConnectAppWidget>(scene, vm, variants);
}

} // namespace

QVector<PanelScene> homeScenes()
{
    using Osd = EncoderShortcutPage2Widget;
    using Streams = EncoderShortcutPage3Widget;
    PanelScene osd =
        shortcutScene("osd", PAGE_ENCODER_SHORTCUT_2, "statusbar.context.osd_ctrl", 0, 0);
    PanelScene streams = shortcutScene("push_streams", PAGE_ENCODER_SHORTCUT_3,
                                       "statusbar.context.stream_ctrl", 1, 0);
    return {status1(),
            status2(),
            status3(),
            record(),
            showing<Osd>(osd, osdLayouts(), {{"empty", [](auto& vm) { vm.osd_items = {}; }}}),
            showing<Streams>(streams, pushStreams(1),
                             {{"status_0", [](auto& vm) { vm = pushStreams(0); }},
                              {"empty", [](auto& vm) { vm.push_streams = {}; }}}),
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
