#pragma once

#include <QString>

#include <string>
#include <vector>

// One push stream as the net stream topic reports it.
struct PushStreamItemInfo {
    int index = 0;
    QString name;
    bool switch_on = false;
    int status = 0;
    int reserved = 0; // carried by the row type, filled by no topic

    bool operator==(const PushStreamItemInfo& o) const
    {
        return index == o.index && name == o.name && switch_on == o.switch_on && status == o.status
               && reserved == o.reserved;
    }
    bool operator!=(const PushStreamItemInfo& o) const { return !(*this == o); }
};

// One OSD layout as the OSD topic reports it.
struct OsdItemInfo {
    int id = 0;
    QString name;
    bool switch_on = false;
    int status = 0;

    bool operator==(const OsdItemInfo& o) const
    {
        return id == o.id && name == o.name && switch_on == o.switch_on && status == o.status;
    }
    bool operator!=(const OsdItemInfo& o) const { return !(*this == o); }
};

// Everything the daemons publish on the subscribed topics. Slots of the
// three-element arrays: 0 TF card, 1 USB disk, 2 NAS. A value counts only once
// the ready flag of its topic is set; flags are never reset.
struct ZmqSubCache {
    static constexpr int kDiskSlots = 3;

    // topic_network_info
    std::string ip;
    int lan_state = 0;
    int lan_dhcp_switch = 0;
    bool ap_switch = false;
    bool wifi_switch = false;
    int wifi_status = 0;
    std::string wifi_ssid;

    // topic_cpu_memory_info
    int cpu_temp = 0;
    int cpu_payload = 0;
    int memory_percent = 0;
    double eth0_rx_mbps = 0;
    double eth0_tx_mbps = 0;
    double wlan0_rx_mbps = 0;
    double wlan0_tx_mbps = 0;
    double wlan1_rx_mbps = 0;
    double wlan1_tx_mbps = 0;

    // topic_storage_info
    bool disk_present[kDiskSlots] = {false, false, false};
    int disk_total[kDiskSlots] = {0, 0, 0};
    int disk_free[kDiskSlots] = {0, 0, 0};
    int disk_used[kDiskSlots] = {0, 0, 0};
    float disk_write_speed[kDiskSlots] = {0, 0, 0};
    int disk_status[kDiskSlots] = {0, 0, 0};

    // topic_video_input_info
    int video_width = 0;
    int video_height = 0;
    int video_fps = 0;
    int video_fpsdiv = 0;
    int audio_samplerate = 0;

    // topic_record_state_info
    int record_status[kDiskSlots] = {0, 0, 0};
    int record_duration[kDiskSlots] = {0, 0, 0};
    std::string record_task_id[kDiskSlots];
    bool record_active = false;

    // topic_net_stream_info
    bool stream_active = false;
    std::vector<PushStreamItemInfo> push_streams;

    // topic_osd_state_info
    std::vector<OsdItemInfo> osd_items;

    // topic_system_state_info
    int run_status = 1;
    int workmode_id = 0;
    int language_id = 0;

    // topic_upgrade_progress_info, 0..100 once reported
    int upgrade_progress = -1;

    bool network_ready = false;
    bool cpu_memory_ready = false;
    bool storage_ready = false;
    bool video_input_ready = false;
    bool record_ready = false;
    bool net_stream_ready = false;
    bool osd_ready = false;
    bool system_state_ready = false;
};
