// The two main menu pages and every settings page.
#include "panel_scenes.h"

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

template <class Page> PanelScene menu(const QString& name, int pageId, int index, int workModes)
{
    PanelScene scene;
    scene.name = name;
    scene.bar = contextBar(pageId);
    scene.context_keys = QStringList{QStringLiteral("statusbar.context.menu")};
    scene.dots = dotsAt(pageId, index, 2);
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
            settingsScene("network_2", PAGE_NETWORK_SETTINGS_2, group, 1, 3), vm,
            {{"all_off", offline}}),
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
    auto tallyOffUnlocked = [](CameraSettingsPageVM& vm) { vm.tally_on = vm.lcd_lock_on = false; };
    return {
        showing<CameraSettingsPage1Widget>(
            settingsScene("camera_1", PAGE_CAMERA_SETTINGS_1, group, 0, 3), vm),
        showing<CameraSettingsPage2Widget>(
            settingsScene("camera_2", PAGE_CAMERA_SETTINGS_2, group, 1, 3), vm,
            {{"tally_off", tallyOffUnlocked}}),
        showing<CameraSettingsPage3Widget>(
            settingsScene("camera_3", PAGE_CAMERA_SETTINGS_3, group, 2, 3), vm,
            {{"unlocked", tallyOffUnlocked}}),
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
            {{"loop_out", [](auto& vm) { vm.loop_out_on = true, vm.audio_out_on = false; }},
             {"decode", [](auto& vm) { vm.work_mode = 1; }}}),
        showing<VideoSettingsPage2Widget>(
            settingsScene("video_2", PAGE_VIDEO_SETTINGS_2, group, 1, 2), video),
        showing<Audio_settings_page_widget>(
            settingsScene("audio", PAGE_AUDIO_SETTINGS, "mainmenu.audio", 0, 1), audio,
            {{"muted", [](auto& vm) { vm.muted = 1; }}}),
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
            settingsScene("media_1", PAGE_MEDIA_SETTINGS_1, group, 0, 2), media,
            {{"recording", [](auto& vm) { vm.record_status = 1; }}}),
        showing<MediaSettingsPage2Widget>(
            settingsScene("media_2", PAGE_MEDIA_SETTINGS_2, group, 1, 2), media,
            {{"chinese_name",
              [](auto& vm) { vm.ndi_machinename = "演播室二号编码器主机", vm.ndi_mode_id = 4; }},
             {"ndi_off", [](auto& vm) { vm.ndi_on = false, vm.ndi_machinename.clear(); }}}),
        showing<Decoding_settings_page_widget>(decodingScene, decoding),
    };
}

} // namespace

QVector<PanelScene> menuAndSettingsScenes()
{
    QVector<PanelScene> all{menu<MainMenuPage1Widget>("menu_1", PAGE_MAIN_MENU_1, 0, 2),
                            menu<MainMenuPage2Widget>("menu_2", PAGE_MAIN_MENU_2, 1, 1)};
    all << systemPages() << networkPages() << cameraPages() << videoAndAudioPages()
        << mediaAndDecodingPages();
    return all;
}

} // namespace pagetest::scenes
