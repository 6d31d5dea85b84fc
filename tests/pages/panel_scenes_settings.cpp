// The two main menu pages and every settings page.
#include "panel_scene_building.h"

#include "model/view_models/settings_view_models.h"
#include "pages/audio_settings_page_widget.h"
#include "pages/camera_settings_page_widget.h"
#include "pages/decoding_settings_page_widget.h"
#include "pages/main_menu_page_widget.h"
#include "pages/media_settings_page_widget.h"
#include "pages/network_settings_page_widget.h"
#include "pages/system_settings_page_widget.h"
#include "pages/video_settings_page_widget.h"

namespace pagetest::scenes {

namespace {

PanelScene menu(const QString& name, int pageId, int index)
{
    PanelScene scene;
    scene.name = name;
    scene.bar = contextBar(pageId);
    scene.context_keys = QStringList{QStringLiteral("statusbar.context.menu")};
    scene.dots = dotsAt(pageId, index, 2);
    return scene;
}

PanelScene menu1()
{
    PanelScene scene = menu("menu_1", PAGE_MAIN_MENU_1, 0);
    scene.build = page<MainMenuPage1Widget>([](MainMenuPage1Widget& p) { p.updateFromVm(0); });
    scene.states << state<MainMenuPage1Widget>("decode",
                                               [](MainMenuPage1Widget& p) { p.updateFromVm(1); });
    return scene;
}

PanelScene menu2()
{
    PanelScene scene = menu("menu_2", PAGE_MAIN_MENU_2, 1);
    scene.build = page<MainMenuPage2Widget>([](MainMenuPage2Widget& p) { p.updateFromVm(0); });
    return scene;
}

// A settings page rendering `vm`, with further states from `variants`.
template <class Page, class VM>
PanelScene settings(const QString& name, int pageId, const char* groupKey, int index, int count,
                    const VM& vm, const QVector<QPair<QString, VM>>& variants = {})
{
    PanelScene scene = settingsScene(name, pageId, groupKey, index, count);
    scene.build = page<Page>([vm](Page& p) { p.updateFromVm(vm); });
    for (const auto& [stateName, variant] : variants)
        scene.states << state<Page>(stateName, [variant](Page& p) { p.updateFromVm(variant); });
    return scene;
}

SystemSettingsPageVM systemSettings()
{
    SystemSettingsPageVM vm;
    vm.dc_out_on = true;
    vm.dc_out_voltage = 2;
    vm.device_name = QStringLiteral("Studio-B-Encoder");
    vm.device_start_time = QStringLiteral("2025-03-01 10:00:00");
    vm.persistent_time = QStringLiteral("126:02:03");
    vm.firmware_version = QStringLiteral("V2.1.0");
    vm.hardware_version = QStringLiteral("V1.2");
    vm.serial_number = QStringLiteral("QP24001234");
    return vm;
}

QVector<PanelScene> systemPages()
{
    const char* group = "mainmenu.system";
    SystemSettingsPageVM longName = systemSettings();
    longName.device_name = QStringLiteral("Main-Stage-Encoder-Room-1");
    SystemSettingsPageVM chineseName = systemSettings();
    chineseName.device_name = QStringLiteral("一号演播室主舞台编码器");
    return {
        settings<SystemSettingsPage1Widget>("system_1", PAGE_SYSTEM_SETTINGS_1, group, 0, 4,
                                            systemSettings()),
        settings<SystemSettingsPage2Widget>("system_2", PAGE_SYSTEM_SETTINGS_2, group, 1, 4,
                                            systemSettings()),
        settings<SystemSettingsPage3Widget>("system_3", PAGE_SYSTEM_SETTINGS_3, group, 2, 4,
                                            systemSettings()),
        settings<SystemSettingsPage4Widget>(
            "system_4", PAGE_SYSTEM_SETTINGS_4, group, 3, 4, systemSettings(),
            {{"long_name", longName}, {"chinese_name", chineseName}}),
    };
}

NetworkSettingsPageVM networkSettings()
{
    NetworkSettingsPageVM vm;
    vm.wifi_on = true;
    vm.ap_on = true;
    vm.has_link = true;
    vm.eth_link = true;
    vm.client_link = true;
    vm.ip_text = QStringLiteral("192.168.10.125");
    vm.http_url = QStringLiteral("http://192.168.10.125");
    vm.ap_http_url = QStringLiteral("http://170.128.88.1");
    vm.ap_ssid = QStringLiteral("Vantor-5F2A");
    vm.ap_psk = QStringLiteral("8k3Lq9Zt");
    vm.ap_wifi_qr = QStringLiteral("WIFI:S:Vantor-5F2A;T:WPA;P:8k3Lq9Zt;H:false;;");
    vm.nas_list = {{QStringLiteral("archive"), true, 2},
                   {QStringLiteral("backup-share-long"), false, 3},
                   {QStringLiteral("media"), false, 1},
                   {QStringLiteral("projects"), true, 4},
                   {QStringLiteral("old-nas"), false, 0}};
    return vm;
}

QVector<PanelScene> networkPages()
{
    const char* group = "mainmenu.network";
    NetworkSettingsPageVM hotspotOnly = networkSettings();
    hotspotOnly.client_link = false;
    NetworkSettingsPageVM lanOnly = networkSettings();
    lanOnly.ap_on = false;
    NetworkSettingsPageVM offline;
    return {
        settings<NetworkSettingsPage1Widget>(
            "network_1", PAGE_NETWORK_SETTINGS_1, group, 0, 3, networkSettings(),
            {{"hotspot_only", hotspotOnly}, {"lan_only", lanOnly}, {"no_network", offline}}),
        settings<NetworkSettingsPage2Widget>("network_2", PAGE_NETWORK_SETTINGS_2, group, 1, 3,
                                             networkSettings(), {{"all_off", offline}}),
        settings<NetworkSettingsPage3Widget>("network_3", PAGE_NETWORK_SETTINGS_3, group, 2, 3,
                                             networkSettings(), {{"no_nas", offline}}),
    };
}

CameraSettingsPageVM cameraSettings()
{
    CameraSettingsPageVM vm;
    vm.lcd_lock_on = true;
    vm.lcd_bright = 80;
    vm.lcd_sleep = 5;
    vm.tally_on = true;
    vm.tally_mode_id = 1;
    vm.tally_color_id = 1;
    return vm;
}

QVector<PanelScene> cameraPages()
{
    const char* group = "mainmenu.ptz";
    CameraSettingsPageVM tallyOff = cameraSettings();
    tallyOff.tally_on = false;
    tallyOff.lcd_lock_on = false;
    return {
        settings<CameraSettingsPage1Widget>("camera_1", PAGE_CAMERA_SETTINGS_1, group, 0, 3,
                                            cameraSettings()),
        settings<CameraSettingsPage2Widget>("camera_2", PAGE_CAMERA_SETTINGS_2, group, 1, 3,
                                            cameraSettings(), {{"tally_off", tallyOff}}),
        settings<CameraSettingsPage3Widget>("camera_3", PAGE_CAMERA_SETTINGS_3, group, 2, 3,
                                            cameraSettings(), {{"unlocked", tallyOff}}),
    };
}

VideoSettingsPageVM videoSettings()
{
    VideoSettingsPageVM vm;
    vm.audio_out_on = true;
    vm.ai_tracking_on = true;
    vm.in_width = 1920;
    vm.in_height = 1080;
    vm.in_fps = 60;
    vm.out_format = QStringLiteral("1080p60");
    return vm;
}

QVector<PanelScene> videoAndAudioPages()
{
    const char* video = "mainmenu.video";
    VideoSettingsPageVM looping = videoSettings();
    looping.loop_out_on = true;
    looping.audio_out_on = false;
    VideoSettingsPageVM decoding = videoSettings();
    decoding.work_mode = 1;
    AudioSettingsPageVM audio;
    audio.volume = 75;
    AudioSettingsPageVM muted = audio;
    muted.muted = 1;
    return {
        settings<VideoSettingsPage1Widget>("video_1", PAGE_VIDEO_SETTINGS_1, video, 0, 2,
                                           videoSettings(),
                                           {{"loop_out", looping}, {"decode", decoding}}),
        settings<VideoSettingsPage2Widget>("video_2", PAGE_VIDEO_SETTINGS_2, video, 1, 2,
                                           videoSettings()),
        settings<Audio_settings_page_widget>("audio", PAGE_AUDIO_SETTINGS, "mainmenu.audio", 0, 1,
                                             audio, {{"muted", muted}}),
    };
}

MediaSettingsPageVM mediaSettings()
{
    MediaSettingsPageVM vm;
    vm.srt_on = true;
    vm.ndi_on = true;
    vm.ndi_mode_id = 2;
    vm.ndi_machinename = QStringLiteral("STUDIO-ENCODER-LEFT");
    vm.present_storage_id = 0;
    return vm;
}

QVector<PanelScene> mediaAndDecodingPages()
{
    const char* group = "mainmenu.streaming";
    MediaSettingsPageVM recording = mediaSettings();
    recording.record_status = 1;
    MediaSettingsPageVM chineseName = mediaSettings();
    chineseName.ndi_machinename = QStringLiteral("演播室二号编码器主机");
    chineseName.ndi_mode_id = 4;
    MediaSettingsPageVM ndiOff = mediaSettings();
    ndiOff.ndi_on = false;
    ndiOff.ndi_machinename.clear();
    DecodingSettingsPageVM decoding;
    decoding.rtmp_on = true;
    decoding.srt_server_on = true;
    PanelScene decodingPage = settings<Decoding_settings_page_widget>(
        "decoding", PAGE_DECODING_SETTINGS, "mainmenu.decoding", 0, 1, decoding);
    decodingPage.bar = contextBar(PAGE_DECODING_SETTINGS, 1);
    return {
        settings<MediaSettingsPage1Widget>("media_1", PAGE_MEDIA_SETTINGS_1, group, 0, 2,
                                           mediaSettings(), {{"recording", recording}}),
        settings<MediaSettingsPage2Widget>("media_2", PAGE_MEDIA_SETTINGS_2, group, 1, 2,
                                           mediaSettings(),
                                           {{"chinese_name", chineseName}, {"ndi_off", ndiOff}}),
        decodingPage,
    };
}

} // namespace

QVector<PanelScene> menuAndSettingsScenes()
{
    QVector<PanelScene> all{menu1(), menu2()};
    all << systemPages() << networkPages() << cameraPages() << videoAndAudioPages()
        << mediaAndDecodingPages();
    return all;
}

} // namespace pagetest::scenes
