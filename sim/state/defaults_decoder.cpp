#include "state/defaults.h"

namespace sim {

namespace {

json pull(int index, const char* name, const char* url)
{
    return {
        {"index", index}, {"name", name}, {"url", url}, {"switch", 0}, {"streamplay_status", 0}};
}

json uvc(int id, const char* name, int format_check)
{
    return {{"id", id},
            {"name", name},
            {"usbhub_check", 0},
            {"switch", 0},
            {"play_status", 0},
            {"dev_check", 1},
            {"format_check", format_check},
            {"resolution_check", 1},
            {"fps_check", 1},
            {"format", {{"format_type", "MJPEG"}}},
            {"resolution", {{"width", 1920}, {"height", 1080}}},
            {"fps", {{"num", 30}, {"den", 1}}}};
}

} // namespace

json defaultDecoderState()
{
    return {
        {"decoder",
         {{"net_streams", json::array({pull(0, "Camera A", "srt://192.168.1.20:9000"),
                                       pull(1, "Camera B", "rtmp://192.168.1.21/live/b")})},
          {"ndi",
           {{"sources", json::array()},
            {"discoverable", {"STUDIO (Cam 1)", "STUDIO (Cam 2)", "LAPTOP (Slides)"}},
            {"search_ticks_left", 0},
            {"search_ticks", 2},
            {"receiving", ""}}},
          {"uvc_list", json::array({uvc(0, "", 1), uvc(1, "Capture HD", 0)})},
          {"srt_server", {{"server_switch", 0}, {"play_switch", 0}, {"port", 9001}}},
          {"rtmp_server", {{"switch", 0}, {"index", 0}}}}},
    };
}

} // namespace sim
