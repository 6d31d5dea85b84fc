// The record disk: which cache slot a storage id reads, and the fill level of
// its icon at every band edge.
#include "device_caches.h"
#include "model/vm_builders/record_disk.h"

namespace modeltest {
namespace {

// Level 0 hidden or unusable, 1 to 3 filling up, 4 full.
TEST(RecordDisk, IconLevelFollowsStatusAndFill)
{
    struct Case {
        const char* what;
        int status;
        qint64 total, used, free;
        bool available;
        int level;
    };
    const Case cases[] = {{"no status", 0, 1000, 100, 900, true, 0},
                          {"not available", 1, 1000, 100, 900, false, 0},
                          {"unavailable wins over full", 2, 1000, 1000, 0, false, 0},
                          {"no free space", 1, 1000, 1000, 0, true, 4},
                          {"status full with space left", 2, 1000, 100, 900, true, 4},
                          {"no free space wins over a faulty status", 3, 1000, 1000, 0, true, 4},
                          {"status 3", 3, 1000, 100, 900, true, 0},
                          {"status 5", 5, 1000, 100, 900, true, 0},
                          {"status 6 counts as usable", 6, 1000, 100, 900, true, 1},
                          {"no total, free above 60 GB", 1, 0, 0, 61441, true, 1},
                          {"no total, free exactly 60 GB", 1, 0, 0, 61440, true, 2},
                          {"no total, free just above 30 GB", 1, 0, 0, 30721, true, 2},
                          {"no total, free exactly 30 GB", 1, 0, 0, 30720, true, 3},
                          {"nothing used", 1, 1000, 0, 1000, true, 1},
                          {"29 percent used", 1, 1000, 299, 701, true, 1},
                          {"30 percent used", 1, 1000, 300, 700, true, 2},
                          {"59 percent used", 1, 1000, 599, 401, true, 2},
                          {"60 percent used", 1, 1000, 600, 400, true, 3},
                          {"29.99 percent truncates", 1, 10000, 2999, 7001, true, 1},
                          // Sizes near the int range must not overflow when scaled by 100.
                          {"large disk nearly full", 1, 2000000000, 1999999999, 1, true, 3}};
    for (const Case& c : cases)
        EXPECT_EQ(buildRecordDiskIconState(0, c.status, c.total, c.used, c.free, c.available),
                  c.level)
            << c.what;
}

// Storage ids 0 TF, 1 USB, 3 NAS read slots 0, 1, 2; others (2 is the second
// USB port) read as no disk.
TEST(RecordDisk, StorageIdsReadTheirCacheSlots)
{
    const ZmqSubCache s = reportedCaches().sub;
    const std::pair<int, int> slotOf[] = {{0, 0}, {1, 1}, {3, 2}, {-1, -1}, {2, -1}, {4, -1}};
    for (const auto& [id, slot] : slotOf) {
        SCOPED_TRACE(id);
        const bool known = slot >= 0;
        // The other per-slot reads share the map.
        EXPECT_EQ(getRecordDiskFreeSpace(s, id), known ? s.disk_free[slot] : 0);
        EXPECT_EQ(getDiskStatus(s, id), known ? s.disk_status[slot] : -1);
        EXPECT_EQ(isRecordDiskAvailable(s, id), known && s.disk_present[slot]);
    }
    ZmqSubCache unreported = s;
    unreported.storage_ready = false;
    EXPECT_FALSE(isRecordDiskAvailable(unreported, 0)) << "availability needs the storage topic";
}

} // namespace
} // namespace modeltest
