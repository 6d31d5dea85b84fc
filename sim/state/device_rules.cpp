#include "state/device_rules.h"

namespace sim::rules {

int workMode(const json& state)
{
    return state["system"].value("workmode_id", 0);
}

bool isStorageId(int storage_id)
{
    return storage_id == 0 || storage_id == 1 || storage_id == 3;
}

json* findBy(json& array, const char* key, const json& value)
{
    if (!array.is_array())
        return nullptr;
    for (json& element : array)
        if (element.is_object() && element.contains(key) && element[key] == value)
            return &element;
    return nullptr;
}

json* findDisk(json& state, int storage_id)
{
    return findBy(state["storage"]["disks"], "index", storage_id);
}

json* findRecordTask(json& state, const std::string& index)
{
    return findBy(state["record"]["tasks"], "index", index);
}

bool anyRecording(const json& state)
{
    for (const json& task : state["record"]["tasks"])
        if (task.value("status", 0) != kRecordStopped)
            return true;
    return false;
}

bool recordingOn(const json& state, int storage_id)
{
    for (const json& task : state["record"]["tasks"])
        if (task.value("storage_id", -1) == storage_id && task.value("status", 0) != kRecordStopped)
            return true;
    return false;
}

void stopRecording(json& task)
{
    task["status"] = kRecordStopped;
    task["duration"] = 0;
}

void stopRecordingsOn(json& state, int storage_id)
{
    for (json& task : state["record"]["tasks"])
        if (task.value("storage_id", -1) == storage_id)
            stopRecording(task);
}

void unplugDisk(json& state, int storage_id)
{
    if (json* disk = findDisk(state, storage_id)) {
        (*disk)["status"] = kDiskAbsent;
        (*disk)["write_speed"] = 0.0;
    }
    stopRecordingsOn(state, storage_id);
    if (storage_id == 3)
        for (json& nas : state["storage"]["nas"]) {
            nas["switch"] = 0;
            nas["status"] = 0;
        }
}

void plugDisk(json& state, int storage_id)
{
    json* disk = findDisk(state, storage_id);
    if (!disk)
        return;
    (*disk)["status"] = (*disk)["freespace"].get<int>() > 0 ? kDiskReady : kDiskFull;
}

void fillDisk(json& state, int storage_id)
{
    json* disk = findDisk(state, storage_id);
    if (!disk)
        return;
    (*disk)["freespace"] = 0;
    (*disk)["usagespace"] = (*disk)["totalspace"];
    if ((*disk)["status"].get<int>() != kDiskAbsent)
        (*disk)["status"] = kDiskFull;
    stopRecordingsOn(state, storage_id);
}

bool anyPushStreamOn(const json& state)
{
    for (const json& stream : state["stream"]["publish"])
        if (stream.value("switch", 0) != 0)
            return true;
    return false;
}

void stopDecoderSources(json& state)
{
    json& decoder = state["decoder"];
    for (json& pull : decoder["net_streams"]) {
        pull["switch"] = 0;
        pull["streamplay_status"] = 0;
    }
    decoder["ndi"]["receiving"] = "";
    for (json& source : decoder["ndi"]["sources"])
        source["streamplay_status"] = 0;
    for (json& device : decoder["uvc_list"]) {
        device["switch"] = 0;
        device["play_status"] = 0;
    }
}

void switchWorkMode(json& state, int mode)
{
    // Each mode owns its outputs: leaving encode ends recordings and pushes,
    // leaving decode ends playback.
    for (json& task : state["record"]["tasks"])
        stopRecording(task);
    for (json& stream : state["stream"]["publish"]) {
        stream["switch"] = 0;
        stream["status"] = 0;
    }
    state["stream"]["srt_local"]["switch"] = 0;
    stopDecoderSources(state);
    state["system"]["workmode_id"] = mode;
}

void restart(json& state)
{
    switchWorkMode(state, workMode(state));
    state["system"]["run_status"] = 1;
    state["system"]["uptime_seconds"] = 0;
}

void dropWifi(json& state)
{
    json& wifi = state["network"]["wifi"];
    wifi["status"] = kWifiIdle;
    wifi["ssid"] = "";
}

void restoreWifi(json& state)
{
    json& wifi = state["network"]["wifi"];
    wifi["switch"] = 1;
    wifi["status"] = kWifiConnected;
    wifi["ssid"] = wifi.value("known_ssid", std::string("Studio-5G"));
}

std::string mainIp(const json& state)
{
    const json& network = state["network"];
    if (network["lan"].value("state", 0) == 1)
        return network["lan"].value("ip", std::string());
    if (network["wifi"].value("switch", 0) == 1
        && network["wifi"].value("status", 0) == kWifiConnected)
        return network["wifi"].value("ip", std::string());
    return "";
}

} // namespace sim::rules
