#pragma once
// One record per settings group; the pages of a group share it.
#include "link/zmq_get_cache.h"

#include <QList>
#include <QMetaType>
#include <QString>

#include <tuple>

struct SystemSettingsPageVM {
    bool dc_out_on = false;
    int dc_out_voltage = 1;
    bool usb_otg_on = false;
    QString device_name;
    QString device_start_time;
    QString persistent_time;
    QString hardware_version;
    QString firmware_version;
    QString serial_number;

    auto fields() const
    {
        return std::tie(dc_out_on, dc_out_voltage, usb_otg_on, device_name, device_start_time,
                        persistent_time, hardware_version, firmware_version, serial_number);
    }
    bool operator==(const SystemSettingsPageVM& o) const { return fields() == o.fields(); }
    bool operator!=(const SystemSettingsPageVM& o) const { return !(*this == o); }
};

struct NetworkSettingsPageVM {
    bool wifi_on = false;
    bool ap_on = false;
    bool has_link = false;
    bool eth_link = false;
    bool wifi_link = false;
    bool client_link = false;
    QString ip_text;
    QString http_url;
    QString ap_http_url;
    QString ap_ssid;
    QString ap_psk;
    QString ap_wifi_qr;
    QList<NasMountInfo> nas_list;

    auto fields() const
    {
        return std::tie(wifi_on, ap_on, has_link, eth_link, wifi_link, client_link, ip_text,
                        http_url, ap_http_url, ap_ssid, ap_psk, ap_wifi_qr, nas_list);
    }
    bool operator==(const NetworkSettingsPageVM& o) const { return fields() == o.fields(); }
    bool operator!=(const NetworkSettingsPageVM& o) const { return !(*this == o); }
};

struct CameraSettingsPageVM {
    bool lcd_lock_on = false;
    int lcd_bright = 0;
    int lcd_sleep = 5;
    int ptz_protocol = 0;
    int ptz_usb2serial = 0;
    bool tally_on = false;
    int tally_mode_id = 0;
    int tally_color_id = 0;

    auto fields() const
    {
        return std::tie(lcd_lock_on, lcd_bright, lcd_sleep, ptz_protocol, ptz_usb2serial, tally_on,
                        tally_mode_id, tally_color_id);
    }
    bool operator==(const CameraSettingsPageVM& o) const { return fields() == o.fields(); }
    bool operator!=(const CameraSettingsPageVM& o) const { return !(*this == o); }
};

struct VideoSettingsPageVM {
    int work_mode = 0;
    bool audio_out_on = false;
    bool loop_out_on = false;
    bool ai_tracking_on = false;
    bool gsk_on = false;
    int gsk_bg_count = 0;
    int in_width = 0;
    int in_height = 0;
    int in_fps = 0;
    QString out_format;

    auto fields() const
    {
        return std::tie(work_mode, audio_out_on, loop_out_on, ai_tracking_on, gsk_on, gsk_bg_count,
                        in_width, in_height, in_fps, out_format);
    }
    bool operator==(const VideoSettingsPageVM& o) const { return fields() == o.fields(); }
    bool operator!=(const VideoSettingsPageVM& o) const { return !(*this == o); }
};

struct AudioSettingsPageVM {
    int work_mode = 0;
    int muted = 0;
    int volume = 0;
    int ai_type = 0;

    auto fields() const { return std::tie(work_mode, muted, volume, ai_type); }
    bool operator==(const AudioSettingsPageVM& o) const { return fields() == o.fields(); }
    bool operator!=(const AudioSettingsPageVM& o) const { return !(*this == o); }
};

struct MediaSettingsPageVM {
    int work_mode = 0;
    bool ndi_on = false;
    int ndi_mode_id = 0;
    QString ndi_machinename;
    bool srt_on = false;
    int present_storage_id = -1;
    int record_status = 0;
    bool disk_speed_testing = false; // set by the window for delivery

    auto fields() const
    {
        return std::tie(work_mode, ndi_on, ndi_mode_id, ndi_machinename, srt_on, present_storage_id,
                        record_status, disk_speed_testing);
    }
    bool operator==(const MediaSettingsPageVM& o) const { return fields() == o.fields(); }
    bool operator!=(const MediaSettingsPageVM& o) const { return !(*this == o); }
};

struct DecodingSettingsPageVM {
    bool rtmp_on = false;
    bool srt_server_on = false;
    bool srt_play_on = false;

    auto fields() const { return std::tie(rtmp_on, srt_server_on, srt_play_on); }
    bool operator==(const DecodingSettingsPageVM& o) const { return fields() == o.fields(); }
    bool operator!=(const DecodingSettingsPageVM& o) const { return !(*this == o); }
};

Q_DECLARE_METATYPE(SystemSettingsPageVM)
Q_DECLARE_METATYPE(NetworkSettingsPageVM)
Q_DECLARE_METATYPE(CameraSettingsPageVM)
Q_DECLARE_METATYPE(VideoSettingsPageVM)
Q_DECLARE_METATYPE(AudioSettingsPageVM)
Q_DECLARE_METATYPE(MediaSettingsPageVM)
Q_DECLARE_METATYPE(DecodingSettingsPageVM)
