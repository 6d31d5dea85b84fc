// AI domain operations of ZmqSubWorker.
#include "zmqapi/zmq_api_patterns.h"

namespace {

constexpr zmqapi::InfoFunction kAiInfo = &ZmqSubWorker::getAiApiInfo;
constexpr zmqapi::ReplyForm kAiReply{"rsp", "success", "data"};

constexpr const char* kTrackingEnablePath = "/ai/ai_tracking/tracking_enable";
constexpr const char* kMattingEnablePath = "/ai/image_matting/im_enable";
constexpr const char* kMattingUpdatePath = "/ai/image_matting/update_im_info";
constexpr const char* kTrackingUpdatePath = "/ai/ai_tracking/update_tracking_info";

// Starting or stopping a network takes the service a while.
constexpr int kEnableTimeoutMs = 3000;

// The six keys sent together on every tracking change.
constexpr const char* kTrackingKeys[] = {"class_id", "mode_id",      "figure_id",
                                         "speed_id", "placement_id", "control_enable"};

json pathRequest(const char* path)
{
    return json{{"path", path}};
}

json pathRequest(const char* path, const char* key, int value)
{
    json req = pathRequest(path);
    req[key] = value;
    return req;
}

// A matting update first reads the matting state, only as a check that the
// service answers.
int sendMattingUpdate(ZmqSubWorker& worker, const char* key, int value)
{
    return zmqapi::sendWithState(worker, &ZmqSubWorker::getGskInfo, &ZmqSubWorker::sendAiApiControl,
                                 pathRequest(kMattingUpdatePath, key, value),
                                 [](json&, const json&) {});
}

// A tracking change sends all six keys: `key` as given, the others as the
// service holds them.
int sendTrackingChange(ZmqSubWorker& worker, const char* key, int value)
{
    return zmqapi::sendWithState(
        worker, &ZmqSubWorker::getAiTrackingInfo, &ZmqSubWorker::sendAiApiControl,
        pathRequest(kTrackingUpdatePath, key, value), [&](json& req, const json& state) {
            json configure = json::object();
            if (state.is_object()) {
                const json tracking = state.value("object_tracking", json::object());
                if (tracking.is_object())
                    configure = tracking.value("configure", json::object());
            }
            for (const char* other : kTrackingKeys) {
                if (std::string(other) == key)
                    continue;
                auto it = configure.is_object() ? configure.find(other) : configure.end();
                req[other] = it != configure.end() ? *it : json();
            }
        });
}

} // namespace

int ZmqSubWorker::sendAiApiControl(const json& request)
{
    json copy = request;
    try {
        copy["func_module"] = "ai_api";
        const std::string path = copy.value("path", std::string());
        const bool slow = path == kTrackingEnablePath || path == kMattingEnablePath;
        return reduceAiControlReply(
            sendZmqRequest(copy, slow ? kEnableTimeoutMs : kDefaultRequestTimeoutMs), copy);
    } catch (const json::exception& e) {
        LOG_ERR("AI control response parse error: %s, req=%s rsp=%s\n", e.what(),
                copy.dump().c_str(), "");
        return zmqapi::kFailure;
    }
}

int ZmqSubWorker::reduceAiControlReply(const std::string& reply, const json& request)
{
    if (reply.empty())
        return zmqapi::kFailure;
    try {
        json doc;
        try {
            doc = json::parse(reply);
        } catch (const json::parse_error& e) {
            LOG_DB("JSON parse exception: %s, response=%s\n", e.what(), reply.c_str());
            return zmqapi::kFailure;
        }
        if (doc.is_null())
            return 0;
        if (!doc.is_object())
            return zmqapi::kFailure;
        const bool has_rsp = doc.contains("rsp");
        const bool has_status = doc.contains("status");
        if (has_rsp && has_status) {
            return processApiResponse(reply, &ZmqSubWorker::mapAiStatusCodeToValue);
        }
        if (doc.empty())
            return 0;
        if (doc.contains("data") && !has_rsp && !has_status)
            return 0;
        return zmqapi::kFailure;
    } catch (const json::exception& e) {
        LOG_ERR("AI control response parse error: %s, req=%s rsp=%s\n", e.what(),
                request.dump().c_str(), reply.c_str());
        return zmqapi::kFailure;
    }
}

int ZmqSubWorker::setAiTrackingSelectObj(int track_id)
{
    return sendAiApiControl(pathRequest("/ai/ai_tracking/select_obj", "track_id", track_id));
}

int ZmqSubWorker::setGskEnable(int im_enable)
{
    return sendAiApiControl(pathRequest(kMattingEnablePath, "im_enable", im_enable));
}

int ZmqSubWorker::setGskBgColor(int bgcolor_id)
{
    return sendMattingUpdate(*this, "bgcolor_id", bgcolor_id);
}
int ZmqSubWorker::setGskBgLf(int bg_lf)
{
    return sendMattingUpdate(*this, "bg_lf", bg_lf);
}
int ZmqSubWorker::setGskMaxBgCf(int max_bg_cf)
{
    return sendMattingUpdate(*this, "max_bg_cf", max_bg_cf);
}
int ZmqSubWorker::setGskMinBgCf(int min_bg_cf)
{
    return sendMattingUpdate(*this, "min_bg_cf", min_bg_cf);
}

// The service wants the network type it runs with the enable flag.
int ZmqSubWorker::setAiEnable(int nn_enable)
{
    return zmqapi::sendWithState(
        *this, &ZmqSubWorker::getAiTrackingInfo, &ZmqSubWorker::sendAiApiControl,
        pathRequest(kTrackingEnablePath, "nn_enable", nn_enable), [](json& req, const json& state) {
            if (!state.is_object() || !state.contains("nn_type") || state["nn_type"].is_null()) {
                return zmqapi::kFailure;
            }
            req["nn_type"] = state["nn_type"];
            return 0;
        });
}

int ZmqSubWorker::setAiTrackingEnable(int control_enable)
{
    return sendTrackingChange(*this, "control_enable", control_enable);
}
int ZmqSubWorker::setAiTrackingClass(int class_id)
{
    return sendTrackingChange(*this, "class_id", class_id);
}
int ZmqSubWorker::setAiTrackingFigure(int figure_id)
{
    return sendTrackingChange(*this, "figure_id", figure_id);
}
int ZmqSubWorker::setAiTrackingPlacement(int placement_id)
{
    return sendTrackingChange(*this, "placement_id", placement_id);
}
int ZmqSubWorker::setAiTrackingMode(int mode_id)
{
    return sendTrackingChange(*this, "mode_id", mode_id);
}
int ZmqSubWorker::setAiTrackingSpeed(int speed_id)
{
    return sendTrackingChange(*this, "speed_id", speed_id);
}

int ZmqSubWorker::getGskInfo(json& out)
{
    return zmqapi::fetch(*this, kAiInfo, pathRequest("/ai/image_matting/get_matting_info"),
                         kAiReply, out);
}

int ZmqSubWorker::getAiTrackingInfo(json& out)
{
    return zmqapi::fetch(*this, kAiInfo, pathRequest("/ai/ai_tracking/get_tracking_info"), kAiReply,
                         out);
}
