// Storage domain operations of ZmqSubWorker.
#include "zmqapi/zmq_api_patterns.h"

using zmqapi::command;

int ZmqSubWorker::setNasMount(int index)
{
    return sendStorageApiControl(command("nas", "nas_mount", {{"index", index}}));
}

int ZmqSubWorker::setNasUmount(int index)
{
    return sendStorageApiControl(command("nas", "nas_umount", {{"index", index}}));
}

int ZmqSubWorker::setStorageSpeedTest(int storage_id)
{
    return sendStorageApiControl(
        command("test_storage_speed", nullptr, {{"storage_id", storage_id}}));
}

int ZmqSubWorker::setChooseStoragePath(int storage_id)
{
    return sendStorageApiControl(
        command("choose_storage_path", nullptr, {{"storage_id", storage_id}}));
}

int ZmqSubWorker::getNasInfoList(json& out)
{
    return zmqapi::get(*this, &ZmqSubWorker::getStorageApiInfo, "nas", "get_nas_info_list", out);
}

int ZmqSubWorker::getPresentStorage(int& storage_id)
{
    json data;
    const int status =
        zmqapi::get(*this, &ZmqSubWorker::getStorageApiInfo, "get_present_storage", nullptr, data);
    if (status < 0)
        return status;
    auto it = data.find("storage_id");
    if (it == data.end())
        return zmqapi::kFailure;
    try {
        storage_id = it->get<int>();
    } catch (const json::exception& e) {
        LOG_ERR("Exception: %s\n", e.what());
        return zmqapi::kFailure;
    }
    return 0;
}
