// Media player domain operations of AppManager.
#include "model/app_manager.h"

#include "appmgrapi/app_api_forward.h"

#include <string>

namespace {

UvcDevInfo decodeUvcDevice(const json& element)
{
    UvcDevInfo info;
    info.id = element.value("id", 0);
    info.switch_on = element.value("switch", 0);
    info.play_status = element.value("play_status", info.switch_on);
    info.format_check = element.value("format_check", 0);
    info.resolution_check = element.value("resolution_check", 0);
    info.fps_check = element.value("fps_check", 0);
    info.dev_check = element.value("dev_check", 0);
    auto name = element.find("name");
    if (name != element.end())
        info.name = name->get<std::string>();
    info.present = info.dev_check != 0 || !info.name.empty();
    return info;
}

} // namespace

int AppManager::setDecUvcOpen(int dev_id)
{
    return appapi::forward(zmq_sub_worker.get(), &ZmqSubWorker::setDecUvcOpen, dev_id);
}

int AppManager::setDecUvcClose(int dev_id)
{
    return appapi::forward(zmq_sub_worker.get(), &ZmqSubWorker::setDecUvcClose, dev_id);
}

int AppManager::getDecUvcList(std::vector<UvcDevInfo>& list)
{
    return appapi::decodeRead(
        zmq_sub_worker.get(), &ZmqSubWorker::getDecUvcList, "getDecUvcList",
        [&](const json& devices) {
            if (!devices.is_array()) {
                LOG_ERR("getDecUvcList: data is not an array\n");
                return appapi::kFailure;
            }
            list.clear();
            if (devices.empty()) {
                LOG_WAR("getDecUvcList: uvc_list is empty\n");
                return 0;
            }
            const bool hub_mode = devices.front().value("usbhub_check", 0) != 0;
            const std::size_t start = hub_mode ? 1 : 0;
            for (std::size_t i = start; i < devices.size(); ++i) {
                UvcDevInfo info = decodeUvcDevice(devices[i]);
                if (info.name.empty()) {
                    info.name = hub_mode ? "hub" + std::to_string(i - start + 1) : "USB";
                }
                list.push_back(info);
            }
            return 0;
        });
}
