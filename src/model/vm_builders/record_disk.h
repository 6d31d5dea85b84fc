#pragma once
// Reads of the record disks from the subscription cache. A disk is named by
// its storage id (0 TF card, 1 USB, 3 NAS); the cache keeps these three in
// slots 0, 1, 2 and does not keep the second USB port (id 2) at all. An id
// without a slot reads as 0, false, or -1 for the disk status.
#include "link/zmq_sub_cache.h"

#include <QtGlobal>

// Slot of a storage id in the cache's disk arrays, or -1.
int recordDiskSlot(int storage_id);
inline bool isRecordDiskId(int storage_id)
{
    return recordDiskSlot(storage_id) >= 0;
}

qint64 getRecordDiskFreeSpace(const ZmqSubCache& sub, int storage_id);
qint64 getRecordDiskTotalSpace(const ZmqSubCache& sub, int storage_id);
qint64 getRecordDiskUsedSpace(const ZmqSubCache& sub, int storage_id);
int getRecordTaskStatus(const ZmqSubCache& sub, int storage_id);
int getRecordTaskDuration(const ZmqSubCache& sub, int storage_id);
bool isRecordDiskAvailable(const ZmqSubCache& sub, int storage_id);
int getDiskStatus(const ZmqSubCache& sub, int storage_id);

// Level of the record disk icon: 0 not usable, 1 to 3 filling up, 4 full.
// Sizes in MB. `storage_id` is accepted for symmetry and not used.
int buildRecordDiskIconState(int storage_id, int status, qint64 total, qint64 used, qint64 free,
                             bool available);
