// Stream domain operations of ZmqSubWorker.
#include "zmqapi/zmq_api_patterns.h"

using zmqapi::command;
using zmqapi::request;

namespace {
constexpr zmqapi::InfoFunction kStreamInfo = &ZmqSubWorker::getStreamApiInfo;
} // namespace

int ZmqSubWorker::setEncSrtServerSwitch(int srt_switch)
{
    return sendStreamApiControl(command("set_srt_local_switch", nullptr, {{"switch", srt_switch}}));
}

int ZmqSubWorker::deleteEncNetStream(int index)
{
    return sendStreamApiControl(command("publish", "del_publish_info", {{"index", index}}));
}

int ZmqSubWorker::setEncNetStreamSwitch(int index, int stream_switch)
{
    return sendStreamApiControl(
        command("publish", "update_publish_switch", {{"index", index}, {"switch", stream_switch}}));
}

int ZmqSubWorker::setEncNetStreamShowIndex(const json& order)
{
    return sendStreamApiControl(command("publish", "update_streams_index", order));
}

int ZmqSubWorker::setRtspAuthInfo(int auth_switch)
{
    return zmqapi::sendStateAsData(*this, &ZmqSubWorker::getRtspAuthInfo,
                                   &ZmqSubWorker::sendStreamApiControl, request("rtsp_auth"),
                                   "switch", auth_switch);
}

int ZmqSubWorker::getEncLocalServerList(json& out)
{
    return zmqapi::get(*this, kStreamInfo, "get_local_server", nullptr, out);
}

int ZmqSubWorker::getRtspAuthInfo(json& out)
{
    return zmqapi::get(*this, kStreamInfo, "get_rtsp_auth", nullptr, out);
}

int ZmqSubWorker::getEncNetStreamList(json& out)
{
    return zmqapi::get(*this, kStreamInfo, "getStreamStatus", nullptr, out,
                       zmqapi::resultAt("publish_status"));
}
