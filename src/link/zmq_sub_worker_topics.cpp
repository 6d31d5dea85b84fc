// Parsers of the nine subscribed topics into ZmqSubCache. A payload of the
// wrong shape changes nothing; a value of the wrong type throws out of the
// parser (the receive loop logs it) and leaves what was stored before it.
#include "link/json_values.h"
#include "link/zmq_sub_worker.h"

#include "transport/harvelin_log.h"

#include <QMutexLocker>

#include <algorithm>
#include <cstdint>
#include <string>

namespace {

json parseDocument(const std::string& content)
{
    try {
        return json::parse(content);
    } catch (const json::parse_error& e) {
        LOG_DB("JSON parse exception: %s, content=%s\n", e.what(), content.c_str());
        return json();
    }
}

// The `data` object of an object root, or null when the shape is wrong.
const json* dataObject(const json& doc)
{
    if (!doc.is_object())
        return nullptr;
    auto it = doc.find("data");
    return (it != doc.end() && it->is_object()) ? &*it : nullptr;
}

// A sub-object of `parent`, or null when missing or not an object.
const json* childObject(const json& parent, const char* key)
{
    auto it = parent.find(key);
    return (it != parent.end() && it->is_object()) ? &*it : nullptr;
}

void readRates(const json& network_info, const char* name, double& rx, double& tx)
{
    if (const json* iface = childObject(network_info, name)) {
        rx = iface->value("rx_mbps", 0.0);
        tx = iface->value("tx_mbps", 0.0);
    }
}

// used * 100 / total; a total of 0 or below keeps `percent`, text that is no
// number gives 0.
void updateMemoryPercent(const json& memory_info, int& percent)
{
    const std::string total_text = memory_info.value("total", std::string("0"));
    const std::string used_text = memory_info.value("used", std::string("0"));
    std::int64_t total = 0;
    std::int64_t used = 0;
    try {
        total = std::stoll(total_text);
        used = std::stoll(used_text);
    } catch (const std::exception&) {
        percent = 0;
        return;
    }
    if (total > 0)
        percent = static_cast<int>(used * 100 / total);
}

// Storage slot of a disk entry, -1 for entries this cache does not keep.
// The second USB port is deliberately left out of the panel's disks.
int storageSlot(int index, const std::string& name)
{
    if (index == 0 || name == "TF")
        return 0;
    if (index == 1 || name == "USB1")
        return 1;
    if (index == 2 || name == "USB2")
        return -1;
    if (index == 3 || name == "nas1")
        return 2;
    return -1;
}

int recordSlot(const std::string& task_id)
{
    if (task_id == "sdcard_0")
        return 0;
    if (task_id == "usb1_0")
        return 1;
    if (task_id == "nas1_0")
        return 2;
    return -1;
}

} // namespace

void ZmqSubWorker::v2_parseNetworkInfo(const std::string& content)
{
    const json doc = parseDocument(content);
    const json* data = dataObject(doc);
    if (!data)
        return;
    QMutexLocker lock(&sub_cache_mutex);
    cache.ip = data->value("ip", std::string());
    if (const json* lan = childObject(*data, "lan")) {
        cache.lan_state = lan->value("state", 0);
        cache.lan_dhcp_switch = lan->value("ip_dhcp_switch", 0);
    }
    if (const json* ap = childObject(*data, "ap")) {
        cache.ap_switch = ap->value("switch", 0) != 0;
    }
    if (const json* wifi = childObject(*data, "wifi")) {
        cache.wifi_switch = wifi->value("switch", 0) != 0;
        cache.wifi_status = wifi->value("status", 0);
        cache.wifi_ssid = wifi->value("ssid", std::string());
    }
    cache.network_ready = true;
}

void ZmqSubWorker::v2_parseCpuMemInfo(const std::string& content)
{
    const json doc = parseDocument(content);
    const json* data = dataObject(doc);
    if (!data)
        return;
    QMutexLocker lock(&sub_cache_mutex);
    if (const json* cpu = childObject(*data, "cpu_info")) {
        cache.cpu_temp = cpu->value("cpu_temp", 0);
        cache.cpu_payload = cpu->value("cpu_payload", 0);
    }
    if (const json* memory = childObject(*data, "memory_info")) {
        updateMemoryPercent(*memory, cache.memory_percent);
    }
    // An interface missing from the message has no traffic.
    cache.eth0_rx_mbps = cache.eth0_tx_mbps = 0;
    cache.wlan0_rx_mbps = cache.wlan0_tx_mbps = 0;
    cache.wlan1_rx_mbps = cache.wlan1_tx_mbps = 0;
    if (const json* rates = childObject(*data, "network_info")) {
        readRates(*rates, "eth0", cache.eth0_rx_mbps, cache.eth0_tx_mbps);
        readRates(*rates, "wlan0", cache.wlan0_rx_mbps, cache.wlan0_tx_mbps);
        readRates(*rates, "wlan1", cache.wlan1_rx_mbps, cache.wlan1_tx_mbps);
    }
    cache.cpu_memory_ready = true;
}

void ZmqSubWorker::v2_parseStorageInfo(const std::string& content)
{
    const json doc = parseDocument(content);
    if (!doc.is_array())
        return;
    QMutexLocker lock(&sub_cache_mutex);
    for (int slot = 0; slot < ZmqSubCache::kDiskSlots; ++slot) {
        cache.disk_present[slot] = false;
        cache.disk_total[slot] = 0;
        cache.disk_free[slot] = 0;
        cache.disk_used[slot] = 0;
        cache.disk_write_speed[slot] = 0;
        cache.disk_status[slot] = 0;
    }
    for (const json& disk : doc) {
        if (!disk.is_object())
            continue;
        const std::string name = disk.value("name", std::string());
        const int index = disk.value("index", -1);
        const int status = disk.value("status", 0);
        const int total = disk.value("totalspace", 0);
        const int free = disk.value("freespace", 0);
        const int used = disk.value("usagespace", 0);
        const float write_speed = disk.value("write_speed", 0.0f);
        const int slot = storageSlot(index, name);
        if (slot < 0)
            continue;
        cache.disk_status[slot] = status;
        if (status > 0) {
            cache.disk_present[slot] = true;
            cache.disk_total[slot] = total;
            cache.disk_free[slot] = free;
            cache.disk_used[slot] = used;
            cache.disk_write_speed[slot] = write_speed;
        }
    }
    cache.storage_ready = true;
}

void ZmqSubWorker::v2_parseVideoInInfo(const std::string& content)
{
    const json doc = parseDocument(content);
    if (!doc.is_object())
        return;
    QMutexLocker lock(&sub_cache_mutex);
    cache.video_width = doc.value("width", 0);
    cache.video_height = doc.value("height", 0);
    cache.video_fps = doc.value("fps", 0);
    cache.video_fpsdiv = doc.value("fpsdiv", 0);
    cache.audio_samplerate = doc.value("samplerate", 0);
    cache.video_input_ready = true;
}

void ZmqSubWorker::v2_parseRecordStateInfo(const std::string& content)
{
    const json doc = parseDocument(content);
    if (!doc.is_array())
        return;
    QMutexLocker lock(&sub_cache_mutex);
    for (int slot = 0; slot < ZmqSubCache::kDiskSlots; ++slot) {
        cache.record_status[slot] = 0;
        cache.record_duration[slot] = 0;
        cache.record_task_id[slot].clear();
    }
    for (const json& task : doc) {
        if (!task.is_object())
            continue;
        const std::string task_id = task.value("taskId", std::string());
        const int slot = recordSlot(task_id);
        if (slot < 0)
            continue;
        cache.record_status[slot] = task.value("status", 0);
        cache.record_duration[slot] = task.value("duration", 0);
        cache.record_task_id[slot] = task_id;
    }
    cache.record_active =
        std::any_of(std::begin(cache.record_status), std::end(cache.record_status),
                    [](int status) { return status == 1; });
    cache.record_ready = true;
}

void ZmqSubWorker::v2_parseSystemStateInfo(const std::string& content)
{
    const json doc = parseDocument(content);
    if (!doc.is_object())
        return;
    // The receivers are queued connections, so emitting under the lock only posts.
    QMutexLocker lock(&sub_cache_mutex);
    if (doc.contains("workmode_id")) {
        cache.workmode_id = doc.value("workmode_id", cache.workmode_id);
        if (cache.workmode_id != last_workmode_id) {
            last_workmode_id = cache.workmode_id;
            emit workModeUpdate(cache.workmode_id);
        }
    }
    if (doc.contains("language_id")) {
        cache.language_id = doc.value("language_id", cache.language_id);
        if (cache.language_id != last_language_id) {
            last_language_id = cache.language_id;
            emit systemLanguageUpdate(cache.language_id);
        }
    }
    if (doc.contains("run_status")) {
        cache.run_status = doc.value("run_status", cache.run_status);
        if (cache.run_status != last_run_status) {
            last_run_status = cache.run_status;
            emit runStatusUpdate(cache.run_status);
        }
    }
    cache.system_state_ready = true;
}

void ZmqSubWorker::v2_parseUpgradeProgressInfo(const std::string& content)
{
    const json doc = parseDocument(content);
    if (!doc.is_object())
        return;
    QMutexLocker lock(&sub_cache_mutex);
    if (!doc.contains("upgrade_progress"))
        return;
    const int progress = std::clamp(doc.value("upgrade_progress", cache.upgrade_progress), 0, 100);
    cache.upgrade_progress = progress;
    if (progress != last_upgrade_progress) {
        last_upgrade_progress = progress;
        emit upgradeProgressUpdate(progress);
    }
}

void ZmqSubWorker::v2_parseNetStreamInfo(const std::string& content)
{
    const json doc = parseDocument(content);
    if (!doc.is_array())
        return;
    QMutexLocker lock(&sub_cache_mutex);
    cache.push_streams.clear();
    cache.stream_active = false;
    for (const json& stream : doc) {
        if (!stream.is_object())
            continue;
        PushStreamItemInfo item;
        item.index = stream.value("index", 0);
        item.name = jsonvalue::utf8Text(stream, "name");
        item.status = stream.value("status", 0);
        item.switch_on = stream.value("switch", 0) != 0;
        cache.push_streams.push_back(item);
        if (item.switch_on && item.status == 1)
            cache.stream_active = true;
    }
    cache.net_stream_ready = true;
}

void ZmqSubWorker::v2_parseOsdStateInfo(const std::string& content)
{
    const json doc = parseDocument(content);
    if (!doc.is_array())
        return;
    QMutexLocker lock(&sub_cache_mutex);
    cache.osd_items.clear();
    for (const json& layout : doc) {
        if (!layout.is_object())
            continue;
        OsdItemInfo item;
        item.id = layout.value("id", 0);
        item.name = jsonvalue::utf8Text(layout, "name");
        item.switch_on = layout.value("switch", 0) != 0;
        // A layout that reports no status is as active as its switch.
        item.status = layout.value("status", item.switch_on ? 1 : 0);
        cache.osd_items.push_back(item);
    }
    cache.osd_ready = true;
}
