// The box as a decoder: network pulls, NDI reception, the SRT listener and
// the RTMP server. One source plays at a time.
#include "handlers/handlers.h"
#include "handlers/replies.h"
#include "state/device_rules.h"

namespace sim {

namespace {

const char* const kStreamplayModule = "streamplay_api";

json& decoder(Request& r)
{
    return r.state["decoder"];
}

std::optional<int> switchArg(Request& r, const char* key)
{
    const auto value = r.intArg(key);
    if (!value || (*value != 0 && *value != 1))
        return std::nullopt;
    return value;
}

json needsDecodeMode()
{
    return reply::refuse(code::kStreamPlayInvalid, "the decoder needs decode mode");
}

json pullSwitch(Request& r)
{
    const auto index = r.intArg("index");
    const auto on = switchArg(r, "switch");
    json* pull = index ? rules::findBy(decoder(r)["net_streams"], "index", *index) : nullptr;
    if (!pull || !on)
        return reply::refuse(code::kStreamPlayInvalid, "unknown stream or bad switch");
    if (*on == 1 && rules::workMode(r.state) != 1)
        return needsDecodeMode();
    if (*on == 1)
        rules::stopDecoderSources(r.state);
    (*pull)["switch"] = *on;
    (*pull)["streamplay_status"] = *on;
    return reply::ok();
}

json pullDelete(Request& r)
{
    const auto index = r.intArg("index");
    json& list = decoder(r)["net_streams"];
    json* pull = index ? rules::findBy(list, "index", *index) : nullptr;
    if (!pull)
        return reply::refuse(code::kStreamPlayInvalid, "unknown stream");
    list.erase(list.begin() + (pull - &list[0]));
    return reply::ok();
}

json ndiFind(Request& r)
{
    json& ndi = decoder(r)["ndi"];
    ndi["search_ticks_left"] = ndi.value("search_ticks", 2);
    return reply::ok();
}

json ndiReceive(Request& r)
{
    const auto name = r.stringArg("ndi_name");
    json& ndi = decoder(r)["ndi"];
    json* source = name ? rules::findBy(ndi["sources"], "name", *name) : nullptr;
    if (!source)
        return reply::refuse(code::kStreamPlayInvalid, "no such NDI source found");
    if (rules::workMode(r.state) != 1)
        return needsDecodeMode();
    rules::stopDecoderSources(r.state);
    ndi["receiving"] = *name;
    (*source)["streamplay_status"] = 1;
    return reply::ok();
}

json ndiClose(Request& r)
{
    json& ndi = decoder(r)["ndi"];
    ndi["receiving"] = "";
    for (json& source : ndi["sources"])
        source["streamplay_status"] = 0;
    return reply::ok();
}

json srtServerSwitch(Request& r, const char* key)
{
    const auto on = switchArg(r, key);
    if (!on)
        return reply::refuse(code::kStreamPlayInvalid, std::string(key) + " must be 0 or 1");
    if (*on == 1 && rules::workMode(r.state) != 1)
        return needsDecodeMode();
    decoder(r)["srt_server"][key] = *on;
    return reply::ok();
}

json rtmpSwitch(Request& r)
{
    const auto on = switchArg(r, "switch");
    if (!on)
        return reply::refuse(code::kStreamPlayInvalid, "switch must be 0 or 1");
    if (*on == 1 && rules::workMode(r.state) != 1)
        return needsDecodeMode();
    decoder(r)["rtmp_server"] = {{"switch", *on}, {"index", r.intArg("index").value_or(0)}};
    return reply::ok();
}

// 0 idle, 1 playing.
json decoderState(Request& r)
{
    int playing = decoder(r)["ndi"]["receiving"] != "" ? 1 : 0;
    for (const json& pull : decoder(r)["net_streams"])
        playing |= pull["streamplay_status"].get<int>();
    for (const json& device : decoder(r)["uvc_list"])
        playing |= device["play_status"].get<int>();
    return reply::okData({{"decoder_state", playing}});
}

} // namespace

void registerStreamPlayHandlers(HandlerTable& t)
{
    const OpKind W = OpKind::Write;
    const OpKind R = OpKind::Read;
    t.add(kStreamplayModule, "set_streamplay_info", "streamplay_switch", W, pullSwitch);
    t.add(kStreamplayModule, "set_streamplay_info", "streamplay_del", W, pullDelete);
    t.add(kStreamplayModule, "set_streamplay_ndi_info", "ndi_find", W, ndiFind);
    t.add(kStreamplayModule, "set_streamplay_ndi_info", "ndi_recv", W, ndiReceive);
    t.add(kStreamplayModule, "set_streamplay_ndi_info", "ndi_close", W, ndiClose);
    t.add(kStreamplayModule, "set_streamplay_srtserver_info", "server_switch", W,
          [](Request& r) { return srtServerSwitch(r, "server_switch"); });
    t.add(kStreamplayModule, "set_streamplay_srtserver_info", "play_switch", W,
          [](Request& r) { return srtServerSwitch(r, "play_switch"); });
    t.add(kStreamplayModule, "set_streamplay_servers_info", "play_switch", W, rtmpSwitch);

    t.add(kStreamplayModule, "get_streamplay_info", "get_decoder_state", R, decoderState);
    t.add(kStreamplayModule, "get_streamplay_info", "streamplay_get_all", R,
          [](Request& r) { return reply::okData(decoder(r)["net_streams"]); });
    t.add(kStreamplayModule, "get_streamplay_srtserver_info", "get_srt_server_info", R,
          [](Request& r) { return reply::okData(decoder(r)["srt_server"]); });
    t.add(kStreamplayModule, "get_streamplay_servers_info", "get_servers_info", R,
          [](Request& r) { return reply::okData(decoder(r)["rtmp_server"]); });
    t.add(kStreamplayModule, "get_streamplay_ndi_info", "ndi_get_all", R,
          [](Request& r) { return reply::okData(decoder(r)["ndi"]["sources"]); });
}

} // namespace sim
