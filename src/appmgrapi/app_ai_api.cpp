// AI domain operations of AppManager. Unlike the other records, a key the
// service leaves out reads as 0 here.
#include "model/app_manager.h"

#include "appmgrapi/app_api_forward.h"

namespace {

int intOrZero(const json& object, const char* key)
{
    auto it = object.find(key);
    return it != object.end() ? it->get<int>() : 0;
}

} // namespace

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
            info.im_enable = intOrZero(value, "im_enable");
            auto files = value.find("user_bgfile_list");
            info.user_bgfile_count = files != value.end() ? static_cast<int>(files->size()) : 0;
            return 0;
        });
}

int AppManager::getAiTrackingInfo(AiTrackingInfo& info)
{
    return appapi::decodeRead(zmq_sub_worker.get(), &ZmqSubWorker::getAiTrackingInfo,
                              "getAiTrackingInfo", [&](const json& value) {
                                  info.nn_enable = intOrZero(value, "nn_enable");
                                  info.nn_type = intOrZero(value, "nn_type");
                                  return 0;
                              });
}
