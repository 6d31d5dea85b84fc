// Media player domain operations of ZmqSubWorker.
#include "zmqapi/zmq_api_patterns.h"

#include "transport/zmq_manager.h"

namespace {

json uvcCommand(const char* opt, int dev_id)
{
    return zmqapi::command("uvc", opt, {{"id", dev_id}});
}

bool hasObjectWith(const json& device, const char* key, std::initializer_list<const char*> inner)
{
    auto it = device.find(key);
    if (it == device.end() || !it->is_object())
        return false;
    for (const char* name : inner) {
        if (!it->contains(name))
            return false;
    }
    return true;
}

// The device's capture format must be fully described before it can be opened.
bool hasUvcConfig(const json& device)
{
    return device.is_object() && hasObjectWith(device, "format", {"format_type"})
           && hasObjectWith(device, "resolution", {"width", "height"})
           && hasObjectWith(device, "fps", {"num", "den"});
}

const json* findDevice(const json& list, int dev_id)
{
    for (const json& device : list) {
        if (device.is_object() && zmqapi::numberOr(device, "id", -1) == dev_id)
            return &device;
    }
    return nullptr;
}

} // namespace

int ZmqSubWorker::setDecUvcOpen(int dev_id)
{
    json list;
    const int status = getDecUvcList(list);
    if (status < 0) {
        LOG_WAR("setDecUvcOpen: getDecUvcList failed, ret=%d\n", status);
        return status;
    }
    if (!list.is_array()) {
        LOG_WAR("setDecUvcOpen: uvc_list is not an array\n");
        return zmqapi::kFailure;
    }
    const json* device = findDevice(list, dev_id);
    if (!device) {
        LOG_WAR("setDecUvcOpen: dev_id %d not found\n", dev_id);
        return zmqapi::kFailure;
    }
    if (!hasUvcConfig(*device)) {
        LOG_WAR("setDecUvcOpen: uvc config is invalid, dev_id=%d\n", dev_id);
        return zmqapi::kFailure;
    }
    const int dev = zmqapi::numberOr(*device, "dev_check", 0);
    const int format = zmqapi::numberOr(*device, "format_check", 0);
    const int resolution = zmqapi::numberOr(*device, "resolution_check", 0);
    const int fps = zmqapi::numberOr(*device, "fps_check", 0);
    if (dev != 1 || format != 1 || resolution != 1 || fps != 1) {
        LOG_WAR("setDecUvcOpen: uvc check failed, dev_id=%d, dev=%d, format=%d, resolution=%d, "
                "fps=%d\n",
                dev_id, dev, format, resolution, fps);
        return zmqapi::kNotPermitted;
    }
    // The backend opens the device with the configuration it already holds,
    // so only the id goes out.
    return sendMediaplayerApiControl(uvcCommand("uvc_open", dev_id));
}

int ZmqSubWorker::setDecUvcClose(int dev_id)
{
    return sendMediaplayerApiControl(uvcCommand("uvc_close", dev_id));
}

int ZmqSubWorker::getDecUvcList(json& out)
{
    const std::string reply = getMediaplayerApiInfo(zmqapi::request("uvc", "get_list_info"));
    if (reply.empty()) {
        LOG_WAR("getDecUvcList: empty response\n");
        return zmqapi::kFailure;
    }
    json data;
    const int status = zmqapi::reduceReply(*this, reply, zmqapi::kDataReplyAnyWord, data,
                                           {"getDecUvcList exception: %s, response=%s\n", true});
    if (status < 0)
        return status;
    auto list = data.find("uvc_list");
    if (!data.is_object() || list == data.end())
        return zmqapi::kFailure;
    out = std::move(*list);
    return 0;
}

// The poller is the only caller, so this exchange needs no request lock.
int ZmqSubWorker::getDecoderInfo(json& out)
{
    if (!zmq_mediaserver_client) {
        LOG_ERR("zmq_mediaserver_client is null\n");
        return zmqapi::kFailure;
    }
    std::string reply;
    try {
        const json req = zmqapi::request("mediaplayer_module", "get_decoder_info");
        zmq_mediaserver_client->send_zmq_router_dealer_client_msg(req.dump(), reply);
    } catch (...) {
        LOG_ERR("getDecoderInfo send message exception\n");
        return zmqapi::kFailure;
    }
    return zmqapi::reduceReply(*this, reply, {"msg", "success", "data"}, out,
                               {"getDecoderInfo exception: %s\n", true});
}
