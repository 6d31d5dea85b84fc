#pragma once
// Records of the decoder side: incoming streams, NDI sources, USB video.
#include <QString>

#include <string>
#include <tuple>

struct DecNetStreamInfo {
    int index = 0;
    QString name;
    int switch_on = 0;
    int streamplay_status = 0;

    bool operator==(const DecNetStreamInfo& o) const
    {
        return std::tie(index, name, switch_on, streamplay_status)
               == std::tie(o.index, o.name, o.switch_on, o.streamplay_status);
    }
    bool operator!=(const DecNetStreamInfo& o) const { return !(*this == o); }
};

struct DecNdiInfo {
    int index = 0;
    QString name; // what setDecNdiRecv is given back
    int streamplay_status = 0;

    bool operator==(const DecNdiInfo& o) const
    {
        return std::tie(index, name, streamplay_status)
               == std::tie(o.index, o.name, o.streamplay_status);
    }
    bool operator!=(const DecNdiInfo& o) const { return !(*this == o); }
};

// The SRT listener's switches are read from JSON by the poller; this record
// only types the model's getter and carries nothing.
struct DecSrtServerInfo {};

// A USB video device. `name` is the backend's, or a made-up "USB"/"hubN".
struct UvcDevInfo {
    int id = 0;
    std::string name;
    bool present = false;
    int switch_on = 0;
    int play_status = 0;
    int dev_check = 0;
    int format_check = 0;
    int resolution_check = 0;
    int fps_check = 0;

    auto fields() const
    {
        return std::tie(id, name, present, switch_on, play_status, dev_check, format_check,
                        resolution_check, fps_check);
    }
    bool operator==(const UvcDevInfo& o) const { return fields() == o.fields(); }
    bool operator!=(const UvcDevInfo& o) const { return !(*this == o); }
};
