#include "state/defaults.h"

namespace sim {

namespace {

// Space in MB; status 0 absent, 1 ready, 2 full, 3 read-only, 4 error,
// 5 unsupported file system.
json disk(const char* name, int index, int status, int total, int used)
{
    return {{"name", name},
            {"index", index},
            {"status", status},
            {"totalspace", total},
            {"freespace", total - used},
            {"usagespace", used},
            {"write_speed", 0.0}};
}

json task(const char* index, int storage_id, const char* disk_name)
{
    return {{"index", index},
            {"storage_id", storage_id},
            {"status", 0},
            {"duration", 0},
            {"name", std::string(index) + "_rec"},
            {"record_format", 0},
            {"record_mode", 0},
            {"record_loop_mode", 0},
            {"size_limit", 4096},
            {"time_limit", 60},
            {"limit_type", 0},
            {"storageInfo", {{"name", disk_name}}}};
}

} // namespace

json defaultStorageState()
{
    return {
        {"storage",
         {{"disks", json::array({disk("TF", 0, 1, 60000, 21000), disk("USB1", 1, 1, 240000, 50000),
                                 disk("nas1", 3, 1, 1000000, 400000)})},
          {"present_storage_id", 0},
          {"speed_test", {{"storage_id", -1}, {"ticks_left", 0}}},
          {"measured_speeds", {{"0", 42.5}, {"1", 118.0}, {"3", 96.4}}},
          {"nas",
           json::array({{{"index", 0}, {"name", "Archive NAS"}, {"switch", 1}, {"status", 1}},
                        {{"index", 1}, {"name", "Backup NAS"}, {"switch", 0}, {"status", 0}}})}}},
        {"record",
         {{"write_mb_per_tick", 5},
          {"tasks", json::array({task("sdcard_0", 0, "TF"), task("usb1_0", 1, "USB1"),
                                 task("nas1_0", 3, "nas1")})}}},
    };
}

} // namespace sim
