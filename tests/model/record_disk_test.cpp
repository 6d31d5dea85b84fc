#include "cache_builders.h"
#include "model/vm_builders/record_disk.h"

#include <gtest/gtest.h>

using namespace modeltest;

namespace {

struct IconCase {
    const char* what;
    int status;
    qint64 total;
    qint64 used;
    qint64 free;
    bool available;
    int level;
};

class DiskIconLevelTest : public ::testing::TestWithParam<IconCase> {};

TEST_P(DiskIconLevelTest, LevelFollowsStatusAndFill)
{
    const IconCase& c = GetParam();
    EXPECT_EQ(buildRecordDiskIconState(0, c.status, c.total, c.used, c.free, c.available), c.level)
        << c.what;
}

INSTANTIATE_TEST_SUITE_P(
    Boundaries, DiskIconLevelTest,
    ::testing::Values(IconCase{"no status", 0, 1000, 100, 900, true, 0},
                      IconCase{"negative status", -1, 1000, 100, 900, true, 0},
                      IconCase{"not available", 1, 1000, 100, 900, false, 0},
                      IconCase{"unavailable wins over full", 2, 1000, 1000, 0, false, 0},
                      IconCase{"no free space", 1, 1000, 1000, 0, true, 4},
                      IconCase{"status full with space left", 2, 1000, 100, 900, true, 4},
                      IconCase{"no free space wins over faulty status", 3, 1000, 1000, 0, true, 4},
                      IconCase{"status 3", 3, 1000, 100, 900, true, 0},
                      IconCase{"status 4", 4, 1000, 100, 900, true, 0},
                      IconCase{"status 5", 5, 1000, 100, 900, true, 0},
                      IconCase{"status 6 counts as usable", 6, 1000, 100, 900, true, 1},
                      IconCase{"no total, free above 60 GB", 1, 0, 0, 61441, true, 1},
                      IconCase{"no total, free exactly 60 GB", 1, 0, 0, 61440, true, 2},
                      IconCase{"no total, free 40000", 1, 0, 0, 40000, true, 2},
                      IconCase{"no total, free just above 30 GB", 1, 0, 0, 30721, true, 2},
                      IconCase{"no total, free exactly 30 GB", 1, 0, 0, 30720, true, 3},
                      IconCase{"no total, a little free", 1, 0, 0, 1, true, 3},
                      IconCase{"nothing used", 1, 1000, 0, 1000, true, 1},
                      IconCase{"29 percent used", 1, 1000, 299, 701, true, 1},
                      IconCase{"30 percent used", 1, 1000, 300, 700, true, 2},
                      IconCase{"59 percent used", 1, 1000, 599, 401, true, 2},
                      IconCase{"60 percent used", 1, 1000, 600, 400, true, 3},
                      IconCase{"percent truncates, 29.99", 1, 10000, 2999, 7001, true, 1},
                      // Sizes near the int range must not overflow when scaled by 100.
                      IconCase{"large disk half used", 1, 2000000000, 1000000000, 1000000000, true,
                               2},
                      IconCase{"large disk nearly full", 1, 2000000000, 1999999999, 1, true, 3}));

TEST(RecordDiskHelpersTest, StorageIdsMapToCacheSlots)
{
    ZmqSubCache sub;
    putDisk(sub, 0, {1, 100, 10, 90});
    putDisk(sub, 1, {1, 200, 20, 180});
    putDisk(sub, 2, {1, 300, 30, 270});
    putRecordTask(sub, 2, "nas1_0", 1, 42);

    EXPECT_EQ(getRecordDiskTotalSpace(sub, 0), 100);
    EXPECT_EQ(getRecordDiskUsedSpace(sub, 1), 20);
    EXPECT_EQ(getRecordDiskFreeSpace(sub, 3), 270);
    EXPECT_EQ(getRecordTaskStatus(sub, 3), 1);
    EXPECT_EQ(getRecordTaskDuration(sub, 3), 42);
    EXPECT_TRUE(isRecordDiskAvailable(sub, 3));
}

TEST(RecordDiskHelpersTest, IdsWithoutSlotReadAsNoDisk)
{
    ZmqSubCache sub;
    for (int slot = 0; slot < ZmqSubCache::kDiskSlots; ++slot) {
        putDisk(sub, slot, {1, 500, 50, 450});
        putRecordTask(sub, slot, "task", 1, 10);
    }
    // 2 is the second USB port, which the cache does not keep.
    for (int id : {-1, 2, 4}) {
        EXPECT_EQ(getRecordDiskFreeSpace(sub, id), 0) << id;
        EXPECT_EQ(getRecordDiskTotalSpace(sub, id), 0) << id;
        EXPECT_EQ(getRecordDiskUsedSpace(sub, id), 0) << id;
        EXPECT_EQ(getRecordTaskStatus(sub, id), 0) << id;
        EXPECT_EQ(getRecordTaskDuration(sub, id), 0) << id;
        EXPECT_FALSE(isRecordDiskAvailable(sub, id)) << id;
        EXPECT_EQ(getDiskStatus(sub, id), -1) << id;
    }
}

TEST(RecordDiskHelpersTest, AvailabilityNeedsTheStorageTopic)
{
    ZmqSubCache sub;
    sub.disk_present[0] = true;
    EXPECT_FALSE(isRecordDiskAvailable(sub, 0));
    sub.storage_ready = true;
    EXPECT_TRUE(isRecordDiskAvailable(sub, 0));
}

} // namespace
