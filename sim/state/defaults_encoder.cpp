#include "state/defaults.h"

namespace sim {

namespace {

json selected(int id)
{
    return {{"selected_id", id}};
}

json vencStream(int id, int width, int height, int bitrate)
{
    return {{"stream_id", id},        {"codec", selected(0)},
            {"profile", selected(1)}, {"ratecontrol", selected(0)},
            {"bitrate", bitrate},     {"ndi_bitrate_pre", 100},
            {"width", width},         {"height", height},
            {"framerate", 60},        {"keyinterval", 60}};
}

json publish(int index, const char* name)
{
    return {{"index", index}, {"name", name}, {"switch", 0}, {"status", 0}};
}

json osd(int id, const char* name, int on)
{
    return {{"id", id}, {"name", name}, {"switch", on}};
}

json ptzProtocolList()
{
    // Indexed by the protocol's wire value; unused values are empty entries.
    json list = json::array();
    const char* names[] = {"", "VISCA over IP", "", "VISCA", "PELCO D", "PELCO P",
                           "", "NDI",           "", "UVC"};
    for (int value = 0; value < 10; ++value)
        list.push_back(*names[value] ? json{{"protocol", value}, {"name", names[value]}}
                                     : json::object());
    return list;
}

} // namespace

json defaultEncoderState()
{
    return {
        {"video",
         {{"input",
           {{"width", 1920}, {"height", 1080}, {"fps", 60}, {"fpsdiv", 1}, {"samplerate", 48000}}},
          {"output", {{"format", "1080p60"}, {"audio_switch", 1}, {"loop_out_switch", 0}}},
          {"output_formats", {"2160p30", "1080p60", "1080p50", "1080p30", "720p60"}},
          {"gsv2001", {{"edid_mode", 0}}},
          {"venc", json::array({vencStream(0, 1920, 1080, 8000), vencStream(1, 1280, 720, 2000)})},
          {"ndi",
           {{"switch", 0},
            {"mode_id", 2},
            {"machinename", "VANTORBOX"},
            {"discovery_enable", 0}}}}},
        {"audio",
         {{"all",
           {{"switch", 1},
            {"ai_type", selected(0)},
            {"codec", selected(0)},
            {"bitrate", selected(2)},
            {"sample_rate", selected(4)},
            {"volume", 80},
            {"ao_volume", 70},
            {"ai_chnnum_id", 1},
            {"ai_chnnum_real", 2},
            {"ai_chnsel_id", 0}}}}},
        {"stream",
         {{"publish", json::array({publish(0, "YouTube Live"), publish(1, "Twitch"),
                                   publish(2, "Studio RTMP")})},
          {"srt_local", {{"switch", 0}, {"port", 9000}}},
          {"rtsp_auth", {{"switch", 0}, {"user", "admin"}, {"password", "admin"}}}}},
        {"osd",
         {{"osd_layout",
           json::array({osd(1, "Logo", 1), osd(2, "Lower third", 0), osd(3, "Clock", 0)})}}},
        {"ai",
         {{"tracking",
           {{"nn_enable", 0},
            {"nn_type", 1},
            {"object_tracking",
             {{"configure",
               {{"class_id", 0},
                {"figure_id", 0},
                {"placement_id", 1},
                {"mode_id", 0},
                {"speed_id", 2},
                {"control_enable", 0}}}}},
            {"track_id", -1}}},
          {"matting",
           {{"im_enable", 0},
            {"bgcolor_id", 0},
            {"bg_lf", 50},
            {"max_bg_cf", 80},
            {"min_bg_cf", 20},
            {"user_bgfile_list", {"studio.png", "beach.png"}}}}}},
        {"ptz", {{"protocol", 1}, {"usb2serial", 1}, {"protocol_list", ptzProtocolList()}}},
    };
}

} // namespace sim
