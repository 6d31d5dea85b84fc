#pragma once
// Records of the encoder side: video, audio, outgoing streams, AI, recording.
#include <QString>

#include <string>
#include <tuple>

// One encoder stream; `stream_id` indexes the backend's `venc` array.
struct VideoEncInfo {
    int codec = 0;
    int profile = 0;
    int ratecontrol = 0;
    int bitrate = 0;
    int ndi_bitrate_pre = 0;
    int width = 0;
    int height = 0;
    int framerate = 0;
    int keyinterval = 0;
    int stream_id = 0;

    auto fields() const
    {
        return std::tie(codec, profile, ratecontrol, bitrate, ndi_bitrate_pre, width, height,
                        framerate, keyinterval, stream_id);
    }
    bool operator==(const VideoEncInfo& o) const { return fields() == o.fields(); }
    bool operator!=(const VideoEncInfo& o) const { return !(*this == o); }
};

struct VideoOutInfo {
    QString format;
    int audio_switch = 0;
    int loop_out_switch = 0;

    bool operator==(const VideoOutInfo& o) const
    {
        return std::tie(format, audio_switch, loop_out_switch)
               == std::tie(o.format, o.audio_switch, o.loop_out_switch);
    }
    bool operator!=(const VideoOutInfo& o) const { return !(*this == o); }
};

struct EncNdiInfo {
    int switch_on = 0;

    bool operator==(const EncNdiInfo& o) const { return switch_on == o.switch_on; }
    bool operator!=(const EncNdiInfo& o) const { return !(*this == o); }
};

// The audio encoder; the four ids are `selected_id` of the backend's lists.
struct AudioAllInfo {
    int switch_on = 0;
    int ai_type = 0;
    int codec = 0;
    int bitrate = 0;
    int sample_rate = 0;
    int volume = 0;
    int ao_volume = 0;

    auto fields() const
    {
        return std::tie(switch_on, ai_type, codec, bitrate, sample_rate, volume, ao_volume);
    }
    bool operator==(const AudioAllInfo& o) const { return fields() == o.fields(); }
    bool operator!=(const AudioAllInfo& o) const { return !(*this == o); }
};

struct EncSrtInfo {
    int switch_on = 0;

    bool operator==(const EncSrtInfo& o) const { return switch_on == o.switch_on; }
    bool operator!=(const EncSrtInfo& o) const { return !(*this == o); }
};

// A local RTSP server. The backend lists none yet, so the row has no fields.
struct EncRtspInfo {
    bool operator==(const EncRtspInfo&) const { return true; }
    bool operator!=(const EncRtspInfo&) const { return false; }
};

struct AiTrackingInfo {
    int nn_enable = 0;
    int nn_type = 0;

    bool operator==(const AiTrackingInfo& o) const
    {
        return nn_enable == o.nn_enable && nn_type == o.nn_type;
    }
    bool operator!=(const AiTrackingInfo& o) const { return !(*this == o); }
};

// Green-screen matting.
struct GskInfo {
    int im_enable = 0;
    int user_bgfile_count = 0;

    bool operator==(const GskInfo& o) const
    {
        return im_enable == o.im_enable && user_bgfile_count == o.user_bgfile_count;
    }
    bool operator!=(const GskInfo& o) const { return !(*this == o); }
};

struct RecordTaskInfo {
    std::string index; // the task's identifier in the set operations
    int storage_id = 0;
    int status = 0;
    std::string name;

    bool operator==(const RecordTaskInfo& o) const
    {
        return std::tie(index, storage_id, status, name)
               == std::tie(o.index, o.storage_id, o.status, o.name);
    }
    bool operator!=(const RecordTaskInfo& o) const { return !(*this == o); }
};
