// Stream play domain operations of ZmqSubWorker.
#include "zmqapi/zmq_api_patterns.h"

using zmqapi::command;
using zmqapi::request;

namespace {

int fetchStreamPlay(ZmqSubWorker& worker, const char* group, const char* opt, json& out,
                    const char* exception_log)
{
    return zmqapi::fetch(worker, &ZmqSubWorker::getStreamPlayApiInfo, request(group, opt),
                         zmqapi::kDataReplyAnyWord, out, {exception_log, true});
}

} // namespace

int ZmqSubWorker::findDecNdi()
{
    return sendStreamPlayApiControl(request("set_streamplay_ndi_info", "ndi_find"));
}

int ZmqSubWorker::setDecNetStreamDel(int index)
{
    return sendStreamPlayApiControl(
        command("set_streamplay_info", "streamplay_del", {{"index", index}}));
}

int ZmqSubWorker::setDecNetStreamSwitch(int index, int stream_switch)
{
    return sendStreamPlayApiControl(command("set_streamplay_info", "streamplay_switch",
                                            {{"index", index}, {"switch", stream_switch}}));
}

int ZmqSubWorker::setDecNdiRecv(const std::string& ndi_name)
{
    return sendStreamPlayApiControl(
        command("set_streamplay_ndi_info", "ndi_recv", {{"ndi_name", ndi_name}}));
}

int ZmqSubWorker::setDecNdiClose()
{
    return sendStreamPlayApiControl(request("set_streamplay_ndi_info", "ndi_close"));
}

int ZmqSubWorker::setDecSrtServerSwitch(int server_switch)
{
    return sendStreamPlayApiControl(command("set_streamplay_srtserver_info", "server_switch",
                                            {{"server_switch", server_switch}}));
}

int ZmqSubWorker::setDecSrtPlaySwitch(int play_switch)
{
    return sendStreamPlayApiControl(
        command("set_streamplay_srtserver_info", "play_switch", {{"play_switch", play_switch}}));
}

int ZmqSubWorker::setDecRtmpServerSwitch(int index, int server_switch)
{
    return sendStreamPlayApiControl(command("set_streamplay_servers_info", "play_switch",
                                            {{"index", index}, {"switch", server_switch}}));
}

int ZmqSubWorker::getDecoderState(json& out)
{
    json data;
    const int status = fetchStreamPlay(*this, "get_streamplay_info", "get_decoder_state", data,
                                       "getDecoderState exception: %s\n");
    if (status < 0)
        return status;
    auto state = data.find("decoder_state");
    if (state == data.end())
        return zmqapi::kFailure;
    try {
        out["decoder_state"] = std::move(*state);
    } catch (const json::exception& e) {
        LOG_DB("getDecoderState exception: %s\n", e.what());
        return zmqapi::kFailure;
    }
    return 0;
}

int ZmqSubWorker::getDecNetStreamList(json& out)
{
    return fetchStreamPlay(*this, "get_streamplay_info", "streamplay_get_all", out,
                           "getDecNetStreamList exception: %s\n");
}

int ZmqSubWorker::getDecSrtServerInfo(json& out)
{
    return fetchStreamPlay(*this, "get_streamplay_srtserver_info", "get_srt_server_info", out,
                           "getDecSrtServerInfo exception: %s\n");
}

int ZmqSubWorker::getDecRtmpServerInfo(json& out)
{
    return fetchStreamPlay(*this, "get_streamplay_servers_info", "get_servers_info", out,
                           "getDecRtmpServerInfo exception: %s\n");
}

int ZmqSubWorker::getDecNdiList(json& out)
{
    return fetchStreamPlay(*this, "get_streamplay_ndi_info", "ndi_get_all", out,
                           "getDecNdiList exception: %s\n");
}
