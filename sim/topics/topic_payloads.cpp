#include "topics/topic_payloads.h"

#include "state/device_rules.h"
#include "transport/zmq_endpoints.h"

namespace sim {

using json = nlohmann::json;

namespace {

bool always(const json&)
{
    return true;
}

bool upgrading(const json& state)
{
    return state["upgrade"].value("progress", -1) >= 0;
}

bool encoding(const json& state)
{
    return rules::workMode(state) == 0;
}

json network(const json& state)
{
    const json& net = state["network"];
    return {{"data",
             {{"ip", rules::mainIp(state)},
              {"lan",
               {{"state", net["lan"]["state"]}, {"ip_dhcp_switch", net["lan"]["ip_dhcp_switch"]}}},
              {"ap", {{"switch", net["ap"]["switch"]}}},
              {"wifi",
               {{"switch", net["wifi"]["switch"]},
                {"status", net["wifi"]["status"]},
                {"ssid", net["wifi"]["ssid"]}}}}}};
}

json cpuMemory(const json& state)
{
    const json& cpu = state["cpu"];
    return {{"data",
             {{"cpu_info", {{"cpu_temp", cpu["cpu_temp"]}, {"cpu_payload", cpu["cpu_payload"]}}},
              {"memory_info",
               {{"total", std::to_string(cpu["memory_total"].get<int>())},
                {"used", std::to_string(cpu["memory_used"].get<int>())}}},
              {"network_info", cpu["rates"]}}}};
}

json storage(const json& state)
{
    return state["storage"]["disks"];
}

json videoInput(const json& state)
{
    return state["video"]["input"];
}

json recordState(const json& state)
{
    json list = json::array();
    for (const json& task : state["record"]["tasks"])
        list.push_back({{"taskId", task["index"]},
                        {"status", task["status"]},
                        {"duration", task["duration"]}});
    return list;
}

json systemState(const json& state)
{
    const json& system = state["system"];
    return {{"workmode_id", system["workmode_id"]},
            {"language_id", system["language_id"]},
            {"run_status", system["run_status"]}};
}

json upgradeProgress(const json& state)
{
    return {{"upgrade_progress", state["upgrade"]["progress"]}};
}

// Push streams and OSD layouts belong to encode mode; in decode mode the box
// lists none.
json netStreams(const json& state)
{
    json list = json::array();
    if (encoding(state))
        for (const json& stream : state["stream"]["publish"])
            list.push_back({{"index", stream["index"]},
                            {"name", stream["name"]},
                            {"status", stream["status"]},
                            {"switch", stream["switch"]}});
    return list;
}

json osdState(const json& state)
{
    json list = json::array();
    if (encoding(state))
        for (const json& layout : state["osd"]["osd_layout"])
            list.push_back({{"id", layout["id"]},
                            {"name", layout["name"]},
                            {"switch", layout["switch"]},
                            {"status", layout["switch"]}});
    return list;
}

} // namespace

const std::vector<TopicEntry>& topicEntries()
{
    static const std::vector<TopicEntry> entries = {
        {ZMQ_Topic::TOPIC_NETWORK_INFO, "network", network, always},
        {ZMQ_Topic::TOPIC_MISC_CPU_MEMORY_INFO, "cpu", cpuMemory, always},
        {ZMQ_Topic::TOPIC_STORAGE_INFO, "storage", storage, always},
        {ZMQ_Topic::TOPIC_SYSTEM_STATE_INFO, "system", systemState, always},
        {ZMQ_Topic::TOPIC_UPGRADE_PROGRESS_INFO, "upgrade", upgradeProgress, upgrading},
        {ZMQ_Topic::TOPIC_VIDEO_INPUT_INFO, "video", videoInput, always},
        {ZMQ_Topic::TOPIC_RECORD_STATE_INFO, "record", recordState, always},
        {ZMQ_Topic::TOPIC_NET_STREAM_INFO, "stream", netStreams, always},
        {ZMQ_Topic::TOPIC_OSD_STATE_INFO, "osd", osdState, always},
    };
    return entries;
}

const TopicEntry* findTopic(const std::string& name_or_alias)
{
    for (const TopicEntry& entry : topicEntries())
        if (entry.name == name_or_alias || entry.alias == name_or_alias)
            return &entry;
    return nullptr;
}

json wrongShape(const json& payload)
{
    if (payload.is_array())
        return {{"data", payload}};
    return json::array({payload});
}

} // namespace sim
