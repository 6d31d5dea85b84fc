// What the settings pages show: the busy device, and each rule as a change
// of it.
#include "device_caches.h"
#include "model/vm_builders/settings_vm_builders.h"

namespace modeltest {
namespace {

TEST(SettingsVm, DecodingPageShowsEachServerSwitch)
{
    const Caches c = reportedCaches();
    DecodingSettingsPageVM decoding;
    decoding.rtmp_on = decoding.srt_server_on = true;
    EXPECT_EQ(computeDecodingSettingsPageVm(c.get), decoding) << "the SRT playback is off";
}

TEST(SettingsVm, NetworkPageLinksAndUrls)
{
    const Caches c = reportedCaches();
    const QString ip = QString::fromStdString(c.sub.ip);
    NetworkSettingsPageVM v;
    v.wifi_on = v.ap_on = v.has_link = v.eth_link = v.wifi_link = v.client_link = true;
    v.ip_text = ip;
    v.http_url = "http://" + ip + ":8080";
    v.ap_http_url = "http://170.128.88.1:8080";
    v.ap_ssid = QString::fromStdString(c.get.ap_ssid);
    v.ap_psk = QString::fromStdString(c.get.ap_psk);
    v.ap_wifi_qr = "WIFI:S:" + v.ap_ssid + ";T:WPA;P:" + v.ap_psk + ";H:false;;";
    v.nas_list = QList<NasMountInfo>(c.get.nas_list.begin(), c.get.nas_list.end());

    expectRules<NetworkSettingsPageVM>(
        [](const Caches& c) { return computeNetworkSettingsPageVm(c.sub, c.get, c.http_port); }, v,
        // Unlike the status bar, the page shows a Wi-Fi link from its status alone.
        {{"Wi-Fi switched off but still linked", [](Caches& c) { c.sub.wifi_switch = false; },
          [](NetworkSettingsPageVM& v) { v.wifi_on = false; }},
         {"the access point alone, with no address",
          [](Caches& c) {
              c.sub.lan_state = c.sub.wifi_status = 0;
              c.sub.ip.clear();
          },
          [](NetworkSettingsPageVM& v) {
              v.eth_link = v.wifi_link = v.client_link = false;
              v.ip_text.clear();
              v.http_url = QString();
          }},
         {"the access point off", [](Caches& c) { c.sub.ap_switch = false; },
          [](NetworkSettingsPageVM& v) {
              v.ap_on = false;
              v.ap_http_url = QString();
          }},
         {"the default HTTP port", [](Caches& c) { c.http_port = 80; },
          [&](NetworkSettingsPageVM& v) {
              v.http_url = "http://" + ip;
              v.ap_http_url = "http://170.128.88.1";
          }},
         {"no HTTP port known", [](Caches& c) { c.http_port = -1; },
          [](NetworkSettingsPageVM& v) { v.http_url = v.ap_http_url = QString(); }}});
}

TEST(SettingsVm, CameraPageShowsTheDefaultSleepForNone)
{
    const Caches c = reportedCaches();
    CameraSettingsPageVM v;
    v.lcd_lock_on = v.tally_on = true;
    v.lcd_bright = c.get.lcd_bright;
    v.lcd_sleep = c.get.lcd_sleep;
    v.ptz_protocol = c.get.ptz.protocol;
    v.ptz_usb2serial = c.get.ptz.usb2serial;
    v.tally_mode_id = c.get.tally.mode_id;
    v.tally_color_id = c.get.tally.color_id;
    std::vector<Rule<CameraSettingsPageVM>> rules;
    const std::pair<int, int> sleeps[] = {{0, 5}, {1, 1}};
    for (const auto& [reported, shown] : sleeps)
        rules.push_back({"an LCD sleep time", [r = reported](Caches& c) { c.get.lcd_sleep = r; },
                         [s = shown](CameraSettingsPageVM& v) { v.lcd_sleep = s; }});
    expectRules<CameraSettingsPageVM>(
        [](const Caches& c) { return computeCameraSettingsPageVm(c.get); }, v, rules);
}

TEST(SettingsVm, VideoAndAudioPagesFollowTheWorkMode)
{
    const Caches c = reportedCaches();
    VideoSettingsPageVM video;
    video.audio_out_on = video.loop_out_on = video.ai_tracking_on = video.gsk_on = true;
    video.gsk_bg_count = c.get.gsk.user_bgfile_count;
    video.in_width = c.sub.video_width;
    video.in_height = c.sub.video_height;
    video.in_fps = c.sub.video_fps;
    video.out_format = c.get.video_out.format;
    auto decoder = [](Caches& c) { c.sub.workmode_id = kDecoder; };
    expectRules<VideoSettingsPageVM>(
        [](const Caches& c) {
            return computeVideoSettingsPageVm(c.sub, c.get, c.stored_work_mode);
        },
        video, {{"a decoder has no tracking or matting", decoder, [](VideoSettingsPageVM& v) {
                     v.work_mode = kDecoder;
                     v.ai_tracking_on = v.gsk_on = false;
                     v.gsk_bg_count = 0;
                 }}});

    AudioSettingsPageVM audio;
    audio.volume = c.get.audio.volume;
    audio.ai_type = c.get.audio.ai_type;
    expectRules<AudioSettingsPageVM>(
        [](const Caches& c) {
            return computeAudioSettingsPageVm(c.sub, c.get, c.stored_work_mode);
        },
        audio,
        {{"audio switched off is muted", [](Caches& c) { c.get.audio.switch_on = 0; },
          [](AudioSettingsPageVM& v) { v.muted = 1; }},
         {"a decoder sets the output volume only", decoder,
          [&](AudioSettingsPageVM& v) {
              v = AudioSettingsPageVM();
              v.work_mode = kDecoder;
              v.volume = c.get.audio.ao_volume;
          }},
         {"another work mode", [](Caches& c) { c.sub.workmode_id = 2; },
          [](AudioSettingsPageVM& v) {
              v = AudioSettingsPageVM();
              v.work_mode = 2;
          }},
         {"without audio even the mode stays zero", [](Caches& c) { c.get.audio_valid = false; },
          [](AudioSettingsPageVM& v) { v = AudioSettingsPageVM(); }}});
}

TEST(SettingsVm, MediaPageShowsTheRecordStateOfTheChosenDisk)
{
    const Caches c = reportedCaches();
    MediaSettingsPageVM v;
    v.ndi_on = v.srt_on = true;
    v.ndi_mode_id = c.get.enc_ndi_mode_id;
    v.ndi_machinename = QString::fromUtf8("BOX-\xC3\x9F");
    v.present_storage_id = c.get.present_storage_id;
    v.record_status = c.sub.record_status[2];
    expectRules<MediaSettingsPageVM>(
        [](const Caches& c) {
            return computeMediaSettingsPageVm(c.sub, c.get, c.stored_work_mode);
        },
        v,
        {{"the TF card chosen", [](Caches& c) { c.get.present_storage_id = 0; },
          [](MediaSettingsPageVM& v) {
              v.present_storage_id = 0;
              v.record_status = 0;
          }},
         {"no disk chosen yet", [](Caches& c) { c.get.present_storage_valid = false; },
          [](MediaSettingsPageVM& v) {
              v.present_storage_id = -1;
              v.record_status = 0;
          }}});
}

} // namespace
} // namespace modeltest
