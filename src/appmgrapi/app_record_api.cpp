// Record domain operations of AppManager.
#include "model/app_manager.h"

#include "appmgrapi/app_api_forward.h"
#include "appmgrapi/app_json_fields.h"

int AppManager::setRecordTaskEnable(const std::string& index, int enable)
{
    return appapi::forward(zmq_sub_worker.get(), &ZmqSubWorker::setRecordTaskEnable, index, enable);
}

int AppManager::getRecordTaskList(std::vector<RecordTaskInfo>& list)
{
    return appapi::withWorker(zmq_sub_worker.get(), [&](ZmqSubWorker& worker) {
        json tasks;
        const int status = worker.getRecordTaskList(tasks);
        if (status < 0) {
            LOG_ERR("getRecordTaskList failed with result: %d\n", status);
            return status;
        }
        list.clear();
        if (!tasks.is_array()) {
            LOG_ERR("getRecordTaskList: data is not an array\n");
            return appapi::kFailure;
        }
        try {
            for (const json& task : tasks) {
                RecordTaskInfo info;
                appapi::readString(task, "index", info.index);
                appapi::readInt(task, "storage_id", info.storage_id);
                appapi::readInt(task, "status", info.status);
                auto storage = task.find("storageInfo");
                if (storage != task.end() && storage->is_object()) {
                    appapi::readString(*storage, "name", info.name);
                }
                list.push_back(info);
            }
        } catch (const json::exception& e) {
            LOG_ERR("getRecordTaskList JSON parse error: %s\n", e.what());
            return appapi::kFailure;
        }
        return 0;
    });
}
