// The scenes of the panel's screen, and the screen that shows one: the home
// row (status and shortcut pages in both work modes), the quick action list,
// the app connect page, the main menu and every settings page, the edit,
// slider and confirm pages in every flow that opens them, the full-screen
// surfaces and the two cards that the window lays over its pages.
#include "panel_scenes.h"

#include "page_test_support.h"

#include "input/gesture_guide_overlay_component.h"
#include "model/view_models/settings_view_models.h"
#include "model/view_models/shortcut_view_models.h"
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
#include "pages/page_ids.h"
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
#include "ui/operation_overlay_component.h"

#include <QApplication>
#include <QTimer>

#include <utility>
#include <vector>

namespace pagetest {

// The names stay out of the test files that use namespace pagetest.
namespace scenes {

namespace {

// A builder that creates `Page` and hands it to `setup`.
template <class Page> auto page(std::function<void(Page&)> setup = {})
{
    return [setup](UITextManager* texts, QWidget* parent) -> QWidget* {
        auto* created = new Page(texts, parent);
        // The theme's fonts must be in place before the page measures texts.
        created->ensurePolished();
        if (setup)
            setup(*created);
        return created;
    };
}

template <class Page> SceneState state(const QString& name, std::function<void(Page&)> apply)
{
    return {name, [apply](QWidget* widget, UITextManager*) { apply(*static_cast<Page*>(widget)); }};
}

template <class VM> using Variants = std::vector<std::pair<QString, std::function<void(VM&)>>>;

// `scene` whose `Page` first shows `base`, then, as further states, each
// variant: `base` with the variant's change.
template <class Page, class VM>
PanelScene showing(PanelScene scene, const VM& base, const Variants<VM>& variants = {})
{
    scene.build = page<Page>([base](Page& p) { p.updateFromVm(base); });
    for (const auto& [name, change] : variants) {
        VM changed = base;
        change(changed);
        scene.states << state<Page>(name, [changed](Page& p) { p.updateFromVm(changed); });
    }
    return scene;
}

// The status bar of the status pages: links, a disk and both activities.
StatusBarVM homeBar(int workMode = 0)
{
    StatusBarVM bar;
    bar.work_mode = workMode, bar.pageid = PAGE_STATUS_1, bar.is_status_page = true;
    bar.eth_link = bar.wifi_on = bar.ap_on = true;
    bar.disk_type = 0, bar.disk_icon_level = 3;
    bar.is_recording = bar.is_streaming = workMode == 0;
    bar.is_decoding = workMode == 1;
    return bar;
}

// The status bar of any other page: the breadcrumb only.
StatusBarVM contextBar(int pageId, int workMode = 0)
{
    StatusBarVM bar = homeBar(workMode);
    bar.pageid = pageId;
    bar.is_status_page = false;
    bar.is_modal = pageId == PAGE_GENERAL_EDIT || pageId == PAGE_GENERAL_SLIDER
                   || pageId == PAGE_GENERAL_CONFIRM;
    return bar;
}

NavDotsState dotsAt(int pageId, int index, int count)
{
    return {true, pageId, index, count};
}

QStringList menuPath(const char* groupKey)
{
    return {QStringLiteral("statusbar.context.menu"), QString::fromLatin1(groupKey)};
}

PanelScene makeScene(const QString& name, const StatusBarVM& bar, const QStringList& keys = {},
                     const NavDotsState& dots = {}, bool arrows = false)
{
    PanelScene scene;
    scene.name = name, scene.bar = bar, scene.context_keys = keys;
    scene.dots = dots, scene.arrows = arrows;
    return scene;
}

// A settings page: breadcrumb, group dots and the arrows.
PanelScene settingsScene(const QString& name, int pageId, const char* groupKey, int index,
                         int count)
{
    return makeScene(name, contextBar(pageId), menuPath(groupKey), dotsAt(pageId, index, count),
                     true);
}

PanelScene homeScene(const QString& name, int pageId, int index, int workMode = 0)
{
    StatusBarVM bar = homeBar(workMode);
    bar.pageid = pageId;
    return makeScene(name, bar, {}, dotsAt(pageId, index, workMode == 0 ? 6 : 5));
}

PanelScene shortcutScene(const QString& name, int pageId, const char* contextKey, int index,
                         int workMode)
{
    return makeScene(name, contextBar(pageId, workMode), {QString::fromLatin1(contextKey)},
                     dotsAt(pageId, index, workMode == 0 ? 6 : 5));
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
        {{"record_status_2", [](auto& vm) { vm.record_status = 2; }},
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
    ShortcutVM vm;
    vm.config = nlohmann::json::parse(R"({"list":[{"function":"LockLcd"},{"function":"Standby"},)"
                                      R"({"function":"ShutDown"},{"function":"Restart"}]})");
    vm.count = 4;
    return showing<ShortcutPageWidget>(makeScene("shortcuts", contextBar(PAGE_SHORTCUT)), vm);
}

PanelScene connectApp()
{
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
    return showing<ConnectAppWidget>(makeScene("connect_app", contextBar(PAGE_CONNECT_APP)), vm,
                                     variants);
}

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

template <class Page> PanelScene menu(const QString& name, int pageId, int index, int workModes)
{
    PanelScene scene =
        makeScene(name, contextBar(pageId), {"statusbar.context.menu"}, dotsAt(pageId, index, 2));
    scene.build = page<Page>([](Page& p) { p.updateFromVm(0); });
    if (workModes > 1)
        scene.states << state<Page>("decode", [](Page& p) { p.updateFromVm(1); });
    return scene;
}

QVector<PanelScene> systemPages()
{
    SystemSettingsPageVM vm;
    vm.dc_out_on = true, vm.dc_out_voltage = 2, vm.device_name = "Studio-B-Encoder";
    vm.device_start_time = "2025-03-01 10:00:00", vm.persistent_time = "126:02:03";
    vm.firmware_version = "V2.1.0", vm.hardware_version = "V1.2", vm.serial_number = "QP24001234";
    const char* group = "mainmenu.system";
    return {
        showing<SystemSettingsPage1Widget>(
            settingsScene("system_1", PAGE_SYSTEM_SETTINGS_1, group, 0, 4), vm),
        showing<SystemSettingsPage2Widget>(
            settingsScene("system_2", PAGE_SYSTEM_SETTINGS_2, group, 1, 4), vm),
        showing<SystemSettingsPage3Widget>(
            settingsScene("system_3", PAGE_SYSTEM_SETTINGS_3, group, 2, 4), vm),
        showing<SystemSettingsPage4Widget>(
            settingsScene("system_4", PAGE_SYSTEM_SETTINGS_4, group, 3, 4), vm,
            {{"long_name", [](auto& vm) { vm.device_name = "Main-Stage-Encoder-Room-1"; }},
             {"chinese_name", [](auto& vm) { vm.device_name = "一号演播室主舞台编码器"; }}}),
    };
}

QVector<PanelScene> networkPages()
{
    NetworkSettingsPageVM vm;
    vm.wifi_on = vm.ap_on = vm.has_link = vm.eth_link = vm.client_link = true;
    vm.ip_text = "192.168.10.125", vm.http_url = "http://192.168.10.125";
    vm.ap_http_url = "http://170.128.88.1", vm.ap_ssid = "Vantor-5F2A", vm.ap_psk = "8k3Lq9Zt";
    vm.ap_wifi_qr = "WIFI:S:Vantor-5F2A;T:WPA;P:8k3Lq9Zt;H:false;;";
    vm.nas_list = {{"archive", true, 2},
                   {"backup-share-long", false, 3},
                   {"media", false, 1},
                   {"projects", true, 4},
                   {"old-nas", false, 0}};
    const char* group = "mainmenu.network";
    auto offline = [](NetworkSettingsPageVM& vm) { vm = {}; };
    return {
        showing<NetworkSettingsPage1Widget>(
            settingsScene("network_1", PAGE_NETWORK_SETTINGS_1, group, 0, 3), vm,
            {{"hotspot_only", [](auto& vm) { vm.client_link = false; }},
             {"lan_only", [](auto& vm) { vm.ap_on = false; }},
             {"no_network", offline}}),
        showing<NetworkSettingsPage2Widget>(
            settingsScene("network_2", PAGE_NETWORK_SETTINGS_2, group, 1, 3), vm),
        showing<NetworkSettingsPage3Widget>(
            settingsScene("network_3", PAGE_NETWORK_SETTINGS_3, group, 2, 3), vm,
            {{"no_nas", offline}}),
    };
}

QVector<PanelScene> cameraPages()
{
    CameraSettingsPageVM vm;
    vm.lcd_lock_on = vm.tally_on = true, vm.lcd_bright = 80, vm.lcd_sleep = 5;
    vm.tally_mode_id = vm.tally_color_id = 1;
    const char* group = "mainmenu.ptz";
    return {
        showing<CameraSettingsPage1Widget>(
            settingsScene("camera_1", PAGE_CAMERA_SETTINGS_1, group, 0, 3), vm),
        showing<CameraSettingsPage2Widget>(
            settingsScene("camera_2", PAGE_CAMERA_SETTINGS_2, group, 1, 3), vm),
        showing<CameraSettingsPage3Widget>(
            settingsScene("camera_3", PAGE_CAMERA_SETTINGS_3, group, 2, 3), vm),
    };
}

QVector<PanelScene> videoAndAudioPages()
{
    VideoSettingsPageVM video;
    video.audio_out_on = video.ai_tracking_on = true;
    video.in_width = 1920, video.in_height = 1080, video.in_fps = 60, video.out_format = "1080p60";
    AudioSettingsPageVM audio;
    audio.volume = 75;
    const char* group = "mainmenu.video";
    return {
        showing<VideoSettingsPage1Widget>(
            settingsScene("video_1", PAGE_VIDEO_SETTINGS_1, group, 0, 2), video,
            {{"decode", [](auto& vm) { vm.work_mode = 1; }}}),
        showing<VideoSettingsPage2Widget>(
            settingsScene("video_2", PAGE_VIDEO_SETTINGS_2, group, 1, 2), video),
        showing<Audio_settings_page_widget>(
            settingsScene("audio", PAGE_AUDIO_SETTINGS, "mainmenu.audio", 0, 1), audio),
    };
}

QVector<PanelScene> mediaAndDecodingPages()
{
    MediaSettingsPageVM media;
    media.srt_on = media.ndi_on = true, media.ndi_mode_id = 2;
    media.ndi_machinename = "STUDIO-ENCODER-LEFT", media.present_storage_id = 0;
    DecodingSettingsPageVM decoding;
    decoding.rtmp_on = decoding.srt_server_on = true;
    PanelScene decodingScene =
        settingsScene("decoding", PAGE_DECODING_SETTINGS, "mainmenu.decoding", 0, 1);
    decodingScene.bar = contextBar(PAGE_DECODING_SETTINGS, 1);
    const char* group = "mainmenu.streaming";
    return {
        showing<MediaSettingsPage1Widget>(
            settingsScene("media_1", PAGE_MEDIA_SETTINGS_1, group, 0, 2), media),
        showing<MediaSettingsPage2Widget>(
            settingsScene("media_2", PAGE_MEDIA_SETTINGS_2, group, 1, 2), media,
            {{"chinese_name",
              [](auto& vm) { vm.ndi_machinename = "演播室二号编码器主机", vm.ndi_mode_id = 4; }},
             {"ndi_off", [](auto& vm) { vm.ndi_on = false, vm.ndi_machinename.clear(); }}}),
        showing<Decoding_settings_page_widget>(decodingScene, decoding),
    };
}

QVector<PanelScene> menuAndSettingsScenes()
{
    QVector<PanelScene> all{menu<MainMenuPage1Widget>("menu_1", PAGE_MAIN_MENU_1, 0, 2),
                            menu<MainMenuPage2Widget>("menu_2", PAGE_MAIN_MENU_2, 1, 1)};
    all << systemPages() << networkPages() << cameraPages() << videoAndAudioPages()
        << mediaAndDecodingPages();
    return all;
}

using Edit = GeneralEditPageWidget;
using Slider = GeneralSliderPageWidget;
using Confirm = GeneralConfirmPageWidget;

// One flow: the page it opens from, that page's breadcrumb (a settings group
// or a single context key), the flow's title, and the value it opens with.
struct Flow {
    const char* name;
    int type;
    int return_page;
    const char* group;
    const char* title_key;
    int value;
    int low = 0, high = 0; // a slider's ends
};

QStringList breadcrumb(const Flow& flow)
{
    QStringList keys;
    if (QString::fromLatin1(flow.group).startsWith("mainmenu."))
        keys = menuPath(flow.group);
    else if (*flow.group)
        keys << QString::fromLatin1(flow.group);
    if (flow.title_key)
        keys << QString::fromLatin1(flow.title_key);
    return keys;
}

PanelScene modalScene(const char* prefix, int pageId, const Flow& flow)
{
    PanelScene scene = makeScene(QStringLiteral("%1_%2").arg(prefix, flow.name), contextBar(pageId),
                                 breadcrumb(flow));
    scene.in_gallery = false;
    return scene;
}

void enter(Edit& page, const Flow& flow)
{
    page.setVoFormatContext(1920, 1080, 60, QStringLiteral("1080p60"), 0);
    page.setPtzProtoContext(1, 0);
    page.enterEditMode(flow.type, flow.return_page, flow.value);
}

// Each edit flow opens at its value in force; its further states show every
// other option in turn.
PanelScene editScene(const Flow& flow)
{
    PanelScene scene = modalScene("edit", PAGE_GENERAL_EDIT, flow);
    scene.build = page<Edit>([flow](Edit& p) { enter(p, flow); });
    Edit probe(texts());
    enter(probe, flow);
    for (int option = 1; option < probe.optionTexts().size(); ++option)
        scene.states << state<Edit>(QStringLiteral("option_%1").arg(option),
                                    [](Edit& p) { p.nextOption(); });
    return scene;
}

// Each slider flow opens at `value`; further states show its two ends.
PanelScene sliderScene(const Flow& flow)
{
    PanelScene scene = modalScene("slider", PAGE_GENERAL_SLIDER, flow);
    auto showValue = [flow](int value) {
        return [flow, value](Slider& p) { p.updateFromVm({flow.type, flow.return_page, value}); };
    };
    scene.build = page<Slider>(showValue(flow.value));
    for (int value : {flow.low, flow.high})
        scene.states << state<Slider>(QStringLiteral("value_%1").arg(value), showValue(value));
    return scene;
}

PanelScene confirmScene(const Flow& flow)
{
    PanelScene scene = modalScene("confirm", PAGE_GENERAL_CONFIRM, flow);
    scene.build = page<Confirm>([flow](Confirm& p) {
        p.updateFromVm({flow.type, flow.return_page, 0, flow.value});
    });
    return scene;
}

const char* const kSystem = "mainmenu.system";
const char* const kCamera = "mainmenu.ptz";
const char* const kStreaming = "mainmenu.streaming";

const Flow kEditFlows[] = {
    {"language", Edit::EDIT_LANGUAGE, PAGE_SYSTEM_SETTINGS_1, kSystem, "system_settings.language",
     1},
    {"theme", Edit::EDIT_THEME, PAGE_SYSTEM_SETTINGS_1, kSystem, "system_settings.theme", 0},
    {"work_mode", Edit::EDIT_WORK_MODE, PAGE_SYSTEM_SETTINGS_2, kSystem, "system_settings.workmode",
     0},
    {"fan_mode", Edit::EDIT_FAN_MODE, PAGE_SYSTEM_SETTINGS_2, kSystem, "system_settings.fan", 1},
    {"usb_mode", Edit::EDIT_USB_MODE, PAGE_SYSTEM_SETTINGS_2, kSystem, "system_settings.usbmode",
     0},
    {"ptz_protocol", Edit::EDIT_PTZ_PROTOCOL, PAGE_CAMERA_SETTINGS_1, kCamera,
     "camera_settings.ptz_protocol", 0},
    {"tally_mode", Edit::EDIT_TALLY_MODE, PAGE_CAMERA_SETTINGS_2, kCamera,
     "camera_settings.tally_mode", 1},
    {"tally_light", Edit::EDIT_TALLY_LIGHT, PAGE_CAMERA_SETTINGS_2, kCamera,
     "camera_settings.tally_light", 1},
    {"vo_format", Edit::EDIT_VO_FORMAT, PAGE_VIDEO_SETTINGS_1, "mainmenu.video",
     "video_settings.vo_format", -1},
    {"audio_source", Edit::EDIT_AUDIO_SOURCE, PAGE_AUDIO_SETTINGS, "mainmenu.audio",
     "audio_settings.audio_source", 0},
    {"ndi_quality", Edit::EDIT_NDI_QUALITY, PAGE_MEDIA_SETTINGS_2, kStreaming,
     "media_settings.ndi_quality", 1},
    {"record_disk", Edit::EDIT_RECORD_DISK, PAGE_MEDIA_SETTINGS_1, kStreaming,
     "media_settings.disk_select", 0},
    {"record_disk_from_shortcut", Edit::EDIT_RECORD_DISK, PAGE_ENCODER_SHORTCUT_1,
     "statusbar.context.record_ctrl", "media_settings.disk_select", 0},
};

const Flow kSliderFlows[] = {
    {"brightness", Slider::SLIDER_LCD_BRIGHTNESS, PAGE_CAMERA_SETTINGS_3, kCamera,
     "camera_settings.lcd_brightness", 80, 0, 100},
    {"sleep", Slider::SLIDER_LCD_SLEEP, PAGE_CAMERA_SETTINGS_3, kCamera,
     "camera_settings.lcd_sleep", 5, 1, 30},
    {"encoder_volume", Slider::SLIDER_ENC_VOLUME, PAGE_AUDIO_SETTINGS, "mainmenu.audio",
     "audio_settings.audio_volume", 75, 0, 100},
    {"output_volume", Slider::SLIDER_OUT_VOLUME, PAGE_MAIN_MENU_1, "statusbar.context.menu",
     "audio_settings.audio_volume", 40, 0, 100},
};

// The value of a confirmation is its parameter: 2 the 12 V output, 1 the 8.4 V one.
const Flow kConfirmFlows[] = {
    {"reboot", CONFIRM_ACTION_REBOOT, PAGE_SYSTEM_SETTINGS_3, kSystem, "system_settings.reboot", 1},
    {"reset", CONFIRM_ACTION_RESET, PAGE_SYSTEM_SETTINGS_3, kSystem, "system_settings.reset", 1},
    {"standby", CONFIRM_ACTION_STANDBY, PAGE_SYSTEM_SETTINGS_3, kSystem, "system_settings.standby",
     1},
    {"dc_out_12v", CONFIRM_ACTION_DC_OUT, PAGE_SYSTEM_SETTINGS_1, kSystem, nullptr, 2},
    {"dc_out_8v4", CONFIRM_ACTION_DC_OUT, PAGE_SYSTEM_SETTINGS_1, kSystem, nullptr, 1},
    {"restart_from_shortcuts", CONFIRM_ACTION_REBOOT, PAGE_SHORTCUT, "", "system_settings.reboot",
     1},
};

QVector<PanelScene> modalScenes()
{
    QVector<PanelScene> all;
    // The first flow of each page goes into the gallery.
    for (const Flow& flow : kEditFlows)
        all << editScene(flow);
    all.first().in_gallery = true;
    const int sliders = all.size();
    for (const Flow& flow : kSliderFlows)
        all << sliderScene(flow);
    all[sliders].in_gallery = true;
    const int confirms = all.size();
    for (const Flow& flow : kConfirmFlows)
        all << confirmScene(flow);
    all[confirms].in_gallery = true;
    return all;
}

PanelScene fullScreen(const QString& name)
{
    PanelScene scene = makeScene(name, {});
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
    PanelScene scene = overlay<StatusPage1Widget, Guide>(
        makeScene("gesture_guide", homeBar()),
        [](Guide& guide, UITextManager* texts) { showGuide(guide, GESTURE_GUIDE_HOME, texts); });
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

QVector<PanelScene> surfaceScenes()
{
    return {standby(),   screensaver(),  upgrade(),      splash(),
            bluetooth(), gestureGuide(), operationCard()};
}

} // namespace

} // namespace scenes

QVector<PanelScene> panelScenes()
{
    QVector<PanelScene> all;
    all << scenes::homeScenes() << scenes::menuAndSettingsScenes() << scenes::modalScenes()
        << scenes::surfaceScenes();
    return all;
}

std::unique_ptr<QWidget> buildScreen(const PanelScene& scene, UITextManager* texts,
                                     const QString& theme, QWidget** page)
{
    auto screen = std::make_unique<QWidget>();
    screen->setAttribute(Qt::WA_StyledBackground);
    screen->setProperty("class", "widget1");
    screen->setFixedSize(640, 172);
    applyTheme(screen.get(), theme);

    QWidget* built = nullptr;
    if (scene.full_screen) {
        built = scene.build(texts, screen.get());
        built->setGeometry(screen->rect());
    } else {
        auto* bar = new StatusBarWidget(texts, screen.get());
        StatusBarVM vm = scene.bar;
        QStringList steps;
        for (const QString& key : scene.context_keys)
            steps << texts->getTextWithFallback(key);
        vm.context_text = steps.join(QStringLiteral("  \u00BB  "));
        bar->updateFromVm(vm);
        built = scene.build(texts, screen.get());
        if (!scene.overlay)
            built->move(0, bar->height());
        auto* dots = new NavDotsComponent(screen.get());
        dots->updateState(scene.dots);
        auto* arrows = new SubmenuArrowsComponent(screen.get());
        arrows->updateState(scene.arrows, scene.dots.current < 1,
                            scene.dots.current >= scene.dots.count - 1);
    }
    if (page)
        *page = built;
    showAndSettle(screen.get());
    return screen;
}

void forEachScreen(UITextManager* texts, const QString& theme, const ScreenVisit& visit)
{
    for (const PanelScene& scene : panelScenes()) {
        QWidget* page = nullptr;
        const auto screen = buildScreen(scene, texts, theme, &page);
        visit(screen.get(), page, scene.name, nullptr);
        for (const SceneState& state : scene.states) {
            state.apply(page, texts);
            QApplication::processEvents();
            visit(screen.get(), page, scene.name + QLatin1Char('/') + state.name, &state);
        }
    }
}

} // namespace pagetest
