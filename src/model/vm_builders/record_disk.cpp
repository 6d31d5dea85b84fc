#include "model/vm_builders/record_disk.h"

#include <cstdint>

namespace {

// Disk states of the storage topic that mean the disk cannot take a recording.
constexpr int kDiskStatusFull = 2;
bool isUnusableDiskStatus(int status)
{
    return status == 3 || status == 4 || status == 5;
}

// Free-space bands for a disk that reports no total: 30 GB and 60 GB.
constexpr qint64 kLowFreeMb = 30720;
constexpr qint64 kHighFreeMb = 61440;

int levelFromFreeSpace(qint64 free)
{
    if (free > kHighFreeMb) {
        return 1;
    }
    if (free > kLowFreeMb) {
        return 2;
    }
    return 3;
}

int levelFromUsedPercent(qint64 total, qint64 used)
{
    const std::uint64_t percent =
        static_cast<std::uint64_t>(used) * 100u / static_cast<std::uint64_t>(total);
    if (percent < 30) {
        return 1;
    }
    if (percent < 60) {
        return 2;
    }
    return 3;
}

} // namespace

int recordDiskSlot(int storage_id)
{
    switch (storage_id) {
    case 0:
        return 0;
    case 1:
        return 1;
    case 3:
        return 2;
    default:
        return -1;
    }
}

namespace {

// The value a per-disk cache array holds for the storage id, or 0.
int slotValue(const int (&values)[ZmqSubCache::kDiskSlots], int storage_id)
{
    const int slot = recordDiskSlot(storage_id);
    return slot < 0 ? 0 : values[slot];
}

} // namespace

qint64 getRecordDiskFreeSpace(const ZmqSubCache& sub, int storage_id)
{
    return slotValue(sub.disk_free, storage_id);
}

qint64 getRecordDiskTotalSpace(const ZmqSubCache& sub, int storage_id)
{
    return slotValue(sub.disk_total, storage_id);
}

qint64 getRecordDiskUsedSpace(const ZmqSubCache& sub, int storage_id)
{
    return slotValue(sub.disk_used, storage_id);
}

int getRecordTaskStatus(const ZmqSubCache& sub, int storage_id)
{
    return slotValue(sub.record_status, storage_id);
}

int getRecordTaskDuration(const ZmqSubCache& sub, int storage_id)
{
    return slotValue(sub.record_duration, storage_id);
}

bool isRecordDiskAvailable(const ZmqSubCache& sub, int storage_id)
{
    const int slot = recordDiskSlot(storage_id);
    return slot >= 0 && sub.storage_ready && sub.disk_present[slot];
}

int getDiskStatus(const ZmqSubCache& sub, int storage_id)
{
    const int slot = recordDiskSlot(storage_id);
    return slot < 0 ? -1 : sub.disk_status[slot];
}

int buildRecordDiskIconState(int /*storage_id*/, int status, qint64 total, qint64 used, qint64 free,
                             bool available)
{
    if (status < 1 || !available) {
        return 0;
    }
    if (free < 1 || status == kDiskStatusFull) {
        return 4;
    }
    if (isUnusableDiskStatus(status)) {
        return 0;
    }
    if (total < 1) {
        return levelFromFreeSpace(free);
    }
    if (used < 1) {
        return 1;
    }
    return levelFromUsedPercent(total, used);
}
