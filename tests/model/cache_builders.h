#pragma once
// Cache states for the view-model tests, built from the values a test cares
// about; everything else keeps the cache's start state.
#include "link/zmq_get_cache.h"
#include "link/zmq_sub_cache.h"

#include <string>

namespace modeltest {

struct NetworkState {
    int lan_state = 0;
    bool wifi_switch = false;
    int wifi_status = 0;
    bool ap_switch = false;
    std::string ip;
};

inline ZmqSubCache subWithNetwork(const NetworkState& net)
{
    ZmqSubCache sub;
    sub.network_ready = true;
    sub.lan_state = net.lan_state;
    sub.wifi_switch = net.wifi_switch;
    sub.wifi_status = net.wifi_status;
    sub.ap_switch = net.ap_switch;
    sub.ip = net.ip;
    return sub;
}

struct DiskState {
    int status = 1;
    int total = 0;
    int used = 0;
    int free = 0;
};

// A disk as the storage topic reports it in `slot` (0 TF, 1 USB, 2 NAS).
inline void putDisk(ZmqSubCache& sub, int slot, const DiskState& disk)
{
    sub.storage_ready = true;
    sub.disk_status[slot] = disk.status;
    sub.disk_present[slot] = disk.status > 0;
    sub.disk_total[slot] = disk.total;
    sub.disk_used[slot] = disk.used;
    sub.disk_free[slot] = disk.free;
}

inline void putRecordTask(ZmqSubCache& sub, int slot, const std::string& task_id, int status,
                          int duration)
{
    sub.record_ready = true;
    sub.record_task_id[slot] = task_id;
    sub.record_status[slot] = status;
    sub.record_duration[slot] = duration;
    sub.record_active = sub.record_active || status == 1;
}

inline ZmqSubCache subInWorkMode(int work_mode)
{
    ZmqSubCache sub;
    sub.system_state_ready = true;
    sub.workmode_id = work_mode;
    return sub;
}

inline ZmqGetCache getWithPresentStorage(int storage_id)
{
    ZmqGetCache get;
    get.present_storage_valid = true;
    get.present_storage_id = storage_id;
    return get;
}

} // namespace modeltest
