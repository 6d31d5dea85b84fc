// Storage domain operations of AppManager.
#include "model/app_manager.h"

#include "appmgrapi/app_api_forward.h"
#include "model/vm_builders/record_disk.h"

int AppManager::setNasMount(int index)
{
    return appapi::forward(zmq_sub_worker.get(), &ZmqSubWorker::setNasMount, index);
}

int AppManager::setNasUmount(int index)
{
    return appapi::forward(zmq_sub_worker.get(), &ZmqSubWorker::setNasUmount, index);
}

int AppManager::setStorageSpeedTest(int storage_id)
{
    return appapi::forward(zmq_sub_worker.get(), &ZmqSubWorker::setStorageSpeedTest, storage_id);
}

int AppManager::setChooseStoragePath(int storage_id)
{
    return appapi::forward(zmq_sub_worker.get(), &ZmqSubWorker::setChooseStoragePath, storage_id);
}

int AppManager::getPresentStorage(int& storage_id)
{
    return appapi::forward(zmq_sub_worker.get(), &ZmqSubWorker::getPresentStorage, storage_id);
}

int AppManager::getDiskStatus(int storage_id) const
{
    const int slot = recordDiskSlot(storage_id);
    if (!zmq_sub_worker || slot < 0)
        return -1;
    return zmq_sub_worker->getSubCache().disk_status[slot];
}

float AppManager::getDiskWriteSpeed(int storage_id) const
{
    const int slot = recordDiskSlot(storage_id);
    if (!zmq_sub_worker || slot < 0)
        return 0.0f;
    return zmq_sub_worker->getSubCache().disk_write_speed[slot];
}
