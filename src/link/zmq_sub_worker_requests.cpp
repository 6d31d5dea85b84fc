// Request exchange, reply reduction to a status value, configuration reads.
#include "link/json_values.h"
#include "link/zmq_sub_worker.h"

#include "transport/harvelin_log.h"
#include "transport/zmq_manager.h"

#include <QMutexLocker>

#include <cstdlib>
#include <exception>

namespace {

constexpr int kFailure = -3;

struct GeneralCode {
    long code;
    int value;
};

const GeneralCode kGeneralCodes[] = {
    {1, -3}, {2, -101},  {3, -102},  {4, -103},  {5, -104},     {6, -105},
    {7, -3}, {8, -106},  {9, -1},    {10, 2},    {11, -107},    {12, -108},
    {13, 3}, {14, -109}, {15, -110}, {16, -111}, {10000, -112}, {10001, -113},
};

bool isSuccessWord(const json& doc, const char* key)
{
    auto it = doc.find(key);
    if (it == doc.end() || !it->is_string())
        return false;
    const std::string& word = it->get_ref<const std::string&>();
    return word == "succeed" || word == "success" || word == "succeed!!!";
}

// The code of a reply as text: `status` first, then `code`; numbers as dumped.
std::string codeText(const json& doc)
{
    for (const char* key : {"status", "code"}) {
        auto it = doc.find(key);
        if (it == doc.end())
            continue;
        return it->is_string() ? it->get<std::string>() : it->dump();
    }
    return std::string();
}

} // namespace

std::string ZmqSubWorker::sendZmqRequest(const json& request)
{
    return sendZmqRequest(request, kDefaultRequestTimeoutMs);
}

std::string ZmqSubWorker::sendZmqRequest(const json& request, int timeout_ms)
{
    if (!zmq_appmgr_web_client) {
        LOG_ERR("zmq_appmgr_web_client is null\n");
        return std::string();
    }
    if (timeout_ms <= 0)
        timeout_ms = kDefaultRequestTimeoutMs;
    QMutexLocker lock(&zmq_request_mutex);
    try {
        const std::string text = request.dump(-1, ' ', false, json::error_handler_t::strict);
        std::string response;
        // A failed exchange leaves `response` empty, which reads as a failure.
        zmq_appmgr_web_client->send_zmq_router_dealer_client_msg(text, response, timeout_ms);
        return response;
    } catch (...) {
        lock.unlock();
        LOG_ERR("ZMQ send message exception\n");
        return std::string();
    }
}

int ZmqSubWorker::processApiResponse(const std::string& response, StatusMapper mapper)
{
    if (response.empty())
        return kFailure;
    try {
        json doc;
        try {
            doc = json::parse(response);
        } catch (const json::parse_error& e) {
            LOG_DB("JSON parse exception: %s, response=%s\n", e.what(), response.c_str());
            return kFailure;
        }
        if (!doc.is_object())
            return kFailure;

        const std::string code = codeText(doc);
        if (code.empty()) {
            return (isSuccessWord(doc, "rsp") || isSuccessWord(doc, "msg")) ? 0 : kFailure;
        }
        const int general = mapGeneralStatusCodeToValue(code);
        if (general != ZmqSubWorker::kUnknownCode)
            return general;
        if (!mapper)
            return kFailure;
        const int value = (this->*mapper)(code);
        return value == ZmqSubWorker::kUnknownCode ? kFailure : value;
    } catch (const std::exception& e) {
        LOG_ERR("Exception: %s\n", e.what());
        return kFailure;
    }
}

int ZmqSubWorker::mapGeneralStatusCodeToValue(const std::string& code)
{
    // Six and five zeros are distinct codes of the backend.
    if (code == "000000")
        return 1;
    if (code == "00000")
        return 0;
    if (code == "00010")
        return 2;
    const long number = static_cast<int>(std::strtol(code.c_str(), nullptr, 10));
    for (const GeneralCode& entry : kGeneralCodes) {
        if (entry.code == number)
            return entry.value;
    }
    return ZmqSubWorker::kUnknownCode;
}

void ZmqSubWorker::GetJsonCfg(std::string opt, json& out)
{
    if (!zmq_web_client) {
        LOG_ERR("zmq_web_client is not initialized.\n");
        return;
    }
    try {
        json request;
        request["group"] = "get_json_cfg";
        request["opt"] = opt;
        std::string response;
        zmq_web_client->send_zmq_router_dealer_client_msg(request.dump(), response,
                                                          kDefaultRequestTimeoutMs);
        json doc;
        try {
            doc = json::parse(response);
        } catch (const json::parse_error& e) {
            LOG_DB("JSON parse exception: %s, response=%s\n", e.what(), response.c_str());
        }
        if (doc.is_object() && doc.contains("data")) {
            out = doc["data"];
            if (jsonvalue::isEmpty(out))
                LOG_WAR("GetJsonCfg: Data is empty for opt: %s\n", opt.c_str());
        }
    } catch (const std::exception& e) {
        LOG_ERR("JSON error: %s\n", e.what());
        out = nullptr;
    }
}

void ZmqSubWorker::initSubCacheFromApi()
{
    try {
        json cfg;
        GetJsonCfg("get_osddom", cfg);
        if (cfg.is_object() && cfg.contains("osd_layout") && cfg["osd_layout"].is_array()) {
            const std::string layout = cfg["osd_layout"].dump();
            v2_parseOsdStateInfo(layout);
            last_osd_layout = layout;
            LOG_DB("Init OSD state cache from get_osddom success\n");
        } else {
            LOG_WAR("Init OSD state cache failed: osd_layout missing or invalid\n");
        }
    } catch (const std::exception& e) {
        LOG_ERR("Init OSD state cache exception: %s\n", e.what());
    }
}
