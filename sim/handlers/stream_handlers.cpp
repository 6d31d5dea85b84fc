// The encoder's outgoing streams: push ("publish") entries and the local SRT
// server, and the RTSP authentication.
#include "handlers/handlers.h"
#include "handlers/replies.h"
#include "state/device_rules.h"

namespace sim {

namespace {

const char* const kStreamModule = "stream_api";

json& stream(Request& r)
{
    return r.state["stream"];
}

json publishSwitch(Request& r)
{
    const auto index = r.intArg("index");
    const auto on = r.intArg("switch");
    if (!on || (*on != 0 && *on != 1))
        return reply::refuse(code::kStreamInvalid, "switch must be 0 or 1");
    json* entry = index ? rules::findBy(stream(r)["publish"], "index", *index) : nullptr;
    if (!entry)
        return reply::refuse(code::kStreamIndexInvalid, "no push stream with this index");
    if (*on == 1 && rules::workMode(r.state) != 0)
        return reply::refuse(code::kStreamInvalid, "push streams need encode mode");
    if (*on == 1 && r.state["video"]["ndi"]["switch"] == 1)
        return reply::refuse(code::kStreamNeedClose, "close NDI before pushing a stream");
    (*entry)["switch"] = *on;
    (*entry)["status"] = *on;
    return reply::ok();
}

json deletePublish(Request& r)
{
    const auto index = r.intArg("index");
    json& list = stream(r)["publish"];
    json* entry = index ? rules::findBy(list, "index", *index) : nullptr;
    if (!entry)
        return reply::refuse(code::kStreamIndexInvalid, "no push stream with this index");
    if ((*entry)["switch"] == 1)
        return reply::refuse(code::kStreamNeedClose, "stop the stream before deleting it");
    list.erase(list.begin() + (entry - &list[0]));
    return reply::ok();
}

json reorderPublish(Request& r)
{
    // The new order as a list of indices; each present index exactly once.
    const json& order = r.body.contains("data") ? r.body["data"] : json();
    const json& indices = order.is_object() && order.contains("index") ? order["index"] : order;
    json& list = stream(r)["publish"];
    if (!indices.is_array() || indices.size() != list.size())
        return reply::refuse(code::kStreamInvalid, "expected every index once");
    json reordered = json::array();
    for (const json& index : indices) {
        json* entry = rules::findBy(list, "index", index);
        if (!entry || rules::findBy(reordered, "index", index))
            return reply::refuse(code::kStreamIndexInvalid, "unknown or repeated index");
        reordered.push_back(*entry);
    }
    list = reordered;
    return reply::ok();
}

json srtLocalSwitch(Request& r)
{
    const auto on = r.intArg("switch");
    if (!on || (*on != 0 && *on != 1))
        return reply::refuse(code::kStreamInvalid, "switch must be 0 or 1");
    if (*on == 1 && rules::workMode(r.state) != 0)
        return reply::refuse(code::kStreamInvalid, "the SRT server needs encode mode");
    stream(r)["srt_local"]["switch"] = *on;
    return reply::ok();
}

json setRtspAuth(Request& r)
{
    const auto on = r.intArg("switch");
    if (!on || (*on != 0 && *on != 1))
        return reply::refuse(code::kStreamInvalid, "switch must be 0 or 1");
    json& auth = stream(r)["rtsp_auth"];
    auth["switch"] = *on;
    for (const char* key : {"user", "password"})
        if (r.stringArg(key))
            auth[key] = *r.stringArg(key);
    return reply::ok();
}

} // namespace

void registerStreamHandlers(HandlerTable& t)
{
    const OpKind W = OpKind::Write;
    const OpKind R = OpKind::Read;
    t.add(kStreamModule, "publish", "update_publish_switch", W, publishSwitch);
    t.add(kStreamModule, "publish", "del_publish_info", W, deletePublish);
    t.add(kStreamModule, "publish", "update_streams_index", W, reorderPublish);
    t.add(kStreamModule, "set_srt_local_switch", "", W, srtLocalSwitch);
    t.add(kStreamModule, "rtsp_auth", "", W, setRtspAuth);

    t.add(kStreamModule, "get_local_server", "", R, [](Request& r) {
        return reply::okData({{"srt", json::array({stream(r)["srt_local"]})}});
    });
    t.add(kStreamModule, "get_rtsp_auth", "", R,
          [](Request& r) { return reply::okData(stream(r)["rtsp_auth"]); });
    t.add(kStreamModule, "getStreamStatus", "", R,
          [](Request& r) { return reply::okTop("publish_status", stream(r)["publish"]); });
}

void registerOsdHandlers(HandlerTable& t)
{
    t.add("osd_api", "osd_layout", "set_layout_switch", OpKind::Write, [](Request& r) {
        const auto id = r.intArg("id");
        const auto on = r.intArg("switch");
        json* layout = id ? rules::findBy(r.state["osd"]["osd_layout"], "id", *id) : nullptr;
        if (!layout || !on || (*on != 0 && *on != 1))
            return reply::refuse(code::kOsdInvalid, "unknown layout or bad switch");
        if (rules::workMode(r.state) != 0)
            return reply::refuse(code::kOsdInvalid, "OSD layouts need encode mode");
        (*layout)["switch"] = *on;
        return reply::ok();
    });
    t.add("osd_api", "osd_layout", "get_layout_list", OpKind::Read,
          [](Request& r) { return reply::okData(r.state["osd"]["osd_layout"]); });
}

} // namespace sim
