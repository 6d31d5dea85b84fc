// HDMI input and output, encoder stream parameters, the NDI sender.
#include "handlers/field_update.h"
#include "handlers/handlers.h"
#include "handlers/replies.h"

#include <algorithm>

namespace sim {

namespace {

const char* const kVideoModule = "video_api";

json& video(Request& r)
{
    return r.state["video"];
}

json setOutput(Request& r)
{
    json& output = video(r)["output"];
    const json& args = r.data();
    json next = output;
    for (const char* key : {"audio_switch", "loop_out_switch"}) {
        if (!args.contains(key))
            continue;
        if (!args[key].is_number_integer() || (args[key] != 0 && args[key] != 1))
            return reply::refuse(code::kVideoInvalid, std::string(key) + " must be 0 or 1");
        next[key] = args[key];
    }
    if (args.contains("format")) {
        const json& formats = video(r)["output_formats"];
        if (!args["format"].is_string()
            || std::find(formats.begin(), formats.end(), args["format"]) == formats.end())
            return reply::refuse(code::kVideoInvalid, "unknown output format");
        next["format"] = args["format"];
    }
    output = next;
    return reply::ok();
}

json setInput(Request& r)
{
    const json& args = r.data();
    if (!args.contains("gsv2001") || !args["gsv2001"].is_object())
        return reply::refuse(code::kVideoInvalid, "gsv2001 missing");
    return updateIntFields(args["gsv2001"], video(r)["gsv2001"], {{"edid_mode", 0, 3}})
               ? reply::ok()
               : reply::refuse(code::kVideoInvalid, "invalid edid_mode");
}

bool validStream(const json& stream)
{
    if (!stream.is_object())
        return false;
    for (const char* key : {"codec", "profile", "ratecontrol"})
        if (stream.contains(key)
            && !(stream[key].is_object() && stream[key].value("selected_id", -1) >= 0))
            return false;
    for (const char* key : {"bitrate", "width", "height", "framerate", "keyinterval"})
        if (stream.contains(key) && !(stream[key].is_number_integer() && stream[key] > 0))
            return false;
    return true;
}

json setVenc(Request& r)
{
    const auto venc = r.body.find("venc");
    json& current = video(r)["venc"];
    if (venc == r.body.end() || !venc->is_array() || venc->size() != current.size())
        return reply::refuse(code::kVideoInvalid, "venc must list every stream");
    for (const json& stream : *venc)
        if (!validStream(stream))
            return reply::refuse(code::kVideoInvalid, "invalid stream parameters");
    for (std::size_t i = 0; i < current.size(); ++i)
        current[i].update((*venc)[i]);
    return reply::ok();
}

json setNdiInfo(Request& r)
{
    json& ndi = video(r)["ndi"];
    if (!updateIntFields(r.data(), ndi, {{"mode_id", 1, 4}, {"discovery_enable", 0, 1}}))
        return reply::refuse(code::kVideoInvalid, "invalid NDI setting");
    if (r.stringArg("machinename"))
        ndi["machinename"] = *r.stringArg("machinename");
    return reply::ok();
}

} // namespace

void registerVideoHandlers(HandlerTable& t)
{
    const OpKind W = OpKind::Write;
    const OpKind R = OpKind::Read;
    t.add(kVideoModule, "hdmi", "set_output_info", W, setOutput);
    t.add(kVideoModule, "hdmi", "set_input_info", W, setInput);
    t.add(kVideoModule, "venc", "", W, setVenc);
    t.add(kVideoModule, "ndi", "ndi_switch", W,
          intSetter("/video/ndi", {{"switch", 0, 1}}, code::kVideoInvalid));
    t.add(kVideoModule, "ndi", "set_ndi_info", W, setNdiInfo);

    t.add(kVideoModule, "hdmi", "get_input_info", R, [](Request& r) {
        json info = video(r)["input"];
        info["gsv2001"] = video(r)["gsv2001"];
        return reply::okData(info);
    });
    t.add(kVideoModule, "hdmi", "get_output_info", R, objectReader("/video/output"));
    t.add(kVideoModule, "all", "", R, [](Request& r) {
        return reply::okTop("all", {{"venc", video(r)["venc"]}});
    });
    t.add(kVideoModule, "ndi", "get_ndi_info", R, objectReader("/video/ndi"));
}

} // namespace sim
