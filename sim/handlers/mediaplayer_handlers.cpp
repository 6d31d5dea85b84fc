// USB video devices, and the media server daemon's report of what the decoder
// plays.
#include "handlers/handlers.h"
#include "handlers/replies.h"
#include "state/device_rules.h"

namespace sim {

namespace {

const char* const kMediaplayerModule = "mediaplayer_api";

json* device(Request& r)
{
    const auto id = r.intArg("id");
    return id ? rules::findBy(r.state["decoder"]["uvc_list"], "id", *id) : nullptr;
}

json open(Request& r)
{
    json* uvc = device(r);
    if (!uvc)
        return reply::refuse(code::kUvcInvalid, "no device with this id");
    for (const char* check : {"dev_check", "format_check", "resolution_check", "fps_check"})
        if ((*uvc)[check] != 1)
            return reply::refuse(code::kUvcCheckFailed, std::string("device fails ") + check);
    if (rules::workMode(r.state) != 1)
        return reply::refuse(code::kUvcInvalid, "the decoder needs decode mode");
    rules::stopDecoderSources(r.state);
    (*uvc)["switch"] = 1;
    (*uvc)["play_status"] = 1;
    return reply::ok();
}

json close(Request& r)
{
    json* uvc = device(r);
    if (!uvc)
        return reply::refuse(code::kUvcInvalid, "no device with this id");
    (*uvc)["switch"] = 0;
    (*uvc)["play_status"] = 0;
    return reply::ok();
}

json playingSource(Request& r)
{
    json& decoder = r.state["decoder"];
    for (const json& pull : decoder["net_streams"])
        if (pull["streamplay_status"] == 1)
            return {{"name", pull["name"]},
                    {"width", 1920},
                    {"height", 1080},
                    {"framerate", 59.94},
                    {"bandwidth", 8000}};
    if (decoder["ndi"]["receiving"] != "")
        return {{"name", decoder["ndi"]["receiving"]},
                {"width", 1920},
                {"height", 1080},
                {"framerate", 50.0},
                {"bandwidth", 120000}};
    for (const json& uvc : decoder["uvc_list"])
        if (uvc["play_status"] == 1)
            return {{"name", uvc["name"] == "" ? json("USB") : uvc["name"]},
                    {"width", uvc["resolution"]["width"]},
                    {"height", uvc["resolution"]["height"]},
                    {"framerate", uvc["fps"]["num"].get<double>() / uvc["fps"]["den"].get<int>()},
                    {"bandwidth", 0}};
    return nullptr;
}

json decoderInfo(Request& r)
{
    const json source = playingSource(r);
    if (source.is_null())
        return reply::mediaData({{"name", ""},
                                 {"video_format", ""},
                                 {"audio_format", ""},
                                 {"bandwidth", 0},
                                 {"framerate", 0},
                                 {"width", 0},
                                 {"height", 0},
                                 {"streamplay_status", 0}});
    json report = source;
    report["video_format"] = "H.264";
    report["audio_format"] = "AAC";
    report["streamplay_status"] = 1;
    return reply::mediaData(report);
}

} // namespace

void registerMediaPlayerHandlers(HandlerTable& t)
{
    t.add(kMediaplayerModule, "uvc", "uvc_open", OpKind::Write, open);
    t.add(kMediaplayerModule, "uvc", "uvc_close", OpKind::Write, close);
    t.add(kMediaplayerModule, "uvc", "get_list_info", OpKind::Read, [](Request& r) {
        return reply::okData({{"uvc_list", r.state["decoder"]["uvc_list"]}});
    });
}

HandlerTable mediaServerHandlers()
{
    HandlerTable table;
    table.add("", "mediaplayer_module", "get_decoder_info", OpKind::Read, decoderInfo);
    return table;
}

} // namespace sim
