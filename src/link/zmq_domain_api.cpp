// The info/control function pair of every backend domain, driven by three
// tables: the domain's module and status map, the operations that need a
// longer time-out, and the operations whose empty reply counts as success.
// The AI domain shares only the info function: its service answers in forms
// of its own, so its control function lives with the AI operations.
#include "link/zmq_sub_worker.h"

#include "transport/harvelin_log.h"

#include <cstddef>
#include <iterator>

namespace {

struct DomainEntry {
    ApiDomain domain;
    const char* func_module;
    ZmqSubWorker::StatusMapper mapper;
};

constexpr DomainEntry kDomains[] = {
    {ApiDomain::System, "system_api", &ZmqSubWorker::mapSystemStatusCodeToValue},
    {ApiDomain::Network, "network_api", &ZmqSubWorker::mapNetworkStatusCodeToValue},
    {ApiDomain::Video, "video_api", &ZmqSubWorker::mapVideoStatusCodeToValue},
    {ApiDomain::Audio, "audio_api", &ZmqSubWorker::mapAudioStatusCodeToValue},
    {ApiDomain::Stream, "stream_api", &ZmqSubWorker::mapStreamStatusCodeToValue},
    {ApiDomain::Osd, "osd_api", &ZmqSubWorker::mapOsdStatusCodeToValue},
    {ApiDomain::Ai, "ai_api", &ZmqSubWorker::mapAiStatusCodeToValue},
    {ApiDomain::Record, "record_api", &ZmqSubWorker::mapRecordStatusCodeToValue},
    {ApiDomain::Storage, "storage_api", &ZmqSubWorker::mapStorageStatusCodeToValue},
    {ApiDomain::StreamPlay, "streamplay_api", &ZmqSubWorker::mapStreamPlayStatusCodeToValue},
    {ApiDomain::Mediaplayer, "mediaplayer_api", &ZmqSubWorker::mapMediaplayerStatusCodeToValue},
    {ApiDomain::Ptzctrl, "ptzctrl_api", &ZmqSubWorker::mapPtzctrlStatusCodeToValue},
};

constexpr bool domainsInEnumOrder()
{
    for (std::size_t i = 0; i < std::size(kDomains); ++i) {
        if (kDomains[i].domain != static_cast<ApiDomain>(i))
            return false;
    }
    return std::size(kDomains) == static_cast<std::size_t>(ApiDomain::Ptzctrl) + 1;
}
static_assert(domainsInEnumOrder(), "kDomains is indexed by ApiDomain");

const DomainEntry& entryFor(ApiDomain domain)
{
    return kDomains[static_cast<std::size_t>(domain)];
}

// What identifies an operation; a null field matches anything.
struct OperationMatch {
    ApiDomain domain;
    const char* group;
    const char* opt;
};

struct RequestKeys {
    std::string group;
    std::string opt;
};

std::string stringOr(const json& request, const char* key)
{
    auto it = request.find(key);
    return (it != request.end() && it->is_string()) ? it->get<std::string>() : std::string();
}

bool matches(const OperationMatch& m, ApiDomain domain, const RequestKeys& keys)
{
    return m.domain == domain && (!m.group || keys.group == m.group)
           && (!m.opt || keys.opt == m.opt);
}

struct LongTimeout {
    OperationMatch match;
    int timeout_ms;
};

// Operations that switch hardware or services on and off take a while.
const LongTimeout kLongTimeouts[] = {
    {{ApiDomain::System, "workmode", "change_workmode"}, 3000},
    {{ApiDomain::Network, "wifi", "wifi_switch"}, 3000},
    {{ApiDomain::Network, "ap", "ap_switch"}, 3000},
    {{ApiDomain::Stream, "publish", "update_publish_switch"}, 10000},
    {{ApiDomain::Record, nullptr, "set_task_enable"}, 10000},
    {{ApiDomain::StreamPlay, "set_streamplay_info", "streamplay_switch"}, 7000},
    {{ApiDomain::StreamPlay, "set_streamplay_ndi_info", "ndi_recv"}, 7000},
    {{ApiDomain::StreamPlay, "set_streamplay_ndi_info", "ndi_close"}, 7000},
    {{ApiDomain::StreamPlay, "set_streamplay_servers_info", "play_switch"}, 7000},
    {{ApiDomain::StreamPlay, "set_streamplay_srtserver_info", "server_switch"}, 7000},
    {{ApiDomain::Mediaplayer, "uvc", "uvc_open"}, 7000},
    {{ApiDomain::Mediaplayer, "uvc", "uvc_close"}, 7000},
};

struct ForgivenEmptyReply {
    OperationMatch match;
    const char* switch_key; // when set, only a request that turns on (1) is forgiven
};

// The daemon may restart or drop the link while it carries these out, so
// silence is the expected answer.
const ForgivenEmptyReply kForgivenEmptyReplies[] = {
    {{ApiDomain::System, "syscontrol", "power_off"}, nullptr},
    {{ApiDomain::System, "syscontrol", "power_on"}, nullptr},
    {{ApiDomain::Network, "wifi", "wifi_switch"}, "switch"},
    {{ApiDomain::Stream, "set_srt_local_switch", nullptr}, "switch"},
    {{ApiDomain::StreamPlay, "set_streamplay_srtserver_info", "server_switch"}, "server_switch"},
};

int timeoutFor(ApiDomain domain, const RequestKeys& keys)
{
    for (const LongTimeout& entry : kLongTimeouts) {
        if (matches(entry.match, domain, keys))
            return entry.timeout_ms;
    }
    return ZmqSubWorker::kDefaultRequestTimeoutMs;
}

// data.<key> as an int, -1 when `data` or the key is missing or no number.
int switchValue(const json& request, const char* key)
{
    auto data = request.find("data");
    if (data == request.end() || !data->is_object())
        return -1;
    auto value = data->find(key);
    if (value == data->end() || !value->is_number())
        return -1;
    return value->get<int>();
}

bool emptyReplyForgiven(ApiDomain domain, const RequestKeys& keys, const json& request)
{
    for (const ForgivenEmptyReply& entry : kForgivenEmptyReplies) {
        if (!matches(entry.match, domain, keys))
            continue;
        if (!entry.switch_key || switchValue(request, entry.switch_key) == 1)
            return true;
    }
    return false;
}

json stamped(ApiDomain domain, const json& request)
{
    json copy = request;
    copy["func_module"] = entryFor(domain).func_module;
    return copy;
}

} // namespace

std::string ZmqSubWorker::getDomainApiInfo(ApiDomain domain, const json& request)
{
    try {
        return sendZmqRequest(stamped(domain, request));
    } catch (const json::exception& e) {
        LOG_ERR("Exception: %s\n", e.what());
        return std::string();
    }
}

int ZmqSubWorker::sendDomainApiControl(ApiDomain domain, const json& request)
{
    try {
        const json copy = stamped(domain, request);
        const RequestKeys keys{stringOr(copy, "group"), stringOr(copy, "opt")};
        const bool forgiven = emptyReplyForgiven(domain, keys, copy);
        const std::string reply = sendZmqRequest(copy, timeoutFor(domain, keys));
        if (reply.empty() && forgiven)
            return 0;
        return processApiResponse(reply, entryFor(domain).mapper);
    } catch (const json::exception& e) {
        LOG_ERR("Exception: %s\n", e.what());
        return -3;
    }
}

#define ZMQ_DOMAIN_API_INFO(Name, Domain)                                                          \
    std::string ZmqSubWorker::get##Name##ApiInfo(const json& request)                              \
    {                                                                                              \
        return getDomainApiInfo(ApiDomain::Domain, request);                                       \
    }

#define ZMQ_DOMAIN_API_PAIR(Name, Domain)                                                          \
    ZMQ_DOMAIN_API_INFO(Name, Domain)                                                              \
    int ZmqSubWorker::send##Name##ApiControl(const json& request)                                  \
    {                                                                                              \
        return sendDomainApiControl(ApiDomain::Domain, request);                                   \
    }

ZMQ_DOMAIN_API_PAIR(System, System)
ZMQ_DOMAIN_API_PAIR(Network, Network)
ZMQ_DOMAIN_API_PAIR(Video, Video)
ZMQ_DOMAIN_API_PAIR(Audio, Audio)
ZMQ_DOMAIN_API_PAIR(Stream, Stream)
ZMQ_DOMAIN_API_PAIR(Osd, Osd)
ZMQ_DOMAIN_API_INFO(Ai, Ai)
ZMQ_DOMAIN_API_PAIR(Record, Record)
ZMQ_DOMAIN_API_PAIR(Storage, Storage)
ZMQ_DOMAIN_API_PAIR(StreamPlay, StreamPlay)
ZMQ_DOMAIN_API_PAIR(Mediaplayer, Mediaplayer)
ZMQ_DOMAIN_API_PAIR(Ptzctrl, Ptzctrl)

#undef ZMQ_DOMAIN_API_PAIR
#undef ZMQ_DOMAIN_API_INFO
