// Network domain operations of AppManager.
#include "model/app_manager.h"

#include "appmgrapi/app_api_forward.h"
#include "appmgrapi/app_json_fields.h"

int AppManager::setApSwitch(int ap_switch)
{
    return appapi::forward(zmq_sub_worker.get(), &ZmqSubWorker::setApSwitch, ap_switch);
}

int AppManager::setWifiSwitch(int wifi_switch)
{
    return appapi::forward(zmq_sub_worker.get(), &ZmqSubWorker::setWifiSwitch, wifi_switch);
}

int AppManager::getApInfo(ApInfo& info)
{
    return appapi::decodeRead(zmq_sub_worker.get(), &ZmqSubWorker::getApInfo, "getApInfo",
                              [&](const json& value) {
                                  appapi::readText(value, "ssid", info.ssid);
                                  appapi::readText(value, "psk", info.psk);
                                  return 0;
                              });
}
