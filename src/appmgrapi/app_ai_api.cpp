// AI domain operations of AppManager. Unlike the other records, a key the
// service leaves out reads as 0 here.
#include "model/app_manager.h"

#include "appmgrapi/app_api_forward.h"
#include "appmgrapi/app_json_fields.h"

using appapi::intOr;

int AppManager::setAiEnable(int nn_enable)
{
    return appapi::forward(zmq_sub_worker.get(), &ZmqSubWorker::setAiEnable, nn_enable);
}

int AppManager::setGskEnable(int im_enable)
{
    return appapi::forward(zmq_sub_worker.get(), &ZmqSubWorker::setGskEnable, im_enable);
}

int AppManager::getGskInfo(GskInfo& info)
{
    return appapi::decodeRead(
        zmq_sub_worker.get(), &ZmqSubWorker::getGskInfo, "getGskInfo", [&](const json& value) {
            info.im_enable = intOr(value, "im_enable", 0);
            // The size of whatever the service lists: an object counts its keys.
            auto files = value.find("user_bgfile_list");
            info.user_bgfile_count = files != value.end() ? static_cast<int>(files->size()) : 0;
            return 0;
        });
}

int AppManager::getAiTrackingInfo(AiTrackingInfo& info)
{
    return appapi::decodeRead(zmq_sub_worker.get(), &ZmqSubWorker::getAiTrackingInfo,
                              "getAiTrackingInfo", [&](const json& value) {
                                  info.nn_enable = intOr(value, "nn_enable", 0);
                                  info.nn_type = intOr(value, "nn_type", 0);
                                  return 0;
                              });
}
