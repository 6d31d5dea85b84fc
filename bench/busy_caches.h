#pragma once
// Caches as they look on a busy encoder: every group reported, eight push
// streams and OSD layouts, a dozen decoder sources. Shared by the model
// benchmarks so that they measure the same data.
#include "link/zmq_get_cache.h"
#include "link/zmq_sub_cache.h"

#include <QString>

#include <string>

namespace benchdata {

struct Caches {
    ZmqSubCache sub;
    ZmqGetCache get;
};

inline void fillSubCache(ZmqSubCache& sub)
{
    sub.network_ready = sub.cpu_memory_ready = sub.storage_ready = true;
    sub.video_input_ready = sub.record_ready = sub.net_stream_ready = true;
    sub.osd_ready = sub.system_state_ready = true;
    sub.ip = "192.168.100.23";
    sub.lan_state = 1;
    sub.wifi_switch = true;
    sub.wifi_status = 4;
    sub.ap_switch = true;
    sub.cpu_temp = 61;
    sub.eth0_rx_mbps = 12.5;
    sub.eth0_tx_mbps = 8.25;
    for (int slot = 0; slot < ZmqSubCache::kDiskSlots; ++slot) {
        sub.disk_present[slot] = true;
        sub.disk_status[slot] = 1;
        sub.disk_total[slot] = 120000 * (slot + 1);
        sub.disk_used[slot] = 50000;
        sub.disk_free[slot] = sub.disk_total[slot] - 50000;
    }
    sub.record_task_id[0] = "sdcard_0";
    sub.record_status[0] = 1;
    sub.record_active = true;
    sub.video_width = 1920;
    sub.video_height = 1080;
    sub.video_fps = 60;
    for (int i = 0; i < 8; ++i) {
        sub.push_streams.push_back({i, QString("Platform stream %1").arg(i), i % 2 == 0, 1, 0});
        sub.osd_items.push_back({i, QString("Overlay layout %1").arg(i), i < 3, i < 3 ? 1 : 0});
    }
}

inline void fillGetCache(ZmqGetCache& get)
{
    get.version_valid = get.dashboard_valid = get.lcd_valid = get.ap_valid = true;
    get.nas_valid = get.video_out_valid = get.enc_ndi_valid = get.venc_valid = true;
    get.audio_valid = get.decoder_valid = get.present_storage_valid = true;
    get.dec_ndi_valid = get.dec_net_stream_valid = get.dec_uvc_valid = true;
    get.usb_otg_valid = get.app_connection_valid = true;
    get.version = {"V1.2", "3.4.5-build77", "Encoder-Studio-A", "SN0012345678"};
    get.dashboard = {"123h", "2025-03-01 08:00:00"};
    get.ap_ssid = "Encoder-AP-5G";
    get.ap_psk = "correct horse battery";
    get.video_out.format = "1080p60";
    get.enc_ndi_switch = 1;
    get.enc_ndi_machinename = "ENCODER-STUDIO-A";
    get.present_storage_id = 0;
    for (int i = 0; i < 3; ++i) {
        get.nas_list.push_back({QString("nas-share-%1").arg(i), i == 0, 1});
    }
    VideoEncInfo main_stream;
    main_stream.width = 1920;
    main_stream.height = 1080;
    main_stream.bitrate = 8000;
    VideoEncInfo sub_stream = main_stream;
    sub_stream.width = 640;
    sub_stream.height = 360;
    get.venc_list = {main_stream, sub_stream};
    for (int i = 0; i < 12; ++i) {
        get.dec_ndi_list.push_back({i, QString("STUDIO-PC-%1 (OBS)").arg(i), i == 0 ? 1 : 0});
        get.dec_net_stream_list.push_back({i, QString("rtmp://10.0.0.%1/live").arg(i), i == 1, 0});
    }
    for (int i = 0; i < 4; ++i) {
        UvcDevInfo dev;
        dev.id = i;
        dev.name = "hub" + std::to_string(i);
        dev.present = true;
        dev.switch_on = i == 0;
        get.dec_uvc_list.push_back(dev);
    }
}

inline const Caches& busyCaches()
{
    static const Caches caches = [] {
        Caches c;
        fillSubCache(c.sub);
        fillGetCache(c.get);
        return c;
    }();
    return caches;
}

} // namespace benchdata
