// What the status bar and the first two status pages show: the busy device, and
// each rule as a change of it.
#include "device_caches.h"
#include "model/vm_builders/status_vm_builders.h"

namespace modeltest {
namespace {

void showsNoRecordDisk(StatusBarVM& v)
{
    v.disk_type = -1;
    v.disk_icon_level = 0;
    v.record_status = v.record_duration = 0;
    v.free_space = 0;
}

TEST(StatusBarVm, ShowsTheChosenRecordDiskOnlyToAnEncoder)
{
    const Caches c = reportedCaches();
    StatusBarVM v;
    v.work_mode = kEncoder; // the published mode wins over the stored one
    v.disk_type = 3;
    v.record_status = c.sub.record_status[2];
    v.record_duration = c.sub.record_duration[2];
    v.free_space = c.sub.disk_free[2];
    v.disk_icon_level = 2; // 45 percent used
    v.is_recording = v.is_streaming = v.ndi_on = true;
    v.tf_present = v.nas_present = true;
    v.eth_link = v.wifi_on = v.wifi_connected = v.ap_on = v.lcd_locked = true;

    auto decoder = [](StatusBarVM& v) {
        showsNoRecordDisk(v);
        v.work_mode = kDecoder;
        v.is_recording = v.is_streaming = false;
        v.is_decoding = true;
    };
    expectRules<StatusBarVM>(
        [](const Caches& c) { return computeStatusBarVm(c.sub, c.get, c.stored_work_mode); }, v,
        {{"a decoder", [](Caches& c) { c.sub.workmode_id = kDecoder; }, decoder},
         {"the stored mode until the system topic reports",
          [](Caches& c) { c.sub.system_state_ready = false; }, decoder},
         {"a decoder playing nothing",
          [](Caches& c) {
              c.sub.workmode_id = kDecoder;
              c.get.dec_streamplay_status = 0;
          },
          [&](StatusBarVM& v) {
              decoder(v);
              v.is_decoding = false;
          }},
         {"another work mode", [](Caches& c) { c.sub.workmode_id = 2; },
          [](StatusBarVM& v) {
              showsNoRecordDisk(v);
              v.work_mode = 2;
              v.is_recording = v.is_streaming = false;
          }},
         {"no disk chosen yet", [](Caches& c) { c.get.present_storage_valid = false; },
          showsNoRecordDisk},
         {"no storage report yet", [](Caches& c) { c.sub.storage_ready = false; },
          [](StatusBarVM& v) {
              v.tf_present = v.nas_present = false;
              v.disk_icon_level = 0;
          }},
         {"a full disk with space left", [](Caches& c) { c.sub.disk_status[2] = 2; },
          [](StatusBarVM& v) { v.disk_icon_level = 4; }},
         {"no record or stream report yet",
          [](Caches& c) { c.sub.record_ready = c.sub.net_stream_ready = false; },
          [](StatusBarVM& v) { v.is_recording = v.is_streaming = false; }},
         {"Wi-Fi still searching", [](Caches& c) { c.sub.wifi_status = 3; },
          [](StatusBarVM& v) { v.wifi_connected = false; }},
         {"Wi-Fi connected but switched off", [](Caches& c) { c.sub.wifi_switch = false; },
          [](StatusBarVM& v) { v.wifi_on = v.wifi_connected = false; }}});
}

TEST(StatusPage1Vm, ShowsTheAddressAndRatesOfTheLinkInUse)
{
    const Caches c = reportedCaches();
    StatusPage1VM v;
    v.cpu_temp_c = c.sub.cpu_temp;
    v.cpu_temp_f = 158;
    v.cpu_payload = c.sub.cpu_payload;
    v.memory_percent = c.sub.memory_percent;
    v.device_name = c.get.version.device_name;
    v.dhcp_on = v.eth_link = v.wifi_link = v.ap_on = true;
    v.ip_text = QString::fromStdString(c.sub.ip);
    v.up_mbps = c.sub.eth0_rx_mbps; // Ethernet wins over Wi-Fi
    v.down_mbps = c.sub.eth0_tx_mbps;
    v.ap_ssid = QString::fromStdString(c.get.ap_ssid);

    auto noClientLink = [](Caches& c) { c.sub.lan_state = 0, c.sub.wifi_switch = false; };
    expectRules<StatusPage1VM>(
        [](const Caches& c) { return computeStatusPage1Vm(c.sub, c.get); }, v,
        {{"Wi-Fi only", [](Caches& c) { c.sub.lan_state = 0; },
          [&](StatusPage1VM& v) {
              v.eth_link = false;
              v.up_mbps = c.sub.wlan0_rx_mbps;
              v.down_mbps = c.sub.wlan0_tx_mbps;
          }},
         {"the access point alone", noClientLink,
          [](StatusPage1VM& v) {
              v.eth_link = v.wifi_link = false;
              v.ip_text = "170.128.88.1";
              v.up_mbps = v.down_mbps = 0;
          }},
         {"no link at all",
          [&](Caches& c) {
              noClientLink(c);
              c.sub.ap_switch = false;
          },
          [](StatusPage1VM& v) {
              v.eth_link = v.wifi_link = v.ap_on = false;
              v.ip_text = "---.---.---.---";
              v.up_mbps = v.down_mbps = 0;
          }},
         {"an address in UTF-8", [](Caches& c) { c.sub.ip = "fe80::1%\xC3\xA9th0"; },
          [](StatusPage1VM& v) { v.ip_text = QString::fromUtf8("fe80::1%\xC3\xA9th0"); }}});

    // Fahrenheit in integer arithmetic.
    Caches hot = reportedCaches();
    const std::pair<int, int> temperatures[] = {{0, 32}, {37, 98}, {-40, -40}};
    for (const auto& [celsius, fahrenheit] : temperatures) {
        hot.sub.cpu_temp = celsius;
        EXPECT_EQ(computeStatusPage1Vm(hot.sub, hot.get).cpu_temp_f, fahrenheit) << celsius;
    }
}

TEST(StatusPage2Vm, ShowsTheEncoderStreamsOrTheDecoder)
{
    const Caches c = reportedCaches();
    const VideoEncInfo& main = c.get.venc_list[0];
    const VideoEncInfo& sub = c.get.venc_list[1];
    StatusPage2VM v;
    v.in_width = c.sub.video_width;
    v.in_height = c.sub.video_height;
    v.in_fps = c.sub.video_fps;
    v.in_fpsdiv = c.sub.video_fpsdiv;
    v.out_format = c.get.video_out.format;
    v.loop_out_on = v.audio_out_on = v.ndi_on = true;
    // With NDI on, the encoder runs at the bitrates preset for NDI.
    std::tie(v.main_codec, v.main_width, v.main_height, v.main_framerate, v.main_bitrate) =
        std::tie(main.codec, main.width, main.height, main.framerate, main.ndi_bitrate_pre);
    std::tie(v.sub_codec, v.sub_width, v.sub_height, v.sub_framerate, v.sub_bitrate) =
        std::tie(sub.codec, sub.width, sub.height, sub.framerate, sub.ndi_bitrate_pre);

    auto noStreams = [](StatusPage2VM& v) {
        v.main_codec = v.main_width = v.main_height = v.main_framerate = v.main_bitrate = 0;
        v.sub_codec = v.sub_width = v.sub_height = v.sub_framerate = v.sub_bitrate = 0;
    };
    auto decoder = [&](StatusPage2VM& v) {
        noStreams(v);
        v.work_mode = kDecoder;
        v.dec_status = c.get.dec_streamplay_status;
        v.dec_width = c.get.dec_width;
        v.dec_height = c.get.dec_height;
        v.dec_framerate = c.get.dec_framerate;
        v.dec_bandwidth = c.get.dec_bandwidth;
        v.dec_name = c.get.dec_name;
        v.dec_video_format = c.get.dec_video_format;
        v.dec_audio_format = c.get.dec_audio_format;
        v.ao_volume = c.get.audio.ao_volume;
    };
    expectRules<StatusPage2VM>(
        [](const Caches& c) { return computeStatusPage2Vm(c.sub, c.get, c.stored_work_mode); }, v,
        {{"NDI off", [](Caches& c) { c.get.enc_ndi_switch = 0; },
          [&](StatusPage2VM& v) {
              v.ndi_on = false;
              v.main_bitrate = main.bitrate;
              v.sub_bitrate = sub.bitrate;
          }},
         {"a single encoder stream", [](Caches& c) { c.get.venc_list.pop_back(); }, noStreams},
         {"a decoder", [](Caches& c) { c.sub.workmode_id = kDecoder; }, decoder},
         {"a decoder not yet reported",
          [](Caches& c) {
              c.sub.workmode_id = kDecoder;
              c.get.decoder_valid = false;
          },
          [&](StatusPage2VM& v) {
              decoder(v);
              v.dec_status = v.dec_width = v.dec_height = v.dec_bandwidth = 0;
              v.dec_framerate = 0;
              v.dec_name = v.dec_video_format = v.dec_audio_format = QString();
          }}});
}

} // namespace
} // namespace modeltest
