#pragma once
// Cache states for the view-model tests: a busy device with every topic and
// group reported, and the same values before anything was reported.
#include "link/zmq_get_cache.h"
#include "link/zmq_sub_cache.h"

#include <gtest/gtest.h>

#include <functional>
#include <tuple>
#include <vector>

namespace modeltest {

constexpr int kEncoder = 0;
constexpr int kDecoder = 1;

// What a view model is computed from: the two caches, and what the manager
// holds besides them.
struct Caches {
    ZmqSubCache sub;
    ZmqGetCache get;
    int stored_work_mode = kDecoder; // applies until the system state topic reports
    int http_port = 8080;
};

inline UvcDevInfo usbCamera(bool present, int switch_on)
{
    return {9, "USB", present, switch_on, 3, 4, 0, 2, 0};
}

// Every topic's ready flag and every group's valid flag.
inline void setReported(Caches& c, bool on)
{
    ZmqSubCache& s = c.sub;
    s.network_ready = s.cpu_memory_ready = s.storage_ready = s.video_input_ready = on;
    s.record_ready = s.net_stream_ready = s.osd_ready = s.system_state_ready = on;
    ZmqGetCache& g = c.get;
    g.version_valid = g.dashboard_valid = g.dc_out_valid = g.usb_otg_valid = g.lcd_valid = on;
    g.ap_valid = g.nas_valid = g.ptz_valid = g.tally_valid = g.video_out_valid = on;
    g.enc_ndi_valid = g.venc_valid = g.ai_tracking_valid = g.gsk_valid = g.audio_valid = on;
    g.local_server_valid = g.decoder_valid = g.dec_srt_valid = g.dec_rtmp_valid = on;
    g.dec_ndi_valid = g.dec_net_stream_valid = g.dec_uvc_valid = on;
    g.present_storage_valid = g.app_connection_valid = on;
}

// An encoder recording to the NAS (storage id 3, cache slot 2) and pushing a
// stream, the TF card in and no USB disk, on Ethernet and Wi-Fi with the
// access point on, the LCD locked and NDI sending.
inline Caches reportedCaches()
{
    Caches c;
    setReported(c, true);
    ZmqSubCache& s = c.sub;
    std::tie(s.ip, s.lan_state, s.lan_dhcp_switch, s.ap_switch, s.wifi_switch, s.wifi_status) =
        std::make_tuple("192.168.1.9", 1, 1, true, true, 4);
    std::tie(s.cpu_temp, s.cpu_payload, s.memory_percent) = std::make_tuple(70, 40, 55);
    std::tie(s.eth0_rx_mbps, s.eth0_tx_mbps, s.wlan0_rx_mbps, s.wlan0_tx_mbps) =
        std::make_tuple(11.5, 12.25, 21.5, 22.25);
    const int disks[3][4] = {{1, 1000, 100, 900}, {0, 0, 0, 0}, {1, 100000, 45000, 55000}};
    for (int slot = 0; slot < 3; ++slot) {
        s.disk_status[slot] = disks[slot][0];
        s.disk_present[slot] = disks[slot][0] > 0;
        s.disk_total[slot] = disks[slot][1];
        s.disk_used[slot] = disks[slot][2];
        s.disk_free[slot] = disks[slot][3];
    }
    std::tie(s.record_task_id[0], s.record_task_id[2]) = std::make_tuple("sdcard_0", "nas1_0");
    std::tie(s.record_status[2], s.record_duration[2]) = std::make_tuple(1, 3600);
    s.record_active = s.stream_active = true;
    std::tie(s.video_width, s.video_height, s.video_fps, s.video_fpsdiv, s.audio_samplerate) =
        std::make_tuple(3840, 2160, 60, 1001, 48000);
    s.push_streams = {{0, "YouTube", true, 1, 0}};
    s.osd_items = {{1, "Logo", true, 1}, {2, "Clock", false, 0}};
    s.workmode_id = kEncoder;

    ZmqGetCache& g = c.get;
    g.version = {"HW1", "FW2", "Box", "SN3"};
    g.dashboard = {"12h", "2025-01-01"};
    std::tie(g.dc_out_switch, g.dc_out_voltage, g.usb_otg_id) = std::make_tuple(1, 2, 2);
    std::tie(g.lcd_lock_stat, g.lcd_bright, g.lcd_sleep) = std::make_tuple(1, 80, 30);
    std::tie(g.ap_ssid, g.ap_psk) = std::make_tuple("Box;AP", "p:ss");
    g.nas_list = {{"share-a", true, 1}, {"share-b", false, 0}};
    g.ptz = {5, 1};
    g.tally = {1, 2, 3};
    g.video_out = {"1080p60", 1, 1};
    std::tie(g.enc_ndi_switch, g.enc_ndi_mode_id, g.enc_ndi_machinename) =
        std::make_tuple(1, 2, "BOX-\xC3\x9F");
    g.venc_list = {{1, 0, 0, 8000, 120000, 1920, 1080, 60, 60, 0},
                   {2, 0, 0, 1000, 30000, 640, 360, 30, 30, 1}};
    g.ai_tracking = {1, 2};
    g.gsk = {1, 4};
    g.audio = {1, 2, 3, 128, 44100, 9, 7};
    g.enc_srt.switch_on = 1;
    std::tie(g.dec_name, g.dec_video_format, g.dec_audio_format) =
        std::make_tuple("cam", "H264", "AAC");
    std::tie(g.dec_bandwidth, g.dec_framerate, g.dec_width, g.dec_height, g.dec_streamplay_status) =
        std::make_tuple(4500, 29.97, 1280, 720, 1);
    g.dec_srt_server_switch = g.dec_rtmp_switch = 1;
    g.dec_ndi_list = {{4, "CAM-A", 1}, {5, "CAM-B", 0}, {6, "CAM-C", -2}};
    g.dec_net_stream_list = {{0, "rtmp-1", 1, 0}, {1, "srt-2", 0, 1}};
    g.dec_uvc_list = {usbCamera(true, 1)};
    std::tie(g.present_storage_id, g.app_connection_status) = std::make_tuple(3, 2);
    return c;
}

// The same values, with no topic reported and no group read yet.
inline Caches unreportedCaches()
{
    Caches c = reportedCaches();
    setReported(c, false);
    return c;
}

// A rule of one view model: from the reported device changed by `given`,
// the view model of the reported device changed by `shows`.
template <class VM> struct Rule {
    const char* name;
    std::function<void(Caches&)> given;
    std::function<void(VM&)> shows;
};

template <class VM, class Compute>
void expectRules(Compute compute, const VM& reported, const std::vector<Rule<VM>>& rules)
{
    EXPECT_EQ(compute(reportedCaches()), reported) << "the reported device";
    for (const Rule<VM>& rule : rules) {
        SCOPED_TRACE(rule.name);
        Caches c = reportedCaches();
        rule.given(c);
        VM expected = reported;
        rule.shows(expected);
        EXPECT_EQ(compute(c), expected);
    }
}

} // namespace modeltest
