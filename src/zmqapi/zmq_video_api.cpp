// Video domain operations of ZmqSubWorker.
#include "zmqapi/zmq_api_patterns.h"

using zmqapi::command;
using zmqapi::request;

namespace {

constexpr zmqapi::InfoFunction kVideoInfo = &ZmqSubWorker::getVideoApiInfo;
constexpr zmqapi::ControlFunction kControl = &ZmqSubWorker::sendVideoApiControl;

// The NDI sender takes its bitrate preset only within this range.
constexpr int kNdiBitrateMin = 50;
constexpr int kNdiBitrateMax = 125;

void setBitrate(json& entry, int bitrate, int ndi_bitrate_pre)
{
    entry["bitrate"] = bitrate;
    if (ndi_bitrate_pre >= kNdiBitrateMin && ndi_bitrate_pre <= kNdiBitrateMax) {
        entry["ndi_bitrate_pre"] = ndi_bitrate_pre;
    }
}

// The encoder wants its whole `venc` array back: read it, let `change` edit
// the stream's entry (made by indexing if missing), send it all.
template <class Change> int sendVencChange(ZmqSubWorker& worker, int stream, Change change)
{
    if (stream < 0)
        return zmqapi::kFailure;
    return zmqapi::sendWithState(worker, &ZmqSubWorker::getVideoEncParams, kControl,
                                 request("venc"), [&](json& req, const json& state) {
                                     req["venc"] =
                                         state.is_object() ? state.value("venc", json()) : json();
                                     change(req["venc"][static_cast<std::size_t>(stream)]);
                                 });
}

} // namespace

int ZmqSubWorker::setEncNdiSwitch(int ndi_switch)
{
    return sendVideoApiControl(command("ndi", "ndi_switch", {{"switch", ndi_switch}}));
}

int ZmqSubWorker::setEncNdiDiscoverSwitch(int discovery_enable)
{
    return zmqapi::sendStateAsData(*this, &ZmqSubWorker::getEncNdiInfo, kControl,
                                   request("ndi", "set_ndi_info"), "discovery_enable",
                                   discovery_enable);
}

int ZmqSubWorker::setEncNdiQuality(int mode_id)
{
    return zmqapi::sendStateAsData(*this, &ZmqSubWorker::getEncNdiInfo, kControl,
                                   request("ndi", "set_ndi_info"), "mode_id", mode_id);
}

// Only the loop-out switch is sent; the backend is told not to check the
// media pipeline for this change.
int ZmqSubWorker::setLoopOutSwitch(int loop_out_switch)
{
    json req = command("hdmi", "set_output_info", {{"loop_out_switch", loop_out_switch}});
    req["skip_check_mpp"] = 1;
    return sendVideoApiControl(req);
}

int ZmqSubWorker::setVideoOutMuteSwitch(int audio_switch)
{
    return zmqapi::sendStateAsData(*this, &ZmqSubWorker::getVideoOutInfo, kControl,
                                   request("hdmi", "set_output_info"), "audio_switch",
                                   audio_switch);
}

int ZmqSubWorker::setVideoOutFormat(const std::string& format)
{
    return zmqapi::sendStateAsData(*this, &ZmqSubWorker::getVideoOutInfo, kControl,
                                   request("hdmi", "set_output_info"), "format", format);
}

int ZmqSubWorker::setVideoInMaxResMode(int edid_mode)
{
    return sendVideoApiControl(
        command("hdmi", "set_input_info", {{"gsv2001", {{"edid_mode", edid_mode}}}}));
}

int ZmqSubWorker::setVideoEncParams(const VideoEncInfo& info)
{
    return sendVencChange(*this, info.stream_id, [&](json& entry) {
        entry["codec"]["selected_id"] = info.codec;
        entry["profile"]["selected_id"] = info.profile;
        entry["width"] = info.width;
        entry["height"] = info.height;
        entry["ratecontrol"]["selected_id"] = info.ratecontrol;
        setBitrate(entry, info.bitrate, info.ndi_bitrate_pre);
        entry["framerate"] = info.framerate;
        entry["keyinterval"] = info.keyinterval;
    });
}

int ZmqSubWorker::setVideoEncCodecId(int stream, int codec_id)
{
    return sendVencChange(*this, stream,
                          [&](json& entry) { entry["codec"]["selected_id"] = codec_id; });
}

int ZmqSubWorker::setVideoEncProfileId(int stream, int profile_id)
{
    return sendVencChange(*this, stream,
                          [&](json& entry) { entry["profile"]["selected_id"] = profile_id; });
}

int ZmqSubWorker::setVideoEncRes(int stream, int width, int height)
{
    return sendVencChange(*this, stream, [&](json& entry) {
        entry["width"] = width;
        entry["height"] = height;
    });
}

int ZmqSubWorker::setVideoEncRateControlId(int stream, int ratecontrol_id)
{
    return sendVencChange(
        *this, stream, [&](json& entry) { entry["ratecontrol"]["selected_id"] = ratecontrol_id; });
}

// A bitrate the NDI sender can use becomes its preset too; the preset is
// never pulled the other way.
int ZmqSubWorker::setVideoEncBitrate(int stream, int bitrate)
{
    return sendVencChange(*this, stream, [&](json& entry) { setBitrate(entry, bitrate, bitrate); });
}

int ZmqSubWorker::setVideoEncFps(int stream, int framerate)
{
    return sendVencChange(*this, stream, [&](json& entry) { entry["framerate"] = framerate; });
}

int ZmqSubWorker::setVideoEncKeyFrameInterval(int stream, int keyinterval)
{
    return sendVencChange(*this, stream, [&](json& entry) { entry["keyinterval"] = keyinterval; });
}

int ZmqSubWorker::getVideoInInfo(json& out)
{
    return zmqapi::get(*this, kVideoInfo, "hdmi", "get_input_info", out);
}

int ZmqSubWorker::getVideoOutInfo(json& out)
{
    return zmqapi::get(*this, kVideoInfo, "hdmi", "get_output_info", out);
}

int ZmqSubWorker::getVideoEncParams(json& out)
{
    return zmqapi::get(*this, kVideoInfo, "all", nullptr, out, zmqapi::resultAt("all"));
}

int ZmqSubWorker::getEncNdiInfo(json& out)
{
    return zmqapi::get(*this, kVideoInfo, "ndi", "get_ndi_info", out);
}
