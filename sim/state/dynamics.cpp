#include "state/dynamics.h"

#include "state/device_rules.h"

#include <algorithm>
#include <string>

namespace sim {

using json = nlohmann::json;

namespace {

int wander(std::mt19937& rng, int value, int step, int low, int high)
{
    std::uniform_int_distribution<int> delta(-step, step);
    return std::clamp(value + delta(rng), low, high);
}

double wanderRate(std::mt19937& rng, double value, double high)
{
    std::uniform_real_distribution<double> delta(-0.5, 0.5);
    const double next = std::clamp(value + delta(rng), 0.0, high);
    return static_cast<int>(next * 100) / 100.0;
}

void wanderLoad(json& state, std::mt19937& rng)
{
    json& cpu = state["cpu"];
    cpu["cpu_temp"] = wander(rng, cpu["cpu_temp"].get<int>(), 1, 38, 75);
    cpu["cpu_payload"] = wander(rng, cpu["cpu_payload"].get<int>(), 4, 3, 95);
    const int total = cpu["memory_total"].get<int>();
    cpu["memory_used"] = wander(rng, cpu["memory_used"].get<int>(), 8, total / 5, total * 9 / 10);
    for (auto& [name, rate] : cpu["rates"].items()) {
        const double high = name == "wlan1" ? 0.0 : 40.0;
        rate["rx_mbps"] = wanderRate(rng, rate["rx_mbps"].get<double>(), high);
        rate["tx_mbps"] = wanderRate(rng, rate["tx_mbps"].get<double>(), high);
    }
}

void growRecordings(json& state)
{
    const int written = state["record"].value("write_mb_per_tick", 5);
    for (json& task : state["record"]["tasks"]) {
        if (task["status"] != rules::kRecording)
            continue;
        task["duration"] = task["duration"].get<int>() + 1;
        json* disk = rules::findDisk(state, task["storage_id"].get<int>());
        if (!disk)
            continue;
        const int free = std::max(0, (*disk)["freespace"].get<int>() - written);
        (*disk)["freespace"] = free;
        (*disk)["usagespace"] = (*disk)["totalspace"].get<int>() - free;
        if (free == 0)
            rules::fillDisk(state, task["storage_id"].get<int>());
    }
}

void finishSpeedTest(json& state)
{
    json& test = state["storage"]["speed_test"];
    const int storage_id = test["storage_id"].get<int>();
    if (storage_id < 0)
        return;
    const int left = test["ticks_left"].get<int>() - 1;
    test["ticks_left"] = std::max(0, left);
    if (left > 0)
        return;
    if (json* disk = rules::findDisk(state, storage_id))
        (*disk)["write_speed"] =
            state["storage"]["measured_speeds"].value(std::to_string(storage_id), 50.0);
    test["storage_id"] = -1;
}

void climbUpgrade(json& state)
{
    json& upgrade = state["upgrade"];
    const int progress = upgrade["progress"].get<int>();
    if (progress < 0 || progress >= 100)
        return;
    upgrade["progress"] = std::min(100, progress + upgrade.value("step", 5));
}

void finishNdiSearch(json& state)
{
    json& ndi = state["decoder"]["ndi"];
    const int left = ndi["search_ticks_left"].get<int>();
    if (left <= 0)
        return;
    ndi["search_ticks_left"] = left - 1;
    if (left > 1)
        return;
    json sources = json::array();
    int index = 0;
    for (const json& name : ndi["discoverable"])
        sources.push_back({{"index", index++},
                           {"name", name},
                           {"streamplay_status", name == ndi["receiving"] ? 1 : 0}});
    ndi["sources"] = sources;
}

void updateDashboard(json& state)
{
    json& system = state["system"];
    const int uptime = system["uptime_seconds"].get<int>() + 1;
    system["uptime_seconds"] = uptime;
    system["dashboard"]["device_strat_time"] =
        std::to_string(uptime / 3600) + "h " + std::to_string(uptime / 60 % 60) + "m";
}

} // namespace

json deviceTime(const json& state, std::time_t now)
{
    const std::time_t shifted = now + state["systime"].value("offset_seconds", 0);
    std::tm parts{};
    gmtime_r(&shifted, &parts);
    return {{"year", parts.tm_year + 1900}, {"month", parts.tm_mon + 1}, {"day", parts.tm_mday},
            {"hour", parts.tm_hour},        {"minute", parts.tm_min},    {"second", parts.tm_sec}};
}

void advanceOneTick(json& state, std::mt19937& rng, std::time_t now)
{
    state["systime"]["time"] = deviceTime(state, now);
    updateDashboard(state);
    wanderLoad(state, rng);
    growRecordings(state);
    finishSpeedTest(state);
    climbUpgrade(state);
    finishNdiSearch(state);
}

} // namespace sim
