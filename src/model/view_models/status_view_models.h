#pragma once
// What the status bar, the three status pages, the standby page and the
// screensaver show. Plain values: a page only formats them.
#include <QMetaType>
#include <QString>
#include <QtGlobal>

#include <tuple>

struct StatusBarVM {
    int work_mode = 0;
    bool show_record_status = false;
    int record_status = 0;
    int record_duration = 0;
    qint64 free_space = 0; // MB
    int disk_type = -1;    // 0 TF card, 1 USB, 3 NAS, -1 none
    int disk_icon_level = 0;
    bool is_recording = false;
    bool is_streaming = false;
    bool is_decoding = false;
    bool ndi_on = false;
    bool usb_present = false;
    bool tf_present = false;
    bool nas_present = false;
    bool eth_link = false;
    bool wifi_on = false;
    bool wifi_connected = false;
    bool ap_on = false;
    bool lcd_locked = false;
    // Filled in by the window for the page being shown.
    int pageid = 0;
    QString context_text;
    bool is_modal = false;
    bool is_status_page = true;
    bool hide_chrome = false;

    auto fields() const
    {
        return std::tie(work_mode, show_record_status, record_status, record_duration, free_space,
                        disk_type, disk_icon_level, is_recording, is_streaming, is_decoding, ndi_on,
                        usb_present, tf_present, nas_present, eth_link, wifi_on, wifi_connected,
                        ap_on, lcd_locked, pageid, context_text, is_modal, is_status_page,
                        hide_chrome);
    }
    bool operator==(const StatusBarVM& o) const { return fields() == o.fields(); }
    bool operator!=(const StatusBarVM& o) const { return !(*this == o); }
};

struct StatusPage1VM {
    int cpu_temp_c = 0;
    int cpu_temp_f = 32;
    int cpu_payload = 0;
    int memory_percent = 0;
    QString device_name;
    bool dhcp_on = false;
    bool eth_link = false;
    bool wifi_link = false;
    bool ap_on = false;
    QString ip_text;
    double up_mbps = 0;
    double down_mbps = 0;
    QString ap_ssid;

    auto fields() const
    {
        return std::tie(cpu_temp_c, cpu_temp_f, cpu_payload, memory_percent, device_name, dhcp_on,
                        eth_link, wifi_link, ap_on, ip_text, up_mbps, down_mbps, ap_ssid);
    }
    bool operator==(const StatusPage1VM& o) const { return fields() == o.fields(); }
    bool operator!=(const StatusPage1VM& o) const { return !(*this == o); }
};

struct StatusPage2VM {
    int work_mode = 0;
    int in_width = 0;
    int in_height = 0;
    int in_fps = 0;
    int in_fpsdiv = 0;
    QString out_format;
    bool loop_out_on = false;
    bool audio_out_on = false;
    bool ndi_on = false;
    int main_codec = 0;
    int main_width = 0;
    int main_height = 0;
    int main_framerate = 0;
    int main_bitrate = 0;
    int sub_codec = 0;
    int sub_width = 0;
    int sub_height = 0;
    int sub_framerate = 0;
    int sub_bitrate = 0;
    int dec_status = 0;
    int dec_width = 0;
    int dec_height = 0;
    double dec_framerate = 0;
    int dec_bandwidth = 0;
    int ao_volume = 0;
    QString dec_video_format;
    QString dec_audio_format;
    QString dec_name;

    auto fields() const
    {
        return std::tie(work_mode, in_width, in_height, in_fps, in_fpsdiv, out_format, loop_out_on,
                        audio_out_on, ndi_on, main_codec, main_width, main_height, main_framerate,
                        main_bitrate, sub_codec, sub_width, sub_height, sub_framerate, sub_bitrate,
                        dec_status, dec_width, dec_height, dec_framerate, dec_bandwidth, ao_volume,
                        dec_video_format, dec_audio_format, dec_name);
    }
    bool operator==(const StatusPage2VM& o) const { return fields() == o.fields(); }
    bool operator!=(const StatusPage2VM& o) const { return !(*this == o); }
};

struct StatusPage3VM {
    bool audio_on = false;
    int volume = 0;
    int bitrate = 0;
    int sample_rate = 0;
    int ai_type = 0;
    int codec = 0;
    int input_samplerate = 0;

    auto fields() const
    {
        return std::tie(audio_on, volume, bitrate, sample_rate, ai_type, codec, input_samplerate);
    }
    bool operator==(const StatusPage3VM& o) const { return fields() == o.fields(); }
    bool operator!=(const StatusPage3VM& o) const { return !(*this == o); }
};

// Placeholders shown until the backend clock has been read.
inline const char* const kUnknownDateText = "----.--.--";
inline const char* const kUnknownTimeText = "--:--:--";

struct StandbyPageVM {
    QString date_text = QString::fromLatin1(kUnknownDateText);
    QString time_text = QString::fromLatin1(kUnknownTimeText);
    QString ip_text;

    auto fields() const { return std::tie(date_text, time_text, ip_text); }
    bool operator==(const StandbyPageVM& o) const { return fields() == o.fields(); }
    bool operator!=(const StandbyPageVM& o) const { return !(*this == o); }
};

struct DynamicScreensaverVM {
    QString date_text = QString::fromLatin1(kUnknownDateText);
    QString time_text = QString::fromLatin1(kUnknownTimeText);
    int work_mode = 0;
    bool standby = false;

    auto fields() const { return std::tie(date_text, time_text, work_mode, standby); }
    bool operator==(const DynamicScreensaverVM& o) const { return fields() == o.fields(); }
    bool operator!=(const DynamicScreensaverVM& o) const { return !(*this == o); }
};

Q_DECLARE_METATYPE(StatusBarVM)
Q_DECLARE_METATYPE(StatusPage1VM)
Q_DECLARE_METATYPE(StatusPage2VM)
Q_DECLARE_METATYPE(StatusPage3VM)
Q_DECLARE_METATYPE(StandbyPageVM)
Q_DECLARE_METATYPE(DynamicScreensaverVM)
