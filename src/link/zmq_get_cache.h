#pragma once

#include "zmqapi/api_records.h"

#include <QString>

#include <string>
#include <vector>

// One NAS mount as the storage daemon lists it.
struct NasMountInfo {
    QString name;
    bool switch_on = false;
    int status = 0;

    bool operator==(const NasMountInfo& o) const
    {
        return name == o.name && switch_on == o.switch_on && status == o.status;
    }
    bool operator!=(const NasMountInfo& o) const { return !(*this == o); }
};

// State that no topic publishes, fetched by ZmqGetWorker for the page on
// screen. Each group has a valid flag that turns true at the group's first
// successful refresh and stays true; a failed refresh leaves the group alone.
struct ZmqGetCache {
    VersionInfo version{};
    bool version_valid = false;

    DashBoardInfo dashboard{};
    bool dashboard_valid = false;

    int dc_out_switch = 0;
    int dc_out_voltage = 1;
    bool dc_out_valid = false;

    int usb_otg_id = 0;
    bool usb_otg_valid = false;

    int lcd_lock_stat = 0;
    int lcd_bright = 0;
    int lcd_sleep = 5;
    bool lcd_valid = false;

    std::string ap_ssid;
    std::string ap_psk;
    bool ap_valid = false;

    std::vector<NasMountInfo> nas_list;
    bool nas_valid = false;

    PtzctrlInfo ptz{};
    bool ptz_valid = false;

    TallyInfo tally{};
    bool tally_valid = false;

    VideoOutInfo video_out{};
    bool video_out_valid = false;

    int enc_ndi_switch = 0;
    int enc_ndi_mode_id = 0;
    std::string enc_ndi_machinename;
    bool enc_ndi_valid = false;

    std::vector<VideoEncInfo> venc_list;
    bool venc_valid = false;

    AiTrackingInfo ai_tracking = defaultAiTracking();
    bool ai_tracking_valid = false;

    GskInfo gsk{};
    bool gsk_valid = false;

    AudioAllInfo audio{};
    bool audio_valid = false;

    std::vector<EncRtspInfo> enc_rtsp_list;
    EncSrtInfo enc_srt{};
    bool local_server_valid = false;

    QString dec_name;
    QString dec_video_format;
    QString dec_audio_format;
    int dec_bandwidth = 0;
    double dec_framerate = 0;
    int dec_width = 0;
    int dec_height = 0;
    int dec_streamplay_status = 0;
    bool decoder_valid = false;

    int dec_srt_server_switch = 0;
    int dec_srt_play_switch = 0;
    bool dec_srt_valid = false;

    int dec_rtmp_switch = 0;
    bool dec_rtmp_valid = false;

    std::vector<DecNdiInfo> dec_ndi_list;
    bool dec_ndi_valid = false;

    std::vector<DecNetStreamInfo> dec_net_stream_list;
    bool dec_net_stream_valid = false;

    std::vector<UvcDevInfo> dec_uvc_list;
    bool dec_uvc_valid = false;

    int present_storage_id = -1;
    bool present_storage_valid = false;

    int app_connection_status = 0;
    bool app_connection_valid = false;

    // Tracking starts off, with the default network type until the first read.
    static AiTrackingInfo defaultAiTracking()
    {
        AiTrackingInfo info{};
        info.nn_enable = 0;
        info.nn_type = 1;
        return info;
    }
};
