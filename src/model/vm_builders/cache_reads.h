#pragma once
// Small reads of the two caches that several view models share. Each one
// honours the ready or valid flag of its group: a group that has not reported
// reads as off.
#include "link/zmq_get_cache.h"
#include "link/zmq_sub_cache.h"

namespace vmcache {

// Work modes as the system state topic reports them.
constexpr int kWorkModeEncoder = 0;
constexpr int kWorkModeDecoder = 1;

// The work mode a view model is built for: the published one once the system
// state topic has reported, else the mode the application last stored.
inline int resolveWorkMode(const ZmqSubCache& sub, int stored_work_mode)
{
    return sub.system_state_ready ? sub.workmode_id : stored_work_mode;
}

inline bool ethernetLinkUp(const ZmqSubCache& sub)
{
    return sub.network_ready && sub.lan_state > 0;
}

// Joined to a network as a Wi-Fi client: the switch is on and the status is 4.
inline bool wifiClientConnected(const ZmqSubCache& sub)
{
    return sub.network_ready && sub.wifi_switch && sub.wifi_status == 4;
}

inline bool encoderNdiOn(const ZmqGetCache& get)
{
    return get.enc_ndi_valid && get.enc_ndi_switch != 0;
}

inline bool lcdLocked(const ZmqGetCache& get)
{
    return get.lcd_valid && get.lcd_lock_stat != 0;
}

// Storage id of the record disk the user chose, or -1 before it is known.
inline int presentStorageId(const ZmqGetCache& get)
{
    return get.present_storage_valid ? get.present_storage_id : -1;
}

} // namespace vmcache
